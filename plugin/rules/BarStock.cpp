#include "plugin/rules/BarStock.h"

#include "job/TextPattern.h"

#include "camdata/nesting/CMxNestParts.h"

#include <algorithm>

namespace plugin {

namespace {

std::vector<job::Stock> FittingStocks(const job::Job& job, const ZetString& profileName) {
    std::vector<job::Stock> fitting;
    for (const job::Stock& stock : job.stocks)
        if (job::MatchesPattern(profileName.view(), stock.profilePattern.view()))
            fitting.push_back(stock);
    return fitting;
}

}  // namespace

std::vector<job::Stock> StocksFor(const job::Job& job, const ZetString& profileName) {
    std::vector<job::Stock> stocks = FittingStocks(job, profileName);
    if (stocks.empty())
        stocks.emplace_back().length = CMxNestParts().GetNestLength();
    return stocks;
}

bool HasStock(const job::Job& job, const ZetString& profileName) {
    return !FittingStocks(job, profileName).empty();
}

job::BarPlan PlanOf(const job::Job& job, const job::Group& group, const ZetString& profileName) {
    if (group.plan)
        return *group.plan;
    // Only the library's plan keeps a reserve.
    return group.reserveLength == 0.0 && HasStock(job, profileName) ? job::BarPlan::kLeast
                                                                    : job::BarPlan::kGiven;
}

bool IsLibraryStock(const job::Stock& stock) {
    return stock.length == CMxNestParts().GetNestLength() && stock.kerf == 0.0 &&
           stock.gripStart == 0.0 && stock.gripEnd == 0.0 && !stock.price && !stock.quantity;
}

double UsableLength(const job::Stock& stock) {
    return stock.length - stock.gripStart - stock.gripEnd;
}

const job::Stock& LongestOf(const std::vector<job::Stock>& stocks) {
    return *std::max_element(
        stocks.begin(), stocks.end(), [](const job::Stock& a, const job::Stock& b) {
            return UsableLength(a) < UsableLength(b);
        });
}

}  // namespace plugin
