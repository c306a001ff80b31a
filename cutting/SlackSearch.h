#pragma once

#include "cutting/Effort.h"
#include "cutting/Task.h"

namespace cutting {

/// Bar by bar: the longest piece that is left, and with it what leaves the least slack, found by a
/// bounded search; of several kinds the one with the least cost per length used. A bar is repeated
/// as often as there are pieces for it. Merged.
Solution SearchLeastSlack(const Task& task, const Rest& rest, Effort& effort);

}  // namespace cutting
