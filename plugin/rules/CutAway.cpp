#include "plugin/rules/JobMember.h"
#include "profiles/SectionWalls.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

// What lies in what outlines, openings and mitres leave away. Two views of one wall show the same
// steel: what the outline or an opening of either leaves away is there for neither.

namespace plugin {

namespace {

constexpr const wchar_t* kDifferFormat =
    L"outline differs from that of line %ld, of the other side of the wall: what either leaves away "
    L"is there for neither";

/// True when nothing of a polygon lies in an outline.
bool IsApart(const FaceOutline& outline, const std::vector<ZetGeomPoint2d>& corners) {
    const double touch = std::abs(CMxGeom::GetXTol());
    const std::vector<ZetGeomPoint2d> places = outline.PlacesOf(corners);
    return std::none_of(places.begin(), places.end(), [&](const ZetGeomPoint2d& place) {
        return outline.Contains(place) && outline.DistanceFrom(place, touch) >= touch;
    });
}

/// Between two places, of which one is gone.
template <typename IsGone>
ZetGeomPoint2d BorderBetween(const ZetGeomPoint2d& from,
                             const ZetGeomPoint2d& to,
                             const IsGone& isGone) {
    constexpr int kHalvings = 40;
    const bool isFirstGone = isGone(from);
    ZetGeomPoint2d low = from;
    ZetGeomPoint2d high = to;
    for (int i = 0; i < kHalvings; ++i) {
        const ZetGeomPoint2d middle = {(low.x + high.x) * 0.5, (low.y + high.y) * 0.5};
        (isGone(middle) == isFirstGone ? low : high) = middle;
    }
    return low;
}

/// Of a polygon, where straight cuts take something away.
template <typename IsGone>
std::vector<ZetGeomPoint2d> LeftOf(const std::vector<ZetGeomPoint2d>& corners,
                                   const IsGone& isGone) {
    std::vector<ZetGeomPoint2d> left;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const ZetGeomPoint2d& from = corners[i];
        const ZetGeomPoint2d& to = corners[(i + 1) % corners.size()];
        if (!isGone(from))
            left.push_back(from);
        if (isGone(from) != isGone(to))
            left.push_back(BorderBetween(from, to, isGone));
    }
    return left;
}

/// Of chords. `end`: from the centre to that of an end's circle.
std::vector<ZetGeomPoint2d> SlotOutline(const ZetGeomPoint2d& centre,
                                        const ZetGeomVector2d& end,
                                        double radius) {
    constexpr int kChords = 16;  // of half a circle
    const double across = std::atan2(end.y, end.x) - std::numbers::pi / 2.0;
    std::vector<ZetGeomPoint2d> corners;
    for (const double side : {1.0, -1.0})
        for (int i = 0; i <= kChords; ++i) {
            const double angle = across + std::numbers::pi * i / kChords;
            corners.push_back({centre.x + side * (end.x + radius * std::cos(angle)),
                               centre.y + side * (end.y + radius * std::sin(angle))});
        }
    return corners;
}

}  // namespace

/// Two for a wall that is seen from both sides, if both count across it from the same line.
JobMember::WallViews JobMember::FindViewsOfWall(int viewPosition) const {
    const profiles::Wall* const wall =
        profiles::FindWall(m_memType.GetHeaderData().profileCode.view(), viewPosition);
    const bool isOne = wall == nullptr || IsHollow() || wall->views[0] == wall->views[1] ||
                       (wall->IsFlange() && m_type.topFlange != m_type.bottomFlange);
    if (isOne)
        return {viewPosition, viewPosition};
    return {wall->views[0], wall->views[1]};
}

long JobMember::TagOfOutline(int viewPosition) const {
    for (const ZetNCView& view : m_structure.getViews())
        if (view.getViewPos() == viewPosition && !view.getExternalContours().isEmpty())
            return view.getExternalContours().first().hostTag;
    return 0;
}

/// Where both sides of a wall have an outline and these are not the same, one note tells both.
void JobMember::NoteOutlinesThatDiffer() {
    const double touch = std::abs(CMxGeom::GetXTol());
    for (const auto& [view, outline] : m_judging->outlines) {
        const int other = ViewsOfWall(view)[1];
        const auto at = m_judging->outlines.find(other);
        if (other == view || at == m_judging->outlines.end() || outline.IsLike(at->second, touch))
            continue;
        const std::optional<Feature> first = FeatureOf(TagOfOutline(view));
        const std::optional<Feature> second = FeatureOf(TagOfOutline(other));
        if (first && second)
            m_notes.push_back({*second, ZetString::format(kDifferFormat, first->tag)});
    }
}

/// In the view of the NC data. On a standard face that is where the library has it.
ZetGeomPoint2d JobMember::PlaceInView(const CHoleAddlInfo& hole, int viewPosition) {
    if (viewPosition >= kFirstPlanePosition)
        return {hole.GetHoleData().x, hole.GetHoleData().y};
    return {hole.GetXPos(), hole.GetYPos()};
}

/// The whole of a hole: one that relieves a corner is made.
bool JobMember::IsCutAway(const CHoleAddlInfo& hole, int viewPosition) const {
    const double reach = std::max(hole.GetSize() * 0.5, std::abs(CMxGeom::GetXTol()));
    const ZetGeomPoint2d centre = PlaceInView(hole, viewPosition);
    const ZetGeomVector2d& end = hole.GetSlotVector();
    const ZetGeomPoint2d otherEnd = {centre.x - end.x, centre.y - end.y};
    if (IsBeyondMitre(centre + end, viewPosition, reach) &&
        IsBeyondMitre(otherEnd, viewPosition, reach))
        return true;
    const double alongSlot = hole.GetIsSlot() ? std::abs(end.x) : 0.0;
    if (IsCutAwayFromEdge(centre.x - alongSlot - reach, centre.x + alongSlot + reach, viewPosition))
        return true;
    return AnyOutline(viewPosition, [&](const FaceOutline& outline) {
        if (outline.Contains(centre))
            return false;
        return hole.GetIsSlot() ? IsApart(outline, SlotOutline(centre, end, reach))
                                : outline.DistanceFrom(centre, reach) >= reach;
    });
}

/// Of the narrow side of a plate what a skew end takes away, or a notch that is open there.
bool JobMember::IsCutAwayFromEdge(double minX, double maxX, int viewPosition) const {
    return IsEdgeOfPlate(viewPosition) && m_judging->plate &&
           !m_judging->plate->HasSide(viewPosition == profiles::kTop, minX, maxX);
}

/// The whole of an opening, by an outline and the mitres together: what reaches into a notch from
/// the side is made.
bool JobMember::IsCutAway(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const {
    const auto isBeyondMitre = [&](const ZetGeomPoint2d& corner) {
        return IsBeyondMitre(corner, viewPosition, 0.0);
    };
    const std::vector<ZetGeomPoint2d> left = LeftOf(opening, isBeyondMitre);
    if (left.empty())
        return true;
    const FaceBox box = BoxOf(opening);
    if (IsCutAwayFromEdge(box.minX, box.maxX, viewPosition))
        return true;
    return AnyOutline(viewPosition,
                      [&](const FaceOutline& outline) { return IsApart(outline, left); });
}

/// Of a mark, a corner of its line.
bool JobMember::IsCutAway(const ZetGeomPoint2d& place, int viewPosition) const {
    const double touch = std::abs(CMxGeom::GetXTol());
    const auto isIn = [&](const FaceOutline& opening) {
        return opening.Contains(place) && opening.DistanceFrom(place, touch) >= touch;
    };
    return IsBeyondMitre(place, viewPosition, touch) ||
           AnyOutline(
               viewPosition,
               [&](const FaceOutline& outline) { return outline.IsOutside(place, touch); }) ||
           AnyOpening(m_judging->openings, viewPosition, place.x, isIn) ||
           AnyOpening(m_judging->circles, viewPosition, place.x, isIn);
}

/// The whole of a hole: one that reaches over the edge is made.
bool JobMember::IsInOpening(const CHoleAddlInfo& hole, int viewPosition) const {
    const double touch = std::abs(CMxGeom::GetXTol());
    const double reach = std::max(hole.GetSize() * 0.5, touch);
    const ZetGeomPoint2d centre = {hole.GetXPos(), hole.GetYPos()};
    return AnyOpening(m_judging->openings, viewPosition, centre.x, [&](const FaceOutline& opening) {
        if (!opening.Contains(centre))
            return false;
        return hole.GetIsSlot()
                   ? opening.Holds(SlotOutline(centre, hole.GetSlotVector(), reach), touch)
                   : opening.DistanceFrom(centre, reach) >= reach - touch;
    });
}

/// The whole of an opening, in one that is larger: of equal ones the later repeats the first.
bool JobMember::IsInOpening(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const {
    const double touch = std::abs(CMxGeom::GetXTol());
    const FaceBox box = BoxOf(opening);
    const double area = AreaOf(opening);
    const auto isIn = [&](const FaceOutline& other) {
        return !ReachesBeyond(box, other.GetBox(), {touch, touch}) &&
               other.GetArea() > area + kAreaTolerance && other.Holds(opening, touch);
    };
    return AnyOpening(m_judging->openings, viewPosition, opening.front().x, isIn) ||
           AnyOpening(m_judging->circles, viewPosition, opening.front().x, isIn);
}

}  // namespace plugin
