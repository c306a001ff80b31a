#pragma once

#include "job/Job.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace plugin {

/// Bars that members are cut from: a stock of the job, a remnant, or the library's bars.
struct BarStock : job::Stock {
    std::optional<std::size_t> stock;    ///< position in Job::stocks
    std::optional<std::size_t> remnant;  ///< position in Job::remnants
    ZetString name;                      ///< of a remnant
};

/// What members to be nested have in common.
struct NestedMembers {
    const job::Group& group;
    ZetString profileName;
    ZetString material;
};

/// The bars that they are cut from: the job's stocks for the profile, else bars of the library's
/// length without kerf and grips. With the least plan also the remnants of profile and material;
/// these are sawn as the first stock is.
std::vector<BarStock> StocksFor(const job::Job& job, const NestedMembers& members);

/// Least where the group or, without its word, a stock or a remnant says so.
job::BarPlan PlanOf(const job::Job& job, const NestedMembers& members);

/// Whether the library's plan can be for such bars.
bool IsLibraryStock(const job::Stock& stock);

/// What can be cut from a bar.
double UsableLength(const job::Stock& stock);

/// The stock that the longest piece can be cut from; there must be one.
const BarStock& LongestOf(const std::vector<BarStock>& stocks);

}  // namespace plugin
