#pragma once

#include "camdata/holes/CHoleAddlInfo.h"

#include <vector>

namespace camdata::detail {

/// What a hole is to countersinks, and its current position.
struct CountersinkRole {
    double x;
    double y;
    bool isCountersink;  ///< status eHoleStatusCSK
    bool canBeMarked;    ///< no countersink itself, and not marked yet
};

CountersinkRole CountersinkRoleOf(const CHoleAddlInfo& hole);

/// The holes that the countersinks of a list mark: each countersink, from the first, marks the
/// first hole at exactly its position that is not marked yet. In no special order.
std::vector<long> FindCountersunkHoles(const std::vector<CountersinkRole>& holes);

/// Marks the record of a hole that has a countersink.
void MarkAsCountersunk(CHoleAddlInfo& hole);

}  // namespace camdata::detail
