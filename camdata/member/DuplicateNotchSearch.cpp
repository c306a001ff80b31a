#include "camdata/member/DuplicateNotchSearch.h"

#include "camdata/member/PositionGrid.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace camdata::detail {
namespace {

/// Below this number comparing each with each is faster.
constexpr long kFewNotches = 16;

/// A power of two above the current tolerance, which can only be compared with; nothing when there
/// is none of reasonable size.
std::optional<double> AboveCurrentTolerance() {
    constexpr double kLargest = 1e6;
    for (double above = PositionGrid::kSmallestCell; above <= kLargest; above *= 2.0) {
        if (!CMxGeom::IsEqual_Mx(above, 0.0))
            return above;
    }
    return std::nullopt;
}

/// A position as notches compare it.
struct RoundedPosition {
    double x;
    double y;

    /// Otherwise the notch is equal to none.
    bool IsFinite() const { return std::isfinite(x) && std::isfinite(y); }
    bool IsFit() const { return !IsFinite() || (IsFitForGrid(x) && IsFitForGrid(y)); }
};

std::vector<RoundedPosition> RoundedPositions(const ZetArray<CNotchAddInfo>& notches) {
    std::vector<RoundedPosition> positions;
    for (const CNotchAddInfo& notch : notches)
        positions.push_back({notch.GetXPos(1), notch.GetYPos(1)});
    return positions;
}

/// Notches by their rounded positions.
class KeptNotches {
  public:
    KeptNotches(std::vector<RoundedPosition> positions, double reach)
        : m_positions(std::move(positions)), m_reach(reach), m_grid(reach) {}

    void Add(long index) {
        const RoundedPosition& at = m_positions[static_cast<std::size_t>(index)];
        if (at.IsFinite())
            m_grid.Add(index, at.x, at.y);
    }

    template <typename Visit>
    void ForEachNear(long index, const Visit& visit) const {
        const RoundedPosition& at = m_positions[static_cast<std::size_t>(index)];
        if (at.IsFinite())
            m_grid.ForEachNear(at.x, at.y, m_reach, m_reach, visit);
    }

  private:
    std::vector<RoundedPosition> m_positions;
    double m_reach;
    PositionGrid m_grid;
};

bool AreFit(const std::vector<RoundedPosition>& positions) {
    return std::all_of(
        positions.begin(), positions.end(), [](const RoundedPosition& at) { return at.IsFit(); });
}

}  // namespace

Removers FindDuplicateNotches(const ZetArray<CNotchAddInfo>& notches) {
    const auto isDuplicate = [&](long first, long later) {
        return notches[first] == notches[later];
    };
    const auto compareAll = [&] {
        return FindRemovers(notches.length(), KeptRecords(), isDuplicate);
    };
    if (notches.length() < kFewNotches)
        return compareAll();
    std::vector<RoundedPosition> positions = RoundedPositions(notches);
    const std::optional<double> reach = AboveCurrentTolerance();
    if (!reach || !AreFit(positions))
        return compareAll();
    return FindRemovers(notches.length(), KeptNotches(std::move(positions), *reach), isDuplicate);
}

}  // namespace camdata::detail
