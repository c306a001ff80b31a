#include "camdata/platform/geometry/PointChain.h"
#include "camdata/platform/geometry/SelfCrossing.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <iterator>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

// A rectangle minus an outline inside it, where the rectangle is the outline's own bounding
// rectangle: nothing has to be intersected. The outline is walked once, counter-clockwise. Where it
// leaves the border of the rectangle (contact a) and comes back to it (contact b), it cuts one
// piece: a, the rectangle's corners between a and b, b, and the way from b back to a.

namespace {

using camdata::detail::AreaOf;
using camdata::detail::IsBefore;
using camdata::detail::PerimeterOf;

using Points = std::vector<ZetGeomPoint2d>;
using Outline = ZetArray<ZetGeomPoint2d>;

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
    Border(const Outline& corners, double touch) : m_touch(touch + kRounding) {
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
            chain.push_back(SideAt(corner % kSides).corner);
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
        // At corner i sides i and i - 1 meet.
        if (const unsigned corners = sides & (sides << 1 | sides >> (kSides - 1)); corners != 0)
            return std::countr_zero(corners);
        const int first = std::countr_zero(sides);
        return first + FractionOf(SideAt(first), point);
    }
    static double FractionOf(const Side& side, const ZetGeomPoint2d& point) {
        return std::clamp(side.direction.dot(point - side.corner) / side.length, 0.0, 1.0);
    }

    double m_touch;
    std::array<Side, kSides> m_sides;
};

/// A vertex of the outline, walked counter-clockwise, and where it touches the border.
struct Step {
    ZetGeomPoint2d at;
    Contact contact;
};

/// Drops from a closed chain every point that repeats the one before.
void DropRepeats(Points& chain) {
    const auto areOne = [](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
        return (b - a).dot(b - a) <= 0.0;
    };
    chain.erase(std::unique(chain.begin(), chain.end(), areOne), chain.end());
    while (chain.size() > 1 && areOne(chain.back(), chain.front()))
        chain.pop_back();
}

/// What is left of a closed chain without the ways out and back on one line, as the cut is that
/// joins an opening to the edge. The chain begins on the border and repeats no point; nor does what
/// is left: behind a point follows what followed the same point before.
std::span<const ZetGeomPoint2d> WithoutSpurs(Points& chain) {
    std::size_t last = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        if (last >= 2 && chain[last - 2] == chain[i])
            --last;
        else
            chain[last++] = chain[i];
    }
    std::size_t first = 0;
    while (last - first > 2 && chain[first + 1] == chain[last - 1]) {
        ++first;
        --last;
    }
    return std::span(chain).subspan(first, last - first);
}

/// A piece that is cut from the rectangle.
struct Piece {
    double minX;
    double minY;
    double first;  ///< breaks ties between boxes: Y of the first vertex
    double area;
    std::size_t begin;  ///< among the vertices of all pieces
    std::size_t end;
};

/// Collects the pieces while the outline is walked.
class PieceCollector {
  public:
    PieceCollector(const Border& border, double offset, std::size_t steps)
        : m_border(border), m_offset(offset) {
        m_chain.reserve(kUsualChain);
        // Most have four vertices of their own.
        m_pieces.reserve(steps / 4);
        m_vertices.reserve(steps + steps / 4);
    }

    /// Takes the way from one contact to the next.
    void Cut(const Step* from, const Step* to) {
        if (to - from == 1 && (from->contact.sides & to->contact.sides) != 0)
            return;
        m_chain.clear();
        m_chain.push_back(from->at);
        m_border.AppendCornersBetween(from->contact, to->contact, m_chain);
        for (const Step* step = to; step != from; --step)
            m_chain.push_back(step->at);
        DropRepeats(m_chain);
        Keep(WithoutSpurs(m_chain));
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

    const std::vector<Piece>& GetPieces() const { return m_pieces; }

    Outline OutlineOf(const Piece& piece) const {
        return {m_vertices.data() + piece.begin, m_vertices.data() + piece.end};
    }

  private:
    static constexpr std::size_t kUsualChain = 16;

    /// Unless it is too thin.
    void Keep(std::span<const ZetGeomPoint2d> chain) {
        const std::size_t begin = m_vertices.size();
        std::rotate_copy(chain.begin(),
                         std::min_element(chain.begin(), chain.end(), IsBefore),
                         chain.end(),
                         std::back_inserter(m_vertices));
        const std::span vertices = std::span(m_vertices).subspan(begin);
        const double area = AreaOf(vertices);
        if (!(area > 0.5 * m_offset * PerimeterOf(vertices))) {
            m_vertices.resize(begin);
            return;
        }
        const ZetGeomPoint2d first = vertices.front();
        double minY = first.y;
        for (const ZetGeomPoint2d& point : vertices)
            minY = std::min(minY, point.y);
        m_pieces.push_back({first.x, minY, first.y, area, begin, m_vertices.size()});
    }

    const Border& m_border;
    double m_offset;
    Points m_chain;     ///< what is being cut
    Points m_vertices;  ///< of all pieces
    std::vector<Piece> m_pieces;
};

/// The outline counter-clockwise, from a vertex that touches the border and back to it; nothing
/// when none does.
std::vector<Step> WalkFromBorder(const Outline& vertices, bool isClockwise, const Border& border) {
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
    PieceCollector pieces(border, thin, walk.size());
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
        const PieceCollector pieces =
            CutPieces(WalkFromBorder(outline.m_vertices, area < 0.0, border), border, -offset);
        if (pieces.TotalArea() > most)
            continue;
        ZetArray<ZetGeomAugPolygon> polygons;
        polygons.reserve(static_cast<long>(pieces.GetPieces().size()));
        for (const Piece& piece : pieces.GetPieces()) {
            ZetGeomAugPolygon polygon;
            polygon.m_vertices = pieces.OutlineOf(piece);
            polygons.append(std::move(polygon));
        }
        return polygons;
    }
    return {};
}
