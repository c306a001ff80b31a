#include "RandomLists.h"
#include "cutting/Planner.h"
#include "cutting/Verification.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace cutting;

constexpr Length kMm = 1000;

Stock MakeStock(Length length, Length kerf = 0, Cost cost = 1, Count count = kUnlimited) {
    return {.length = length * kMm, .kerf = kerf * kMm, .cost = cost, .count = count};
}

Demand MillimetreParts(std::initializer_list<Part> parts) {
    Demand demand = parts;
    for (Part& part : demand)
        part.length *= kMm;
    return demand;
}

/// Text of a plan: "2x12000:A3+B1(off)" per entry.
std::string TextOf(const Plan& plan, const std::vector<Stock>& stocks) {
    std::string text;
    for (const PlannedBars& bars : plan.bars) {
        text += (text.empty() ? "" : " ") + std::to_string(bars.bars) + "x" +
                std::to_string(stocks[bars.stock].length / kMm) + ":";
        for (const Cut& cut : bars.cuts)
            text += std::string(1, static_cast<char>('A' + cut.part)) + std::to_string(cut.count);
        text += "(" + std::to_string(bars.offCut / kMm) + ")";
    }
    return text;
}

struct Case {
    const char* name;
    Demand demand;
    std::vector<Stock> stocks;
    Cost cost;
    Cost bound;
    std::string plan;  ///< empty: any
    std::vector<Count> uncut = {};
};

class PlannerTest : public ::testing::TestWithParam<Case> {};

TEST_P(PlannerTest, MakesTheLeastPlan) {
    const Case& expected = GetParam();
    const Plan plan = MakeLeastPlan(expected.demand, expected.stocks, 50'000'000);
    EXPECT_EQ(plan.cost, expected.cost);
    EXPECT_EQ(plan.bound, expected.bound);
    EXPECT_EQ(plan.uncut, expected.uncut);
    if (!expected.plan.empty()) {
        EXPECT_EQ(TextOf(plan, expected.stocks), expected.plan);
    }
    EXPECT_EQ(FindFaults(expected.demand, expected.stocks, plan), std::vector<std::string>());
}

Stock WithGrips(Stock stock, Length start, Length end) {
    stock.gripStart = start * kMm;
    stock.gripEnd = end * kMm;
    return stock;
}

INSTANTIATE_TEST_SUITE_P(
    Lists,
    PlannerTest,
    ::testing::Values(
        Case{
            "nothing", {              },
             {MakeStock(4000)},
             0, 0, ""
},
        Case{"exactly_the_bar",
             MillimetreParts({{4000, 2}}),
             {MakeStock(4000, 3)},
             2,
             2,
             "2x4000:A1(0)"},
        Case{"between_the_grips",
             MillimetreParts({{3900, 1}}),
             {WithGrips(MakeStock(4000, 3), 60, 40)},
             1,
             1,
             "1x4000:A1(0)"},
        // 1998 + 4 + 1998: one cut between two pieces, none behind the last.
        Case{"no_kerf_behind_the_last",
             MillimetreParts({{1998, 2}}),
             {MakeStock(4000, 4)},
             1,
             1,
             "1x4000:A2(0)"},
        Case{"kerf_too_wide",
             MillimetreParts({{1999, 2}}),
             {MakeStock(4000, 4)},
             2,
             2,
             "2x4000:A1(1997)"},
        // Of each size only the pieces that are wanted count: sums alone would allow two bars.
        Case{"wanted_quantities",
             MillimetreParts({{1320, 2}, {990, 3}, {360, 6}}),
             {MakeStock(3960)},
             3,
             3,
             ""},
        Case{"limited_cheap_stock",
             MillimetreParts({{2408, 8}}),
             {MakeStock(6950, 4, 6950, 8), MakeStock(7000, 4, 3500, 2)},
             20900,
             20900,
             "2x6950:A2(2126) 2x7000:A2(2176)"},
        Case{"limited_stock_that_holds_all",
             MillimetreParts({{4460, 1}, {700, 3}, {1800, 1}}),
             {MakeStock(9000, 0, 9000, 1), MakeStock(7500, 0, 5095)},
             9000,
             9000,
             "1x9000:A1C1B3(640)"},
        Case{"cheaper_per_piece",
             MillimetreParts({{3000, 5}}),
             {MakeStock(6000, 0, 6000), MakeStock(9000, 0, 9000)},
             15000,
             15000,
             ""},
        Case{"too_long",
             MillimetreParts({{5000, 2}, {1000, 4}}),
             {MakeStock(4000)},
             1,
             1,
             "1x4000:B4(0)",
             {2, 0}},
        // Prices that stand for missing bars grow beyond all whole numbers.
        Case{
            "cheap_stock_too_short_for_all",
            {{12'000'000, 11}, {10'000'000, 40}, {120, 9}},
            {{.length = 12'000'000, .kerf = 3000, .gripStart = 1, .cost = 999'999'999, .count = 32},
             {.length = 3, .cost = 6000},
             {.length = 4'100'000,
              .kerf = 30,
              .gripStart = 99'996,
              .cost = 12'000'000,
              .count = 0}},
            31'999'999'968,
            0,
            "",
            {11, 8, 0}},
        Case{"stock_runs_out",
             MillimetreParts({{3000, 3}}),
             {MakeStock(4000, 0, 1, 2)},
             2,
             0,
             "2x4000:A1(1000)",
             {1}},
        Case{"marks_of_one_length",
             MillimetreParts({{1000, 5}, {1000, 3}}),
             {MakeStock(4000)},
             2,
             2,
             "1x4000:A4(0) 1x4000:A1B3(0)"}),
    [](const auto& tested) { return tested.param.name; });

// ---- exhaustive search
// ------------------------------------------------------------------------------

/// Pieces left uncut, then cost.
using Score = std::pair<Count, Cost>;

/// The least score, trying every set of pieces for the bar of the first one.
class Exhaustive {
  public:
    explicit Exhaustive(const CuttingCase& made) : m_stocks(made.stocks) {
        for (const Part& part : made.demand)
            m_pieces.insert(m_pieces.end(), static_cast<std::size_t>(part.count), part.length);
        for (const Stock& stock : m_stocks)
            m_left.push_back(stock.count);
    }
    std::size_t CountPieces() const { return m_pieces.size(); }
    Score FindLeast() { return FindLeast((1u << m_pieces.size()) - 1); }

  private:
    Score FindLeast(unsigned pieces) {
        if (pieces == 0)
            return {};
        const auto [at, isNew] = m_known.insert({
            {pieces,        m_left},
            {             }
        });
        if (!isNew)
            return at->second;
        const unsigned first = pieces & (~pieces + 1);
        const unsigned others = pieces & ~first;
        Score least = FindLeast(others);
        ++least.first;
        for (std::size_t stock = 0; stock < m_stocks.size(); ++stock) {
            if (m_left[stock] == 0)
                continue;
            m_left[stock] -= m_left[stock] > 0 ? 1 : 0;
            for (unsigned more = others;; more = (more - 1) & others) {
                if (Fits(m_stocks[stock], first | more)) {
                    const auto [uncut, cost] = FindLeast(others & ~more);
                    least = std::min(least, Score(uncut, cost + m_stocks[stock].cost));
                }
                if (more == 0)
                    break;
            }
            m_left[stock] = m_stocks[stock].count == kUnlimited ? kUnlimited : m_left[stock] + 1;
        }
        at->second = least;
        return least;
    }

    bool Fits(const Stock& stock, unsigned pieces) const {
        Length length = -stock.kerf;
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            length += (pieces >> i & 1) != 0 ? m_pieces[i] + stock.kerf : 0;
        return length <= stock.length - stock.gripStart - stock.gripEnd;
    }

    const std::vector<Stock>& m_stocks;
    std::vector<Length> m_pieces;
    std::vector<Count> m_left;
    std::map<std::pair<unsigned, std::vector<Count>>, Score> m_known;
};

constexpr std::size_t kMaxPiecesTried = 8;

TEST(PlannerRandomTest, KeepsEveryRule) {
    RandomLists lists(20);
    int compared = 0;
    for (int i = 0; i < 10'000; ++i) {
        SCOPED_TRACE("list " + std::to_string(i));
        const CuttingCase made = lists.Next();
        const Plan plan = MakeLeastPlan(made.demand, made.stocks, 500'000);
        const Plan firstFit = MakeFirstFitPlan(made.demand, made.stocks);
        ASSERT_EQ(FindFaults(made.demand, made.stocks, plan), std::vector<std::string>());
        ASSERT_EQ(FindFaults(made.demand, made.stocks, firstFit), std::vector<std::string>());
        ASSERT_LE(plan.bound, plan.cost);
        const auto scoreOf = [](const Plan& of) {
            return Score(std::accumulate(of.uncut.begin(), of.uncut.end(), Count(0)), of.cost);
        };
        ASSERT_LE(scoreOf(plan), scoreOf(firstFit));
        Exhaustive exhaustive(made);
        if (exhaustive.CountPieces() > kMaxPiecesTried)
            continue;
        ++compared;
        ASSERT_EQ(scoreOf(plan), exhaustive.FindLeast());
    }
    EXPECT_GT(compared, 5'000);
}

/// Bars of one stock, filled piece by piece.
Count FirstFitPieceByPiece(Demand demand, const Stock& stock) {
    std::sort(demand.begin(), demand.end(), [](const Part& a, const Part& b) {
        return a.length > b.length;
    });
    std::vector<Length> rooms;
    for (const Part& part : demand)
        for (Count piece = 0; piece < part.count; ++piece) {
            const auto bar = std::find_if(
                rooms.begin(), rooms.end(), [&](Length room) { return room >= part.length; });
            Length& room = bar == rooms.end() ? rooms.emplace_back(stock.GetUsable()) : *bar;
            room -= part.length + stock.kerf;
        }
    return static_cast<Count>(rooms.size());
}

TEST(PlannerRandomTest, EndsSoonWhenItIsStopped) {
    RandomLists dice(30);
    Demand demand;
    for (int i = 0; i < 30; ++i)
        demand.push_back({dice.Between(2500 * kMm, 7500 * kMm), dice.Between(1, 9)});
    const std::vector<Stock> stocks = {MakeStock(12000, 3, 12), MakeStock(13500, 3, 13)};
    int asked = 0;
    const Effort::Question isStopped = [&] { return ++asked >= 3; };
    const Plan plan = MakeLeastPlan(demand, stocks, Effort(100'000'000).Until(isStopped));
    EXPECT_EQ(FindFaults(demand, stocks, plan), std::vector<std::string>());
    EXPECT_GE(asked, 3);
    EXPECT_LT(asked, 10);
}

TEST(FirstFitTest, FillsManyBarsAtATimeAsItWouldPieceByPiece) {
    RandomLists random(7);
    for (int i = 0; i < 2000; ++i) {
        SCOPED_TRACE("list " + std::to_string(i));
        const Stock stock = MakeStock(random.Between(6000, 12000), random.Between(0, 1) * 3);
        Demand demand;
        for (auto marks = random.Between(1, 12); marks > 0; --marks)
            demand.push_back({random.Between(300, 5900) * kMm, random.Between(0, 60)});
        ASSERT_EQ(MakeFirstFitPlan(demand, {stock}).cost, FirstFitPieceByPiece(demand, stock));
    }
    const Demand most = MillimetreParts({
        {3500, 4'000'000},
        {2500, 6'000'000}
    });
    EXPECT_EQ(MakeFirstFitPlan(most, {MakeStock(6000)}).cost, 5'000'000);
}

// ---- the same everywhere
// -----------------------------------------------------------------------------

std::uint64_t DigestOf(const Plan& plan, std::uint64_t digest) {
    const auto add = [&](std::int64_t value) {
        digest = (digest ^ static_cast<std::uint64_t>(value)) * 1099511628211u;
    };
    for (const PlannedBars& bars : plan.bars) {
        add(static_cast<std::int64_t>(bars.stock));
        add(bars.bars);
        for (const Cut& cut : bars.cuts) {
            add(static_cast<std::int64_t>(cut.part));
            add(cut.count);
        }
    }
    return digest;
}

/// Lists that only the relaxation and the dives solve, and two that nothing solves at once: one
/// that is cut up into chunks, and one with so many lengths that they are rounded first. Another
/// compiler, processor or system must not make another plan: whoever changes the search changes
/// this number, on all of them.
TEST(PlannerRandomTest, MakesTheSamePlansEverywhere) {
    struct Row {
        int marks;
        std::int64_t most;  ///< pieces of a mark
        std::int64_t steps;
        std::vector<Stock> stocks;
        bool isLeast;
    };
    const std::vector<Stock> two = {MakeStock(12000, 3, 12), MakeStock(13500, 3, 13)};
    const std::vector<Stock> one = {WithGrips(MakeStock(12000, 3), 50, 0)};
    const Row rows[] = {
        {30,   9, 100'000'000,    two, false},
        {90,   9, 100'000'000,    two, true },
        {1300, 1, 30'000'000'000, one, false},
        {5200, 1, 20'000'000,     one, false},
    };
    std::uint64_t digest = 14695981039346656037u;
    for (const Row& row : rows) {
        RandomLists dice(static_cast<std::uint64_t>(row.marks));
        Demand demand;
        for (int i = 0; i < row.marks; ++i)
            demand.push_back({dice.Between(2500 * kMm, 7500 * kMm), dice.Between(1, row.most)});
        const Plan plan = MakeLeastPlan(demand, row.stocks, row.steps);
        EXPECT_EQ(FindFaults(demand, row.stocks, plan), std::vector<std::string>());
        EXPECT_EQ(plan.IsProvedLeast(), row.isLeast) << row.marks;
        EXPECT_LT(plan.cost, MakeFirstFitPlan(demand, row.stocks).cost);
        digest = DigestOf(plan, digest);
    }
    EXPECT_EQ(digest, 10960783431736612027u);
}

}  // namespace
