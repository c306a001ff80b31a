#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/host/ZetNCContour.h"

/// A contour of straight lines through `points`.
inline ZetNCContour ContourOf(int type, const ZetArray<ZetGeomPoint2d>& points) {
    ZetNCContour contour;
    contour.type = type;
    for (const ZetGeomPoint2d& point : points) {
        contour.xValues.append(point.x);
        contour.yValues.append(point.y);
        contour.bulges.append(0.0);
    }
    return contour;
}
