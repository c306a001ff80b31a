#include "plugin/rules/BarStock.h"

#include "job/TextPattern.h"

#include "camdata/nesting/CMxNestParts.h"

#include <algorithm>

namespace plugin {

namespace {

std::vector<BarStock> FittingStocks(const job::Job& job, const ZetString& profileName) {
    std::vector<BarStock> fitting;
    for (std::size_t i = 0; i < job.stocks.size(); ++i)
        if (job::MatchesPattern(profileName.view(), job.stocks[i].profilePattern.view()))
            fitting.push_back({job.stocks[i], i, {}, {}});
    return fitting;
}

bool IsFor(const job::Remnant& remnant, const NestedMembers& members) {
    return remnant.quantity > 0 && remnant.profileName == members.profileName &&
           remnant.material == members.material;
}

/// What a millimetre costs where it is cheapest; nothing without prices.
std::optional<double> CheapestPerMillimetre(const std::vector<BarStock>& stocks) {
    std::optional<double> cheapest;
    for (const BarStock& stock : stocks)
        if (stock.price)
            cheapest = std::min(cheapest.value_or(*stock.price / stock.length),
                                *stock.price / stock.length);
    return cheapest;
}

void AppendRemnants(const job::Job& job,
                    const NestedMembers& members,
                    std::vector<BarStock>& stocks) {
    const std::optional<double> price = CheapestPerMillimetre(stocks);
    const BarStock sawn = stocks.front();
    for (std::size_t i = 0; i < job.remnants.size(); ++i) {
        const job::Remnant& remnant = job.remnants[i];
        if (!IsFor(remnant, members))
            continue;
        BarStock& stock = stocks.emplace_back(sawn);
        stock.length = remnant.length;
        stock.quantity = remnant.quantity;
        stock.price = price ? std::optional(*price * remnant.length) : std::nullopt;
        stock.stock.reset();
        stock.remnant = i;
        stock.name = remnant.name;
    }
}

}  // namespace

std::vector<BarStock> StocksFor(const job::Job& job, const NestedMembers& members) {
    std::vector<BarStock> stocks = FittingStocks(job, members.profileName);
    if (stocks.empty())
        stocks.emplace_back().length = CMxNestParts().GetNestLength();
    if (PlanOf(job, members) == job::BarPlan::kLeast)
        AppendRemnants(job, members, stocks);
    return stocks;
}

job::BarPlan PlanOf(const job::Job& job, const NestedMembers& members) {
    if (members.group.plan)
        return *members.group.plan;
    const bool hasBars =
        !FittingStocks(job, members.profileName).empty() ||
        std::any_of(job.remnants.begin(), job.remnants.end(), [&](const job::Remnant& remnant) {
            return IsFor(remnant, members);
        });
    // Only the library's plan keeps a reserve.
    return members.group.reserveLength == 0.0 && hasBars ? job::BarPlan::kLeast
                                                         : job::BarPlan::kGiven;
}

bool IsLibraryStock(const job::Stock& stock) {
    return stock.length == CMxNestParts().GetNestLength() && stock.kerf == 0.0 &&
           stock.gripStart == 0.0 && stock.gripEnd == 0.0 && !stock.price && !stock.quantity;
}

double UsableLength(const job::Stock& stock) {
    return stock.length - stock.gripStart - stock.gripEnd;
}

const BarStock& LongestOf(const std::vector<BarStock>& stocks) {
    return *std::max_element(
        stocks.begin(), stocks.end(), [](const BarStock& a, const BarStock& b) {
            return UsableLength(a) < UsableLength(b);
        });
}

}  // namespace plugin
