#include "dstv/NcCuts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace dstv {
namespace {

/// What a file's rounding makes of an angle, degrees.
constexpr double kSameAngle = 0.1;
/// A corner counts as one of the end of an outline within this, mm.
constexpr double kAtEnd = 0.5;
/// Normals whose part along the piece is smaller belong to cuts along it.
constexpr double kLeastAlong = 1e-6;

/// The angle of the trace of a cut, by the parts of its normal along the piece and across the face.
double AngleOf(double along, double across) {
    return std::atan(across / along) * 180.0 / std::numbers::pi;
}

/// Where a cut leaves the piece longest: over the corners of the section.
double ReachOf(const NcSawCut& cut, const NcHeader& header) {
    const double sign = cut.normal.x > 0.0 ? 1.0 : -1.0;
    double reach = -sign * 1e300;
    for (const double y : {0.0, header.profileHeight})
        for (const double z : {0.0, header.flangeWidth}) {
            const double rest = cut.normal.y * (y - cut.point.y) + cut.normal.z * (z - cut.point.z);
            const double x = cut.point.x - rest / cut.normal.x;
            reach = sign > 0.0 ? std::max(reach, x) : std::min(reach, x);
        }
    return reach;
}

bool IsOn(const NcFace face, bool isFlange) {
    return isFlange ? face == NcFace::kTop || face == NcFace::kBottom
                    : face == NcFace::kFront || face == NcFace::kBehind;
}

/// True when an edge at one end of an outline runs at the angle.
bool EndsIn(const std::vector<ZetGeomPoint2d>& outline, bool isAtEnd, double angle) {
    const auto byX = [](const auto& a, const auto& b) { return a.x < b.x; };
    const double end = isAtEnd ? std::max_element(outline.begin(), outline.end(), byX)->x
                               : std::min_element(outline.begin(), outline.end(), byX)->x;
    for (std::size_t i = 1; i < outline.size(); ++i) {
        const ZetGeomPoint2d& a = outline[i - 1];
        const ZetGeomPoint2d& b = outline[i];
        const ZetGeomPoint2d& low = a.y < b.y ? a : b;
        const ZetGeomPoint2d& high = a.y < b.y ? b : a;
        const double height = high.y - low.y;
        const bool isThere = std::abs(a.x - end) <= kAtEnd || std::abs(b.x - end) <= kAtEnd;
        if (isThere && height > kAtEnd &&
            std::abs(AngleOf(height, low.x - high.x) - angle) <= kSameAngle)
            return true;
    }
    return false;
}

}  // namespace

NcPlace StandardPlace(const NcPart& part, const NcPlace& place) {
    if (place.plane < 0)
        return place;
    const NcFace face = part.planes[static_cast<std::size_t>(place.plane)].face;
    return face == NcFace::kPlane ? place : NcPlace{face, -1};
}

std::vector<NcCut> CutsOf(const NcSawCut& sawCut, const NcHeader& header) {
    const ZetGeomVector3d& normal = sawCut.normal;
    NcCut cut;
    cut.line = sawCut.line;
    cut.isAtEnd = normal.x > 0.0;
    if (!(std::abs(normal.x) > kLeastAlong * normal.length())) {
        cut.angle = 90.0;
        return {cut};
    }
    cut.x = ReachOf(sawCut, header);
    std::vector<NcCut> cuts;
    if (normal.y != 0.0 || normal.z == 0.0) {
        cut.angle = AngleOf(normal.x, normal.y);
        cuts.push_back(cut);
    }
    if (normal.z != 0.0) {
        cut.isOnFlange = true;
        cut.angle = AngleOf(normal.x, normal.z);
        cuts.push_back(cut);
    }
    return cuts;
}

bool IsCutByOutline(const NcPart& part, const NcCut& cut) {
    return std::any_of(part.contours.begin(), part.contours.end(), [&](const NcContour& contour) {
        return !contour.isInternal &&
               IsOn(StandardPlace(part, contour.place).face, cut.isOnFlange) &&
               EndsIn(contour.outline, cut.isAtEnd, cut.angle);
    });
}

}  // namespace dstv
