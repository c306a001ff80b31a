#pragma once

#include "dstv/NcPart.h"

#include "camdata/platform/geometry/ZetGeomPlane.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <array>
#include <optional>

namespace dstv {

/// A plane made from three points, and how far its axes were from a right angle.
struct PlaneOfPoints {
    ZetGeomPlane plane;
    double skew = 0.0;  ///< degrees by which the y axis was turned within the plane
};

/// The plane of an origin, a point on its x axis and a point on its y axis; nothing when two of
/// them coincide or all lie on one line.
std::optional<PlaneOfPoints> PlaneThrough(const std::array<ZetGeomPoint3d, 3>& points);

/// The plane of a standard face of a piece, in the frame of the piece, with the axes of x and q.
ZetGeomPlane FacePlane(NcFace face, const NcHeader& header);

/// The standard face that a plane is parallel to, kPlane when it is none. Across Y the nearer of
/// top and bottom, across Z the face that the normal points to.
NcFace StandardFaceOf(const ZetGeomPlane& plane, const NcHeader& header);

/// The plane of the view that an inclined plane becomes. Where its x axis is parallel to the piece,
/// x runs along the piece from its start, as on the standard faces; else it stays as it is.
ZetGeomPlane InclinedViewPlane(const ZetGeomPlane& plane);

/// Takes (x, q) of a plane into (x, q) of a view in the same or a parallel plane.
class PlaneMap {
  public:
    /// Leaves everything as it is.
    PlaneMap() = default;
    PlaneMap(const ZetGeomPlane& from, const ZetGeomPlane& to);

    ZetGeomPoint2d Point(const ZetGeomPoint2d& p) const;
    /// The angle of the direction, in (-180, 180]; `degrees` itself when nothing is turned.
    double Angle(double degrees) const;

  private:
    ZetGeomPoint2d m_origin;
    ZetGeomVector2d m_xAxis = {1.0, 0.0};
    ZetGeomVector2d m_yAxis = {0.0, 1.0};
};

/// A plane in the frame in which members of a profile code are judged: (X, -Z, Y) of the piece's
/// frame for SO and B, else the frame of the piece.
ZetGeomPlane InMemberFrame(const ZetGeomPlane& plane, const ZetString& profileCode);

}  // namespace dstv
