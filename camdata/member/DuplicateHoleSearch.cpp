#include "camdata/member/DuplicateHoleSearch.h"

#include "camdata/member/PositionGrid.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
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

double LargestOf(const Places& places) {
    double largest = 0.0;
    for (const HolePlace& place : places)
        largest = std::max(largest, place.size);
    return largest;
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

/// Kept holes. They are walked back from the last one: all of them where there are few, and where
/// they stand in a row along X those within reach. When that turns out to be too many, as in a
/// column of holes, they go into a grid.
class KeptHoles {
  public:
    explicit KeptHoles(const Places& places)
        : m_places(places), m_isRow(AreInRow(m_places)), m_largest(LargestOf(m_places)) {
        m_kept.reserve(m_places.size());
        if (!m_isRow && m_places.size() >= kFewHoles && AreFit(m_places))
            m_grid.emplace();
    }

    void Add(long index) {
        m_kept.push_back(index);
        if (m_grid)
            m_grid->Add(index, PlaceAt(index));
    }

    template <typename Visit>
    void ForEachNear(long index, const Visit& visit) {
        const HolePlace& place = PlaceAt(index);
        const double reach = Reach(place.size, m_largest);
        const auto visitUnlessApart = [&](long kept) {
            if (!AreApart(PlaceAt(kept), place, reach))
                visit(kept);
        };
        if (m_grid)
            return m_grid->ForEachNear(place, visitUnlessApart);
        const double reachAlong = m_isRow ? reach : kEndless;
        auto kept = m_kept.rbegin();
        for (; kept != m_kept.rend() && !(std::abs(PlaceAt(*kept).ncX - place.ncX) > reachAlong);
             ++kept)
            visitUnlessApart(*kept);
        CountLooks(static_cast<std::size_t>(kept - m_kept.rbegin()));
    }

  private:
    const HolePlace& PlaceAt(long index) const { return m_places[static_cast<std::size_t>(index)]; }

    void CountLooks(std::size_t looks) {
        m_looks += looks;
        if (m_looks <= m_places.size() * kFewNear || !AreFit(m_places))
            return;
        m_grid.emplace();
        for (const long kept : m_kept)
            m_grid->Add(kept, PlaceAt(kept));
    }

    const Places& m_places;
    bool m_isRow;
    double m_largest;
    std::vector<long> m_kept;
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
