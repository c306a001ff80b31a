#pragma once

#include "job/Job.h"

#include <vector>

namespace plugin {

/// The stocks that members of this profile are cut from: those of the job that fit it, or bars of
/// the library's length without kerf and grips.
std::vector<job::Stock> StocksFor(const job::Job& job, const ZetString& profileName);

/// Whether a stock of the job fits the profile.
bool HasStock(const job::Job& job, const ZetString& profileName);

/// Least where the group or, without its word, the stock says so.
job::BarPlan PlanOf(const job::Job& job, const job::Group& group, const ZetString& profileName);

/// Whether the library's plan can be for such bars.
bool IsLibraryStock(const job::Stock& stock);

/// What can be cut from a bar.
double UsableLength(const job::Stock& stock);

/// The stock that the longest piece can be cut from; there must be one.
const job::Stock& LongestOf(const std::vector<job::Stock>& stocks);

}  // namespace plugin
