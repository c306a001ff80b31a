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
// edge by no more, as it lies between two vertices; rounding adds less than a millionth of a step.
// So a contact on the grid is one of points that are less than 1.01 steps apart along each axis,
// and less than 1.5 in all. Edges that are further apart have none.
//
// The way from one point to another becomes another by less than 1.01 steps along each axis, the
// cross or dot product of two edges e and f therefore by less than 1.01 (|e| + |f|) + 2.1 steps,
// times a step, where |(x, y)| is |x| + |y|. One that is larger than 2 (|e| + |f|) steps is one of
// edges that are longer than two steps both, as it is no larger than the product of their lengths:
// |e| + |f| is more than four steps, and what it becomes has its sign and is not 0. No such edge
// vanishes on the grid, none gets other neighbours there, and none lies on its neighbour.
//
// Rounding takes less from all this than a hundredth of a step: no outline is longer than 2^30
// steps, and a product is right to 2^-51.

namespace camdata::detail {
namespace {

using Outline = std::span<const ZetGeomPoint2d>;

/// Steps of the grid.
constexpr double kMargin = 2.0;
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

    /// True when each surely goes on to the next, straight or with a bend.
    bool GoOn() const {
        ZetGeomVector2d last = Along(m_outline.size() - 1);
        for (std::size_t i = 0; i < m_outline.size(); ++i) {
            const ZetGeomVector2d next = Along(i);
            if (!(std::max(std::abs(last.cross(next)), last.dot(next)) >
                  MarginOf(last) + MarginOf(next)))
                return false;
            last = next;
        }
        return true;
    }

    /// Unless they are neighbours.
    bool MayMeet(std::size_t a, std::size_t b) const {
        return After(a) != b && After(b) != a && !IsBeside(a, b) && !IsBeside(b, a);
    }

  private:
    std::size_t After(std::size_t at) const { return at + 1 < m_outline.size() ? at + 1 : 0; }
    ZetGeomVector2d Along(std::size_t edge) const {
        return m_outline[After(edge)] - m_outline[edge];
    }
    double MarginOf(const ZetGeomVector2d& edge) const {
        return m_margin * (std::abs(edge.x) + std::abs(edge.y));
    }
    /// True when `edge` lies on one side of the line along `line`, surely farther away than the
    /// margin: the cross product is that distance times the length, which |x| + |y| is not below.
    bool IsBeside(std::size_t line, std::size_t edge) const {
        const ZetGeomPoint2d& from = m_outline[line];
        const ZetGeomVector2d along = Along(line);
        const double first = along.cross(m_outline[edge] - from);
        const double second = along.cross(m_outline[After(edge)] - from);
        return std::max(first, second) < -MarginOf(along) ||
               std::min(first, second) > MarginOf(along);
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
    const Extent extent = ExtentOf(outline);
    const double step = GridStepOf(extent);
    const Edges edges(outline, step);
    if (!edges.GoOn())
        return true;
    const std::vector<EdgeBox> boxes = BoxesAround(outline, extent, step);
    return boxes.size() <= kFewEdges ? MayAnyMeet(boxes, edges)
                                     : MayAnySortedMeet(SortedByStart(boxes), edges);
}

}  // namespace camdata::detail
