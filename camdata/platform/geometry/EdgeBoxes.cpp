#include "camdata/platform/geometry/EdgeBoxes.h"

#include <algorithm>

namespace camdata::detail {
namespace {

/// Pairs of boxes that are looked at for each edge, at most.
constexpr std::size_t kPairsPerEdge = 64;
/// Up to so many edges it is quicker to look at all pairs than to sort.
constexpr std::size_t kFewEdges = 24;

/// An edge by its extent along one axis.
struct EdgeExtent {
    std::int64_t start;
    std::int64_t end;
    const GridEdge* edge;
};

/// Of the boxes around two edges. Without branches between the comparisons: they would be guessed
/// wrong too often.
bool AreApart(const GridEdge& a, const GridEdge& b) {
    return (a.right.x < b.left.x) | (b.right.x < a.left.x) | (a.high < b.low) | (b.high < a.low);
}

/// Along the longer side of the outline fewest boxes lie beside each other.
bool IsLongerAlongX(const std::vector<GridEdge>& edges) {
    GridPoint size = {0, 0};
    for (const GridEdge& edge : edges)
        size = {std::max(size.x, edge.right.x), std::max(size.y, edge.high)};
    return size.x >= size.y;
}

/// Sorted by their starts.
std::vector<EdgeExtent> ExtentsOf(const std::vector<GridEdge>& edges) {
    const bool isAlongX = IsLongerAlongX(edges);
    std::vector<EdgeExtent> extents;
    extents.reserve(edges.size());
    for (const GridEdge& edge : edges)
        extents.push_back(
            {isAlongX ? edge.left.x : edge.low, isAlongX ? edge.right.x : edge.high, &edge});
    std::sort(extents.begin(), extents.end(), [](const EdgeExtent& a, const EdgeExtent& b) {
        return a.start < b.start;
    });
    return extents;
}

bool IsContactAmong(const std::vector<GridEdge>& edges) {
    for (std::size_t b = 1; b < edges.size(); ++b)
        for (std::size_t a = 0; a < b; ++a)
            if (!AreApart(edges[a], edges[b]) && AreInContact(edges[a], edges[b], edges.size()))
                return true;
    return false;
}

/// True also when there are too many pairs to look at.
bool MayBeContactAmongSorted(const std::vector<EdgeExtent>& edges) {
    std::size_t pairs = kPairsPerEdge * edges.size();
    for (auto a = edges.begin(); a != edges.end(); ++a)
        for (auto b = a + 1; b != edges.end() && b->start <= a->end; ++b)
            if (pairs-- == 0 ||
                (!AreApart(*a->edge, *b->edge) && AreInContact(*a->edge, *b->edge, edges.size())))
                return true;
    return false;
}

}  // namespace

bool MayBeInContact(const std::vector<GridEdge>& edges) {
    if (edges.size() <= kFewEdges)
        return IsContactAmong(edges);
    return MayBeContactAmongSorted(ExtentsOf(edges));
}

}  // namespace camdata::detail
