#pragma once

#include "camdata/platform/geometry/ZetGeomVector3d.h"

/// A point in space, mm. A plain value.
struct ZetGeomPoint3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    /// The vector from the origin to this point.
    ZetGeomVector3d asVector() const { return {x, y, z}; }

    friend ZetGeomVector3d operator-(const ZetGeomPoint3d& to, const ZetGeomPoint3d& from) {
        return {to.x - from.x, to.y - from.y, to.z - from.z};
    }
    friend ZetGeomPoint3d operator+(const ZetGeomPoint3d& p, const ZetGeomVector3d& v) {
        return {p.x + v.x, p.y + v.y, p.z + v.z};
    }
    friend bool operator==(const ZetGeomPoint3d&, const ZetGeomPoint3d&) = default;
};
