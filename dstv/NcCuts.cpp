#include "dstv/NcCuts.h"

#include "dstv/NcRoundEnd.h"
#include "profiles/CutAngles.h"
#include "profiles/SectionWalls.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dstv {
namespace {

/// A corner counts as one of the end of an outline within this, mm.
constexpr double kAtEnd = 0.5;
/// Normals whose part along the piece is smaller belong to cuts along it.
constexpr double kLeastAlong = 1e-6;

/// The angle of the trace of a cut, by the parts of its normal along the piece and across the face.
double AngleOf(double along, double across) {
    return std::atan(across / along) * 180.0 / std::numbers::pi;
}

bool IsRound(const NcHeader& header) {
    return profiles::IsRound(header.profileCode.view());
}

/// Where a cut leaves the piece longest: over the corners of the section, or its circle.
double ReachOf(const NcSawCut& cut, const NcHeader& header) {
    if (IsRound(header)) {
        const double radius = header.profileHeight / 2.0;
        const double rest = cut.normal.y * (radius - cut.point.y) +
                            cut.normal.z * (radius - cut.point.z) -
                            radius * std::hypot(cut.normal.y, cut.normal.z);
        return cut.point.x - rest / cut.normal.x;
    }
    const bool isAtEnd = cut.normal.x > 0.0;
    double reach = isAtEnd ? -1e300 : 1e300;
    for (const double y : {0.0, header.profileHeight})
        for (const double z : {0.0, header.flangeWidth}) {
            const double rest = cut.normal.y * (y - cut.point.y) + cut.normal.z * (z - cut.point.z);
            const double x = cut.point.x - rest / cut.normal.x;
            reach = isAtEnd ? std::max(reach, x) : std::min(reach, x);
        }
    return reach;
}

using profiles::Wall;

bool IsWallOf(const Wall& wall, const NcHeader& header) {
    return wall.IsOf(header.profileCode.view()) && (!wall.IsFlange() || header.flangeWidth > 0.0);
}

using Outline = std::vector<ZetGeomPoint2d>;

/// Of an outline, at the end of a cut.
double EndOf(const Outline& outline, const NcCut& cut) {
    const auto [least, most] = std::minmax_element(
        outline.begin(), outline.end(), [](const auto& a, const auto& b) { return a.x < b.x; });
    return cut.isAtEnd ? most->x : least->x;
}

/// True when the outline ends there, or earlier.
bool EndsBefore(const Outline& outline, const NcCut& cut, double x) {
    const double end = EndOf(outline, cut);
    return cut.isAtEnd ? end <= x + kAtEnd : end >= x - kAtEnd;
}

/// True when an edge at the end of an outline runs at the cut's angle.
bool EndsIn(const Outline& outline, const NcCut& cut) {
    const double end = EndOf(outline, cut);
    for (std::size_t i = 1; i < outline.size(); ++i) {
        const ZetGeomPoint2d& a = outline[i - 1];
        const ZetGeomPoint2d& b = outline[i];
        const ZetGeomPoint2d& low = a.y < b.y ? a : b;
        const ZetGeomPoint2d& high = a.y < b.y ? b : a;
        const double height = high.y - low.y;
        const bool isThere = std::abs(a.x - end) <= kAtEnd || std::abs(b.x - end) <= kAtEnd;
        if (isThere && height > kAtEnd &&
            profiles::IsSameAngle(AngleOf(height, low.x - high.x), cut.angle))
            return true;
    }
    return false;
}

/// True when nothing of an outline is left beyond the trace of a cut. Where a cut of the header
/// leaves the piece longest, the outline is.
bool EndsAtTrace(const Outline& outline, const NcCut& cut, double width) {
    const auto [low, high] = std::minmax_element(
        outline.begin(), outline.end(), [](const auto& a, const auto& b) { return a.y < b.y; });
    const bool isLongestAtZero = (cut.angle > 0.0) == cut.isAtEnd;
    const double edges[] = {cut.isFromHeader ? low->y : 0.0, cut.isFromHeader ? high->y : width};
    const double longest = isLongestAtZero ? edges[0] : edges[1];
    const double tangent = std::tan(cut.angle * std::numbers::pi / 180.0);
    const double slack = kAtEnd + width * (1.0 + tangent * tangent) * profiles::kSameAngle *
                                      std::numbers::pi / 180.0;
    return std::all_of(outline.begin(), outline.end(), [&](const ZetGeomPoint2d& point) {
        const double trace = cut.x - tangent * (point.y - longest);
        return (cut.isAtEnd ? point.x - trace : trace - point.x) <= slack;
    });
}

/// True when an outline shows the angle of a cut.
bool Shows(const Outline& outline, const NcCut& cut, const NcHeader& header) {
    if (!IsRound(header))
        return EndsIn(outline, cut) &&
               EndsAtTrace(
                   outline, cut, cut.isOnFlange ? header.flangeWidth : header.profileHeight);
    return EndsInWave(outline,
                      {header.profileHeight,
                       cut.slant == 0.0 ? cut.angle : cut.slant,
                       cut.x,
                       cut.isAtEnd,
                       kAtEnd});
}

/// By how much a cut shortens a wall that does not show its angle, mm; its thickness may take off
/// from that.
double ShorteningOf(const Wall& wall, const NcCut& cut, const NcHeader& header) {
    if (!wall.at)
        return 0.0;
    const double extent = wall.IsFlange() ? header.profileHeight : header.flangeWidth;
    const double thickness = std::max(header.flangeThickness, header.webThickness);
    const bool isLongestAtZero = (cut.angle > 0.0) == cut.isAtEnd;
    const double across = extent * (isLongestAtZero ? *wall.at : 1.0 - *wall.at) - thickness;
    return std::max(across, 0.0) * std::tan(std::abs(cut.angle) * std::numbers::pi / 180.0);
}

/// True when the wall shows the angle of a cut; the surface of a round tube shows them all.
bool IsAngled(const Wall& wall, const NcCut& cut, const NcHeader& header) {
    return IsRound(header) || wall.IsFlange() == cut.isOnFlange;
}

/// True when an outline of the wall leaves away what the cut takes from it.
bool IsCut(const Wall& wall, const NcPart& part, const NcCut& cut) {
    const bool showsAngle = IsAngled(wall, cut, part.header);
    const double shortening = showsAngle ? 0.0 : ShorteningOf(wall, cut, part.header);
    if (!showsAngle && shortening <= kAtEnd)
        return true;
    const double x = cut.isAtEnd ? cut.x - shortening : cut.x + shortening;
    return std::any_of(part.contours.begin(), part.contours.end(), [&](const NcContour& contour) {
        const NcFace face = StandardPlace(part, contour.place).face;
        return !contour.isInternal && wall.IsShownBy(static_cast<int>(face)) &&
               EndsBefore(contour.outline, cut, x) &&
               (!showsAngle || Shows(contour.outline, cut, part.header));
    });
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
    cut.slant = AngleOf(normal.x, std::hypot(normal.y, normal.z));
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

bool IsCutByOutlines(const NcPart& part, const NcCut& cut) {
    bool isShown = false;
    for (const Wall& wall : profiles::kWalls) {
        if (!IsWallOf(wall, part.header))
            continue;
        if (!IsCut(wall, part, cut))
            return false;
        isShown = isShown || IsAngled(wall, cut, part.header);
    }
    return isShown;
}

}  // namespace dstv
