#pragma once

#include <cmath>

/// @file
/// Angles of cuts, as NC files tell them.

namespace profiles {

/// What a file's rounding makes of an angle, degrees.
inline constexpr double kSameAngle = 0.1;

inline bool IsSameAngle(double a, double b) {
    return std::abs(a - b) <= kSameAngle;
}

}  // namespace profiles
