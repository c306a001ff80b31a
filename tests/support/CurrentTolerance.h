#pragma once

#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <limits>

/// True when CMxGeom's current tolerance is exactly `tolerance`; asks through comparisons only.
inline bool CurrentToleranceIs(double tolerance) {
    const double above = std::nextafter(tolerance, std::numeric_limits<double>::infinity());
    return CMxGeom::IsEqual_Mx(0.0, tolerance) && !CMxGeom::IsEqual_Mx(0.0, above);
}
