#include "plugin/rules/FaceText.h"
#include "plugin/rules/JobMember.h"

#include "camdata/platform/geometry/ZetGeomTol.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

// Views in a plane of their own. The library tells their faces only of what it gathers; here also
// those with nothing but marks have theirs.

namespace plugin {

namespace {

constexpr const wchar_t* kUnclearPlaneFormat =
    L"The plane shows neither the web nor, within the tolerance, a flange: it counts as %s, like "
    L"the view before it";
constexpr const wchar_t* kAskewText =
    L"The X axis of the plane does not run along the member: X and Y of what lies on it count in the "
    L"plane";
constexpr const wchar_t* kAtEndFormat =
    L"It lies on a plane that %s, where no operation is made: %s at (X:%.1f, Y:%.1f) of the plane";
constexpr const wchar_t* kFacesEndText = L"faces the end of the member";
constexpr const wchar_t* kRoundText = L"is not the unrolled surface of a round section";
constexpr const wchar_t* kNoFaceText = L"shows neither the web nor, within the tolerance, a flange";

/// Seen from a plane on which a flange is that many times as wide, nothing lies on the flange.
constexpr double kWidest = 100.0;

/// Part along the member of the normal of a plane that faces an end as much as a side.
constexpr double kHalfWay = 0.7;

bool IsGathered(const ZetNCView& view) {
    return !view.getHoles().isEmpty() || !view.getExternalContours().isEmpty() ||
           !view.getInternalContours().isEmpty();
}

bool IsMarked(const ZetNCView& view) {
    return !view.getMarks().isEmpty() || !view.getNumerations().isEmpty();
}

/// The library has found no face for it.
bool IsUnclear(const CViewData& plane) {
    return plane.GetFaceStr() == CViewData().GetFaceStr();
}

ZetGeomPoint2d BeginOf(const ZetNCHoleData& hole) {
    return {hole.x, hole.y};
}

ZetGeomPoint2d BeginOf(const ZetNCContour& contour) {
    return contour.getPointCount() == 0
               ? ZetGeomPoint2d()
               : ZetGeomPoint2d{contour.xValues.first(), contour.yValues.first()};
}

ZetGeomPoint2d BeginOf(const ZetNCMark& mark) {
    return mark.points.isEmpty() ? ZetGeomPoint2d() : mark.points.first();
}

ZetGeomPoint2d BeginOf(const ZetNCNumeration& text) {
    return {text.x, text.y};
}

/// Of the features of a view the first in the file.
long FirstTagOf(const ZetNCView& view) {
    long first = 0;
    const auto look = [&](const auto& features) {
        for (const auto& each : features)
            first = first == 0 ? each.hostTag : std::min(first, each.hostTag);
    };
    look(view.getHoles());
    look(view.getExternalContours());
    look(view.getInternalContours());
    look(view.getMarks());
    look(view.getNumerations());
    return first;
}

/// The view with a hole and nothing else.
ZetNCView WithOneHole(const ZetNCView& view) {
    ZetNCView bare;
    bare.setViewPos(view.getViewPos());
    bare.setPlane(view.getPlane());
    bare.setHoles({ZetNCHoleData()});
    return bare;
}

}  // namespace

/// Gathers one hole of each plane, before the member's own. A web in a plane of its own has the
/// face of the view before it, of those with anything to gather.
void JobMember::SeePlanes() {
    const ZetArray<ZetNCView>& all = m_structure.getViews();
    if (std::none_of(all.begin(), all.end(), [](const ZetNCView& view) {
            return view.getViewPos() >= kFirstPlanePosition;
        }))
        return;
    const ZetNCStructure structure = m_structure;
    ZetArray<ZetNCView> before;
    for (const ZetNCView& view : structure.getViews()) {
        const bool isPlane = view.getViewPos() >= kFirstPlanePosition;
        bool hasOwnFace = !isPlane;
        bool isRefused = false;
        if (isPlane && (IsGathered(view) || IsMarked(view))) {
            ZetArray<ZetNCView> views = before;
            views.append(WithOneHole(view));
            m_structure.setViews(std::move(views));
            GetAndSortHolesNotches();
            const CViewData data = m_holes.last().GetViewData();
            m_holes = {};
            hasOwnFace = !IsUnclear(data) && data.GetFaceStr() != L"WEB";
            isRefused = IsRound() || (hasOwnFace && FacesEnd(data));
            m_judging->planes.insert({
                view.getViewPos(), {data, view.getPlane(), isRefused}
            });
        }
        if (hasOwnFace && !isRefused && IsGathered(view))
            before = {WithOneHole(view)};
    }
    m_structure = structure;
    RefusePlanes();
}

bool JobMember::FacesEnd(const CViewData& flange) const {
    return !(flange.GetFaceWidth() <= kWidest * m_memType.GetProfileWidth());
}

/// Takes what lies on planes on which nothing is made out of the NC data. Marks and texts that the
/// machine is not asked for stay.
void JobMember::RefusePlanes() {
    ZetArray<ZetNCView> views = m_structure.getViews();
    for (ZetNCView& view : views) {
        const auto plane = m_judging->planes.find(view.getViewPos());
        if (plane == m_judging->planes.end() || !plane->second.isRefused)
            continue;
        const double alongMember = std::abs(plane->second.plane.normal().x);
        const wchar_t* const side = IsRound() ? kRoundText : kNoFaceText;
        const ZetString what = alongMember > kHalfWay ? kFacesEndText : side;
        const auto refuse = [&](const auto& features) {
            for (const auto& each : features) {
                const std::optional<Feature> feature = FeatureOf(each.hostTag);
                const ZetGeomPoint2d place = BeginOf(each);
                FileFinding(
                    {.type = job::kHoleOutside,
                     .text = ZetString::format(kAtEndFormat,
                                               what,
                                               ZetString(WordOf(feature.value_or(Feature()).kind)),
                                               place.x,
                                               place.y),
                     .feature = feature,
                     .isRefusal = true});
            }
        };
        ZetNCView rest;
        rest.setViewPos(view.getViewPos());
        rest.setPlane(view.getPlane());
        refuse(view.getHoles());
        refuse(view.getExternalContours());
        refuse(view.getInternalContours());
        if (m_type.areMarksMade) {
            refuse(view.getMarks());
            refuse(view.getNumerations());
        } else {
            rest.setMarks(view.getMarks());
            rest.setNumerations(view.getNumerations());
        }
        view = std::move(rest);
    }
    m_structure.setViews(std::move(views));
}

/// A plane that the library takes for none of the member's faces has the face of the view before
/// it, and nothing else.
void JobMember::CheckPlanes() {
    for (const ZetNCView& view : m_structure.getViews()) {
        const auto plane = m_judging->planes.find(view.getViewPos());
        const bool isMade = IsGathered(view) || (m_type.areMarksMade && IsMarked(view));
        if (plane == m_judging->planes.end() || !isMade)
            continue;
        const auto tell = [&](const ZetString& text) {
            FileFinding(
                {.type = job::kUnclearPlane, .text = text, .feature = FeatureOf(FirstTagOf(view))});
        };
        const CViewData& data = plane->second.data;
        if (IsUnclear(data))
            tell(ZetString::format(kUnclearPlaneFormat, FaceText(data.GetHoleFace())));
        if (AskewPlaneAt(view.getViewPos()) != nullptr)
            tell(kAskewText);
    }
}

/// A plane whose X does not run along the member; null where a view has no such plane.
const ZetGeomPlane* JobMember::AskewPlaneAt(int viewPosition) const {
    const auto at = m_judging->planes.find(viewPosition);
    const bool isAskew =
        at != m_judging->planes.end() &&
        !ZetGeomTol().areParallel(at->second.plane.xAxis, ZetGeomVector3d{1.0, 0.0, 0.0});
    return isAskew ? &at->second.plane : nullptr;
}

/// What circles on a plane take up along the member (X), and how far they lie from its axis (Y).
FaceBox JobMember::AlongMember(const ZetGeomPlane& plane,
                               const std::vector<ZetGeomPoint2d>& centres,
                               double radius) {
    const double reach = radius * std::hypot(plane.xAxis.x, plane.yAxis.x);
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    FaceBox box = {kEndless, -kEndless, 0.0, 0.0};
    for (const ZetGeomPoint2d& centre : centres) {
        const ZetGeomPoint3d place = plane.origin + plane.xAxis * centre.x + plane.yAxis * centre.y;
        box.minX = std::min(box.minX, place.x - reach);
        box.maxX = std::max(box.maxX, place.x + reach);
        box.maxY = std::max(box.maxY, std::hypot(place.y, place.z));
    }
    return box;
}

/// In which everything on a plane lies that is on the member: nobody knows where in the section the
/// plane's frame has its zero, but nothing is farther off than twice that.
FaceBox JobMember::WholeMember() const {
    const ZetNCHeaderData& header = m_memType.GetHeaderData();
    return {0.0, GetLength(), 0.0, 2.0 * std::hypot(header.height, header.width)};
}

/// A standard face as it is; what lies on a plane gets into the frame of the plane's face.
CViewData JobMember::ViewDataOf(int viewPosition) const {
    if (const auto plane = m_judging->planes.find(viewPosition); plane != m_judging->planes.end())
        return plane->second.data;
    CViewData data;
    data.SetHoleFace(FaceAtView(viewPosition));
    return data;
}

}  // namespace plugin
