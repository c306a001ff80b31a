#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/platform/base/ZetArray.h"

#include <vector>

namespace camdata::detail {

/// A hole that lies inside a slot, by their indices.
struct HoleInSlot {
    long slot;
    long hole;

    friend bool operator==(const HoleInSlot&, const HoleInSlot&) = default;
};

/// Finds what lies inside each slot (CHoleAddlInfo::IsInside), ordered by slot, then by hole. A
/// slot can lie inside a slot, too. Looks only at holes near a slot's axis, unless a coordinate or
/// the tolerance is no reasonable number. Sets the current tolerance to m_tol_y when there is a
/// slot and another hole.
std::vector<HoleInSlot> FindHolesInSlots(const ZetArray<CHoleAddlInfo>& holes);

}  // namespace camdata::detail
