#include "camdata/platform/geometry/ContactSweep.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <tuple>
#include <vector>

// A sweep from left to right over the outline on a grid of whole numbers, where every comparison is
// exact: the edges that the sweep line cuts are kept from below to above, and only neighbours in
// that order can be the next to meet.

namespace camdata::detail {
namespace {

/// Grid step in mm unless the outline is too large for products of 64 bits.
constexpr double kGrid = 0.001;
constexpr double kMaxCells = 1 << 30;
/// Up to so many edges it is quicker to look at all pairs.
constexpr std::size_t kFewEdges = 24;

struct GridPoint {
    std::int64_t x;
    std::int64_t y;

    friend auto operator<=>(const GridPoint&, const GridPoint&) = default;
};

/// Positive when `c` lies left of a-b.
std::int64_t Turn(const GridPoint& a, const GridPoint& b, const GridPoint& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

int Sign(std::int64_t value) {
    return value > 0 ? 1 : (value < 0 ? -1 : 0);
}

/// An edge of the outline on the grid, from the smaller to the larger point.
struct GridEdge {
    GridPoint left;
    GridPoint right;
    std::int64_t low;  ///< the lower Y of both ends
    std::int64_t high;
    std::size_t index;   ///< among the edges on the grid, in the outline's order
    std::size_t source;  ///< in the outline
};

/// A vertex of an outline on the grid.
struct GridVertex {
    GridPoint at;
    std::size_t source;  ///< in the outline
};

/// The vertices of an outline on the grid without repeats, the closing point excluded.
using GridOutline = std::vector<GridVertex>;

GridOutline OnGrid(std::span<const ZetGeomPoint2d> outline) {
    double low[2] = {outline[0].x, outline[0].y};
    double high[2] = {outline[0].x, outline[0].y};
    for (const ZetGeomPoint2d& p : outline) {
        low[0] = std::min(low[0], p.x);
        low[1] = std::min(low[1], p.y);
        high[0] = std::max(high[0], p.x);
        high[1] = std::max(high[1], p.y);
    }
    const double step = std::max(kGrid, std::max(high[0] - low[0], high[1] - low[1]) / kMaxCells);
    GridOutline grid;
    grid.reserve(outline.size());
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const GridPoint p = {std::llround((outline[i].x - low[0]) / step),
                             std::llround((outline[i].y - low[1]) / step)};
        if (grid.empty() || grid.back().at != p)
            grid.push_back({p, i});
    }
    while (grid.size() > 1 && grid.back().at == grid.front().at)
        grid.pop_back();
    return grid;
}

std::vector<GridEdge> EdgesOf(const GridOutline& grid) {
    std::vector<GridEdge> edges;
    edges.reserve(grid.size());
    for (std::size_t i = 0; i < grid.size(); ++i) {
        const auto [left, right] = std::minmax({grid[i].at, grid[(i + 1) % grid.size()].at});
        const auto [low, high] = std::minmax({left.y, right.y});
        edges.push_back({left, right, low, high, i, grid[i].source});
    }
    return edges;
}

/// Order of two edges along the sweep line, from below; meaningful as long as they do not cross.
bool IsBelow(const GridEdge& a, const GridEdge& b) {
    if (b.left < a.left)
        return a.index != b.index && !IsBelow(b, a);
    for (const GridPoint& p : {b.left, b.right})
        if (const std::int64_t turn = Turn(a.left, a.right, p); turn != 0)
            return turn > 0;
    return a.index < b.index;
}

bool IsBetween(const GridPoint& p, const GridEdge& edge) {
    return Turn(edge.left, edge.right, p) == 0 && edge.left <= p && p <= edge.right;
}

/// True when the boxes around both have no point in common: nearly always.
bool AreApart(const GridEdge& a, const GridEdge& b) {
    return a.right.x < b.left.x || b.right.x < a.left.x || a.high < b.low || b.high < a.low;
}

bool Meet(const GridEdge& a, const GridEdge& b) {
    if (AreApart(a, b))
        return false;
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

class Sweep {
  public:
    explicit Sweep(const GridOutline& grid)
        : m_vertices(grid), m_edges(EdgesOf(grid)), m_status(Order{&m_edges}) {}

    /// The outline's edge at which two edges meet that are no neighbours.
    std::optional<std::size_t> FindContact();

  private:
    struct Order {
        const std::vector<GridEdge>* edges;
        bool operator()(std::size_t a, std::size_t b) const {
            return IsBelow((*edges)[a], (*edges)[b]);
        }
    };
    using Status = std::set<std::size_t, Order>;

    struct Event {
        GridPoint at;
        bool isStart;  ///< ends come before starts at the same point
        std::size_t edge;

        friend auto operator<=>(const Event&, const Event&) = default;
    };

    std::vector<Event> Events() const;
    bool HasContact() const;
    std::optional<std::size_t> FindRepeatedPoint() const;
    std::optional<std::size_t> Contact(std::size_t a, std::size_t b) const;
    std::optional<std::size_t> Start(std::size_t edge);
    std::optional<std::size_t> End(std::size_t edge);

    const GridOutline& m_vertices;
    std::vector<GridEdge> m_edges;
    Status m_status;
    std::vector<Status::iterator> m_places;
};

std::vector<Sweep::Event> Sweep::Events() const {
    std::vector<Event> events;
    for (const GridEdge& edge : m_edges) {
        events.push_back({edge.left, true, edge.index});
        events.push_back({edge.right, false, edge.index});
    }
    std::sort(events.begin(), events.end());
    return events;
}

std::optional<std::size_t> Sweep::FindRepeatedPoint() const {
    std::vector<std::size_t> order(m_vertices.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return std::tie(m_vertices[a].at, a) < std::tie(m_vertices[b].at, b);
    });
    const auto repeat =
        std::adjacent_find(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return m_vertices[a].at == m_vertices[b].at;
        });
    return repeat == order.end() ? std::nullopt : std::optional(m_edges[*(repeat + 1)].source);
}

std::optional<std::size_t> Sweep::Contact(std::size_t a, std::size_t b) const {
    const std::size_t apart = a < b ? b - a : a - b;
    const bool areNeighbours = apart == 1 || apart == m_edges.size() - 1;
    const bool isContact =
        areNeighbours ? FoldBack(m_edges[a], m_edges[b]) : Meet(m_edges[a], m_edges[b]);
    return isContact ? std::optional(m_edges[std::max(a, b)].source) : std::nullopt;
}

std::optional<std::size_t> Sweep::Start(std::size_t edge) {
    const auto place = m_status.insert(edge).first;
    m_places[edge] = place;
    if (place != m_status.begin())
        if (const auto contact = Contact(*std::prev(place), edge))
            return contact;
    const auto above = std::next(place);
    return above == m_status.end() ? std::nullopt : Contact(edge, *above);
}

std::optional<std::size_t> Sweep::End(std::size_t edge) {
    const auto above = m_status.erase(m_places[edge]);
    if (above == m_status.begin() || above == m_status.end())
        return std::nullopt;
    return Contact(*std::prev(above), *above);
}

/// The same, pair by pair.
bool Sweep::HasContact() const {
    for (std::size_t b = 1; b < m_edges.size(); ++b)
        for (std::size_t a = 0; a < b; ++a)
            if (Contact(a, b))
                return true;
    return false;
}

std::optional<std::size_t> Sweep::FindContact() {
    if (m_edges.size() <= kFewEdges && !HasContact())
        return std::nullopt;
    if (const auto repeated = FindRepeatedPoint())
        return repeated;
    m_places.assign(m_edges.size(), m_status.end());
    for (const Event& event : Events())
        if (const auto contact = event.isStart ? Start(event.edge) : End(event.edge))
            return contact;
    return std::nullopt;
}

}  // namespace

std::optional<std::size_t> FindContact(std::span<const ZetGeomPoint2d> outline) {
    const GridOutline grid = OnGrid(outline);
    return grid.size() < 3 ? std::nullopt : Sweep(grid).FindContact();
}

}  // namespace camdata::detail
