#include "camdata/platform/geometry/PointChain.h"
#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using camdata::detail::IsBefore;

using Points = std::vector<ZetGeomPoint2d>;
using Outline = ZetArray<ZetGeomPoint2d>;

/// The upright rectangle wins while its area exceeds the least by at most this times its perimeter:
/// an outline given as chords must not get a crooked rectangle for the sake of a hair's breadth.
constexpr double kUprightAllowance = 0.05;

/// Areas, and lengths, that differ by less, relatively, count as equal.
constexpr double kEqual = 1e-9;

/// Beyond this, mm, a product of three lengths might be no number any more.
constexpr double kMaxCoordinate = 1e12;

/// Squares of lengths below it have lost digits.
constexpr double kShortestSquare = 1e-200;

/// More than rounding takes from an area, by the largest coordinate and the perimeter.
constexpr double kRounding = 1e-12;

/// Edges whose directions differ by less, in radians, go on in one.
constexpr double kSameDirection = 1e-9;

/// Appends the lower hull of sorted points, without its last point.
template <typename Iterator>
void AppendHalfHull(Points& hull, Iterator first, Iterator last) {
    const std::size_t start = hull.size();
    for (; first != last; ++first) {
        while (hull.size() >= start + 2 &&
               (hull.back() - hull[hull.size() - 2]).cross(*first - hull.back()) <= 0.0)
            hull.pop_back();
        hull.push_back(*first);
    }
    hull.pop_back();
}

/// The convex hull, counter-clockwise, without vertices on straight edges (Andrew's chains).
Points ConvexHull(Points points) {
    std::sort(points.begin(), points.end(), IsBefore);
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < 3)
        return points;
    Points hull;
    hull.reserve(points.size() + 1);
    AppendHalfHull(hull, points.begin(), points.end());
    AppendHalfHull(hull, points.rbegin(), points.rend());
    return hull;
}

/// A rectangle along a direction u of length 1, as ranges along u and along its left normal v.
struct Frame {
    ZetGeomVector2d u;
    double minU;
    double maxU;
    double minV;
    double maxV;

    double Area() const { return (maxU - minU) * (maxV - minV); }
    double Perimeter() const { return 2.0 * ((maxU - minU) + (maxV - minV)); }
    ZetGeomPoint2d At(double alongU, double alongV) const {
        return {u.x * alongU - u.y * alongV, u.y * alongU + u.x * alongV};
    }
    ZetArray<ZetGeomPoint2d> Corners() const {
        return {At(minU, minV), At(maxU, minV), At(maxU, maxV), At(minU, maxV)};
    }
};

/// Positions count on beyond the last vertex, once around.
const ZetGeomPoint2d& VertexAt(const Points& hull, std::size_t at) {
    return hull[at < hull.size() ? at : at - hull.size()];
}

/// The edge from a vertex of the hull to the next.
ZetGeomVector2d EdgeAt(const Points& hull, std::size_t at) {
    return VertexAt(hull, at + 1) - VertexAt(hull, at);
}

/// Moves `at` on along the hull while the next vertex lies further in `direction`.
void AdvanceTo(const Points& hull, std::size_t& at, const ZetGeomVector2d& direction) {
    for (std::size_t steps = 0; steps < hull.size(); ++steps) {
        if (direction.dot(EdgeAt(hull, at)) <= 0.0)
            return;
        at = at + 1 < hull.size() ? at + 1 : 0;
    }
}

/// The rectangle along each edge of the hull. The three far vertices only ever move on while the
/// edge turns once around: linear time (rotating calipers).
std::vector<Frame> FramesAlongEdges(const Points& hull) {
    std::vector<Frame> frames;
    frames.reserve(hull.size());
    std::size_t right = 0;
    std::size_t top = 0;
    std::size_t left = 0;
    for (std::size_t i = 0; i < hull.size(); ++i) {
        const ZetGeomVector2d edge = EdgeAt(hull, i);
        const double length = edge.length();
        const ZetGeomVector2d u = {edge.x / length, edge.y / length};
        const ZetGeomVector2d v = {-u.y, u.x};
        AdvanceTo(hull, right, u);
        if (i == 0)
            top = right;
        AdvanceTo(hull, top, v);
        if (i == 0)
            left = top;
        AdvanceTo(hull, left, {-u.x, -u.y});
        const auto along = [&](const ZetGeomVector2d& axis, std::size_t at) {
            return axis.x * hull[at].x + axis.y * hull[at].y;
        };
        frames.push_back({u, along(u, left), along(u, right), along(v, i), along(v, top)});
    }
    return frames;
}

/// Edges of the hull that go on in one direction. Whether a vertex between them is there at all is
/// up to the last digit of its numbers.
struct Side {
    std::size_t first;  ///< edge
    double length;
};

bool GoesOn(const ZetGeomVector2d& edge, const ZetGeomVector2d& next) {
    return edge.dot(next) > 0.0 &&
           edge.cross(next) <= kSameDirection * edge.length() * next.length();
}

std::vector<Side> SidesOf(const Points& hull) {
    const std::size_t count = hull.size();
    std::size_t corner = 0;
    while (corner + 1 < count && GoesOn(EdgeAt(hull, corner + count - 1), EdgeAt(hull, corner)))
        ++corner;
    std::vector<Side> sides;
    sides.reserve(count);
    for (std::size_t i = corner; i < corner + count; ++i) {
        if (i == corner || !GoesOn(EdgeAt(hull, sides.back().first), EdgeAt(hull, i)))
            sides.push_back({i % count, 0.0});
        sides.back().length += EdgeAt(hull, i).length();
    }
    return sides;
}

/// The side that the outline comes to first, by the vertices where the sides begin.
std::size_t FirstOf(const std::vector<Side>& sides, const Points& hull, const Outline& outline) {
    Points starts;
    starts.reserve(sides.size());
    for (const Side& side : sides)
        starts.push_back(hull[side.first]);
    std::sort(starts.begin(), starts.end(), IsBefore);
    const auto first = std::find_if(outline.begin(), outline.end(), [&](const auto& point) {
        return std::binary_search(starts.begin(), starts.end(), point, IsBefore);
    });
    // There is one: the hull's vertices are the outline's.
    return std::find_if(sides.begin(),
                        sides.end(),
                        [&](const Side& side) { return hull[side.first] == *first; })
        ->first;
}

/// The smallest of the rectangles along the edges of the hull. Of equal ones that along the longest
/// side, then that whose side the outline comes to first: the same however the outline is turned.
Frame SmallestOf(const std::vector<Frame>& frames, const Points& hull, const Outline& outline) {
    std::vector<Side> sides = SidesOf(hull);
    double least = std::numeric_limits<double>::infinity();
    for (const Side& side : sides)
        least = std::min(least, frames[side.first].Area());
    std::erase_if(sides, [&](const Side& side) {
        return frames[side.first].Area() > least * (1.0 + kEqual);
    });
    const double longest =
        std::max_element(sides.begin(), sides.end(), [](const Side& a, const Side& b) {
            return a.length < b.length;
        })->length;
    std::erase_if(sides, [&](const Side& side) { return side.length < longest * (1.0 - kEqual); });
    return frames[FirstOf(sides, hull, outline)];
}

double LeastArea(const std::vector<Frame>& frames) {
    double least = std::numeric_limits<double>::infinity();
    for (const Frame& frame : frames)
        least = std::min(least, frame.Area());
    return least;
}

/// Of equal numbers the first is the least and the last the greatest: 0.0 and -0.0 are equal.
Frame UprightFrame(const Outline& points) {
    ZetGeomPoint2d low = points.first();
    ZetGeomPoint2d high = low;
    for (const ZetGeomPoint2d& p : points) {
        low = {p.x < low.x ? p.x : low.x, p.y < low.y ? p.y : low.y};
        high = {p.x < high.x ? high.x : p.x, p.y < high.y ? high.y : p.y};
    }
    return {
        {1.0, 0.0},
        low.x, high.x, low.y, high.y
    };
}

bool IsTaken(const Frame& upright, double least) {
    return upright.Area() - least <= kUprightAllowance * upright.Perimeter();
}

/// What values have come to.
struct Range {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void Widen(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

/// Vertices on the sides of the upright rectangle, the first and the last on each,
/// counter-clockwise from the lower side: a convex polygon inside the hull.
using Octagon = std::array<ZetGeomPoint2d, 8>;

Octagon OctagonOf(const Outline& points, const Frame& upright) {
    Range bottom, right, top, left;
    // None is beyond a side. Asking for == would also ask whether it is a number.
    for (const ZetGeomPoint2d& p : points) {
        if (p.y <= upright.minV)
            bottom.Widen(p.x);
        if (p.x >= upright.maxU)
            right.Widen(p.y);
        if (p.y >= upright.maxV)
            top.Widen(p.x);
        if (p.x <= upright.minU)
            left.Widen(p.y);
    }
    return {
        {{bottom.low, upright.minV},
         {bottom.high, upright.minV},
         {upright.maxU, right.low},
         {upright.maxU, right.high},
         {top.high, upright.maxV},
         {top.low, upright.maxV},
         {upright.minU, left.high},
         {upright.minU, left.low}}
    };
}

/// Of the rectangle along an edge of the octagon; 0.0 for an edge too short to divide by.
double AreaAlong(const Octagon& octagon, const ZetGeomPoint2d& from, const ZetGeomVector2d& edge) {
    Range along, across;
    for (const ZetGeomPoint2d& p : octagon) {
        along.Widen(edge.dot(p - from));
        across.Widen(edge.cross(p - from));
    }
    const double square = edge.dot(edge);
    return square > kShortestSquare ? (along.high - along.low) * across.high / square : 0.0;
}

/// True only when no rectangle around the outline is so small that it would be taken instead: none
/// is smaller than the least around the octagon, and that runs along one of its edges.
bool IsSurelyTaken(const Frame& upright, const Outline& points) {
    const double magnitude = std::max({-upright.minU, upright.maxU, -upright.minV, upright.maxV});
    if (magnitude > kMaxCoordinate)
        return false;
    const Octagon octagon = OctagonOf(points, upright);
    const double rounding = kRounding * magnitude * upright.Perimeter();
    for (std::size_t i = 1; i < octagon.size(); i += 2) {
        const ZetGeomPoint2d& from = octagon[i];
        const ZetGeomPoint2d& to = octagon[(i + 1) % octagon.size()];
        if (from != to && !IsTaken(upright, AreaAlong(octagon, from, to - from) - rounding))
            return false;
    }
    return true;
}

/// The upright frame, or the smallest where that is enough smaller.
Frame SmallestFrame(const Outline& outline) {
    const Frame upright = UprightFrame(outline);
    if (IsSurelyTaken(upright, outline))
        return upright;
    const Points hull = ConvexHull({outline.begin(), outline.end()});
    if (hull.size() < 3)
        return upright;
    const std::vector<Frame> frames = FramesAlongEdges(hull);
    // Mostly no other is small enough: then which of the small ones it would be is idle.
    if (IsTaken(upright, LeastArea(frames)))
        return upright;
    const Frame turned = SmallestOf(frames, hull, outline);
    return IsTaken(upright, turned.Area()) ? upright : turned;
}

bool IsFinite(const ZetGeomPoint2d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

ZetGeomAugPolygon ZetGeomAugPolygon::getMinRectangle() const {
    ZetGeomAugPolygon rectangle;
    if (!m_vertices.isEmpty() && std::all_of(m_vertices.begin(), m_vertices.end(), IsFinite))
        rectangle.m_vertices = SmallestFrame(m_vertices).Corners();
    return rectangle;
}
