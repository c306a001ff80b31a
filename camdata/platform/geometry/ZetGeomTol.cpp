#include "camdata/platform/geometry/ZetGeomTol.h"

#include <cmath>

bool ZetGeomTol::areParallel(const ZetGeomVector2d& a, const ZetGeomVector2d& b) const {
    return std::abs(a.cross(b)) <= relative * a.length() * b.length();
}

bool ZetGeomTol::areParallel(const ZetGeomVector3d& a, const ZetGeomVector3d& b) const {
    return a.cross(b).length() <= relative * a.length() * b.length();
}

bool ZetGeomTol::arePerpendicular(const ZetGeomVector2d& a, const ZetGeomVector2d& b) const {
    return std::abs(a.dot(b)) <= relative * a.length() * b.length();
}
