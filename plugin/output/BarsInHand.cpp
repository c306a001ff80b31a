#include "plugin/output/BarsInHand.h"

#include <algorithm>
#include <iterator>

namespace plugin {

namespace {

/// "hall7 bar 12", "hall7 bars 3-7"
ZetString NameOfOffCuts(const ZetString& run, long first, long count) {
    return run + (count == 1 ? ZetString::format(L" bar %d", first)
                             : ZetString::format(L" bars %d-%d", first, first + count - 1));
}

}  // namespace

bool BarsInHand::AreLimited() const {
    return !m_remnants.empty() ||
           std::any_of(m_stocks.begin(), m_stocks.end(), [](const job::Stock& stock) {
               return stock.quantity.has_value();
           });
}

void BarsInHand::Limit(std::vector<BarStock>& stocks) const {
    for (BarStock& stock : stocks) {
        if (stock.remnant)
            stock.quantity = m_remnants[*stock.remnant].quantity;
        else if (stock.stock)
            stock.quantity = m_stocks[*stock.stock].quantity;
    }
}

void BarsInHand::Take(const ProfilePlan& plan, const ZetString& run) {
    long bar = plan.firstBar;
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        const auto count = static_cast<long>(bars.bars);
        const BarStock& stock = plan.stocks[bars.stock];
        if (stock.remnant)
            m_remnants[*stock.remnant].quantity -= count;
        else if (stock.stock && stock.quantity)
            *m_stocks[*stock.stock].quantity -= count;
        if (IsKept(plan, bars))
            m_offCuts.push_back({plan.profileName,
                                 plan.material,
                                 KeptLength(plan, bars),
                                 count,
                                 NameOfOffCuts(run, bar, count)});
        bar += count;
    }
}

std::vector<job::Remnant> BarsInHand::GetRemnants() const {
    std::vector<job::Remnant> left;
    std::copy_if(m_remnants.begin(),
                 m_remnants.end(),
                 std::back_inserter(left),
                 [](const job::Remnant& remnant) { return remnant.quantity > 0; });
    left.insert(left.end(), m_offCuts.begin(), m_offCuts.end());
    return left;
}

}  // namespace plugin
