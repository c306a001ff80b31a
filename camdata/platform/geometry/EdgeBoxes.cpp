#include "camdata/platform/geometry/EdgeBoxes.h"

#include <algorithm>

namespace camdata::detail {
namespace {

/// Pairs of boxes that are looked at for each edge, at most.
constexpr std::size_t kPairsPerEdge = 64;
/// Up to so many edges it is quicker to look at all pairs than to sort.
constexpr std::size_t kFewEdges = 24;

/// The box around an edge, by its extents along one axis and across it.
struct EdgeBox {
    std::int64_t start;
    std::int64_t end;
    std::int64_t low;
    std::int64_t high;
    const GridEdge* edge;
};

/// Without branches between the comparisons: they would be guessed wrong too often.
bool AreApart(const EdgeBox& a, const EdgeBox& b) {
    return (a.end < b.start) | (b.end < a.start) | (a.high < b.low) | (b.high < a.low);
}

EdgeBox BoxAlongX(const GridEdge& edge) {
    return {edge.left.x, edge.right.x, edge.low, edge.high, &edge};
}

EdgeBox BoxAlongY(const GridEdge& edge) {
    return {edge.low, edge.high, edge.left.x, edge.right.x, &edge};
}

/// Along the longer side of the outline fewest boxes lie beside each other.
bool IsLongerAlongX(const std::vector<GridEdge>& edges) {
    GridPoint size = {0, 0};
    for (const GridEdge& edge : edges)
        size = {std::max(size.x, edge.right.x), std::max(size.y, edge.high)};
    return size.x >= size.y;
}

std::vector<EdgeBox> BoxesOf(const std::vector<GridEdge>& edges) {
    const auto boxOf = IsLongerAlongX(edges) ? BoxAlongX : BoxAlongY;
    std::vector<EdgeBox> boxes;
    boxes.reserve(edges.size());
    for (const GridEdge& edge : edges)
        boxes.push_back(boxOf(edge));
    return boxes;
}

bool IsContactAmong(const std::vector<GridEdge>& edges) {
    for (std::size_t b = 1; b < edges.size(); ++b)
        for (std::size_t a = 0; a < b; ++a)
            if (!AreApart(BoxAlongX(edges[a]), BoxAlongX(edges[b])) &&
                AreInContact(edges[a], edges[b], edges.size()))
                return true;
    return false;
}

/// The boxes must be sorted by their starts. True also when there are too many pairs to look at.
bool MayBeContactAmongSorted(const std::vector<EdgeBox>& boxes) {
    std::size_t pairs = kPairsPerEdge * boxes.size();
    for (auto a = boxes.begin(); a != boxes.end(); ++a)
        for (auto b = a + 1; b != boxes.end() && b->start <= a->end; ++b)
            if (pairs-- == 0 ||
                (!AreApart(*a, *b) && AreInContact(*a->edge, *b->edge, boxes.size())))
                return true;
    return false;
}

}  // namespace

bool MayBeInContact(const std::vector<GridEdge>& edges) {
    if (edges.size() <= kFewEdges)
        return IsContactAmong(edges);
    std::vector<EdgeBox> boxes = BoxesOf(edges);
    std::sort(boxes.begin(), boxes.end(), [](const EdgeBox& a, const EdgeBox& b) {
        return a.start < b.start;
    });
    return MayBeContactAmongSorted(boxes);
}

}  // namespace camdata::detail
