#include "cutting/Planner.h"
#include "cutting/Verification.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

// Cutting plans of random lists of several kinds: how far above the bound, beside
// first-fit-decreasing, and how long it takes. Times are CPU times of this process.
//
// camdata_cutting_bench [NAME [EFFORT]] prints a table, or the rows whose name begins with NAME;
// EFFORT is in millions of steps, as in a job file.

namespace {

using cutting::Cost;
using cutting::Count;
using cutting::Demand;
using cutting::Length;
using cutting::Stock;

constexpr Length kMillimetre = 1000;

/// Random numbers that are the same with every standard library.
class Dice {
  public:
    explicit Dice(std::uint64_t seed) : m_state(seed * 2 + 1) {}

    long Between(long least, long most) {
        m_state = m_state * 6364136223846793005u + 1442695040888963407u;
        return least +
               static_cast<long>((m_state >> 33) % static_cast<std::uint64_t>(most - least + 1));
    }

  private:
    std::uint64_t m_state;
};

struct List {
    Demand demand;
    std::vector<Stock> stocks;
};

Stock MakeStock(Length length, Length kerf = 0, Length grip = 0) {
    return {.length = length * kMillimetre,
            .kerf = kerf * kMillimetre,
            .gripStart = grip * kMillimetre};
}

struct Marks {
    long marks;
    long fewest, most;       ///< pieces of each
    long shortest, longest;  ///< mm
    long step = kMillimetre;
};

Demand Roll(Dice& dice, const Marks& marks) {
    Demand demand;
    for (long i = 0; i < marks.marks; ++i) {
        const Length length = dice.Between(marks.shortest * kMillimetre / marks.step,
                                           marks.longest * kMillimetre / marks.step) *
                              marks.step;
        demand.push_back({length, dice.Between(marks.fewest, marks.most)});
    }
    return demand;
}

/// Each bar of 1,000 mm falls into three pieces without waste.
Demand RollTriplets(Dice& dice, long bars) {
    Demand demand;
    for (long i = 0; i < bars; ++i) {
        const long first = dice.Between(380, 490);
        const long second = dice.Between(250, (1000 - first) / 2 - 1);
        for (const long length : {first, second, 1000 - first - second})
            demand.push_back({length * kMillimetre, 1});
    }
    return demand;
}

std::vector<Stock> ByLength(std::vector<Stock> stocks) {
    for (Stock& stock : stocks)
        stock.cost = stock.length / kMillimetre;
    return stocks;
}

std::vector<Stock> WithRemnants(Dice& dice, int remnants) {
    std::vector<Stock> stocks = ByLength({MakeStock(6000, 3, 50), MakeStock(12000, 3, 50)});
    for (int i = 0; i < remnants; ++i) {
        Stock remnant = MakeStock(dice.Between(1500, 9000), 3, 50);
        remnant.cost = remnant.length / kMillimetre / 2;
        remnant.count = 1;
        stocks.push_back(remnant);
    }
    return stocks;
}

struct Row {
    const char* name;
    int lists;
    std::function<List(Dice&)> make;
};

const Row kRows[] = {
    {"many marks: 100 x 1-20, 300-3,900 on 4,000",
     100, [](Dice& dice) {
         return List{Roll(dice, {100, 1, 20, 300, 3900}), {MakeStock(4000)}};
     }},
    {"many marks, kerf 3, grip 50",
     100, [](Dice& dice) {
         return List{Roll(dice, {100, 1, 20, 300, 3900}), {MakeStock(4000, 3, 50)}};
     }},
    {"many marks, lengths to 0.001 mm, kerf 3",
     20,  [](Dice& dice) {
         return List{Roll(dice, {100, 1, 20, 300, 3900, 1}), {MakeStock(4000, 3)}};
     } },
    {"short marks: 100 x 1-20, 200-1,600",
     30,  [](Dice& dice) {
         return List{Roll(dice, {100, 1, 20, 200, 1600}), {MakeStock(4000)}};
     } },
    {"few marks: 10 x 500, 300-3,900",
     100, [](Dice& dice) {
         return List{Roll(dice, {10, 500, 500, 300, 3900}), {MakeStock(4000)}};
     }},
    {"few short marks: 10 x 500, 200-1,600",
     60,  [](Dice& dice) {
         return List{Roll(dice, {10, 500, 500, 200, 1600}), {MakeStock(4000)}};
     } },
    {"triplets, 60 pieces",
     8,   [](Dice& dice) {
         return List{RollTriplets(dice, 20), {MakeStock(1000)}};
     }  },
    {"triplets, 180 pieces",
     8,   [](Dice& dice) {
         return List{RollTriplets(dice, 60), {MakeStock(1000)}};
     }  },
    {"triplets, 501 pieces",
     4,   [](Dice& dice) {
         return List{RollTriplets(dice, 167), {MakeStock(1000)}};
     }  },
    {"purlins: 40 x 1-30, 2,500-7,500 on 12,000, kerf 3, grip 50",
     40,  [](Dice& dice) {
         return List{Roll(dice, {40, 1, 30, 2500, 7500}), {MakeStock(12000, 3, 50)}};
     } },
    {"purlins on 12,000 and 15,000, cost = length",
     20,  [](Dice& dice) {
         return List{Roll(dice, {40, 1, 30, 2500, 7500}),
                     ByLength({MakeStock(12000, 3), MakeStock(15000, 3)})};
     } },
    {"purlins on 12,000, 13,500 and 15,000, cost = length",
     20,  [](Dice& dice) {
         return List{Roll(dice, {40, 1, 30, 2500, 7500}),
                     ByLength({MakeStock(12000, 3), MakeStock(13500, 3), MakeStock(15000, 3)})};
     } },
    {"remnants: 40 marks on 6,000, 12,000 and 20 single ones at half price",
     15,  [](Dice& dice) {
         return List{Roll(dice, {40, 1, 30, 300, 5900}), WithRemnants(dice, 20)};
     } },
    {"remnants: 100 marks on 6,000, 12,000 and 300 single ones at half price",
     5,   [](Dice& dice) {
         return List{Roll(dice, {100, 1, 20, 300, 5900}), WithRemnants(dice, 300)};
     }  },
    {"frames: 400 x 1-8, 300-7,850 on 12,000, kerf 3",
     5,   [](Dice& dice) {
         return List{Roll(dice, {400, 1, 8, 300, 7850}), {MakeStock(12000, 3)}};
     }  },
    {"long: 10,000 pieces, 300-3,900 on 4,000",
     1,   [](Dice& dice) {
         return List{Roll(dice, {10000, 1, 1, 300, 3900}), {MakeStock(4000)}};
     }  },
    {"long: 10,000 pieces, 200-1,600",
     1,   [](Dice& dice) {
         return List{Roll(dice, {10000, 1, 1, 200, 1600}), {MakeStock(4000)}};
     }  },
    {"long: 10,000 pieces of 400 marks",
     1,   [](Dice& dice) {
         return List{Roll(dice, {400, 25, 25, 300, 3900}), {MakeStock(4000)}};
     }  },
    {"long: 10,000 purlins on 12,000, kerf 3, grip 50",
     5,   [](Dice& dice) {
         return List{Roll(dice, {10000, 1, 1, 2500, 7500}), {MakeStock(12000, 3, 50)}};
     }  },
    {"long: 10,000 purlins, lengths to 0.001 mm",
     1,   [](Dice& dice) {
         return List{Roll(dice, {10000, 1, 1, 2500, 7500, 1}), {MakeStock(12000, 3, 50)}};
     }  },
    {"long: 10,000 pieces, 300-5,900, on 6,000, 12,000 and 300 remnants",
     1,   [](Dice& dice) {
         return List{Roll(dice, {10000, 1, 1, 300, 5900}), WithRemnants(dice, 300)};
     }  },
    {"long: 100,000 pieces, 300-3,900 on 4,000",
     1,   [](Dice& dice) {
         return List{Roll(dice, {100000, 1, 1, 300, 3900}), {MakeStock(4000)}};
     }  },
    {"long: 100,000 pieces, 200-1,600",
     1,   [](Dice& dice) {
         return List{Roll(dice, {100000, 1, 1, 200, 1600}), {MakeStock(4000)}};
     }  },
    {"long: 100,000 purlins on 12,000, kerf 3, grip 50",
     1,   [](Dice& dice) {
         return List{Roll(dice, {100000, 1, 1, 2500, 7500}), {MakeStock(12000, 3, 50)}};
     }  },
    {"long: 100,000 purlins, lengths to 0.001 mm",
     1,   [](Dice& dice) {
         return List{Roll(dice, {100000, 1, 1, 2500, 7500, 1}), {MakeStock(12000, 3, 50)}};
     }  },
};

/// What the lists of a row come to.
struct Totals {
    double gap = 0.0;  ///< of the cost over the bound, in % of the bound
    double firstFitGap = 0.0;
    double givenGap = 0.0;
    int atBound = 0;
    int oneAbove = 0;  ///< at most one bar of the cheapest stock above
    int firstFitAtBound = 0;
    double patterns = 0.0;
    double seconds = 0.0;
    double mostSeconds = 0.0;
};

double GapOf(Cost cost, Cost bound) {
    return 100.0 * static_cast<double>(cost - bound) / static_cast<double>(bound);
}

double CpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void AddList(Totals& totals, const List& list, std::int64_t steps) {
    const cutting::Plan firstFit = cutting::MakeFirstFitPlan(list.demand, list.stocks);
    const double start = CpuSeconds();
    const cutting::Plan plan = cutting::MakeLeastPlan(list.demand, list.stocks, steps);
    const double seconds = CpuSeconds() - start;
    for (const std::string& fault : cutting::FindFaults(list.demand, list.stocks, plan)) {
        std::printf("wrong plan: %s\n", fault.c_str());
        std::exit(1);
    }
    Cost cheapest = list.stocks.front().cost;
    for (const Stock& stock : list.stocks)
        cheapest = std::min(cheapest, stock.cost);
    totals.gap += GapOf(plan.cost, plan.bound);
    totals.firstFitGap += GapOf(firstFit.cost, plan.bound);
    totals.givenGap += GapOf(*cutting::CostFromShortest(list.demand, list.stocks), plan.bound);
    totals.atBound += plan.cost == plan.bound ? 1 : 0;
    totals.oneAbove += plan.cost <= plan.bound + cheapest ? 1 : 0;
    totals.firstFitAtBound += firstFit.cost == plan.bound ? 1 : 0;
    totals.patterns += static_cast<double>(plan.bars.size());
    totals.seconds += seconds;
    totals.mostSeconds = std::max(totals.mostSeconds, seconds);
}

void PrintRow(const Row& row, std::int64_t steps) {
    Totals totals;
    for (int list = 0; list < row.lists; ++list) {
        Dice dice(static_cast<std::uint64_t>(list) + 1);
        AddList(totals, row.make(dice), steps);
    }
    const double lists = row.lists;
    std::printf("| %s | %d | %.1f | %.2f | %.3f | %d / %d | %d | %.0f | %.1f / %.1f |\n",
                row.name,
                row.lists,
                totals.givenGap / lists,
                totals.firstFitGap / lists,
                totals.gap / lists,
                totals.firstFitAtBound,
                totals.atBound,
                totals.oneAbove,
                totals.patterns / lists,
                1000.0 * totals.seconds / lists,
                1000.0 * totals.mostSeconds);
    std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments) {
    const std::int64_t steps =
        count > 2 ? std::atoll(arguments[2]) * 1'000'000 : cutting::kDefaultSteps;
    std::printf(
        "| lists | n | given, %% | first fit, %% | plan, %% | at bound: first fit / plan | "
        "at most 1 bar above | patterns | ms mean / most |\n"
        "|---|---|---|---|---|---|---|---|---|\n");
    for (const Row& row : kRows)
        if (count < 2 || std::strncmp(row.name, arguments[1], std::strlen(arguments[1])) == 0)
            PrintRow(row, steps);
}
