#pragma once

#include "camdata/platform/host/ZetNCCut.h"

#include <cmath>
#include <numbers>

namespace plugin {

/// What a mitre takes from the member at a place.
struct Shortening {
    double amount = 0.0;  ///< mm along the member, from where the cut leaves it longest
    double tangent = 0.0;
};

/// `across` runs from 0 to `width` over the faces that show the cut's angle, mm.
inline Shortening ShorteningBy(const ZetNCCut& cut, double across, double width) {
    const double tangent = std::tan(cut.angle * std::numbers::pi / 180.0);
    const bool isLongestAtZero = (tangent > 0.0) == (cut.end == ZetNCCut::eEndEnd);
    return {std::abs(tangent) * (isLongestAtZero ? across : width - across), tangent};
}

}  // namespace plugin
