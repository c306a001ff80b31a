#pragma once

#include "camdata/platform/geometry/GridEdges.h"

#include <vector>

namespace camdata::detail {

/// False when no two edges of an outline are in contact. True when some are, and also when so many
/// come near each other that looking at them would take more than time in proportion to their
/// number.
bool MayBeInContact(const std::vector<GridEdge>& edges);

}  // namespace camdata::detail
