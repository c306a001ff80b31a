#pragma once

#include "dstv/NcPart.h"

#include <cstddef>
#include <optional>

namespace dstv {

/// How often a hole or slot of one file may lie in a slot: whoever sets such holes aside keeps an
/// entry for each time.
inline constexpr std::size_t kMaxHolesInSlots = 1'000'000;

/// The line of the slot with which there are more of them, those counted that lie on a slot's axis
/// or near it, up to its length to either side of its start; nothing where there are not. Takes a
/// second or two at most.
std::optional<long> FindCrowdedSlot(const NcPart& part);

}  // namespace dstv
