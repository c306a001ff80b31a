#include "camdata/platform/geometry/EdgeBoxes.h"

#include "camdata/platform/geometry/GridEdges.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

// The edges are not taken to the grid, which would need a division for each number; they are looked
// at where they are, with a margin. Why that is enough:
//
// A vertex goes to the grid by at most half a step along each axis, and every other point of an
// edge by no more, as it lies between two vertices. So edges with a common point on the grid have
// points that are at most a step apart along each axis, and less than 1.5 steps in all; two steps
// leave enough for rounding, which takes less than a hundredth of one, as no outline is longer than
// 2^30 steps and a product is right to 2^-51. Edges that are farther apart have none.
//
// Neighbours are not looked at, and need not be where there are more than three edges. Where one
// lies on the next on the grid, the end of one lies on the other, and there begins a third edge,
// which is no neighbour of that other. Where an edge vanishes on the grid, it is its two neighbours
// that meet, and they are none of each other.

namespace camdata::detail {
namespace {

using Outline = std::span<const ZetGeomPoint2d>;

/// Steps of the grid.
constexpr double kMargin = 2.0;
/// Of less all are neighbours.
constexpr std::size_t kLeastEdges = 4;
/// Pairs of boxes that are looked at for each edge, at most.
constexpr std::size_t kPairsPerEdge = 64;
/// Up to so many edges it is quicker to look at all pairs than to sort.
constexpr std::size_t kFewEdges = 24;
/// Moves of boxes for each edge, at most, when they are sorted in the outline's order.
constexpr std::size_t kMovesPerEdge = 8;

/// The edges of an outline, each by the index of its first point.
class Edges {
  public:
    Edges(Outline outline, double step) : m_outline(outline), m_margin(kMargin * step) {}

    /// Unless they are neighbours.
    bool MayMeet(std::size_t a, std::size_t b) const {
        return After(a) != b && After(b) != a && !IsBeside(a, b) && !IsBeside(b, a);
    }

  private:
    std::size_t After(std::size_t at) const { return at + 1 < m_outline.size() ? at + 1 : 0; }
    ZetGeomVector2d Along(std::size_t edge) const {
        return m_outline[After(edge)] - m_outline[edge];
    }
    /// True when `edge` lies on one side of the line along `line`, surely farther away than the
    /// margin: the cross product is that distance times the length, which |x| + |y| is not below.
    bool IsBeside(std::size_t line, std::size_t edge) const {
        const ZetGeomPoint2d& from = m_outline[line];
        const ZetGeomVector2d along = Along(line);
        const double margin = m_margin * (std::abs(along.x) + std::abs(along.y));
        const double first = along.cross(m_outline[edge] - from);
        const double second = along.cross(m_outline[After(edge)] - from);
        return std::max(first, second) < -margin || std::min(first, second) > margin;
    }

    Outline m_outline;
    double m_margin;
};

/// Where a vertex is, in whole steps from the outline's lowest coordinates.
struct Cell {
    std::int32_t along;  ///< the longer side of the outline: there fewest edges lie side by side
    std::int32_t across;
};

/// Of cells whose numbers differ by more than this the vertices are more than two steps apart, of
/// neighbouring ones perhaps only a hair.
constexpr std::int32_t kNear = 2;

/// The cells of an edge, from first to last, and those near the last.
struct EdgeBox {
    std::int32_t start;  ///< along
    std::int32_t end;
    std::int32_t low;  ///< across
    std::int32_t high;
    std::size_t edge;
};

std::vector<EdgeBox> BoxesAround(Outline outline, const Extent& extent, double step) {
    const ZetGeomVector2d size = extent.high - extent.low;
    const double perStep = 1.0 / step;
    const auto cellOf = [&](const ZetGeomPoint2d& p) {
        const auto x = static_cast<std::int32_t>((p.x - extent.low.x) * perStep);
        const auto y = static_cast<std::int32_t>((p.y - extent.low.y) * perStep);
        return size.x >= size.y ? Cell{x, y} : Cell{y, x};
    };
    std::vector<EdgeBox> boxes;
    boxes.reserve(outline.size());
    Cell from = cellOf(outline.front());
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Cell to = cellOf(outline[i + 1 < outline.size() ? i + 1 : 0]);
        const auto [start, end] = std::minmax(from.along, to.along);
        const auto [low, high] = std::minmax(from.across, to.across);
        boxes.push_back({start, end + kNear, low, high + kNear, i});
        from = to;
    }
    return boxes;
}

bool StartsBefore(const EdgeBox& a, const EdgeBox& b) {
    return a.start < b.start;
}

/// An outline mostly goes to its other end and comes back, with few steps the other way: of the
/// next edges on the way there and on the way back one is that which starts next, or nearly. No
/// guesses of a processor go wrong then, as they do where a range is parted again and again.
std::vector<EdgeBox> SortedByStart(const std::vector<EdgeBox>& boxes) {
    std::vector<EdgeBox> sorted;
    sorted.reserve(boxes.size());
    auto there = std::min_element(boxes.begin(), boxes.end(), StartsBefore);
    auto back = there;
    std::size_t moves = kMovesPerEdge * boxes.size();
    while (sorted.size() < boxes.size()) {
        there = there == boxes.end() ? boxes.begin() : there;
        back = back == boxes.begin() ? boxes.end() : back;
        const EdgeBox box = StartsBefore(*(back - 1), *there) ? *--back : *there++;
        auto place = sorted.insert(sorted.end(), box);
        for (; moves > 0 && place != sorted.begin() && StartsBefore(box, *(place - 1)); --moves) {
            *place = *(place - 1);
            --place;
        }
        *place = box;
    }
    if (moves == 0)
        std::sort(sorted.begin(), sorted.end(), StartsBefore);
    return sorted;
}

/// Without a branch between the comparisons: it would be guessed wrong too often.
bool AreApartAcross(const EdgeBox& a, const EdgeBox& b) {
    return (a.high < b.low) | (b.high < a.low);
}

bool AreApart(const EdgeBox& a, const EdgeBox& b) {
    return (a.end < b.start) | (b.end < a.start) | AreApartAcross(a, b);
}

bool MayAnyMeet(const std::vector<EdgeBox>& boxes, const Edges& edges) {
    for (auto b = boxes.begin(); b != boxes.end(); ++b)
        for (auto a = boxes.begin(); a != b; ++a)
            if (!AreApart(*a, *b) && edges.MayMeet(a->edge, b->edge))
                return true;
    return false;
}

/// True also when there are too many pairs to look at.
bool MayAnySortedMeet(const std::vector<EdgeBox>& boxes, const Edges& edges) {
    std::size_t pairs = kPairsPerEdge * boxes.size();
    for (auto a = boxes.begin(); a != boxes.end(); ++a)
        for (auto b = a + 1; b != boxes.end() && b->start <= a->end; ++b)
            if (pairs-- == 0 || (!AreApartAcross(*a, *b) && edges.MayMeet(a->edge, b->edge)))
                return true;
    return false;
}

}  // namespace

bool MayBeInContact(std::span<const ZetGeomPoint2d> outline) {
    if (outline.size() < kLeastEdges)
        return true;
    const Extent extent = ExtentOf(outline);
    const double step = GridStepOf(extent);
    const Edges edges(outline, step);
    const std::vector<EdgeBox> boxes = BoxesAround(outline, extent, step);
    return boxes.size() <= kFewEdges ? MayAnyMeet(boxes, edges)
                                     : MayAnySortedMeet(SortedByStart(boxes), edges);
}

}  // namespace camdata::detail
