#pragma once

#include "plugin/ledger/Finding.h"

#include "camdata/platform/host/ZetNCStructure.h"

#include <vector>

namespace plugin {

/// An opening and the view that it lies on.
struct CircularOpening {
    int viewPosition;
    std::vector<ZetGeomPoint2d> corners;
};

/// Makes holes of the openings that are circles within 0.05 mm, with a note on each. Those.
std::vector<CircularOpening> TakeCircularOpenings(ZetNCStructure& structure,
                                                  std::vector<FeatureNote>& notes);

}  // namespace plugin
