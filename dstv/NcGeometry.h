#pragma once

#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <vector>

namespace dstv {

/// How far the chord of an arc may lie from the arc, mm.
inline constexpr double kChordTolerance = 0.05;
/// How much smaller than half its chord a radius may be, mm: the rounding of the file.
inline constexpr double kRadiusSlack = 0.02;

using Outline = std::vector<ZetGeomPoint2d>;

/// The unit vector at `degrees` from x, counter-clockwise; exact for multiples of 90.
ZetGeomVector2d DirectionAt(double degrees);

/// Appends an edge without its start: its end, before that the inner chord points of an arc.
///
/// `radius` 0: straight; > 0: counter-clockwise with the centre left of from-to; < 0: clockwise,
/// the centre right; at most half a circle. False, and nothing appended, when the radius is smaller
/// than half the chord by more than kRadiusSlack. A repeated point appends nothing.
bool AppendEdge(const ZetGeomPoint2d& to, double radius, Outline& outline);

/// The closed outline of a rectangle `width` x `height` between the centres of four corner circles;
/// `start` is the centre of the lower left one, about which it is turned by `degrees`.
Outline RectangleOutline(
    const ZetGeomPoint2d& start, double width, double height, double diameter, double degrees);

}  // namespace dstv
