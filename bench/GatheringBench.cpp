#include "SampleHoles.h"
#include "support/PlainGathering.h"
#include "support/TestMember.h"

#include <chrono>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

// Ordering, duplicates and holes inside slots: the library against plain loops over the same
// records. Only the operation itself is timed, not the copy of the list that it works on.

namespace {

using Clock = std::chrono::steady_clock;

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
    const TestMember original = MemberWith(makeHoles(state.range(0)));
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
