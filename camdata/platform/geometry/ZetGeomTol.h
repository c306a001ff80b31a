#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/geometry/ZetGeomVector2d.h"
#include "camdata/platform/geometry/ZetGeomVector3d.h"

/// A relative tolerance of directions. It never reads CMxGeom's current tolerance.
struct CAMDATA_API ZetGeomTol {
    double relative = 1e-6;

    /// True when |a x b| <= relative * |a| * |b|. A zero vector is parallel to everything;
    /// opposite directions are parallel.
    bool areParallel(const ZetGeomVector2d& a, const ZetGeomVector2d& b) const;
    bool areParallel(const ZetGeomVector3d& a, const ZetGeomVector3d& b) const;
    /// True when |a . b| <= relative * |a| * |b|. A zero vector is perpendicular to everything.
    bool arePerpendicular(const ZetGeomVector2d& a, const ZetGeomVector2d& b) const;
};
