#pragma once

#include "cutting/Plan.h"

#include <string>
#include <vector>

namespace cutting {

/// What is wrong with a plan, one sentence each; none when every piece is cut exactly once or
/// stands among the uncut ones, from bars that are long enough and that are there. Counts
/// everything anew, piece by piece, and shares nothing with the planner.
std::vector<std::string> FindFaults(const Demand& demand,
                                    const std::vector<Stock>& stocks,
                                    const Plan& plan);

}  // namespace cutting
