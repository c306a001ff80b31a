#pragma once

#include "camdata/platform/geometry/ZetGeomPoint2d.h"

#include <span>

namespace camdata::detail {

/// False only when surely no two edges of an outline are in contact on its grid (GridEdges.h). True
/// when some may be, and also when so many come near each other that looking at them would take
/// more than time in proportion to their number. The last point does not repeat the first.
bool MayBeInContact(std::span<const ZetGeomPoint2d> outline);

}  // namespace camdata::detail
