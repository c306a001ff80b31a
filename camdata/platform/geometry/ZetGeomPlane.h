#pragma once

#include "camdata/platform/geometry/ZetGeomPoint3d.h"
#include "camdata/platform/geometry/ZetGeomVector3d.h"

/// A plane with a coordinate frame of its own: origin and two unit axes at right angles, in the
/// member's coordinates, mm. A plain value; the default is the plane z = 0.
struct ZetGeomPlane {
    ZetGeomPoint3d origin;
    ZetGeomVector3d xAxis = {1.0, 0.0, 0.0};
    ZetGeomVector3d yAxis = {0.0, 1.0, 0.0};

    /// The unit normal, xAxis x yAxis.
    ZetGeomVector3d normal() const { return xAxis.cross(yAxis); }
    /// Signed distance of the plane from the member's origin, along the normal.
    double distance() const { return normal().dot(origin.asVector()); }

    friend bool operator==(const ZetGeomPlane&, const ZetGeomPlane&) = default;
};
