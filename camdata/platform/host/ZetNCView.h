#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPlane.h"
#include "camdata/platform/host/ZetNCContour.h"
#include "camdata/platform/host/ZetNCHoleData.h"
#include "camdata/platform/host/ZetNCMark.h"
#include "camdata/platform/host/ZetNCNumeration.h"

#include <utility>

/// One view of a member: a face seen from outside, with everything that lies on it. A value.
///
/// Positions: 0 top flange, 1 web front, 2 bottom flange, 3 web back, 4 web, 5 and above a plane of
/// its own, which getPlane() gives.
class ZetNCView {
  public:
    int getViewPos() const { return m_viewPos; }
    void setViewPos(int position) { m_viewPos = position; }
    const ZetGeomPlane& getPlane() const { return m_plane; }
    void setPlane(const ZetGeomPlane& plane) { m_plane = plane; }

    const ZetArray<ZetNCHoleData>& getHoles() const { return m_holes; }
    void setHoles(ZetArray<ZetNCHoleData> holes) { m_holes = std::move(holes); }
    const ZetArray<ZetNCContour>& getExternalContours() const { return m_externalContours; }
    void setExternalContours(ZetArray<ZetNCContour> contours) {
        m_externalContours = std::move(contours);
    }
    const ZetArray<ZetNCContour>& getInternalContours() const { return m_internalContours; }
    void setInternalContours(ZetArray<ZetNCContour> contours) {
        m_internalContours = std::move(contours);
    }
    const ZetArray<ZetNCMark>& getMarks() const { return m_marks; }
    void setMarks(ZetArray<ZetNCMark> marks) { m_marks = std::move(marks); }
    const ZetArray<ZetNCNumeration>& getNumerations() const { return m_numerations; }
    void setNumerations(ZetArray<ZetNCNumeration> numerations) {
        m_numerations = std::move(numerations);
    }

  private:
    int m_viewPos = 0;
    ZetGeomPlane m_plane;
    ZetArray<ZetNCHoleData> m_holes;
    ZetArray<ZetNCContour> m_externalContours;
    ZetArray<ZetNCContour> m_internalContours;
    ZetArray<ZetNCMark> m_marks;
    ZetArray<ZetNCNumeration> m_numerations;
};
