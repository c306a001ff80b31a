#include "dstv/NcPlanes.h"

#include "dstv/NcGeometry.h"
#include "profiles/SectionWalls.h"

#include "camdata/platform/geometry/ZetGeomTol.h"

#include <cmath>
#include <numbers>

namespace dstv {
namespace {

/// Points on axes are given to 0.01 mm at about 100 mm.
constexpr ZetGeomTol kParallel = {2e-4};

constexpr ZetGeomVector3d kAlong = {1.0, 0.0, 0.0};
constexpr ZetGeomVector3d kAcrossY = {0.0, 1.0, 0.0};
constexpr ZetGeomVector3d kAcrossZ = {0.0, 0.0, 1.0};

ZetGeomVector3d Unit(const ZetGeomVector3d& v) {
    return v * (1.0 / v.length());
}

/// Height of the front face above the face behind.
double DepthOf(const NcHeader& header) {
    return header.profileCode == L"B" ? header.webThickness : header.flangeWidth;
}

ZetGeomVector3d ToMemberFrame(const ZetGeomVector3d& v) {
    // No -0.0, which would print as such.
    return {v.x, 0.0 - v.z, v.y};
}

}  // namespace

std::optional<PlaneOfPoints> PlaneThrough(const std::array<ZetGeomPoint3d, 3>& points) {
    const ZetGeomVector3d x = points[1] - points[0];
    const ZetGeomVector3d y = points[2] - points[0];
    if (ZetGeomTol().areParallel(x, y))
        return std::nullopt;
    const ZetGeomVector3d xAxis = Unit(x);
    const ZetGeomVector3d yAxis = Unit(xAxis.cross(y).cross(xAxis));
    const double skew = std::abs(std::asin(Unit(y).dot(xAxis))) * 180.0 / std::numbers::pi;
    return PlaneOfPoints{
        {points[0], xAxis, yAxis},
        skew
    };
}

ZetGeomPlane FacePlane(NcFace face, const NcHeader& header) {
    const bool isAcrossZ = face == NcFace::kFront || face == NcFace::kBehind;
    ZetGeomPlane plane;
    plane.yAxis = isAcrossZ ? kAcrossY : kAcrossZ;
    plane.origin.y = face == NcFace::kTop ? header.profileHeight : 0.0;
    plane.origin.z = face == NcFace::kFront ? DepthOf(header) : 0.0;
    return plane;
}

NcFace StandardFaceOf(const ZetGeomPlane& plane, const NcHeader& header) {
    // What is flat is no part of an unrolled surface.
    if (profiles::IsRound(header.profileCode.view()))
        return NcFace::kPlane;
    const ZetGeomVector3d normal = plane.normal();
    if (kParallel.areParallel(normal, kAcrossZ))
        return normal.z > 0.0 ? NcFace::kFront : NcFace::kBehind;
    if (!kParallel.areParallel(normal, kAcrossY))
        return NcFace::kPlane;
    const double aboveMiddle = plane.origin.y - header.profileHeight / 2.0;
    return aboveMiddle > 0.0 || (aboveMiddle == 0.0 && normal.y > 0.0) ? NcFace::kTop
                                                                       : NcFace::kBottom;
}

ZetGeomPlane InclinedViewPlane(const ZetGeomPlane& plane) {
    if (!ZetGeomTol().areParallel(plane.xAxis, kAlong))
        return plane;
    return {
        {0.0, plane.origin.y, plane.origin.z},
        kAlong, plane.yAxis
    };
}

PlaneMap::PlaneMap(const ZetGeomPlane& from, const ZetGeomPlane& to) {
    const auto inTarget = [&](const ZetGeomVector3d& v) {
        return ZetGeomVector2d{v.dot(to.xAxis), v.dot(to.yAxis)};
    };
    const ZetGeomVector2d origin = inTarget(from.origin - to.origin);
    m_origin = {origin.x, origin.y};
    // Coordinates that are only moved keep all their digits.
    if (from.xAxis == to.xAxis && from.yAxis == to.yAxis)
        return;
    m_xAxis = inTarget(from.xAxis);
    m_yAxis = inTarget(from.yAxis);
}

ZetGeomPoint2d PlaneMap::Point(const ZetGeomPoint2d& p) const {
    return {m_origin.x + p.x * m_xAxis.x + p.y * m_yAxis.x,
            m_origin.y + p.x * m_xAxis.y + p.y * m_yAxis.y};
}

double PlaneMap::Angle(double degrees) const {
    if (m_xAxis == ZetGeomVector2d{1.0, 0.0} && m_yAxis.y > 0.0)
        return degrees;
    const double turn = std::atan2(m_xAxis.y, m_xAxis.x) * 180.0 / std::numbers::pi;
    const double mapped = m_xAxis.cross(m_yAxis) > 0.0 ? turn + degrees : turn - degrees;
    return mapped - 360.0 * std::ceil((mapped - 180.0) / 360.0);
}

ZetGeomPlane InMemberFrame(const ZetGeomPlane& plane, const ZetString& profileCode) {
    if (profileCode != L"SO" && profileCode != L"B")
        return plane;
    const ZetGeomVector3d origin = ToMemberFrame(plane.origin.asVector());
    return {
        {origin.x, origin.y, origin.z},
        ToMemberFrame(plane.xAxis), ToMemberFrame(plane.yAxis)
    };
}

}  // namespace dstv
