#pragma once

#include "camdata/platform/geometry/ZetGeomVector2d.h"

/// A point in a plane, mm. A plain value.
struct ZetGeomPoint2d {
    double x = 0.0;
    double y = 0.0;

    friend ZetGeomVector2d operator-(const ZetGeomPoint2d& to, const ZetGeomPoint2d& from) {
        return {to.x - from.x, to.y - from.y};
    }
    friend ZetGeomPoint2d operator+(const ZetGeomPoint2d& p, const ZetGeomVector2d& v) {
        return {p.x + v.x, p.y + v.y};
    }
    friend bool operator==(const ZetGeomPoint2d&, const ZetGeomPoint2d&) = default;
};
