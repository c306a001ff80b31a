#include "camdata/platform/geometry/ZetGeomAugPolygon.h"

#include "camdata/platform/geometry/PointChain.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using camdata::detail::IsBefore;

/// More than rounding adds to an area, by the square of the perimeter.
constexpr double kRounding = 1e-10;

bool AreNear(const ZetGeomPoint2d& a, const ZetGeomPoint2d& b, double tolerance) {
    return (b - a).length() <= tolerance;
}

/// The directions from a fixed point whose lines pass within a tolerance of some points.
class Cone {
  public:
    Cone(const ZetGeomPoint2d& apex, double tolerance) : m_apex(apex), m_tolerance(tolerance) {}

    /// True when the line to `point` passes near all points so far, of which there is one.
    bool Holds(const ZetGeomPoint2d& point) const {
        const ZetGeomVector2d direction = point - m_apex;
        return m_right.cross(direction) >= 0.0 && direction.cross(m_left) >= 0.0;
    }
    /// The point is farther away than the tolerance.
    void Narrow(const ZetGeomPoint2d& point) {
        const ZetGeomVector2d direction = point - m_apex;
        const double sine = m_tolerance / direction.length();
        const double cosine = std::sqrt(1.0 - sine * sine);
        const ZetGeomVector2d right = Turned(direction, cosine, -sine);
        const ZetGeomVector2d left = Turned(direction, cosine, sine);
        if (m_isOpen || m_right.cross(right) > 0.0)
            m_right = right;
        if (m_isOpen || left.cross(m_left) > 0.0)
            m_left = left;
        m_isOpen = false;
    }

  private:
    static ZetGeomVector2d Turned(const ZetGeomVector2d& v, double cosine, double sine) {
        return {v.x * cosine - v.y * sine, v.x * sine + v.y * cosine};
    }

    ZetGeomPoint2d m_apex;
    double m_tolerance;
    bool m_isOpen = true;
    ZetGeomVector2d m_right;
    ZetGeomVector2d m_left;
};

/// True when the way from `last` over `middle` to `next` does not turn back.
bool GoesOn(const ZetGeomPoint2d& last, const ZetGeomPoint2d& middle, const ZetGeomPoint2d& next) {
    return (middle - last).dot(next - middle) > 0.0;
}

/// The corners of a closed chain that begins with a corner, each point farther from the next than
/// the tolerance. While points are left out they go away from the last corner, so that all are
/// farther from it, too.
ZetArray<ZetGeomPoint2d> WithoutStraightVertices(const ZetArray<ZetGeomPoint2d>& chain,
                                                 double tolerance) {
    ZetArray<ZetGeomPoint2d> corners = {chain.first()};
    Cone cone(chain.first(), tolerance);
    for (long i = 1; i < chain.length(); ++i) {
        const ZetGeomPoint2d& candidate = chain[i];
        const ZetGeomPoint2d& next = chain[i + 1 < chain.length() ? i + 1 : 0];
        cone.Narrow(candidate);
        if (cone.Holds(next) && GoesOn(corners.last(), candidate, next))
            continue;
        corners.append(candidate);
        cone = Cone(candidate, tolerance);
    }
    return corners;
}

/// The vertex farthest from the lowest one: a corner for certain. The lowest vertex may lie in the
/// middle of an upright edge, before it by a hair.
auto SafeCorner(ZetArray<ZetGeomPoint2d>& chain) {
    const ZetGeomPoint2d lowest = *std::min_element(chain.begin(), chain.end(), IsBefore);
    auto farthest = chain.begin();
    double distance = (*farthest - lowest).length();
    for (auto vertex = farthest + 1; vertex != chain.end(); ++vertex) {
        const double length = (*vertex - lowest).length();
        if (distance < length) {
            farthest = vertex;
            distance = length;
        }
    }
    return farthest;
}

/// True when `a` from its vertex 0 and `b` from `start` run alike.
bool RunAlike(const ZetArray<ZetGeomPoint2d>& a,
              const ZetArray<ZetGeomPoint2d>& b,
              long start,
              double tolerance) {
    long at = start;
    for (const ZetGeomPoint2d& point : a) {
        if (!AreNear(point, b[at], tolerance))
            return false;
        at = at + 1 < b.length() ? at + 1 : 0;
    }
    return true;
}

}  // namespace

ZetGeomAugPolygon::ZetGeomAugPolygon(const ZetArray<ZetGeomPoint2d>& points, double tolerance)
    : m_vertices(points) {
    const auto areNear = [&](const ZetGeomPoint2d& a, const ZetGeomPoint2d& b) {
        return AreNear(a, b, tolerance);
    };
    const auto last = std::unique(m_vertices.begin(), m_vertices.end(), areNear);
    long length = static_cast<long>(last - m_vertices.begin());
    while (length > 1 && areNear(m_vertices[length - 1], m_vertices.first()))
        --length;
    m_vertices.setLength(length);
}

double ZetGeomAugPolygon::getArea() const {
    return camdata::detail::AreaOf({m_vertices.begin(), m_vertices.end()});
}

double ZetGeomAugPolygon::getPerimeter() const {
    return camdata::detail::PerimeterOf({m_vertices.begin(), m_vertices.end()});
}

bool ZetGeomAugPolygon::isEqualTo(const ZetGeomAugPolygon& other, double tolerance) const {
    // Dropped vertices and corners that differ change an area by three tolerances along the edges
    // at most.
    const double around = getPerimeter() + other.getPerimeter();
    const double areasApart = std::abs(std::abs(getArea()) - std::abs(other.getArea()));
    if (areasApart > (4.0 * tolerance + kRounding * around) * around)
        return false;
    const ZetArray<ZetGeomPoint2d> a = getNormalised(tolerance).m_vertices;
    const ZetArray<ZetGeomPoint2d> b = other.getNormalised(tolerance).m_vertices;
    if (a.length() != b.length())
        return false;
    for (long start = 0; start < b.length(); ++start) {
        if (RunAlike(a, b, start, tolerance))
            return true;
    }
    return a.isEmpty();
}

ZetGeomAugPolygon ZetGeomAugPolygon::getNormalised(double tolerance) const {
    ZetGeomAugPolygon result(m_vertices, tolerance);
    ZetArray<ZetGeomPoint2d>& chain = result.m_vertices;
    if (chain.isEmpty())
        return result;
    if (getArea() < 0.0)
        std::reverse(chain.begin(), chain.end());
    std::rotate(chain.begin(), SafeCorner(chain), chain.end());
    chain = WithoutStraightVertices(chain, tolerance);
    std::rotate(chain.begin(), std::min_element(chain.begin(), chain.end(), IsBefore), chain.end());
    return result;
}
