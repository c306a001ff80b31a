#include "camdata/member/HoleInSlotSearch.h"

#include "camdata/member/PositionGrid.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>

namespace camdata::detail {
namespace {

/// Below this number of pairs of a slot and a hole looking at each of them is faster.
constexpr std::size_t kFewPairs = 400;

/// Half the sides of a box around a slot's centre that holds the centre of every hole inside the
/// slot: it lies on the axis, within a slight angle, at most the tolerance beyond an end, or at
/// most the tolerance away from the centre.
struct SlotBox {
    double reachX;
    double reachY;
};

SlotBox BoxOf(const CHoleAddlInfo& slot) {
    constexpr double kMoreThanParallel = 2e-6;
    const ZetGeomVector2d& vector = slot.GetSlotVector();
    const double tolerance = std::abs(CMxGeom::GetYTol());
    const double margin = tolerance + kMoreThanParallel * (vector.length() + tolerance);
    return {std::abs(vector.x) + margin, std::abs(vector.y) + margin};
}

bool IsFit(const CHoleAddlInfo& hole) {
    const ZetGeomVector2d& vector = hole.GetSlotVector();
    return IsFitForGrid(hole.GetXPos()) && IsFitForGrid(hole.GetYPos()) && IsFitForGrid(vector.x) &&
           IsFitForGrid(vector.y);
}

bool AreFit(const ZetArray<CHoleAddlInfo>& holes) {
    return IsFitForGrid(CMxGeom::GetYTol()) && std::all_of(holes.begin(), holes.end(), IsFit);
}

std::vector<long> SlotsAmong(const ZetArray<CHoleAddlInfo>& holes) {
    std::vector<long> slots;
    for (long index = 0; index < holes.length(); ++index) {
        if (holes[index].GetIsSlot())
            slots.push_back(index);
    }
    return slots;
}

/// Every hole is a candidate for every slot.
class AllHoles {
  public:
    explicit AllHoles(const ZetArray<CHoleAddlInfo>& holes) : m_count(holes.length()) {}

    template <typename Visit>
    void ForEachNear(const CHoleAddlInfo& /*slot*/, const Visit& visit) const {
        for (long index = 0; index < m_count; ++index)
            visit(index);
    }

  private:
    long m_count;
};

/// Holes by their current positions, in cells about the length of half a slot.
class HoleGrid {
  public:
    HoleGrid(const ZetArray<CHoleAddlInfo>& holes, const std::vector<long>& slots)
        : m_grid(CellSize(holes, slots)) {
        for (long index = 0; index < holes.length(); ++index)
            m_grid.Add(index, holes[index].GetXPos(), holes[index].GetYPos());
    }

    template <typename Visit>
    void ForEachNear(const CHoleAddlInfo& slot, const Visit& visit) const {
        const SlotBox box = BoxOf(slot);
        m_grid.ForEachNear(slot.GetXPos(), slot.GetYPos(), box.reachX, box.reachY, visit);
    }

  private:
    /// The median, so that a few long slots do not make large cells for many short ones.
    static double CellSize(const ZetArray<CHoleAddlInfo>& holes, const std::vector<long>& slots) {
        std::vector<double> sizes;
        for (const long slot : slots) {
            const SlotBox box = BoxOf(holes[slot]);
            sizes.push_back(std::max(box.reachX, box.reachY));
        }
        const auto median = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
        std::nth_element(sizes.begin(), median, sizes.end());
        return std::max(*median, 1.0);
    }

    PositionGrid m_grid;
};

template <typename Candidates>
std::vector<HoleInSlot> FindAmong(const Candidates& candidates,
                                  const ZetArray<CHoleAddlInfo>& holes,
                                  const std::vector<long>& slots) {
    std::vector<HoleInSlot> found;
    std::vector<long> inside;
    for (const long slot : slots) {
        inside.clear();
        candidates.ForEachNear(holes[slot], [&](long hole) {
            if (hole != slot && holes[slot].IsInside(holes[hole]))
                inside.push_back(hole);
        });
        std::sort(inside.begin(), inside.end());
        inside.erase(std::unique(inside.begin(), inside.end()), inside.end());
        for (const long hole : inside)
            found.push_back({slot, hole});
    }
    return found;
}

}  // namespace

std::vector<HoleInSlot> FindHolesInSlots(const ZetArray<CHoleAddlInfo>& holes) {
    const std::vector<long> slots = SlotsAmong(holes);
    if (slots.empty() || holes.length() < 2)
        return {};
    // As the first comparison of a slot and a hole does, also when none is near enough to compare.
    CMxGeom::SetTol(eTolY);
    const std::size_t pairs = slots.size() * static_cast<std::size_t>(holes.length());
    if (pairs < kFewPairs || !AreFit(holes))
        return FindAmong(AllHoles(holes), holes, slots);
    return FindAmong(HoleGrid(holes, slots), holes, slots);
}

}  // namespace camdata::detail
