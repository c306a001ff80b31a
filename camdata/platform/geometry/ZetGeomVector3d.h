#pragma once

#include <cmath>

/// A direction or displacement in space, mm. A plain value.
struct ZetGeomVector3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    double length() const { return std::sqrt(x * x + y * y + z * z); }
    double dot(const ZetGeomVector3d& other) const {
        return x * other.x + y * other.y + z * other.z;
    }
    ZetGeomVector3d cross(const ZetGeomVector3d& other) const {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }

    friend ZetGeomVector3d operator*(const ZetGeomVector3d& v, double factor) {
        return {v.x * factor, v.y * factor, v.z * factor};
    }
    friend bool operator==(const ZetGeomVector3d&, const ZetGeomVector3d&) = default;
};
