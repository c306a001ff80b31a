#include "camdata/platform/geometry/SelfCrossing.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <vector>

// A rectangle minus an outline inside it, where the rectangle is the outline's own bounding
// rectangle: nothing has to be intersected. The outline is walked once, counter-clockwise. Where it
// leaves the border of the rectangle (contact a) and comes back to it (contact b), it cuts one
// piece: a, the rectangle's corners between a and b, b, and the way from b back to a.

namespace {

using Points = ZetArray<ZetGeomPoint2d>;
using Pieces = ZetArray<ZetGeomAugPolygon>;

constexpr int kSides = 4;

/// What rounding may add to a distance: 200 - 199.95 is a little more than 0.05.
constexpr double kRounding = 1e-6;

/// Where a vertex lies on the border of the rectangle.
struct Contact {
    unsigned sides = 0;     ///< bit i: touches the side from corner i to corner i + 1
    double position = 0.0;  ///< i + the fraction of side i; whole at corner i

    bool IsTouching() const { return sides != 0; }
};

class Border {
  public:
    Border(const Points& corners, double touch) : m_corners(corners), m_touch(touch + kRounding) {
        for (int side = 0; side < kSides; ++side) {
            const ZetGeomVector2d along = corners[(side + 1) % kSides] - corners[side];
            const std::size_t i = static_cast<std::size_t>(side);
            m_lengths[i] = along.length();
            m_directions[i] = {along.x / m_lengths[i], along.y / m_lengths[i]};
        }
    }

    Contact ContactOf(const ZetGeomPoint2d& point) const {
        Contact contact;
        for (int side = 0; side < kSides; ++side) {
            if (Direction(side).cross(point - m_corners[side]) <= m_touch)
                contact.sides |= 1U << side;
        }
        contact.position = PositionOf(contact.sides, point);
        return contact;
    }

    /// Appends the corners that lie strictly between two contacts, counter-clockwise. Contacts on
    /// one side have none between them.
    void AppendCornersBetween(const Contact& from, const Contact& to, Points& points) const {
        if ((from.sides & to.sides) != 0)
            return;
        const double end = to.position > from.position ? to.position : to.position + kSides;
        for (int corner = static_cast<int>(from.position) + 1; corner < end; ++corner)
            points.append(m_corners[corner % kSides]);
    }

  private:
    const ZetGeomVector2d& Direction(int side) const {
        return m_directions[static_cast<std::size_t>(side)];
    }
    double PositionOf(unsigned sides, const ZetGeomPoint2d& point) const {
        for (int corner = 0; corner < kSides; ++corner) {
            const unsigned both = 1U << corner | 1U << ((corner + kSides - 1) % kSides);
            if ((sides & both) == both)
                return corner;
        }
        for (int side = 0; side < kSides; ++side) {
            if ((sides & 1U << side) != 0)
                return side + FractionOf(side, point);
        }
        return 0.0;
    }
    double FractionOf(int side, const ZetGeomPoint2d& point) const {
        const double along = Direction(side).dot(point - m_corners[side]);
        return std::clamp(along / m_lengths[static_cast<std::size_t>(side)], 0.0, 1.0);
    }

    const Points& m_corners;
    double m_touch;
    std::array<double, kSides> m_lengths;
    std::array<ZetGeomVector2d, kSides> m_directions;
};

bool IsBefore(const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
}

/// The vertices of a closed chain without the ways out and back on one line, as the cut is that
/// joins an opening to the edge. The chain begins on the border.
Points WithoutSpurs(const Points& chain) {
    std::vector<ZetGeomPoint2d> kept;
    for (const ZetGeomPoint2d& point : chain) {
        if (kept.size() >= 2 && kept[kept.size() - 2] == point)
            kept.pop_back();
        else
            kept.push_back(point);
    }
    auto first = kept.begin();
    auto last = kept.end();
    while (last - first > 2 && *(first + 1) == *(last - 1)) {
        ++first;
        --last;
    }
    return Points(first, last);
}

/// Collects the pieces while the outline is walked.
class PieceCollector {
  public:
    PieceCollector(const Border& border, double offset) : m_border(border), m_offset(offset) {}

    /// Takes the way between two contacts: `way` holds the vertices between them.
    void Cut(const ZetGeomPoint2d& a,
             const Contact& from,
             Points way,
             const ZetGeomPoint2d& b,
             const Contact& to) {
        if (way.isEmpty() && (from.sides & to.sides) != 0)
            return;
        Points points = {a};
        m_border.AppendCornersBetween(from, to, points);
        points.append(b);
        std::reverse(way.begin(), way.end());
        points.appendAll(way);
        Keep(points);
    }

    Pieces TakeSorted() {
        std::sort(m_pieces.begin(), m_pieces.end(), [](const Piece& a, const Piece& b) {
            return std::tie(a.minX, a.minY, a.first) < std::tie(b.minX, b.minY, b.first);
        });
        Pieces polygons;
        for (Piece& piece : m_pieces)
            polygons.append(std::move(piece.polygon));
        return polygons;
    }

  private:
    struct Piece {
        double minX;
        double minY;
        double first;  ///< breaks ties between boxes: Y of the first vertex
        ZetGeomAugPolygon polygon;
    };

    void Keep(const Points& points) {
        Points corners = WithoutSpurs(ZetGeomAugPolygon(points, 0.0).getVertices());
        std::rotate(corners.begin(),
                    std::min_element(corners.begin(), corners.end(), IsBefore),
                    corners.end());
        ZetGeomAugPolygon polygon(corners, 0.0);
        if (!(polygon.getArea() > 0.5 * m_offset * polygon.getPerimeter()))
            return;
        double minY = corners.first().y;
        for (const ZetGeomPoint2d& point : corners)
            minY = std::min(minY, point.y);
        m_pieces.push_back({corners.first().x, minY, corners.first().y, std::move(polygon)});
    }

    const Border& m_border;
    double m_offset;
    std::vector<Piece> m_pieces;
};

/// The vertices counter-clockwise, beginning with one that touches the border; none when none does.
Points WalkFromBorder(const ZetGeomAugPolygon& outline, const Border& border) {
    Points vertices = outline.getVertices();
    if (outline.getArea() < 0.0)
        std::reverse(vertices.begin(), vertices.end());
    const auto start =
        std::find_if(vertices.begin(), vertices.end(), [&](const ZetGeomPoint2d& vertex) {
            return border.ContactOf(vertex).IsTouching();
        });
    if (start == vertices.end())
        return {};
    std::rotate(vertices.begin(), start, vertices.end());
    return vertices;
}

/// The pieces that the outline cuts from its rectangle, when a vertex within `touch` of a side lies
/// on that side and pieces thinner than about `thin` vanish.
Pieces CutPieces(const Points& corners,
                 const ZetGeomAugPolygon& outline,
                 double touch,
                 double thin) {
    const Border border(corners, touch);
    Points walk = WalkFromBorder(outline, border);
    if (walk.isEmpty())
        return {};
    walk.append(walk.first());
    PieceCollector pieces(border, thin);
    long from = 0;
    Contact contact = border.ContactOf(walk.first());
    for (long to = 1; to < walk.length(); ++to) {
        const Contact next = border.ContactOf(walk[to]);
        if (!next.IsTouching())
            continue;
        pieces.Cut(walk[from],
                   contact,
                   Points(walk.begin() + from + 1, walk.begin() + to),
                   walk[to],
                   next);
        from = to;
        contact = next;
    }
    return pieces.TakeSorted();
}

double TotalArea(const Pieces& pieces) {
    double area = 0.0;
    for (const ZetGeomAugPolygon& piece : pieces)
        area += piece.getArea();
    return area;
}

}  // namespace

ZetArray<ZetGeomAugPolygon> ZetGeomAugPolygon::subtract(const ZetGeomAugPolygon& outline,
                                                        double offset) const {
    if (getLength() != kSides ||
        FindSelfCrossing({outline.m_vertices.begin(), outline.m_vertices.end()}))
        return {};
    const double most = getArea() - std::abs(outline.getArea()) - offset * getPerimeter();
    // A notch that ends within the offset of another side would seem to part the outline there, and
    // its piece to cover one of the parts: then only real contacts count.
    for (const double touch : {-offset, 0.0}) {
        Pieces pieces = CutPieces(m_vertices, outline, touch, -offset);
        if (TotalArea(pieces) <= most)
            return pieces;
    }
    return {};
}
