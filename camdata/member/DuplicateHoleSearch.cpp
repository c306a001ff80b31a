#include "camdata/member/DuplicateHoleSearch.h"

#include "camdata/member/PositionGrid.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <vector>

namespace camdata::detail {
namespace {

/// Below this number comparing each with each is faster than a grid.
constexpr std::size_t kFewHoles = 24;
/// Kept holes that are looked at for each hole, on average, before a grid is made.
constexpr std::size_t kFewNear = 12;
constexpr double kEndless = std::numeric_limits<double>::infinity();

using Places = std::vector<HolePlace>;

/// Sizes of one class are at most 1 mm, or differ at most by the factor two.
double LargestOfClass(double size) {
    if (!IsFitForGrid(size))
        return kEndless;
    return static_cast<double>(std::bit_ceil(static_cast<std::uint64_t>(std::max(size, 0.0)) + 1));
}

/// No centre of a duplicate is farther away along either axis; the last factor and summand cover
/// rounding.
double Reach(double size, double otherSize) {
    const double tolerance = std::abs(CMxGeom::GetEPS());
    const double sizes = std::max(size, 0.0) + std::max(otherSize, 0.0);
    return (sizes * 0.5 + tolerance) * (1.0 + 1e-9) + 1e-100;
}

/// Tells from the places that two holes are no duplicates; false also when a number is none.
bool AreApart(const HolePlace& a, const HolePlace& b, double reach) {
    const bool isOneFar = std::abs(a.ncX - b.ncX) > reach || std::abs(a.ncY - b.ncY) > reach;
    return isOneFar && !(a.x == b.x && a.y == b.y);
}

/// True when each hole stands at its NC X, or each at its opposite, and X only grows or only falls:
/// what gathering leaves.
bool AreInRow(const Places& places) {
    const auto isAll = [&](auto holds) { return std::all_of(places.begin(), places.end(), holds); };
    const auto isSorted = [&](auto isBefore) {
        return std::is_sorted(places.begin(), places.end(), isBefore);
    };
    return (isAll([](const HolePlace& place) { return place.x == place.ncX; }) ||
            isAll([](const HolePlace& place) { return place.x == -place.ncX; })) &&
           (isSorted([](const HolePlace& a, const HolePlace& b) { return a.ncX < b.ncX; }) ||
            isSorted([](const HolePlace& a, const HolePlace& b) { return a.ncX > b.ncX; }));
}

bool IsFit(const HolePlace& place) {
    return IsFitForGrid(place.ncX) && IsFitForGrid(place.ncY) && IsFitForGrid(place.size) &&
           !std::isnan(place.x) && !std::isnan(place.y);
}

bool AreFit(const Places& places) {
    return IsFitForGrid(CMxGeom::GetEPS()) && std::all_of(places.begin(), places.end(), IsFit);
}

/// Kept holes by current position, which may be equal to that of another hole, and by NC position,
/// which may be within reach of another's.
///
/// There is a grid per class of sizes, so that a few large holes among many small ones do not make
/// cells in which many small ones lie.
class HoleGrid {
  public:
    void Add(long index, const HolePlace& place) {
        m_byPosition.Add(HashOfPosition(place.x, place.y), index);
        const double largest = LargestOfClass(place.size);
        const double cellSize = largest + std::abs(CMxGeom::GetEPS());
        m_byClass.try_emplace(largest, cellSize).first->second.Add(index, place.ncX, place.ncY);
    }

    template <typename Visit>
    void ForEachNear(const HolePlace& place, const Visit& visit) const {
        m_byPosition.ForEach(HashOfPosition(place.x, place.y), visit);
        for (const auto& [largest, grid] : m_byClass) {
            const double reach = Reach(place.size, largest);
            grid.ForEachNear(place.ncX, place.ncY, reach, reach, visit);
        }
    }

  private:
    HashChains m_byPosition;
    std::map<double, PositionGrid> m_byClass;
};

/// Kept holes of one class of sizes, in the order of the list.
class KeptClass {
  public:
    explicit KeptClass(double largest) : m_largest(largest) { m_holes.reserve(kFewHoles); }

    double Largest() const { return m_largest; }
    const std::vector<const HolePlace*>& Holes() const { return m_holes; }
    void Add(const HolePlace& place) { m_holes.push_back(&place); }

    /// Visits the holes that are not apart from one, in a row along X only those within reach,
    /// until a visit says true. Returns how many were looked at.
    template <typename Visit>
    std::size_t ForEachNear(const HolePlace& place, bool isRow, const Visit& visit) {
        const double reach = Reach(place.size, m_largest);
        const std::size_t start = m_first;
        MoveFirst(place.ncX, isRow ? reach : kEndless);
        std::size_t at = m_first;
        while (at < m_holes.size() &&
               (AreApart(*m_holes[at], place, reach) || !visit(*m_holes[at])))
            ++at;
        return at - std::min(start, m_first);
    }

  private:
    /// To the first hole within reach along X: in a row it stands near that of the hole before.
    void MoveFirst(double x, double reach) {
        const auto isWithin = [&](std::size_t at) {
            return !(std::abs(m_holes[at]->ncX - x) > reach);
        };
        while (m_first > 0 && isWithin(m_first - 1))
            --m_first;
        while (m_first < m_holes.size() && !isWithin(m_first))
            ++m_first;
    }

    double m_largest;
    std::vector<const HolePlace*> m_holes;
    std::size_t m_first = 0;
};

/// Kept holes: a list for each class of sizes. When too many of them have to be looked at, as in a
/// column of holes, they go into a grid.
class KeptHoles {
  public:
    explicit KeptHoles(const Places& places) : m_places(places), m_isRow(AreInRow(m_places)) {
        if (!m_isRow && m_places.size() >= kFewHoles && AreFit(m_places))
            m_grid.emplace();
    }

    void Add(long index) {
        const HolePlace& place = PlaceAt(index);
        if (m_grid)
            m_grid->Add(index, place);
        else
            ClassOf(place.size).Add(place);
    }

    template <typename Visit>
    void ForEachNear(long index, const Visit& visit) {
        const HolePlace& place = PlaceAt(index);
        if (m_grid)
            return ForEachInGrid(place, visit);
        for (KeptClass& each : m_classes)
            m_looks += each.ForEachNear(
                place, m_isRow, [&](const HolePlace& kept) { return visit(IndexOf(kept)); });
        if (m_looks > m_places.size() * kFewNear && AreFit(m_places))
            MoveToGrid();
    }

  private:
    const HolePlace& PlaceAt(long index) const { return m_places[static_cast<std::size_t>(index)]; }
    long IndexOf(const HolePlace& place) const {
        return static_cast<long>(&place - m_places.data());
    }

    template <typename Visit>
    void ForEachInGrid(const HolePlace& place, const Visit& visit) const {
        m_grid->ForEachNear(place, [&](long index) {
            const HolePlace& kept = PlaceAt(index);
            if (!AreApart(kept, place, Reach(place.size, kept.size)))
                visit(index);
        });
    }

    KeptClass& ClassOf(double size) {
        const double largest = LargestOfClass(size);
        for (KeptClass& each : m_classes) {
            if (each.Largest() == largest)
                return each;
        }
        return m_classes.emplace_back(largest);
    }

    void MoveToGrid() {
        m_grid.emplace();
        for (const KeptClass& each : m_classes)
            for (const HolePlace* place : each.Holes())
                m_grid->Add(IndexOf(*place), *place);
    }

    const Places& m_places;
    bool m_isRow;
    std::vector<KeptClass> m_classes;
    std::size_t m_looks = 0;
    std::optional<HoleGrid> m_grid;
};

}  // namespace

Removers FindDuplicateHoles(const std::vector<HolePlace>& places) {
    const auto isDuplicate = [&](long first, long later) {
        return AreDuplicates(places[static_cast<std::size_t>(first)],
                             places[static_cast<std::size_t>(later)]);
    };
    return FindRemovers(static_cast<long>(places.size()), KeptHoles(places), isDuplicate);
}

}  // namespace camdata::detail
