#include "camdata/member/DuplicateHoleSearch.h"

#include "camdata/member/PositionGrid.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <vector>

namespace camdata::detail {
namespace {

/// Below this number comparing each with each is faster.
constexpr long kFewHoles = 24;

/// What decides whether two holes can be duplicates; a tenth of a hole's record.
struct HoleKey {
    double x;
    double y;
    double ncX;
    double ncY;
    double size;
};

HoleKey KeyOf(const CHoleAddlInfo& hole) {
    const ZetNCHoleData& data = hole.GetHoleData();
    return {hole.GetXPos(), hole.GetYPos(), data.x, data.y, data.size};
}

std::vector<HoleKey> KeysOf(const ZetArray<CHoleAddlInfo>& holes) {
    std::vector<HoleKey> keys;
    keys.reserve(static_cast<std::size_t>(holes.length()));
    std::transform(holes.begin(), holes.end(), std::back_inserter(keys), KeyOf);
    return keys;
}

/// Sizes of one class are at most 1 mm, or differ at most by the factor two.
double LargestOfClass(double size) {
    int exponent = 0;
    std::frexp(std::max(size, 1.0), &exponent);
    return std::ldexp(1.0, exponent);
}

/// No centre of a duplicate is farther away along either axis; the last factor and summand cover
/// rounding.
double Reach(double size, double otherSize) {
    const double tolerance = std::abs(CMxGeom::GetEPS());
    return ((std::max(size, 0.0) + otherSize) * 0.5 + tolerance) * (1.0 + 1e-9) + 1e-100;
}

/// Kept holes, all of them looked at.
class FewKeptHoles {
  public:
    explicit FewKeptHoles(const ZetArray<CHoleAddlInfo>& holes) : m_keys(KeysOf(holes)) {
        m_kept.reserve(m_keys.size());
    }

    void Add(long index) { m_kept.push_back(index); }

    template <typename Visit>
    void ForEachNear(long index, const Visit& visit) const {
        const HoleKey& key = m_keys[static_cast<std::size_t>(index)];
        for (const long kept : m_kept) {
            if (!AreApart(m_keys[static_cast<std::size_t>(kept)], key))
                visit(kept);
        }
    }

  private:
    /// False also when a number is none.
    static bool AreApart(const HoleKey& a, const HoleKey& b) {
        const double reach = Reach(a.size, b.size);
        const bool isOneFar = std::abs(a.ncX - b.ncX) > reach || std::abs(a.ncY - b.ncY) > reach;
        return isOneFar && !(a.x == b.x && a.y == b.y);
    }

    std::vector<HoleKey> m_keys;
    std::vector<long> m_kept;
};

/// Kept holes by current position, which may be equal to that of another hole, and by NC position,
/// which may be within reach of another's.
///
/// There is a grid per class of sizes, so that a few large holes among many small ones do not make
/// cells in which many small ones lie.
class KeptHoles {
  public:
    explicit KeptHoles(const ZetArray<CHoleAddlInfo>& holes) : m_keys(KeysOf(holes)) {}

    void Add(long index) {
        const HoleKey& key = m_keys[static_cast<std::size_t>(index)];
        m_byPosition.Add(HashOfPosition(key.x, key.y), index);
        const double largest = LargestOfClass(key.size);
        const double cellSize = largest + std::abs(CMxGeom::GetEPS());
        m_byClass.try_emplace(largest, cellSize).first->second.Add(index, key.ncX, key.ncY);
    }

    template <typename Visit>
    void ForEachNear(long index, const Visit& visit) const {
        const HoleKey& key = m_keys[static_cast<std::size_t>(index)];
        m_byPosition.ForEach(HashOfPosition(key.x, key.y), visit);
        for (const auto& [largest, grid] : m_byClass) {
            const double reach = Reach(key.size, largest);
            grid.ForEachNear(key.ncX, key.ncY, reach, reach, visit);
        }
    }

  private:
    std::vector<HoleKey> m_keys;
    HashChains m_byPosition;
    std::map<double, PositionGrid> m_byClass;
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
        return FindRemovers(holes.length(), FewKeptHoles(holes), isDuplicate);
    return FindRemovers(holes.length(), KeptHoles(holes), isDuplicate);
}

}  // namespace camdata::detail
