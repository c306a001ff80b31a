#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using Points = std::vector<ZetGeomPoint2d>;

/// The upright rectangle wins while its area exceeds the least by at most this times its perimeter:
/// an outline given as chords must not get a crooked rectangle for the sake of a hair's breadth.
constexpr double kUprightAllowance = 0.05;

/// Areas that differ by less, relatively, count as equal: the first one found stays.
constexpr double kEqualAreas = 1e-9;

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
    std::sort(points.begin(), points.end(), [](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
        return a.x < b.x || (a.x == b.x && a.y < b.y);
    });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < 3)
        return points;
    Points hull;
    AppendHalfHull(hull, points.begin(), points.end());
    AppendHalfHull(hull, points.rbegin(), points.rend());
    return hull;
}

/// A rectangle along a direction u of length 1, as ranges along u and along its left normal v.
struct Frame {
    ZetGeomVector2d u;
    double minU = 0.0;
    double maxU = 0.0;
    double minV = 0.0;
    double maxV = 0.0;

    double Area() const { return (maxU - minU) * (maxV - minV); }
    double Perimeter() const { return 2.0 * ((maxU - minU) + (maxV - minV)); }
    ZetGeomPoint2d At(double alongU, double alongV) const {
        return {u.x * alongU - u.y * alongV, u.y * alongU + u.x * alongV};
    }
    ZetArray<ZetGeomPoint2d> Corners() const {
        return {At(minU, minV), At(maxU, minV), At(maxU, maxV), At(minU, maxV)};
    }
};

/// Moves `at` on along the hull while the next vertex lies further in `direction`.
void AdvanceTo(const Points& hull, std::size_t& at, const ZetGeomVector2d& direction) {
    for (std::size_t steps = 0; steps < hull.size(); ++steps) {
        const std::size_t next = (at + 1) % hull.size();
        if (direction.dot(hull[next] - hull[at]) <= 0.0)
            return;
        at = next;
    }
}

/// The smallest rectangle of those that have a side along an edge of the hull. The three far
/// vertices only ever move on while the edge turns once around: linear time (rotating calipers).
Frame SmallestAlongAnEdge(const Points& hull) {
    Frame best;
    double bestArea = std::numeric_limits<double>::infinity();
    std::size_t right = 0;
    std::size_t top = 0;
    std::size_t left = 0;
    for (std::size_t i = 0; i < hull.size(); ++i) {
        const ZetGeomVector2d edge = hull[(i + 1) % hull.size()] - hull[i];
        const double length = edge.length();
        const ZetGeomVector2d u = {edge.x / length, edge.y / length};
        const ZetGeomVector2d v = {-u.y, u.x};
        if (i == 0)
            right = top = left = 1;
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
        const Frame frame = {u, along(u, left), along(u, right), along(v, i), along(v, top)};
        if (frame.Area() < bestArea * (1.0 - kEqualAreas)) {
            best = frame;
            bestArea = frame.Area();
        }
    }
    return best;
}

Frame UprightFrame(const Points& points) {
    const auto byX = [](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) { return a.x < b.x; };
    const auto byY = [](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) { return a.y < b.y; };
    const auto [minX, maxX] = std::minmax_element(points.begin(), points.end(), byX);
    const auto [minY, maxY] = std::minmax_element(points.begin(), points.end(), byY);
    return {
        {1.0, 0.0},
        minX->x, maxX->x, minY->y, maxY->y
    };
}

bool IsFinite(const ZetGeomPoint2d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

ZetGeomAugPolygon ZetGeomAugPolygon::getMinRectangle() const {
    ZetGeomAugPolygon rectangle;
    if (m_vertices.isEmpty() || !std::all_of(m_vertices.begin(), m_vertices.end(), IsFinite))
        return rectangle;
    const Points points(m_vertices.begin(), m_vertices.end());
    const Frame upright = UprightFrame(points);
    const Points hull = ConvexHull(points);
    const Frame turned = hull.size() < 3 ? upright : SmallestAlongAnEdge(hull);
    const bool takesUpright =
        upright.Area() - turned.Area() <= kUprightAllowance * upright.Perimeter();
    rectangle.m_vertices = (takesUpright ? upright : turned).Corners();
    return rectangle;
}
