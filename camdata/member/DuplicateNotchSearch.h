#pragma once

#include "camdata/member/Duplicates.h"
#include "camdata/notches/CNotchAddInfo.h"
#include "camdata/platform/base/ZetArray.h"

namespace camdata::detail {

/// Finds the notches that are equal to an earlier one (CNotchAddInfo::operator==), in time
/// proportional to their number (unless a position or the tolerance is no reasonable number). Reads
/// the current tolerance as it stands.
Removers FindDuplicateNotches(const ZetArray<CNotchAddInfo>& notches);

}  // namespace camdata::detail
