#pragma once

#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <vector>

namespace dstv {

/// An unrolled end of a round tube that a plane cuts: one period of a wave around the tube.
struct RoundEnd {
    double diameter = 0.0;   ///< mm
    double angle = 0.0;      ///< of the cut to a straight one, degrees, of either sign
    double longest = 0.0;    ///< X where the cut leaves the tube longest, mm
    bool isAtEnd = true;     ///< else at the start
    double tolerance = 0.0;  ///< how far points may be off the wave, mm
};

/// True when the outline of an unrolled tube ends in that wave, wherever around the tube it was
/// unrolled.
bool EndsInWave(const std::vector<ZetGeomPoint2d>& outline, const RoundEnd& end);

}  // namespace dstv
