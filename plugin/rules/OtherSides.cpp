#include "plugin/rules/HoleCover.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/ReachIndex.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <set>
#include <utility>

// Holes of the other side of one wall. Two views of one wall show the same steel: where a hole goes
// through it from one side, there is nothing left for one from the other. The library compares
// within each view only.

namespace plugin {

namespace {

ZetGeomVector2d HalfOf(const CHoleAddlInfo& hole) {
    return hole.GetIsSlot() ? hole.GetSlotVector() : ZetGeomVector2d();
}

/// From the middle line of a slot, or the middle of a round hole.
double DistanceFrom(const CHoleAddlInfo& hole, const ZetGeomPoint2d& place) {
    const ZetGeomVector2d half = HalfOf(hole);
    const ZetGeomVector2d toPlace = {place.x - hole.GetXPos(), place.y - hole.GetYPos()};
    const double square = half.dot(half);
    const double along = square > 0.0 ? std::clamp(toPlace.dot(half) / square, -1.0, 1.0) : 0.0;
    return std::hypot(toPlace.x - along * half.x, toPlace.y - along * half.y);
}

/// All of a hole, in that of another.
bool Holds(const CHoleAddlInfo& other, const CHoleAddlInfo& hole) {
    const double touch = std::abs(CMxGeom::GetXTol());
    const double reach = (other.GetSize() - hole.GetSize()) * 0.5 + touch;
    const ZetGeomVector2d half = HalfOf(hole);
    const double x = hole.GetXPos();
    const double y = hole.GetYPos();
    return DistanceFrom(other, {x + half.x, y + half.y}) <= reach &&
           DistanceFrom(other, {x - half.x, y - half.y}) <= reach;
}

/// What another hole covers need not be made.
bool Covers(const CHoleAddlInfo& other, const CHoleAddlInfo& hole) {
    return IsThrough(other) && HasThreadOf(other, hole) && Holds(other, hole);
}

/// From its middle to its end.
double HalfLengthOf(const CHoleAddlInfo& hole) {
    const ZetGeomVector2d half = HalfOf(hole);
    return std::hypot(half.x, half.y) + hole.GetSize() * 0.5;
}

}  // namespace

/// That could not be made without it.
bool JobMember::HasSinkBeside(const CHoleAddlInfo& hole) const {
    return std::any_of(m_cskHoles.begin(), m_cskHoles.end(), [&](const CHoleAddlInfo& sink) {
        return ViewOf(sink) == ViewOf(hole) &&
               std::abs(sink.GetXPos() - hole.GetXPos()) <= std::abs(CMxGeom::GetXTol()) &&
               std::abs(sink.GetYPos() - hole.GetYPos()) <= std::abs(CMxGeom::GetYTol());
    });
}

/// True when a hole of the other side leaves nothing to be made of one; of those that cover each
/// other the first in the file is made.
bool JobMember::IsMadeFromOtherSide(const CHoleAddlInfo& hole, const CHoleAddlInfo& other) {
    const WallViews views = ViewsOfWall(static_cast<int>(ViewOf(hole)));
    const long otherView = ViewOf(other);
    if (otherView == ViewOf(hole) || (otherView != views[0] && otherView != views[1]) ||
        !Covers(other, hole))
        return false;
    const bool isFirst = hole.GetHoleData().hostTag < other.GetHoleData().hostTag;
    return !(isFirst && Covers(hole, other)) && !HasSinkBeside(hole) && !HasPlaceFault(hole) &&
           !HasPlaceFault(other);
}

/// Whether two views of one wall have holes. Without tags nobody can tell views.
bool JobMember::HasHolesOnBothSides() const {
    std::array<bool, std::tuple_size_v<decltype(Judging::viewsOfWall)>> hasHoles{};
    for (const CHoleAddlInfo& hole : m_holes)
        if (const long view = ViewOf(hole); view >= 0 && view < std::ssize(hasHoles))
            hasHoles[static_cast<std::size_t>(view)] |= hole.GetHoleData().hostTag != 0;
    return std::any_of(
        m_judging->viewsOfWall.begin(), m_judging->viewsOfWall.end(), [&](const WallViews& views) {
            return views[0] != views[1] && hasHoles[static_cast<std::size_t>(views[0])] &&
                   hasHoles[static_cast<std::size_t>(views[1])];
        });
}

/// What another one is set aside for stays.
void JobMember::SetAsideOtherSides() {
    if (!HasHolesOnBothSides())
        return;
    ReachIndex places;
    for (long i = 0; i < m_holes.length(); ++i)
        if (m_holes[i].GetHoleData().hostTag != 0)
            places.Add(i, m_holes[i].GetXPos(), HalfLengthOf(m_holes[i]));
    std::set<long> reasons;
    std::set<long> setAside;
    const auto isSetAside = [&](long i) {
        const CHoleAddlInfo& hole = m_holes[i];
        return places.FindNear(hole.GetXPos(), HalfLengthOf(hole), [&](long index) {
            const CHoleAddlInfo& other = m_holes[index];
            if (setAside.count(index) > 0 || !IsMadeFromOtherSide(hole, other))
                return false;
            reasons.insert(index);
            FileSetAside(
                hole, other.GetIsSlot() ? SetAside::kInsideSlot : SetAside::kDuplicate, other);
            return true;
        });
    };
    for (long i = 0; i < m_holes.length(); ++i)
        if (m_holes[i].GetHoleData().hostTag != 0 && reasons.count(i) == 0 && isSetAside(i))
            setAside.insert(i);
    ZetArray<CHoleAddlInfo> rest;
    for (long i = 0; i < m_holes.length(); ++i)
        if (setAside.count(i) == 0)
            rest.append(m_holes[i]);
    m_holes = std::move(rest);
}

}  // namespace plugin
