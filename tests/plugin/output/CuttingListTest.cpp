#include "plugin/SamplePart.h"
#include "plugin/output/CuttingList.h"
#include "plugin/output/FirstFit.h"
#include "support/Golden.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

/// First-fit-decreasing, piece by piece and bar by bar.
long PlainFirstFit(const std::vector<plugin::StockPieces>& pieces, double stock, double tolerance) {
    std::vector<double> lengths;
    for (const plugin::StockPieces& piece : pieces)
        lengths.insert(lengths.end(), static_cast<std::size_t>(piece.count), piece.length);
    std::sort(lengths.rbegin(), lengths.rend());
    std::vector<double> offCuts;
    for (const double length : lengths) {
        const auto bar = std::find_if(offCuts.begin(), offCuts.end(), [&](double offCut) {
            return offCut - (length + tolerance) > 0.0;
        });
        if (bar == offCuts.end())
            offCuts.push_back(stock - length);
        else
            *bar -= length;
    }
    return static_cast<long>(offCuts.size());
}

TEST(FirstFit, UsesTheBarsOfThePlainPlan) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        std::vector<plugin::StockPieces> pieces;
        for (auto kinds = random() % 30; kinds > 0; --kinds) {
            const auto step = static_cast<double>(1 + random() % 45);
            pieces.push_back({step * 100.0, static_cast<long>(random() % 20)});
        }
        EXPECT_EQ(plugin::CountFirstFitBars(pieces, 4000.0, 0.1),
                  PlainFirstFit(pieces, 4000.0, 0.1));
    }
}

/// Open to the tests: the library's nests of some parts.
class Holder : public plugin::JobMember {
  public:
    using JobMember::JobMember;
    using JobMember::m_partsToNest;
};

/// The cutting list of these parts, without a reserve.
plugin::CuttingList ListOf(const std::vector<plugin::StockPieces>& pieces) {
    static const job::Job job = SampleJob();
    const plugin::JudgingRules rules(job);
    Part part(L"Z1");
    ZetNCCreator creator;
    creator.setNCEntity(&part);
    creator.create();
    Holder holder(rules, job.memberTypes.front(), creator);
    wchar_t mark[] = L"A";
    for (const plugin::StockPieces& piece : pieces) {
        holder.AppendNestQtyLen(piece.count, piece.length, mark);
        ++mark[0];
    }
    const ZetArray<CMxParts> parts = holder.GetPartsToNest();
    return plugin::CuttingList(parts, holder.MakeNests());
}

// 1000 fits three times: a fourth would leave nothing. 20000 pieces: 6666 bars of three, two left.
TEST(CuttingList, EqualBarsAreOneEntry) {
    std::string text;
    for (const ZetString& line : ListOf({
                                            plugin::StockPieces{1000.0, 20000}
    })
                                     .MakeLines(L"Sleeves"))
        text += line.toUtf8() + "\n";
    EXPECT_TRUE(MatchesGolden(PLUGIN_GOLDEN_FOLDER, "cutting-list", text));
}

// The shortest first: 900 + 1100 + 1100, then 2900: three on one bar, one on the other. Longest
// first: 2900 + 900 leaves 200, and 1100 + 1100 the second bar.
TEST(CuttingList, FiguresOfAMixedBar) {
    // clang-format off
    const plugin::NestFigures figures = ListOf({{2900.0, 1}, {1100.0, 2}, {900.0, 1}}).GetFigures();
    // clang-format on
    EXPECT_EQ(figures.bars, 2);
    EXPECT_EQ(figures.pieceLength, 6000.0);
    EXPECT_EQ(figures.utilisation, 0.75);
    EXPECT_EQ(figures.lowerBound, 2);
    EXPECT_EQ(figures.firstFit, 2);
}

// A piece of 9000 cannot come from a bar of 4000, but the library plans a bar for it.
TEST(CuttingList, APieceLongerThanABarFillsIt) {
    const plugin::NestFigures figures = ListOf({
                                                   {9000.0, 2},
                                                   {1000.0, 1}
    })
                                            .GetFigures();
    EXPECT_EQ(figures.bars, 3);
    EXPECT_EQ(figures.pieceLength, 19000.0);
    EXPECT_EQ(figures.utilisation, 0.75);
    EXPECT_EQ(figures.lowerBound, 3);
}

// 0.1 is no binary fraction: ten of a tenth of the bar each must not ask for a second one.
TEST(CuttingList, LowerBoundOfAFullBar) {
    EXPECT_EQ(ListOf({
                         plugin::StockPieces{1333.4, 30}
    })
                  .GetFigures()
                  .lowerBound,
              11);
    EXPECT_EQ(ListOf({
                         plugin::StockPieces{0.1, 40000}
    })
                  .GetFigures()
                  .lowerBound,
              1);
}

}  // namespace
