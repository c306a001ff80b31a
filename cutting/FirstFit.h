#pragma once

#include "cutting/Task.h"

namespace cutting {

/// The longest piece first, each on the first bar that has room for it. New bars are of one kind,
/// where the piece fits it and there is one, else of the kind with the least cost per length; in
/// the end each bar becomes one of the cheapest kind that holds its pieces. The cheapest of the
/// plans that the kinds give; of more than a few kinds those without limit. Merged.
Solution FitDecreasing(const Task& task, const Rest& rest);

}  // namespace cutting
