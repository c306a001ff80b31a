#pragma once

#include "cutting/Dive.h"

namespace cutting {

/// Sizes up to which a task is solved as a whole.
constexpr std::size_t kMaxSizesOfDive = 1200;

/// Improves an answer to a task with more sizes: solves parts of it with the same mix of lengths,
/// then the worst bars together, as long as that helps.
void ImproveByChunks(const Task& task, Effort& effort, Answer& answer);

}  // namespace cutting
