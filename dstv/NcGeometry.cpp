#include "dstv/NcGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace dstv {
namespace {

double ToRadians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

/// The largest angle of an arc of `radius` whose chord is true within kChordTolerance.
double ChordAngle(double radius) {
    // The sagitta r (1 - cos(a / 2)) equals 2 r sin^2(a / 4), which keeps its digits for large r.
    return 4.0 * std::asin(std::min(1.0, std::sqrt(kChordTolerance / (2.0 * radius))));
}

/// The inner chord points of an arc of `sweep` radians (signed) that begins at `from`.
void AppendArc(const ZetGeomPoint2d& centre,
               const ZetGeomPoint2d& from,
               double radius,
               double sweep,
               Outline& outline) {
    const double start = std::atan2(from.y - centre.y, from.x - centre.x);
    const int chords = static_cast<int>(std::ceil(std::abs(sweep) / ChordAngle(radius)));
    for (int i = 1; i < chords; ++i) {
        const double angle = start + sweep * i / chords;
        outline.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
}

}  // namespace

ZetGeomVector2d DirectionAt(double degrees) {
    static constexpr std::array<ZetGeomVector2d, 4> kQuarters = {
        {{1.0, 0.0}, {0.0, 1.0}, {-1.0, 0.0}, {0.0, -1.0}}
    };
    const double turned = degrees - 360.0 * std::floor(degrees / 360.0);
    const double quarter = turned / 90.0;
    if (quarter == std::floor(quarter))
        return kQuarters[static_cast<std::size_t>(quarter) % 4];
    return {std::cos(ToRadians(turned)), std::sin(ToRadians(turned))};
}

bool AppendEdge(const ZetGeomPoint2d& to, double radius, Outline& outline) {
    const ZetGeomPoint2d from = outline.back();
    const ZetGeomVector2d chord = to - from;
    const double half = chord.length() / 2.0;
    if (half == 0.0)
        return true;
    if (radius != 0.0) {
        if (half - std::abs(radius) > kRadiusSlack)
            return false;
        const double r = std::max(std::abs(radius), half);
        const double side = radius > 0.0 ? 1.0 : -1.0;
        const double rise = side * std::sqrt((r - half) * (r + half)) / (2.0 * half);
        const ZetGeomPoint2d centre = {(from.x + to.x) / 2.0 - chord.y * rise,
                                       (from.y + to.y) / 2.0 + chord.x * rise};
        AppendArc(centre, from, r, side * 2.0 * std::asin(half / r), outline);
    }
    outline.push_back(to);
    return true;
}

Outline RectangleOutline(
    const ZetGeomPoint2d& start, double width, double height, double diameter, double degrees) {
    const double r = diameter / 2.0;
    const ZetGeomVector2d u = DirectionAt(degrees);
    const auto at = [&](double along, double across) {
        return ZetGeomPoint2d{start.x + along * u.x - across * u.y,
                              start.y + along * u.y + across * u.x};
    };
    Outline outline = {at(0.0, -r)};
    AppendEdge(at(width, -r), 0.0, outline);
    AppendEdge(at(width + r, 0.0), r, outline);
    AppendEdge(at(width + r, height), 0.0, outline);
    AppendEdge(at(width, height + r), r, outline);
    AppendEdge(at(0.0, height + r), 0.0, outline);
    AppendEdge(at(-r, height), r, outline);
    AppendEdge(at(-r, 0.0), 0.0, outline);
    AppendEdge(at(0.0, -r), r, outline);
    return outline;
}

}  // namespace dstv
