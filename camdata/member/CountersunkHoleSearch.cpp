#include "camdata/member/CountersunkHoleSearch.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace camdata::detail {
namespace {

struct PlacedHole {
    double x;
    double y;
    long index;

    bool IsBefore(const PlacedHole& other) const {
        return std::tie(x, y) < std::tie(other.x, other.y);
    }
    bool IsAtPlaceOf(const PlacedHole& other) const { return x == other.x && y == other.y; }
};

/// The holes for which `isWanted` holds, by position, at one position by index. A position that is
/// no number is equal to none.
template <typename IsWanted>
std::vector<PlacedHole> SortedByPosition(const ZetArray<CHoleAddlInfo>& holes,
                                         const IsWanted& isWanted) {
    std::vector<PlacedHole> placed;
    for (long index = 0; index < holes.length(); ++index) {
        const PlacedHole hole = {holes[index].GetXPos(), holes[index].GetYPos(), index};
        if (isWanted(holes[index]) && !std::isnan(hole.x) && !std::isnan(hole.y))
            placed.push_back(hole);
    }
    std::stable_sort(placed.begin(), placed.end(), [](const PlacedHole& a, const PlacedHole& b) {
        return a.IsBefore(b);
    });
    return placed;
}

}  // namespace

bool CanBeMarkedAsCountersunk(const CHoleAddlInfo& hole) {
    return hole.GetHoleStatus() != eHoleStatusCSK && !hole.GetIsCSK();
}

std::vector<long> FindCountersunkHoles(const ZetArray<CHoleAddlInfo>& holes) {
    const auto isCountersink = [](const CHoleAddlInfo& hole) {
        return hole.GetHoleStatus() == eHoleStatusCSK;
    };
    std::vector<long> marked;
    const std::vector<PlacedHole> countersinks = SortedByPosition(holes, isCountersink);
    if (countersinks.empty())
        return marked;
    // Both ascend, so the next hole not passed yet is the first that is left for a countersink.
    const std::vector<PlacedHole> free = SortedByPosition(holes, CanBeMarkedAsCountersunk);
    auto next = free.begin();
    for (const PlacedHole& countersink : countersinks) {
        while (next != free.end() && next->IsBefore(countersink))
            ++next;
        if (next != free.end() && next->IsAtPlaceOf(countersink))
            marked.push_back((next++)->index);
    }
    return marked;
}

}  // namespace camdata::detail
