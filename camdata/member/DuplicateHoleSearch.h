#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/member/Duplicates.h"
#include "camdata/platform/base/ZetArray.h"

namespace camdata::detail {

/// Finds the holes that stand at the place of an earlier hole, touch it or overlap it, in time
/// proportional to their number (unless a coordinate, size or tolerance is no reasonable number).
/// Expects m_EPS as the current tolerance, and leaves it so.
Removers FindDuplicateHoles(const ZetArray<CHoleAddlInfo>& holes);

}  // namespace camdata::detail
