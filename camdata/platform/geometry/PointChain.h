#pragma once

#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <span>

// What is asked of points that follow each other and lead back to the first.

namespace camdata::detail {

/// By X, then by Y. No function: sorting would call it by its address.
inline constexpr auto IsBefore = [](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
};

/// Positive when the points run counter-clockwise.
inline double AreaOf(std::span<const ZetGeomPoint2d> chain) {
    if (chain.size() < 3)
        return 0.0;
    const ZetGeomPoint2d& first = chain.front();
    double twice = 0.0;
    ZetGeomVector2d last = chain[1] - first;
    for (const ZetGeomPoint2d& point : chain.subspan(2)) {
        const ZetGeomVector2d next = point - first;
        twice += last.cross(next);
        last = next;
    }
    return twice * 0.5;
}

inline double PerimeterOf(std::span<const ZetGeomPoint2d> chain) {
    if (chain.empty())
        return 0.0;
    double perimeter = 0.0;
    for (std::size_t i = 1; i < chain.size(); ++i)
        perimeter += (chain[i] - chain[i - 1]).length();
    return perimeter + (chain.front() - chain.back()).length();
}

}  // namespace camdata::detail
