#include "camdata/member/DuplicateHoles.h"

#include "camdata/holes/CMxGeom.h"
#include "camdata/member/PositionGrid.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace camdata::detail {
namespace {

/// Below this number comparing each with each is faster.
constexpr long kFewHoles = 24;

/// What two holes must have in common, or nearly so, to be compared: their current position, which
/// must be equal, or their NC position, which must be within reach.
///
/// Holes are filed in one grid per class of sizes, so that a few large holes among many small ones
/// do not make cells in which many small ones lie.
class KeptHoles {
  public:
    explicit KeptHoles(const ZetArray<CHoleAddlInfo>& holes) : m_holes(holes) {}

    void Add(long index) {
        const CHoleAddlInfo& hole = m_holes[index];
        m_byPosition.Add(HashOfPosition(hole.GetXPos(), hole.GetYPos()), index);
        const double largest = LargestOfClass(hole);
        const ZetNCHoleData& data = hole.GetHoleData();
        m_bySize.try_emplace(largest, largest + m_tolerance)
            .first->second.Add(index, data.x, data.y);
    }

    template <typename Visit>
    void ForEachNear(long index, const Visit& visit) const {
        const CHoleAddlInfo& hole = m_holes[index];
        m_byPosition.ForEach(HashOfPosition(hole.GetXPos(), hole.GetYPos()), visit);
        const ZetNCHoleData& data = hole.GetHoleData();
        for (const auto& [largest, grid] : m_bySize) {
            const double reach = Reach(hole, largest);
            grid.ForEachNear(data.x, data.y, reach, reach, visit);
        }
    }

  private:
    /// Sizes in a class differ at most by the factor two, or are at most 1 mm.
    static double LargestOfClass(const CHoleAddlInfo& hole) {
        return std::exp2(std::ceil(std::log2(std::max(hole.GetSize(), 1.0))));
    }
    /// No centre of a duplicate is farther away along either axis; the last factor covers rounding.
    double Reach(const CHoleAddlInfo& hole, double otherSize) const {
        return ((std::max(hole.GetSize(), 0.0) + otherSize) * 0.5 + m_tolerance) * (1.0 + 1e-9);
    }

    const ZetArray<CHoleAddlInfo>& m_holes;
    const double m_tolerance = std::abs(CMxGeom::GetEPS());
    HashChains m_byPosition;
    std::map<double, PositionGrid> m_bySize;
};

bool IsFit(const CHoleAddlInfo& hole) {
    const ZetNCHoleData& data = hole.GetHoleData();
    return IsFitForGrid(data.x) && IsFitForGrid(data.y) && IsFitForGrid(data.size) &&
           !std::isnan(hole.GetXPos()) && !std::isnan(hole.GetYPos());
}

bool AreFit(const ZetArray<CHoleAddlInfo>& holes) {
    return IsFitForGrid(CMxGeom::GetEPS()) && std::all_of(holes.begin(), holes.end(), IsFit);
}

}  // namespace

Removers FindDuplicateHoles(const ZetArray<CHoleAddlInfo>& holes) {
    const auto isDuplicate = [&](long first, long later) { return holes[first] == holes[later]; };
    if (holes.length() < kFewHoles || !AreFit(holes))
        return FindRemovers(holes.length(), KeptRecords(), isDuplicate);
    return FindRemovers(holes.length(), KeptHoles(holes), isDuplicate);
}

}  // namespace camdata::detail
