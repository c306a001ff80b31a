#pragma once

#include "plugin/ledger/Finding.h"

#include "camdata/platform/host/ZetNCStructure.h"

#include <vector>

namespace plugin {

/// Makes holes of the openings that are circles within 0.05 mm, with a note on each.
void TakeCircularOpenings(ZetNCStructure& structure, std::vector<FeatureNote>& notes);

}  // namespace plugin
