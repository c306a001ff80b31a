#pragma once

#include "cutting/Task.h"

namespace cutting {

/// A cost that no solution for all pieces of the task goes below, from sums over the pieces: of one
/// kind with dual feasible functions, of several from what lengths cost alone. `known` is the cost
/// of a solution: what is no lower cannot be raised.
Cost FindQuickBound(const Task& task, Cost known);

}  // namespace cutting
