#include "camdata/holes/HolePlace.h"

#include "camdata/tolerance/CMxGeom.h"

#include <cmath>

namespace camdata::detail {

ZetGeomPoint2d CentreOf(const ZetNCHoleData& hole) {
    if (hole.slot == 0)
        return {hole.x, hole.y};
    const double angle = CMxGeom::dtor(hole.slotAngle);
    const double half = hole.slotLength * 0.5;
    return {hole.x + std::cos(angle) * half, hole.y + std::sin(angle) * half};
}

double OutputY(double y, const CViewData& view) {
    y += view.GetYValOffset();
    if (view.GetDimYNegate() < 0.0)
        y = -y;
    return view.GetDimFromOtherFace() < 0.0 ? view.GetFaceWidth() - y : y;
}

HolePlace PlaceOf(const CHoleAddlInfo& hole) {
    const ZetNCHoleData& data = hole.GetHoleData();
    return {hole.GetXPos(), hole.GetYPos(), data.x, data.y, data.size};
}

HolePlace PlaceOf(const ZetNCHoleData& hole, const CViewData& view) {
    const ZetGeomPoint2d centre = CentreOf(hole);
    const double x = view.GetDimXNegate() < 0.0 ? -centre.x : centre.x;
    return {x, OutputY(centre.y, view), centre.x, centre.y, hole.size};
}

bool AreDuplicates(const HolePlace& a, const HolePlace& b) {
    if (a.x == b.x && a.y == b.y)
        return true;
    const ZetGeomVector2d between{b.ncX - a.ncX, b.ncY - a.ncY};
    const double meanDiameter = (a.size + b.size) * 0.5;
    CMxGeom::SetTol(eTolEPS);
    return CMxGeom::IsLessOrEqual_Mx(between.length(), meanDiameter);
}

}  // namespace camdata::detail
