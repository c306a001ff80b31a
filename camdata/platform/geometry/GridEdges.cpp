#include "camdata/platform/geometry/GridEdges.h"

#include <algorithm>
#include <cmath>

namespace camdata::detail {
namespace {

/// Grid step in mm unless the outline is too large for products of 64 bits.
constexpr double kGrid = 0.001;
constexpr double kMaxCells = 1 << 30;

int Sign(std::int64_t value) {
    return value > 0 ? 1 : (value < 0 ? -1 : 0);
}

/// As std::llround, of a number that is neither negative nor too large for the grid.
std::int64_t Rounded(double value) {
    const auto whole = static_cast<std::int64_t>(value);
    return whole + (value - static_cast<double>(whole) >= 0.5 ? 1 : 0);
}

bool IsBetween(const GridPoint& p, const GridEdge& edge) {
    return Turn(edge.left, edge.right, p) == 0 && edge.left <= p && p <= edge.right;
}

bool Meet(const GridEdge& a, const GridEdge& b) {
    if (IsBetween(a.left, b) || IsBetween(a.right, b) || IsBetween(b.left, a) ||
        IsBetween(b.right, a))
        return true;
    return Sign(Turn(a.left, a.right, b.left)) * Sign(Turn(a.left, a.right, b.right)) < 0 &&
           Sign(Turn(b.left, b.right, a.left)) * Sign(Turn(b.left, b.right, a.right)) < 0;
}

/// True when two neighbours in the outline lie on each other beyond their common point.
bool FoldBack(const GridEdge& a, const GridEdge& b) {
    return (a.left == b.left && Turn(a.left, a.right, b.right) == 0) ||
           (a.right == b.right && Turn(a.left, a.right, b.left) == 0);
}

}  // namespace

Extent ExtentOf(std::span<const ZetGeomPoint2d> outline) {
    Extent extent = {outline[0], outline[0]};
    auto& [low, high] = extent;
    for (const ZetGeomPoint2d& p : outline) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return extent;
}

double GridStepOf(const Extent& extent) {
    const ZetGeomVector2d size = extent.high - extent.low;
    return std::max(kGrid, std::max(size.x, size.y) / kMaxCells);
}

std::vector<GridVertex> VerticesOnGrid(std::span<const ZetGeomPoint2d> outline) {
    const Extent extent = ExtentOf(outline);
    const ZetGeomPoint2d& low = extent.low;
    const double step = GridStepOf(extent);
    std::vector<GridVertex> grid;
    grid.reserve(outline.size());
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const GridPoint p = {Rounded((outline[i].x - low.x) / step),
                             Rounded((outline[i].y - low.y) / step)};
        if (grid.empty() || grid.back().at != p)
            grid.push_back({p, i});
    }
    while (grid.size() > 1 && grid.back().at == grid.front().at)
        grid.pop_back();
    return grid;
}

std::vector<GridEdge> EdgesOf(const std::vector<GridVertex>& vertices) {
    std::vector<GridEdge> edges;
    edges.reserve(vertices.size());
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const std::size_t next = i + 1 < vertices.size() ? i + 1 : 0;
        const auto [left, right] = std::minmax(vertices[i].at, vertices[next].at);
        edges.push_back({left, right, i, vertices[i].source});
    }
    return edges;
}

bool AreInContact(const GridEdge& a, const GridEdge& b, std::size_t count) {
    const std::size_t apart = a.index < b.index ? b.index - a.index : a.index - b.index;
    const bool areNeighbours = apart == 1 || apart == count - 1;
    return areNeighbours ? FoldBack(a, b) : Meet(a, b);
}

}  // namespace camdata::detail
