#pragma once

#include "cutting/Effort.h"
#include "cutting/Task.h"

namespace cutting {

/// What a search of all plans found.
struct ExactAnswer {
    Solution solution;        ///< the cheapest of those sought; empty: none was found. Merged
    bool isComplete = false;  ///< there is no cheaper one
};

/// Tries all ways to cut few pieces, with plans that cost less than `below` only. Ends early when
/// the effort is spent, and at once when there are too many pieces.
ExactAnswer SearchExactly(const Task& task, const Rest& rest, Cost below, Effort& effort);

}  // namespace cutting
