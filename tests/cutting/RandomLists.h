#pragma once

#include "cutting/Planner.h"
#include "cutting/Random.h"

#include <vector>

/// Pieces and the bars for them.
struct CuttingCase {
    cutting::Demand demand;
    std::vector<cutting::Stock> stocks;
};

/// Small lists of every kind: one or several stocks, with and without kerf and grips, prices,
/// limits, equal lengths, pieces that fit exactly or not at all.
class RandomLists {
  public:
    explicit RandomLists(std::uint64_t seed) : m_random(seed) {}

    CuttingCase Next() {
        CuttingCase made;
        const cutting::Length unit = Between(0, 1) == 0 ? 1000 : 1;
        const cutting::Length longest = Between(8, 60) * unit;
        const cutting::Length kerf = Between(0, 2) * unit;
        for (auto stocks = Between(1, 3); stocks > 0; --stocks)
            made.stocks.push_back(NextStock(longest, kerf, unit));
        const auto marks = Between(1, 6);
        for (auto mark = marks; mark > 0; --mark)
            made.demand.push_back({Between(1, longest / unit) * unit, Between(0, 3)});
        return made;
    }

    std::int64_t Between(std::int64_t least, std::int64_t most) {
        return least + static_cast<std::int64_t>(m_random.Next() %
                                                 static_cast<std::uint64_t>(most - least + 1));
    }

  private:
    cutting::Stock NextStock(cutting::Length longest, cutting::Length kerf, cutting::Length unit) {
        cutting::Stock stock;
        stock.length = Between(1, 3) == 1 ? longest : Between(longest / unit / 2 + 1, 70) * unit;
        stock.kerf = Between(0, 4) == 0 ? kerf + unit : kerf;
        stock.gripStart = Between(0, 2) == 0 ? unit : 0;
        stock.gripEnd = Between(0, 2) == 0 ? 2 * unit : 0;
        stock.cost = Between(0, 1) == 0 ? stock.length : Between(1, 9);
        stock.count = Between(0, 2) == 0 ? Between(0, 3) : cutting::kUnlimited;
        return stock;
    }

    cutting::Random m_random;
};
