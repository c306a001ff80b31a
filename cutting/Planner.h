#pragma once

#include "cutting/Effort.h"
#include "cutting/Plan.h"

#include <functional>
#include <optional>

namespace cutting {

/// Steps that a plan of some thousand pieces may take: about four seconds on one core.
constexpr std::int64_t kDefaultSteps = 4'000'000'000;

/// The plan that leaves the fewest pieces uncut, then costs least, as far as this effort reaches (a
/// long list gets more, in proportion); of those found that cost the same the one with the fewest
/// patterns, then with the longest off-cut. The same on every system. Of lists of some tens
/// of pieces all plans are tried, as far as that goes.
Plan MakeLeastPlan(const Demand& demand,
                   const std::vector<Stock>& stocks,
                   const Effort& effort = kDefaultSteps);

/// What makes such plans.
using Planner = std::function<Plan(const Demand&, const std::vector<Stock>&, const Effort&)>;

/// The plan of first-fit-decreasing, for comparison. Without a bound.
Plan MakeFirstFitPlan(const Demand& demand, const std::vector<Stock>& stocks);

/// The cost of that plan; nothing where it leaves pieces uncut.
std::optional<Cost> FindFirstFitCost(const Demand& demand, const std::vector<Stock>& stocks);

/// The cost when bars are filled from the shortest piece up, on the longest stock without limit (or
/// the longest, when all have one). Nothing where that leaves pieces uncut.
std::optional<Cost> CostFromShortest(const Demand& demand, const std::vector<Stock>& stocks);

/// By mark: the pieces that no bar is long enough for; empty when there are none.
std::vector<Count> FindTooLong(const Demand& demand, const std::vector<Stock>& stocks);

/// A cost that no plan goes below, from sums over the lengths. `known` is the cost of some plan
/// that cuts all pieces: where the bound reaches it, no higher one is looked for.
Cost FindCostBound(const Demand& demand,
                   const std::vector<Stock>& stocks,
                   std::optional<Cost> known);

}  // namespace cutting
