#include "camdata/platform/geometry/SelfCrossing.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <array>
#include <bit>
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
    unsigned sides;   ///< bit i: touches the side from corner i to corner i + 1
    double position;  ///< i + the fraction of side i; whole at corner i

    bool IsTouching() const { return sides != 0; }
};

class Border {
  public:
    Border(const Points& corners, double touch) : m_touch(touch + kRounding) {
        for (int i = 0; i < kSides; ++i) {
            const ZetGeomVector2d along = corners[(i + 1) % kSides] - corners[i];
            Side& side = SideAt(i);
            side.corner = corners[i];
            side.length = along.length();
            side.direction = {along.x / side.length, along.y / side.length};
        }
    }

    Contact ContactOf(const ZetGeomPoint2d& point) const {
        unsigned sides = 0;
        for (int i = 0; i < kSides; ++i) {
            const Side& side = SideAt(i);
            sides |= (side.direction.cross(point - side.corner) <= m_touch ? 1U : 0U) << i;
        }
        return {sides, sides != 0 ? PositionOf(sides, point) : 0.0};
    }

    /// Appends the corners that lie strictly between two contacts, counter-clockwise. Contacts on
    /// one side have none between them.
    void AppendCornersBetween(const Contact& from, const Contact& to, Points& chain) const {
        if ((from.sides & to.sides) != 0)
            return;
        const double end = to.position > from.position ? to.position : to.position + kSides;
        for (int corner = static_cast<int>(from.position) + 1; corner < end; ++corner)
            chain.append(SideAt(corner % kSides).corner);
    }

  private:
    struct Side {
        ZetGeomPoint2d corner;  ///< where it begins
        ZetGeomVector2d direction;
        double length;
    };

    Side& SideAt(int i) { return m_sides[static_cast<std::size_t>(i)]; }
    const Side& SideAt(int i) const { return m_sides[static_cast<std::size_t>(i)]; }

    double PositionOf(unsigned sides, const ZetGeomPoint2d& point) const {
        for (int corner = 0; corner < kSides && !std::has_single_bit(sides); ++corner) {
            const unsigned both = 1U << corner | 1U << ((corner + kSides - 1) % kSides);
            if ((sides & both) == both)
                return corner;
        }
        const int first = std::countr_zero(sides);
        return first + FractionOf(SideAt(first), point);
    }
    static double FractionOf(const Side& side, const ZetGeomPoint2d& point) {
        return std::clamp(side.direction.dot(point - side.corner) / side.length, 0.0, 1.0);
    }

    double m_touch;
    std::array<Side, kSides> m_sides;
};

bool IsBefore(const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
}

/// A vertex of the outline, walked counter-clockwise, and where it touches the border.
struct Step {
    ZetGeomPoint2d at;
    Contact contact;
};

/// Shortens a closed chain to the points from `first` to before `last`.
void KeepRange(Points& chain, long first, long last) {
    std::rotate(chain.begin(), chain.begin() + first, chain.end());
    chain.setLength(last - first);
}

/// Drops from a closed chain every point that repeats the one before.
void DropRepeats(Points& chain) {
    const auto areOne = [](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
        return (b - a).dot(b - a) <= 0.0;
    };
    auto last = static_cast<long>(std::unique(chain.begin(), chain.end(), areOne) - chain.begin());
    while (last > 1 && areOne(chain[last - 1], chain[0]))
        --last;
    chain.setLength(last);
}

/// Drops from a closed chain the ways out and back on one line, as the cut is that joins an opening
/// to the edge. The chain begins on the border.
void DropSpurs(Points& chain) {
    long last = 0;
    for (long i = 0; i < chain.length(); ++i) {
        if (last >= 2 && chain[last - 2] == chain[i])
            --last;
        else
            chain[last++] = chain[i];
    }
    long first = 0;
    while (last - first > 2 && chain[first + 1] == chain[last - 1]) {
        ++first;
        --last;
    }
    KeepRange(chain, first, last);
}

/// Collects the pieces while the outline is walked.
class PieceCollector {
  public:
    PieceCollector(const Border& border, double offset, std::size_t expected)
        : m_border(border), m_offset(offset) {
        m_pieces.reserve(expected);
    }

    /// Takes the way from one contact to the next.
    void Cut(const Step* from, const Step* to) {
        if (to - from == 1 && (from->contact.sides & to->contact.sides) != 0)
            return;
        m_chain.removeAll();
        m_chain.append(from->at);
        m_border.AppendCornersBetween(from->contact, to->contact, m_chain);
        for (const Step* step = to; step != from; --step)
            m_chain.append(step->at);
        Keep();
    }

    double TotalArea() const {
        double area = 0.0;
        for (const Piece& piece : m_pieces)
            area += piece.area;
        return area;
    }

    void Sort() {
        std::sort(m_pieces.begin(), m_pieces.end(), [](const Piece& a, const Piece& b) {
            return std::tie(a.minX, a.minY, a.first) < std::tie(b.minX, b.minY, b.first);
        });
    }

    Pieces Take() {
        Pieces polygons;
        polygons.reserve(static_cast<long>(m_pieces.size()));
        for (Piece& piece : m_pieces)
            polygons.append(std::move(piece.polygon));
        return polygons;
    }

  private:
    struct Piece {
        double minX;
        double minY;
        double first;  ///< breaks ties between boxes: Y of the first vertex
        double area;
        ZetGeomAugPolygon polygon;
    };

    void Keep() {
        DropRepeats(m_chain);
        DropSpurs(m_chain);
        std::rotate(m_chain.begin(),
                    std::min_element(m_chain.begin(), m_chain.end(), IsBefore),
                    m_chain.end());
        ZetGeomAugPolygon polygon(m_chain, 0.0);
        const double area = polygon.getArea();
        if (!(area > 0.5 * m_offset * polygon.getPerimeter()))
            return;
        double minY = m_chain.first().y;
        for (const ZetGeomPoint2d& point : m_chain)
            minY = std::min(minY, point.y);
        m_pieces.push_back({m_chain.first().x, minY, m_chain.first().y, area, std::move(polygon)});
    }

    const Border& m_border;
    double m_offset;
    Points m_chain;
    std::vector<Piece> m_pieces;
};

/// The outline counter-clockwise, from a vertex that touches the border and back to it; nothing
/// when none does.
std::vector<Step> WalkFromBorder(const Points& vertices, bool isClockwise, const Border& border) {
    std::vector<Step> walk;
    walk.reserve(static_cast<std::size_t>(vertices.length()) + 1);
    for (const ZetGeomPoint2d& vertex : vertices)
        walk.push_back({vertex, border.ContactOf(vertex)});
    if (isClockwise)
        std::reverse(walk.begin(), walk.end());
    const auto start = std::find_if(
        walk.begin(), walk.end(), [](const Step& step) { return step.contact.IsTouching(); });
    if (start == walk.end())
        return {};
    std::rotate(walk.begin(), start, walk.end());
    walk.push_back(Step(walk.front()));
    return walk;
}

/// The pieces that the walk cuts from its rectangle; those thinner than about `thin` vanish.
PieceCollector CutPieces(const std::vector<Step>& walk, const Border& border, double thin) {
    // Most have four vertices of their own.
    PieceCollector pieces(border, thin, walk.size() / 4);
    const Step* from = walk.data();
    for (const Step& to : walk) {
        if (!to.contact.IsTouching() || &to == from)
            continue;
        pieces.Cut(from, &to);
        from = &to;
    }
    pieces.Sort();
    return pieces;
}

}  // namespace

ZetArray<ZetGeomAugPolygon> ZetGeomAugPolygon::subtract(const ZetGeomAugPolygon& outline,
                                                        double offset) const {
    if (getLength() != kSides ||
        FindSelfCrossing({outline.m_vertices.begin(), outline.m_vertices.end()}))
        return {};
    const double area = outline.getArea();
    const double most = getArea() - std::abs(area) - offset * getPerimeter();
    // A notch that ends within the offset of another side would seem to part the outline there, and
    // its piece to cover one of the parts: then only real contacts count.
    for (const double touch : {-offset, 0.0}) {
        const Border border(m_vertices, touch);
        PieceCollector pieces =
            CutPieces(WalkFromBorder(outline.m_vertices, area < 0.0, border), border, -offset);
        if (pieces.TotalArea() <= most)
            return pieces.Take();
    }
    return {};
}
