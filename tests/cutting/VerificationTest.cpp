#include "cutting/Verification.h"

#include <functional>

#include <gtest/gtest.h>

namespace {

using namespace cutting;

/// Two bars of 100 with a kerf of 2 and grips of 5 and 3: 30 and 28 on each, and 30 alone.
const Demand kDemand = {
    {30, 3},
    {28, 2}
};
const std::vector<Stock> kStocks = {
    {.length = 100, .kerf = 2, .gripStart = 5, .gripEnd = 3, .cost = 7, .count = 3}
};

Plan GoodPlan() {
    return {
        .bars = {{0, {{0, 1}, {1, 1}}, 2, 30}, {0, {{0, 1}}, 1, 60}},
        .cost = 21,
        .bound = 14,
        .uncut = {                            },
    };
}

struct Case {
    const char* name;
    std::function<void(Plan&)> spoil;
    std::vector<std::string> faults;
};

class VerificationTest : public ::testing::TestWithParam<Case> {};

TEST_P(VerificationTest, FindsWhatIsWrong) {
    Plan plan = GoodPlan();
    GetParam().spoil(plan);
    EXPECT_EQ(FindFaults(kDemand, kStocks, plan), GetParam().faults);
}

INSTANTIATE_TEST_SUITE_P(
    Plans,
    VerificationTest,
    ::testing::Values(
        Case{
            "good", [](Plan&) {},
              { }
},
        Case{"one_uncut",
             [](Plan& plan) {
                 plan.bars.pop_back();
                 plan.cost = 14;
                 plan.uncut = {1, 0};
             },
             {}},
        Case{"piece_missing",
             [](Plan& plan) {
                 plan.bars[0] = {0, {{0, 1}}, 2, 60};
             },
             {"Mark 2: 0 pieces instead of 2"}},
        Case{"piece_twice",
             [](Plan& plan) {
                 plan.bars[1] = {
                     0, {{0, 1}, {1, 1}},
                      1, 30
                 };
             },
             {"Mark 2: 3 pieces instead of 2"}},
        Case{"off_cut_without_its_kerf",
             [](Plan& plan) { plan.bars[1].offCut = 62; },
             {"Entry 2: the off-cut is wrong"}},
        // Without kerf and grips the three would go on the bar: 30 + 30 + 30 + 2 * 2 > 92.
        Case{"bar_too_short",
             [](Plan& plan) {
                 plan.bars = {
                     {0, {{0, 3}}, 1, 0 },
                     {0, {{1, 2}}, 1, 32}
                 };
                 plan.cost = 14;
             },
             {"Entry 1: the pieces are longer than the bar"}},
        Case{"more_bars_than_there_are",
             [](Plan& plan) {
                 plan.bars = {
                     {0, {{0, 1}}, 3, 60},
                     {0, {{1, 2}}, 1, 32}
                 };
                 plan.cost = 28;
             },
             {"Stock 1: 4 bars where there are 3"}},
        Case{"wrong_cost", [](Plan& plan) { plan.cost = 20; }, {"The cost is 21, not 20"}},
        Case{"no_such_stock",
             [](Plan& plan) { plan.bars[1].stock = 1; },
             {"Entry 2: no such stock, no bars or no pieces",
              "Mark 1: 2 pieces instead of 3",
              "The cost is 14, not 21"}}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace
