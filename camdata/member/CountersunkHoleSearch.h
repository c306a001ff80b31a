#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/platform/base/ZetArray.h"

#include <vector>

namespace camdata::detail {

/// True for a hole that a countersink can mark: no countersink itself, and not marked yet.
bool CanBeMarkedAsCountersunk(const CHoleAddlInfo& hole);

/// The holes that the countersinks of a list (status eHoleStatusCSK) mark: each countersink, from
/// the first, marks the first hole at exactly its position that is not marked yet. In no special
/// order.
std::vector<long> FindCountersunkHoles(const ZetArray<CHoleAddlInfo>& holes);

}  // namespace camdata::detail
