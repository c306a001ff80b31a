#include "plugin/rules/FlangeZero.h"
#include "plugin/rules/JobMember.h"
#include "plugin/rules/MitreShortening.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>
#include <string>
#include <string_view>
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
/// The wall of sections of some profile codes that is seen in some views.
struct Wall {
    std::wstring_view codes;  ///< each between blanks
    std::array<int, 2> views;
    double at;  ///< across the section, from behind or from the bottom: 0 to 1
};

/// Where they do not stand as those of other sections do.
constexpr Wall kWalls[] = {
    {L" I ",       {kWebView, kWebBackView},            0.5},
    {L" U C L T ", {kWebView, kWebBackView},            0.0},
    {L" M ",       {kWebView, kWebView},                1.0},
    {L" M ",       {kWebBackView, kWebBackView},        0.0},
    {L" L ",       {kTopFlangeView, kTopFlangeView},    0.0},
    {L" T ",       {kTopFlangeView, kBottomFlangeView}, 0.5},
};

/// Where the wall stands that a view shows; nothing when it may be anywhere.
std::optional<double> WallAt(const ZetString& profileCode, int viewPosition) {
    const std::wstring code = L" " + std::wstring(profileCode.view()) + L" ";
    for (const Wall& wall : kWalls)
        if (wall.codes.find(code) != std::wstring_view::npos &&
            (wall.views[0] == viewPosition || wall.views[1] == viewPosition))
            return wall.at;
    if (viewPosition == kWebView || viewPosition == kWebBackView)
        return std::nullopt;
    return viewPosition == kTopFlangeView ? 1.0 : 0.0;
}

/// What a mitre takes for certain from something that lies between two places across it.
Shortening LeastShorteningBy(const ZetNCCut& cut,
                             const std::array<double, 2>& across,
                             double width) {
    const Shortening a = ShorteningBy(cut, across[0], width);
    const Shortening b = ShorteningBy(cut, across[1], width);
    return a.amount < b.amount ? a : b;
}

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
    const FaceOutline* const outline = OutlineOf(viewPosition);
    if (outline == nullptr || outline->Contains(centre))
        return false;
    if (hole.GetIsSlot())
        return IsApart(*outline, SlotOutline(centre, end, reach));
    return outline->DistanceFrom(centre, reach) >= reach;
}

/// Of the narrow side of a plate what a skew end takes away, or a notch that is open there.
bool JobMember::IsCutAwayFromEdge(double minX, double maxX, int viewPosition) const {
    return IsEdgeOfPlate(viewPosition) && m_judging->plate &&
           !m_judging->plate->HasSide(viewPosition == kTopFlangeView, minX, maxX);
}

/// The whole of an opening: what reaches into a notch from the side is made.
bool JobMember::IsCutAway(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const {
    const auto isBeyondMitre = [&](const ZetGeomPoint2d& corner) {
        return IsBeyondMitre(corner, viewPosition, 0.0);
    };
    if (std::all_of(opening.begin(), opening.end(), isBeyondMitre))
        return true;
    const FaceBox box = BoxOf(opening);
    if (IsCutAwayFromEdge(box.minX, box.maxX, viewPosition))
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

/// Of a place in a view, as far as the file tells it. What a wall takes up of its own depth is
/// between two places.
JobMember::SectionPlace JobMember::SectionPlaceOf(const ZetGeomPoint2d& point,
                                                  int viewPosition) const {
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const ZetString& code = m_memType.GetProfileCode();
    if (const auto at = m_judging->planes.find(viewPosition); at != m_judging->planes.end()) {
        const ZetGeomPlane& plane = at->second.plane;
        const ZetGeomPoint3d place = plane.origin + plane.xAxis * point.x + plane.yAxis * point.y;
        const bool isTurned = IsPlate() || code == L"SO";
        const double y = isTurned ? place.z : place.y;
        const double z = isTurned ? -place.y : place.z;
        return {
            place.x, {y, y},
             {z, z}
        };
    }
    const FaceBox plate = m_judging->plate ? m_judging->plate->GetBox() : FaceBox();
    const bool isTop = viewPosition == kTopFlangeView;
    if (isTop || viewPosition == kBottomFlangeView) {
        const double height = IsPlate() ? plate.maxY - plate.minY : header.height;
        const double y = height * *WallAt(code, viewPosition);
        const double z = FileYOf(point.y, isTop ? m_type.topFlange : m_type.bottomFlange);
        return {
            point.x, {y, y},
             {z, z}
        };
    }
    const double y = point.y - plate.minY;
    const std::optional<double> at = WallAt(code, viewPosition);
    const double behind = at ? *at * (header.width - header.thickness) : 0.0;
    return {
        point.x, {y,      y                                                },
         {behind, at ? behind + header.thickness : DepthOfSection()}
    };
}

/// Between the front and what is behind.
double JobMember::DepthOfSection() const {
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    return IsPlate() ? header.thickness : header.width;
}

/// Only of planes of their own: standard faces have bounds. Sections of other codes may have their
/// zero anywhere.
bool JobMember::IsOutsideSection(const ZetGeomPoint2d& point, int viewPosition) const {
    if (m_judging->planes.count(viewPosition) == 0 || IsPlate() || IsRound() ||
        m_memType.GetProfileCode() == L"SO")
        return false;
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    const double tolerance = std::abs(CMxGeom::GetYTol());
    const auto isBeyond = [&](double at, double width) {
        return width > 0.0 && (at < -tolerance || at > width + tolerance);
    };
    const SectionPlace place = SectionPlaceOf(point, viewPosition);
    return isBeyond(place.y[0], header.height) || isBeyond(place.z[0], header.width);
}

/// A web that stands anywhere between the edges of the flanges: a cut that only these show takes
/// nothing from it for certain.
bool JobMember::IsBeyondMitre(const ZetGeomPoint2d& centre, int viewPosition, double reach) const {
    if (m_mitres.empty())
        return false;
    const bool isPlane = m_judging->planes.count(viewPosition) != 0;
    if (IsRound() || (viewPosition > kWebBackView && !isPlane))
        return false;
    const SectionPlace place = SectionPlaceOf(centre, viewPosition);
    const bool isWeb = viewPosition == kWebView || viewPosition == kWebBackView;
    for (const ZetNCCut& mitre : m_mitres) {
        // A cut may be told twice, by the header and by itself.
        Shortening web;
        Shortening flange;
        for (const ZetNCCut& cut : m_mitres) {
            const bool isOnWeb = cut.face == ZetNCCut::eFaceWeb;
            const Shortening shortening =
                isOnWeb ? LeastShorteningBy(cut, place.y, m_memType.GetHeaderData().height)
                        : LeastShorteningBy(cut, place.z, DepthOfSection());
            Shortening& most = isOnWeb ? web : flange;
            if (cut.end == mitre.end && shortening.amount > most.amount)
                most = shortening;
        }
        const double slope =
            std::hypot(isWeb || isPlane ? web.tangent : 0.0, isWeb ? 0.0 : flange.tangent);
        const double toEnd =
            mitre.end == ZetNCCut::eEndStart ? place.x - mitre.x : mitre.x - place.x;
        if (toEnd - web.amount - flange.amount <= -reach * std::sqrt(1.0 + slope * slope))
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
