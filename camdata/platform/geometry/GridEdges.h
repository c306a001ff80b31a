#pragma once

#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// A closed outline on a grid of whole numbers, where every comparison is exact.

namespace camdata::detail {

struct GridPoint {
    std::int64_t x;
    std::int64_t y;

    friend auto operator<=>(const GridPoint&, const GridPoint&) = default;
};

/// Positive when `c` lies left of a-b.
inline std::int64_t Turn(const GridPoint& a, const GridPoint& b, const GridPoint& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// A vertex of an outline on the grid.
struct GridVertex {
    GridPoint at;
    std::size_t source;  ///< in the outline
};

/// An edge of the outline on the grid, from the smaller to the larger point.
struct GridEdge {
    GridPoint left;
    GridPoint right;
    std::size_t index;   ///< among the edges on the grid, in the outline's order
    std::size_t source;  ///< in the outline
};

/// The upright rectangle around an outline.
struct Extent {
    ZetGeomPoint2d low;
    ZetGeomPoint2d high;
};

Extent ExtentOf(std::span<const ZetGeomPoint2d> outline);

/// Of the grid of an outline, in mm: 0.001, more for one larger than a million mm.
double GridStepOf(const Extent& extent);

/// The vertices of an outline on its grid without repeats, the closing point excluded. All
/// coordinates must be finite.
std::vector<GridVertex> VerticesOnGrid(std::span<const ZetGeomPoint2d> outline);

std::vector<GridEdge> EdgesOf(const std::vector<GridVertex>& vertices);

/// True when two edges of an outline of `count` edges have a point in common that is not the vertex
/// between them.
bool AreInContact(const GridEdge& a, const GridEdge& b, std::size_t count);

}  // namespace camdata::detail
