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
std::vector<PlacedHole> SortedByPosition(const std::vector<CountersinkRole>& holes,
                                         bool CountersinkRole::*isWanted) {
    std::vector<PlacedHole> placed;
    for (std::size_t index = 0; index < holes.size(); ++index) {
        const CountersinkRole& hole = holes[index];
        if (hole.*isWanted && !std::isnan(hole.x) && !std::isnan(hole.y))
            placed.push_back({hole.x, hole.y, static_cast<long>(index)});
    }
    std::stable_sort(placed.begin(), placed.end(), [](const PlacedHole& a, const PlacedHole& b) {
        return a.IsBefore(b);
    });
    return placed;
}

/// Of every hole with a countersink, on purpose; not the place in the list of countersinks.
constexpr long kCSKPosOfMainHole = 0;

}  // namespace

CountersinkRole CountersinkRoleOf(const CHoleAddlInfo& hole) {
    const bool isCountersink = hole.GetHoleStatus() == eHoleStatusCSK;
    return {hole.GetXPos(), hole.GetYPos(), isCountersink, !isCountersink && !hole.GetIsCSK()};
}

std::vector<long> FindCountersunkHoles(const std::vector<CountersinkRole>& holes) {
    std::vector<long> marked;
    const std::vector<PlacedHole> countersinks =
        SortedByPosition(holes, &CountersinkRole::isCountersink);
    if (countersinks.empty())
        return marked;
    // Both ascend, so the next hole not passed yet is the first that is left for a countersink.
    const std::vector<PlacedHole> free = SortedByPosition(holes, &CountersinkRole::canBeMarked);
    auto next = free.begin();
    for (const PlacedHole& countersink : countersinks) {
        while (next != free.end() && next->IsBefore(countersink))
            ++next;
        if (next != free.end() && next->IsAtPlaceOf(countersink))
            marked.push_back((next++)->index);
    }
    return marked;
}

void MarkAsCountersunk(CHoleAddlInfo& hole) {
    hole.SetIsCSK(true);
    hole.SetCSKPos(kCSKPosOfMainHole);
}

}  // namespace camdata::detail
