#pragma once

#include "cutting/Dive.h"

namespace cutting {

/// Improves an answer where there are several kinds of bars: takes a few bars apart, finds the
/// cheapest way to cut their pieces, and so on, until that has not helped for long or the effort is
/// spent.
void ExchangeBars(const Task& task, Effort& effort, Answer& answer);

}  // namespace cutting
