#include "support/PlainNesting.h"
#include "support/TestMember.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

// Nesting: the library against plain loops that make the same nests. The counters tell how many
// stock bars a way of nesting cuts, and how many bars are as long as all pieces together; first fit
// decreasing, which the library does not offer, shows what another order would save.

namespace {

using Parts = std::vector<PlainPart>;
using Clock = std::chrono::steady_clock;

/// Marks of 1 to 20 pieces, 300 to 3900 mm long.
Parts Random(long count) {
    std::mt19937_64 random(1);
    Parts parts;
    for (long i = 0; i < count; ++i) {
        const double length = 300.0 + static_cast<double>(random() % 36001) * 0.1;
        parts.push_back({ZetString::format(L"P%d", 1000 + i), 1 + long(random() % 20), length});
    }
    return parts;
}

/// As Random, all within 5 mm: most neighbours are equal within the tolerance.
Parts Alike(long count) {
    Parts parts = Random(count);
    for (PlainPart& part : parts)
        part.length = 1200.0 + part.length * 0.00125;
    return parts;
}

/// Marks without length: all of them on one bar.
Parts WithoutLength(long count) {
    Parts parts = Random(count);
    for (PlainPart& part : parts)
        part.length = 0.0;
    return parts;
}

double SumOf(const Parts& parts) {
    double sum = 0.0;
    for (const PlainPart& part : parts)
        sum += static_cast<double>(part.qty) * part.length;
    return sum;
}

using MakeParts = Parts (*)(long);

/// Times `nest`, which takes what `prepare` makes of the parts and returns the number of bars.
template <typename Prepare, typename Nest>
void Time(benchmark::State& state, MakeParts makeParts, const Prepare& prepare, const Nest& nest) {
    const Parts parts = makeParts(state.range(0));
    long bars = 0;
    for (auto _ : state) {
        auto prepared = prepare(parts);
        const auto start = Clock::now();
        bars = nest(prepared);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["bars"] = static_cast<double>(bars);
    state.counters["length/4000"] = SumOf(parts) / 4000.0;
}

void NestingPlain(benchmark::State& state, MakeParts makeParts) {
    Time(state, makeParts, std::identity(), [](const Parts& parts) {
        long bars = 0;
        for (const PlainNest& nest : PlainNesting(parts, 0.0))
            bars += nest.qty;
        return bars;
    });
}

void Nesting(benchmark::State& state, MakeParts makeParts) {
    const auto toMember = [](const Parts& parts) {
        TestMember member;
        for (const PlainPart& part : parts)
            member.AppendNestQtyLen(part.qty, part.length, part.mark);
        return member;
    };
    Time(state, makeParts, toMember, [](TestMember& member) {
        member.Nesting();
        long bars = 0;
        for (const CMxNestParts& nest : member.m_nests)
            bars += nest.GetQty();
        // Plain nesting is timed with the end of its nests, too.
        member.m_nests.removeAll();
        return bars;
    });
}

/// The longest piece first, each on the first bar that has room for it.
void FirstFitDecreasing(benchmark::State& state, MakeParts makeParts) {
    Time(state, makeParts, std::identity(), [](const Parts& parts) {
        std::vector<double> pieces;
        for (const PlainPart& part : parts)
            pieces.insert(pieces.end(), static_cast<std::size_t>(part.qty), part.length);
        std::sort(pieces.begin(), pieces.end(), std::greater<>());
        std::vector<double> offCuts;
        for (const double length : pieces) {
            const auto hasRoom = [&](double offCut) { return offCut - length > 0.1; };
            auto bar = std::find_if(offCuts.begin(), offCuts.end(), hasRoom);
            if (bar == offCuts.end())
                bar = offCuts.insert(bar, 4000.0);
            *bar -= length;
        }
        return static_cast<long>(offCuts.size());
    });
}

void Sizes(benchmark::internal::Benchmark* bench) {
    for (const long count : {20, 200, 2000, 10000})
        bench->Arg(count);
    bench->UseManualTime()->MinTime(0.05)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(NestingPlain, random, Random)->Apply(Sizes);
BENCHMARK_CAPTURE(Nesting, random, Random)->Apply(Sizes)->Arg(100000);
BENCHMARK_CAPTURE(FirstFitDecreasing, random, Random)->Apply(Sizes);
BENCHMARK_CAPTURE(NestingPlain, alike, Alike)->Apply(Sizes);
BENCHMARK_CAPTURE(Nesting, alike, Alike)->Apply(Sizes);
BENCHMARK_CAPTURE(NestingPlain, withoutLength, WithoutLength)->Apply(Sizes);
BENCHMARK_CAPTURE(Nesting, withoutLength, WithoutLength)->Apply(Sizes);

}  // namespace
