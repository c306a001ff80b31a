#include "support/PlainMemberOrder.h"
#include "support/TestMember.h"

#include "camdata/member/MemberSorting.h"

#include <chrono>
#include <cstdlib>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

// The order of members: the library against the C library's sort with a plain comparison.

namespace {

using Clock = std::chrono::steady_clock;
using Pointers = ZetArray<CMxPeilaib*>;

/// Eight profile heights, lengths in steps of 0.1, ordered by height, length and mark.
std::vector<TestMember> Members(long count) {
    std::mt19937 random(1);
    const auto number = [&](unsigned below) { return static_cast<int>(random() % below); };
    std::vector<TestMember> members;
    for (long i = 0; i < count; ++i) {
        ZetNCHeaderData header;
        header.height = 100.0 + 50.0 * number(8);
        header.length = 500.0 + 0.1 * number(110000);
        header.mark = ZetString::format(L"P%d", number(100000));
        members.push_back(MemberOf(header));
        members.back().SetSortOrderArr({eSortProfileHeight, eSortLength, eSortMark});
    }
    return members;
}

/// Times `sort` on lists of the members, without the making of the list.
template <typename Sort>
void Time(benchmark::State& state, const Sort& sort) {
    std::vector<TestMember> members = Members(state.range(0));
    for (auto _ : state) {
        Pointers list;
        for (TestMember& member : members)
            list.append(&member);
        const auto start = Clock::now();
        sort(list);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

int PlainCompareElements(const void* a, const void* b) {
    return PlainCompare(**static_cast<const CMxPeilaib* const*>(a),
                        **static_cast<const CMxPeilaib* const*>(b));
}

void OrderMembersPlain(benchmark::State& state) {
    Time(state, [](Pointers& list) {
        std::qsort(&list[0],
                   static_cast<std::size_t>(list.length()),
                   sizeof list[0],
                   PlainCompareElements);
    });
}

void OrderMembers(benchmark::State& state) {
    Time(state, camdata::detail::SortMembers);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    for (const long count : {100, 1000, 10000, 100000})
        bench->Arg(count);
    bench->UseManualTime()->MinTime(0.05)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(OrderMembersPlain)->Apply(Sizes);
BENCHMARK(OrderMembers)->Apply(Sizes);

}  // namespace
