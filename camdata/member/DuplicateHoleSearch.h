#pragma once

#include "camdata/holes/HolePlace.h"
#include "camdata/member/Duplicates.h"

#include <vector>

namespace camdata::detail {

/// Finds the holes that stand at the place of an earlier hole, touch it or overlap it, in time
/// proportional to their number (unless a coordinate, size or tolerance is no reasonable number).
/// Expects m_EPS as the current tolerance, and leaves it so.
Removers FindDuplicateHoles(const std::vector<HolePlace>& places);

}  // namespace camdata::detail
