#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"

/// A closed polygon with straight edges in a plane, mm. A value; each vertex is held once.
///
/// Operations never move a vertex: what comes out holds the coordinates that went in, or corners of
/// the bounding rectangle, bit for bit.
///
/// Its operations stand in ZetGeomAugPolygon.cpp; the smallest rectangle around it in
/// MinRectangle.cpp, and what is left of a rectangle without it in PolygonDifference.cpp.
class CAMDATA_API ZetGeomAugPolygon {
  public:
    ZetGeomAugPolygon() = default;
    /// Drops every point that lies within `tolerance` of its predecessor, the last one also where
    /// it lies so near the first (a closing repeat).
    ZetGeomAugPolygon(const ZetArray<ZetGeomPoint2d>& points, double tolerance);

    const ZetArray<ZetGeomPoint2d>& getVertices() const { return m_vertices; }
    /// The number of vertices.
    long getLength() const { return m_vertices.length(); }
    /// Positive when the vertices run counter-clockwise.
    double getArea() const;
    double getPerimeter() const;

    /// The smallest rectangle around the polygon, counter-clockwise. The one that is parallel to
    /// the axes is taken when its area exceeds the least by at most 0.05 times its perimeter, and
    /// is then made of the polygon's own coordinates. Of others whose areas are equal within 1e-9,
    /// relatively, it is the one along the longest side of the convex hull, then the one whose side
    /// the vertices come to first, counter-clockwise: the same however the polygon is turned, but
    /// not for its mirror image. Empty when a coordinate is not finite.
    ZetGeomAugPolygon getMinRectangle() const;

    /// The pieces of this rectangle that `outline` leaves free: ordered by the lowest X, then the
    /// lowest Y of their boxes, each counter-clockwise from its vertex of lowest X, then lowest Y.
    ///
    /// This must be the outline's getMinRectangle(). An outline vertex within `-offset` of a side
    /// counts as touching that side; pieces with an area of at most half of `-offset` times their
    /// perimeter vanish, and so does the cut that joins an opening to the edge by the same way out
    /// and back. No pieces when the outline crosses itself. Time O(n log n).
    ZetArray<ZetGeomAugPolygon> subtract(const ZetGeomAugPolygon& outline, double offset) const;

    /// True when both have the same corners, in either direction and from any start, each within
    /// `tolerance`; vertices on a straight edge do not count.
    bool isEqualTo(const ZetGeomAugPolygon& other, double tolerance) const;

    /// The polygon without the vertices that lie within `tolerance` of their predecessor or of a
    /// straight line between their neighbours, counter-clockwise, from its vertex of lowest X, then
    /// lowest Y. No dropped vertex is further than twice `tolerance` from the result.
    ZetGeomAugPolygon getNormalised(double tolerance) const;

  private:
    ZetArray<ZetGeomPoint2d> m_vertices;
};
