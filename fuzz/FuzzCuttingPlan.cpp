#include "cutting/Planner.h"
#include "cutting/Verification.h"
#include "fuzz/Law.h"
#include "fuzz/Numbers.h"

// Every piece of a plan is cut once, and no plan costs less than its bound. The input is a list of
// whole numbers: how many stocks, six numbers for each, then length and count of each part.

namespace {

constexpr std::int64_t kFewSteps = 300'000;

cutting::Stock NextStock(Numbers& numbers) {
    cutting::Stock stock;
    stock.length = numbers.Next(1, 20'000'000);
    stock.kerf = numbers.Next(0, 10'000);
    stock.gripStart = numbers.Next(0, 1'000'000);
    stock.gripEnd = numbers.Next(0, 1'000'000);
    stock.cost = numbers.Next(1, cutting::kMaxCost);
    stock.count = numbers.Next(cutting::kUnlimited, 50);
    return stock;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Numbers numbers(data, size);
    std::vector<cutting::Stock> stocks;
    for (std::int64_t left = numbers.Next(1, 5); left > 0; --left)
        stocks.push_back(NextStock(numbers));
    cutting::Demand demand;
    while (numbers.HasNext() && demand.size() < 60) {
        const cutting::Length length = numbers.Next(1, 20'000'000);
        demand.push_back({length, numbers.Next(0, 40)});
    }
    const cutting::Plan least = cutting::MakeLeastPlan(demand, stocks, kFewSteps);
    const cutting::Plan firstFit = cutting::MakeFirstFitPlan(demand, stocks);
    Check(cutting::FindFaults(demand, stocks, least).empty(), "every piece is cut once");
    Check(cutting::FindFaults(demand, stocks, firstFit).empty(),
          "every piece is cut once, first fit");
    Check(least.bound <= least.cost, "no plan costs less than its bound");
    if (least.uncut.empty() && firstFit.uncut.empty())
        Check(least.cost <= firstFit.cost, "the least plan costs no more than first fit");
    return 0;
}
