#include "camdata/platform/geometry/ContactSweep.h"

#include "camdata/platform/geometry/EdgeBoxes.h"
#include "camdata/platform/geometry/GridEdges.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <vector>

// Nearly always boxes show that no edges are in contact. Otherwise a sweep from left to right over
// the outline on the grid: the edges that the sweep line cuts are kept from below to above, and
// only neighbours in that order can be the next to meet.

namespace camdata::detail {
namespace {

/// Order of two edges along the sweep line, from below; meaningful as long as they do not cross.
bool IsBelow(const GridEdge& a, const GridEdge& b) {
    if (b.left < a.left)
        return a.index != b.index && !IsBelow(b, a);
    for (const GridPoint& p : {b.left, b.right})
        if (const std::int64_t turn = Turn(a.left, a.right, p); turn != 0)
            return turn > 0;
    return a.index < b.index;
}

std::span<const ZetGeomPoint2d> WithoutClosingPoint(std::span<const ZetGeomPoint2d> outline) {
    while (outline.size() > 1 && outline.back() == outline.front())
        outline = outline.first(outline.size() - 1);
    return outline;
}

class Sweep {
  public:
    Sweep(const std::vector<GridVertex>& vertices, const std::vector<GridEdge>& edges)
        : m_vertices(vertices), m_edges(edges), m_status(Order{&m_edges}) {}

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
    std::optional<std::size_t> FindRepeatedPoint() const;
    std::optional<std::size_t> Contact(std::size_t a, std::size_t b) const;
    std::optional<std::size_t> Start(std::size_t edge);
    std::optional<std::size_t> End(std::size_t edge);

    const std::vector<GridVertex>& m_vertices;
    const std::vector<GridEdge>& m_edges;
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
    if (!AreInContact(m_edges[a], m_edges[b], m_edges.size()))
        return std::nullopt;
    return m_edges[std::max(a, b)].source;
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

std::optional<std::size_t> Sweep::FindContact() {
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
    if (!MayBeInContact(WithoutClosingPoint(outline)))
        return std::nullopt;
    const std::vector<GridVertex> vertices = VerticesOnGrid(outline);
    if (vertices.size() < 3)
        return std::nullopt;
    return Sweep(vertices, EdgesOf(vertices)).FindContact();
}

}  // namespace camdata::detail
