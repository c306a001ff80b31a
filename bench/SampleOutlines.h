#pragma once

#include "support/Outlines.h"

#include <algorithm>

/// Outlines with many notches.

/// A rectangle with pockets of 10 x 5 every 20 mm along its upper side: four vertices for each, and
/// the rectangle's four. Counter-clockwise.
inline OutlinePoints Comb(long vertices) {
    const long pockets = std::max(1L, (vertices - 4) / 4);
    const double length = 20.0 * static_cast<double>(pockets) + 10.0;
    OutlinePoints points = {
        {0.0,    0.0  },
        {length, 0.0  },
        {length, 200.0}
    };
    for (long i = pockets; i > 0; --i) {
        const double end = 20.0 * static_cast<double>(i);
        points.append({end, 200.0});
        points.append({end, 195.0});
        points.append({end - 10.0, 195.0});
        points.append({end - 10.0, 200.0});
    }
    points.append({0.0, 200.0});
    return points;
}

inline OutlinePoints TurnedComb(long vertices) {
    return TurnedBy(Comb(vertices), 17.3);
}
