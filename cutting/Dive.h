#pragma once

#include "cutting/Effort.h"
#include "cutting/Task.h"

namespace cutting {

/// A solution of a task and what no solution goes below.
struct Answer {
    Solution solution;
    Cost bound = 0;

    bool IsLeast(const Task& task) const { return CostOf(task, solution) <= bound; }
};

/// The better of first fit and slack search, with a bound from sums.
Answer AnswerQuickly(const Task& task, Effort& effort);

/// Improves an answer: takes whole bars of the relaxation, then bars that it uses nearly whole, and
/// relaxes the rest again, until the bound is met or the effort is spent. For some hundred sizes.
void Dive(const Task& task, Effort& effort, Answer& answer);

}  // namespace cutting
