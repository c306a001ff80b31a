#include "support/HoleBuilder.h"
#include "support/PlainGathering.h"
#include "support/TestMember.h"

#include <chrono>
#include <random>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

// Ordering, duplicates and holes inside slots: the library against plain loops over the same
// records. Only the operation itself is timed, not the copy of the list that it works on.

namespace {

using Holes = std::vector<CHoleAddlInfo>;
using Clock = std::chrono::steady_clock;

/// Holes of 14 two by two, every 60 mm.
Holes Pattern(long count) {
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(60.0 * static_cast<double>(i / 2), i % 2 == 0 ? 60 : 140).Round(14));
    return holes;
}

double Drawn(std::mt19937_64& random, double below) {
    return static_cast<double>(random() % 1000000) * below * 1e-6;
}

Holes Random(long count) {
    std::mt19937_64 random(1);
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(Drawn(random, 12000), Drawn(random, 200)).Round(14));
    return holes;
}

/// All at one X.
Holes Column(long count) {
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(3000, 20.0 * static_cast<double>(i)).Round(14));
    return holes;
}

/// So close that most are duplicates.
Holes Dense(long count) {
    std::mt19937_64 random(1);
    Holes holes;
    for (long i = 0; i < count; ++i)
        holes.push_back(HoleAt(Drawn(random, 1200), Drawn(random, 200)).Round(14));
    return holes;
}

/// One hole in a hundred is as wide as two hundred others.
Holes LargeAndSmall(long count) {
    Holes holes = Pattern(count);
    for (std::size_t i = 0; i < holes.size(); i += 100)
        holes[i] = HoleAt(holes[i].GetXPos(), 5000).Round(2800);
    return holes;
}

/// Every tenth is a slot, and every second of these holds a hole.
Holes Slots(long count) {
    Holes holes = Pattern(count);
    for (std::size_t i = 0; i + 1 < holes.size(); i += 10) {
        const double x = holes[i].GetXPos();
        holes[i] = HoleAt(x, 60).Slot(14, 40);
        if (i % 20 == 0)
            holes[i + 1] = HoleAt(x + 5, 60).Round(14);
    }
    return holes;
}

using MakeHoles = Holes (*)(long);

/// Times `operation` on copies of the holes; `prepare` makes the list that it takes.
template <typename Prepare, typename Operation>
void Time(benchmark::State& state,
          MakeHoles makeHoles,
          const Prepare& prepare,
          const Operation& operation) {
    const Holes original = makeHoles(state.range(0));
    for (auto _ : state) {
        Holes holes = original;
        auto list = prepare(holes);
        const auto start = Clock::now();
        operation(list);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

template <typename Operation>
void TimePlain(benchmark::State& state, MakeHoles makeHoles, const Operation& operation) {
    Time(
        state, makeHoles, [](Holes& holes) { return PtrsTo(holes); }, operation);
}

template <typename Operation>
void TimeLibrary(benchmark::State& state, MakeHoles makeHoles, const Operation& operation) {
    const auto toMember = [](Holes& holes) {
        TestMember member;
        member.m_holes = ZetArray<CHoleAddlInfo>(holes.begin(), holes.end());
        return member;
    };
    Time(state, makeHoles, toMember, operation);
}

void OrderPlain(benchmark::State& state, MakeHoles makeHoles) {
    TimePlain(state, makeHoles, [](auto& list) { PlainOrder(list); });
}

void Order(benchmark::State& state, MakeHoles makeHoles) {
    TimeLibrary(state, makeHoles, [](auto& member) { TestMember::OrderHoles(member.m_holes); });
}

void DuplicatesPlain(benchmark::State& state, MakeHoles makeHoles) {
    TimePlain(state, makeHoles, [](auto& list) {
        Holes duplicates;
        PlainDuplicates(list, duplicates, PlainIsDuplicate);
    });
}

void Duplicates(benchmark::State& state, MakeHoles makeHoles) {
    TimeLibrary(state, makeHoles, [](auto& member) { member.MakeDupHoleArr(member.m_holes); });
}

void InSlotsPlain(benchmark::State& state, MakeHoles makeHoles) {
    TimePlain(state, makeHoles, [](auto& list) {
        Holes duplicates;
        PlainHolesInSlots(list, duplicates);
    });
}

void InSlots(benchmark::State& state, MakeHoles makeHoles) {
    TimeLibrary(state, makeHoles, [](auto& member) { member.MakeDupHoleArrForHolesInsideSlot(); });
}

/// All of the gathering of a member whose front view has these holes.
void Gathering(benchmark::State& state, MakeHoles makeHoles) {
    ZetArray<ZetNCHoleData> holes;
    for (const CHoleAddlInfo& hole : makeHoles(state.range(0)))
        holes.append(hole.GetHoleData());
    ZetArray<ZetNCView> views;
    views.append({});
    views.first().setViewPos(1);
    views.first().setHoles(std::move(holes));
    TestMember original;
    original.m_structure.setViews(std::move(views));
    for (auto _ : state) {
        TestMember member = original;
        const auto start = Clock::now();
        member.GetAndSortHolesNotches();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["per hole"] =
        benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    for (const long count : {20, 200, 2000, 10000})
        bench->Arg(count);
    bench->UseManualTime()->MinTime(0.05)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(Gathering, pattern, Pattern)->Arg(10)->Apply(Sizes);
BENCHMARK_CAPTURE(Gathering, random, Random)->Arg(10)->Apply(Sizes);
BENCHMARK_CAPTURE(Gathering, column, Column)->Arg(10)->Apply(Sizes);
BENCHMARK_CAPTURE(Gathering, dense, Dense)->Arg(10)->Apply(Sizes);

BENCHMARK_CAPTURE(OrderPlain, random, Random)->Apply(Sizes);
BENCHMARK_CAPTURE(Order, random, Random)->Apply(Sizes);
BENCHMARK_CAPTURE(Order, ordered, Pattern)->Apply(Sizes);

BENCHMARK_CAPTURE(DuplicatesPlain, pattern, Pattern)->Apply(Sizes);
BENCHMARK_CAPTURE(Duplicates, pattern, Pattern)->Apply(Sizes);
BENCHMARK_CAPTURE(DuplicatesPlain, random, Random)->Apply(Sizes);
BENCHMARK_CAPTURE(Duplicates, random, Random)->Apply(Sizes);
BENCHMARK_CAPTURE(DuplicatesPlain, column, Column)->Apply(Sizes);
BENCHMARK_CAPTURE(Duplicates, column, Column)->Apply(Sizes);
BENCHMARK_CAPTURE(DuplicatesPlain, dense, Dense)->Apply(Sizes);
BENCHMARK_CAPTURE(Duplicates, dense, Dense)->Apply(Sizes);
BENCHMARK_CAPTURE(DuplicatesPlain, largeAndSmall, LargeAndSmall)->Apply(Sizes);
BENCHMARK_CAPTURE(Duplicates, largeAndSmall, LargeAndSmall)->Apply(Sizes);

BENCHMARK_CAPTURE(InSlotsPlain, pattern, Slots)->Apply(Sizes);
BENCHMARK_CAPTURE(InSlots, pattern, Slots)->Apply(Sizes);

}  // namespace
