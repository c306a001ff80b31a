#include "plugin/rules/FaceText.h"
#include "plugin/rules/JobMember.h"

#include <algorithm>
#include <utility>

// Views in a plane of their own. The library tells their faces only of what it gathers; here also
// those with nothing but marks have theirs.

namespace plugin {

namespace {

constexpr const wchar_t* kUnclearPlaneFormat =
    L"The plane shows neither the web nor, within the tolerance, a flange: it counts as %s, like "
    L"the view before it";

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
        if (isPlane && (IsGathered(view) || IsMarked(view))) {
            ZetArray<ZetNCView> views = before;
            views.append(WithOneHole(view));
            m_structure.setViews(std::move(views));
            GetAndSortHolesNotches();
            const CViewData data = m_holes.last().GetViewData();
            m_holes = {};
            hasOwnFace = !IsUnclear(data) && data.GetFaceStr() != L"WEB";
            m_planes.insert({view.getViewPos(), data});
        }
        if (hasOwnFace && IsGathered(view))
            before = {WithOneHole(view)};
    }
    m_structure = structure;
}

/// A plane that the library takes for none of the member's faces has the face of the view before
/// it, and nothing else.
void JobMember::CheckPlanes() {
    for (const ZetNCView& view : m_structure.getViews()) {
        const auto plane = m_planes.find(view.getViewPos());
        if (plane == m_planes.end() || !IsUnclear(plane->second))
            continue;
        if (IsGathered(view) || m_type.areMarksMade)
            FileFinding({.type = job::kUnclearPlane,
                         .text = ZetString::format(kUnclearPlaneFormat,
                                                   FaceText(plane->second.GetHoleFace())),
                         .feature = FeatureOf(FirstTagOf(view))});
    }
}

/// A standard face as it is; what lies on a plane gets into the frame of the plane's face.
CViewData JobMember::ViewDataOf(int viewPosition) const {
    if (const auto plane = m_planes.find(viewPosition); plane != m_planes.end())
        return plane->second;
    CViewData data;
    data.SetHoleFace(FaceAtView(viewPosition));
    return data;
}

}  // namespace plugin
