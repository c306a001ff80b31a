#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/MitreShortening.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

// What lies in what outlines, openings and mitres leave away.

namespace plugin {

namespace {

constexpr int kTopFlangeView = 0;
constexpr int kWebView = 1;
constexpr int kBottomFlangeView = 2;
constexpr int kWebBackView = 3;

/// Openings whose areas differ by less may be equal, mm2.
constexpr double kAreaTolerance = 1.0;

/// True when nothing of a polygon lies in an outline.
bool IsApart(const FaceOutline& outline, const std::vector<ZetGeomPoint2d>& corners) {
    const double touch = std::abs(CMxGeom::GetXTol());
    const std::vector<ZetGeomPoint2d> places = outline.PlacesOf(corners);
    return std::none_of(places.begin(), places.end(), [&](const ZetGeomPoint2d& place) {
        return outline.Contains(place) && outline.DistanceFrom(place, touch) >= touch;
    });
}

/// True when nothing of a polygon reaches beyond an outline.
bool IsWithin(const FaceOutline& outline, const std::vector<ZetGeomPoint2d>& corners) {
    const double touch = std::abs(CMxGeom::GetXTol());
    const std::vector<ZetGeomPoint2d> places = outline.PlacesOf(corners);
    return std::none_of(places.begin(), places.end(), [&](const ZetGeomPoint2d& place) {
        return outline.IsOutside(place, touch);
    });
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

/// The outline of a face, which both sides of a web have in common; null when operations tell none
/// there, and for plates, which are judged by theirs.
const FaceOutline* JobMember::OutlineOf(int viewPosition) const {
    if (IsPlate())
        return nullptr;
    auto at = m_judging->outlines.find(viewPosition);
    const bool isWeb = viewPosition == kWebView || viewPosition == kWebBackView;
    if (at == m_judging->outlines.end() && isWeb && !IsHollow())
        at = m_judging->outlines.find(kWebView + kWebBackView - viewPosition);
    return at == m_judging->outlines.end() ? nullptr : &at->second;
}

/// The whole of a hole: one that relieves a corner is made.
bool JobMember::IsCutAway(const CHoleAddlInfo& hole, int viewPosition) const {
    const double reach = std::max(hole.GetSize() * 0.5, std::abs(CMxGeom::GetXTol()));
    const ZetGeomPoint2d centre = {hole.GetXPos(), hole.GetYPos()};
    const ZetGeomVector2d& end = hole.GetSlotVector();
    const ZetGeomPoint2d otherEnd = {centre.x - end.x, centre.y - end.y};
    if (IsBeyondMitre(centre + end, viewPosition, reach) &&
        IsBeyondMitre(otherEnd, viewPosition, reach))
        return true;
    const FaceOutline* const outline = OutlineOf(viewPosition);
    if (outline == nullptr || outline->Contains(centre))
        return false;
    if (hole.GetIsSlot())
        return IsApart(*outline, SlotOutline(centre, end, reach));
    return outline->DistanceFrom(centre, reach) >= reach;
}

/// The whole of an opening: what reaches into a notch from the side is made.
bool JobMember::IsCutAway(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const {
    const auto isBeyondMitre = [&](const ZetGeomPoint2d& corner) {
        return IsBeyondMitre(corner, viewPosition, 0.0);
    };
    if (std::all_of(opening.begin(), opening.end(), isBeyondMitre))
        return true;
    const FaceOutline* const outline = OutlineOf(viewPosition);
    return outline != nullptr && IsApart(*outline, opening);
}

/// Of a mark, a corner of its line.
bool JobMember::IsCutAway(const ZetGeomPoint2d& place, int viewPosition) const {
    const double touch = std::abs(CMxGeom::GetXTol());
    const FaceOutline* const outline = OutlineOf(viewPosition);
    return IsBeyondMitre(place, viewPosition, touch) ||
           (outline != nullptr && outline->IsOutside(place, touch)) ||
           AnyOpening(viewPosition, place.x, [&](const FaceOutline& opening) {
               return opening.Contains(place) && opening.DistanceFrom(place, touch) >= touch;
           });
}

/// The whole of a hole: one that reaches over the edge is made.
bool JobMember::IsInOpening(const CHoleAddlInfo& hole, int viewPosition) const {
    const double touch = std::abs(CMxGeom::GetXTol());
    const double reach = std::max(hole.GetSize() * 0.5, touch);
    const ZetGeomPoint2d centre = {hole.GetXPos(), hole.GetYPos()};
    return AnyOpening(viewPosition, centre.x, [&](const FaceOutline& opening) {
        if (!opening.Contains(centre))
            return false;
        return hole.GetIsSlot()
                   ? IsWithin(opening, SlotOutline(centre, hole.GetSlotVector(), reach))
                   : opening.DistanceFrom(centre, reach) >= reach - touch;
    });
}

/// The whole of an opening, in one that is larger: of equal ones the later repeats the first.
bool JobMember::IsInOpening(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const {
    const double touch = std::abs(CMxGeom::GetXTol());
    const FaceBox box = BoxOf(opening);
    const double area = AreaOf(opening);
    return AnyOpening(viewPosition, opening.front().x, [&](const FaceOutline& other) {
        return !ReachesBeyond(box, other.GetBox(), {touch, touch}) &&
               other.GetArea() > area + kAreaTolerance && IsWithin(other, opening);
    });
}

/// The web stands anywhere between the edges of the flanges: a cut that only these show takes
/// nothing from it for certain.
bool JobMember::IsBeyondMitre(const ZetGeomPoint2d& centre, int viewPosition, double reach) const {
    if (viewPosition > kWebBackView || IsEdgeOfPlate(viewPosition) || IsRound())
        return false;
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const bool isTop = viewPosition == kTopFlangeView;
    const bool isFlange = isTop || viewPosition == kBottomFlangeView;
    const double height = isTop ? header.height : 0.0;
    const double depth = FileYOf(centre.y, isTop ? m_type.topFlange : m_type.bottomFlange);
    const double across = m_judging->plate ? centre.y - m_judging->plate->GetBox().minY : centre.y;
    for (const ZetNCCut& mitre : m_mitres) {
        // A cut may be told twice, by the header and by itself.
        Shortening web;
        Shortening flange;
        for (const ZetNCCut& cut : m_mitres) {
            const bool isOnWeb = cut.face == ZetNCCut::eFaceWeb;
            const Shortening shortening =
                isOnWeb ? ShorteningBy(cut, isFlange ? height : across, header.height)
                        : ShorteningBy(cut, depth, header.width);
            Shortening& most = isOnWeb ? web : flange;
            if (cut.end == mitre.end && shortening.amount > most.amount)
                most = shortening;
        }
        const double amount = web.amount + (isFlange ? flange.amount : 0.0);
        const double slope = isFlange ? flange.tangent : web.tangent;
        const double toEnd =
            mitre.end == ZetNCCut::eEndStart ? centre.x - mitre.x : mitre.x - centre.x;
        if (toEnd - amount <= -reach * std::sqrt(1.0 + slope * slope))
            return true;
    }
    return false;
}

/// True where a mitre takes something from the section, wherever around it.
bool JobMember::IsAtMitre(double minX, double maxX) const {
    const double height = m_memType.GetHeaderData().height;
    std::array<double, 2> slopes = {};  // by ZetNCCut::End; cuts across each other go deeper
    for (const ZetNCCut& cut : m_mitres) {
        double& slope = slopes[static_cast<std::size_t>(cut.end)];
        slope = std::hypot(slope, ShorteningBy(cut, 0.0, height).tangent);
    }
    return std::any_of(m_mitres.begin(), m_mitres.end(), [&](const ZetNCCut& cut) {
        const bool isAtStart = cut.end == ZetNCCut::eEndStart;
        const double toEnd = isAtStart ? minX - cut.x : cut.x - maxX;
        return toEnd < height * slopes[static_cast<std::size_t>(cut.end)];
    });
}

}  // namespace plugin
