#pragma once

#include <cmath>

/// A direction or displacement in a plane, mm. A plain value.
struct ZetGeomVector2d {
    double x = 0.0;
    double y = 0.0;

    /// Length in mm. Not std::hypot: its last bit differs between C libraries.
    double length() const { return std::sqrt(x * x + y * y); }
    double dot(const ZetGeomVector2d& other) const { return x * other.x + y * other.y; }
    /// The third component of the cross product: positive when `other` lies to the left.
    double cross(const ZetGeomVector2d& other) const { return x * other.y - y * other.x; }

    friend bool operator==(const ZetGeomVector2d&, const ZetGeomVector2d&) = default;
};
