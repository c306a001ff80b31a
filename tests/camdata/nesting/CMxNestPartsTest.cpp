#include "support/NestReport.h"

#include "camdata/nesting/CMxNestParts.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

/// A nest of which each part brings its first piece with AppendNestPart, the main part first.
CMxNestParts NestOf(std::vector<PlainPart> parts) {
    CMxNestParts nest;
    CMxParts mainPart = PartOf(parts.front());
    nest.SetNestMainPart(mainPart);
    for (std::size_t i = 1; i < parts.size(); ++i) {
        CMxParts part = PartOf(parts[i]);
        nest.AppendNestPart(part);
    }
    return nest;
}

std::string WastageOf(const CMxNestParts& nest) {
    ZetString text = L"before";
    const bool isThere = nest.GenerateOffCutWastage(text);
    EXPECT_EQ(isThere, !text.isEmpty());
    return text.toUtf8();
}

TEST(CMxNestPartsTest, TellsTheOffCutWhenItIsLongerThanTheTolerance) {
    const PlainPart third = {L"M1", 1, 1333.3};
    const std::pair<std::vector<PlainPart>, std::string> cases[] = {
        {{{L"M1", 1, 3800.0}},                     "1 No @   200 long   Cut from Mark M1"},
        {{{L"M1", 1, 1500.4}, {L"M2", 1, 2000.0}}, "1 No @   500 long   Cut from Mark M1"},
        {{third, third, third},                    "1 No @     0 long   Cut from Mark M1"},
        {{{L"M1", 1, 3999.9}},                     ""                                    },
        {{{L"M1", 1, 5000.0}},                     ""                                    },
    };
    for (const auto& [pieces, text] : cases)
        EXPECT_EQ(WastageOf(NestOf(pieces)), text) << pieces.front().length;
}

TEST(CMxNestPartsTest, ListsTheMarksOfABar) {
    CMxParts first = PartOf({L"M1", 2, 1200.5});
    CMxParts second = PartOf({L"M2", 1, 800.0});
    CMxNestParts nest;
    ASSERT_TRUE(nest.SetNestMainPart(first));
    ASSERT_TRUE(nest.InsertNest(first));
    ASSERT_TRUE(nest.InsertNest(second));
    EXPECT_EQ(nest.GenerateCombinations().toUtf8(),
              "Part mark (M1) combinations are as below\n"
              "\tMark:M1, Qty:2, Length: 1200\n"
              "\tMark:M2, Qty:1, Length:  800");
    EXPECT_EQ(nest.GetOutputPartNo(), L"M1");
    EXPECT_DOUBLE_EQ(nest.GenerateOffCutLength(), 799.0);
}

TEST(CMxNestPartsTest, AnEmptyNestIsAWholeBar) {
    const CMxNestParts nest;
    EXPECT_EQ(nest.GetQty(), 0);
    EXPECT_EQ(nest.GenerateOffCutLength(), 4000.0);
    EXPECT_EQ(WastageOf(nest), "0 No @  4000 long   Cut from Mark ");
    EXPECT_TRUE(nest.GenerateCombinations().isEmpty());
    EXPECT_TRUE(nest.GetOutputPartNo().isEmpty());
}

TEST(CMxNestPartsTest, AMainPartBeginsTheNestAnew) {
    const std::vector<PlainPart> pieces = {
        {L"M1", 1, 1000.0},
        {L"M2", 1, 500.0 }
    };
    CMxNestParts nest = NestOf(pieces);
    ZetArray<CMxParts> parts = {PartOf(pieces[0]), PartOf(pieces[1])};
    nest.CheckCombinationsAndAdd(parts);
    ASSERT_EQ(nest.GetQty(), 2);
    CMxParts none = PartOf({L"M3", 0, 700.0});
    EXPECT_FALSE(nest.SetNestMainPart(none));
    EXPECT_FALSE(nest.AppendNestPart(none));
    EXPECT_EQ(nest.GenerateOffCutLength(), 2500.0);
    none.SetQty(2);
    EXPECT_TRUE(nest.SetNestMainPart(none));
    EXPECT_EQ(none.GetQty(), 1);
    EXPECT_EQ(nest.GetQty(), 1);
    EXPECT_EQ(nest.GetOutputPartNo(), L"M3");
    EXPECT_EQ(nest.GenerateOffCutLength(), 3300.0);
}

TEST(CMxNestPartsTest, InsertsThePiecesThatFit) {
    struct Case {
        const char* name;
        PlainPart part;
        bool result;
        long left;
        double offCut;
    };
    constexpr long kFarBelow0 = std::numeric_limits<long>::min() + 5;
    const std::vector<Case> cases = {
        {"no pieces",                       {L"M2", 0, 100.0},          false, 0,          3000.0},
        {"below 0 and too long",            {L"M2", -1, 3000.0},        false, -1,         3000.0},
        {"below 0 and short",               {L"M2", -1, 100.0},         true,  -1,         3000.0},
        {"below 0, the mark is there",      {L"M1", -1, 100.0},         true,  -1,         3000.0},
        {"far below 0, the mark is there",  {L"M1", kFarBelow0, 100.0}, true,  kFarBelow0, 3000.0},
        {"an exact fill does not fit",      {L"M2", 5, 3000.0},         false, 5,          3000.0},
        {"fits by more than the tolerance", {L"M2", 5, 2999.8},         true,  4,          0.2   },
        {"as many as fit",                  {L"M2", 5, 1000.0},         true,  3,          1000.0},
        {"as many as there are",            {L"M2", 2, 500.0},          true,  0,          2000.0},
        {"a mark keeps its length",         {L"M1", 9, 1500.0},         true,  7,          1000.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CMxNestParts nest = NestOf({
            {L"M1", 1, 1000.0}
        });
        CMxParts part = PartOf(c.part);
        EXPECT_EQ(nest.InsertNest(part), c.result);
        EXPECT_EQ(part.GetQty(), c.left);
        EXPECT_NEAR(nest.GenerateOffCutLength(), c.offCut, 1e-9);
    }
}

TEST(CMxNestPartsTest, AnotherBarNeedsEnoughOfTheFirstPartOfEachMark) {
    struct Case {
        const char* name;
        std::vector<long> quantities;
        long bars;
        std::vector<long> left;
    };
    // Parts M1, M2, M2; the bar holds two pieces of M1 and one of M2.
    const std::vector<Case> cases = {
        {"enough",             {2, 1, 0}, 2, {0, 0, 0}},
        {"once only",          {9, 9, 9}, 2, {7, 8, 9}},
        {"one short",          {1, 5, 5}, 1, {1, 5, 5}},
        {"the first has none", {5, 0, 5}, 1, {5, 0, 5}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CMxNestParts nest = NestOf({
            {L"M1", 1, 500.0}
        });
        for (const wchar_t* mark : {L"M1", L"M2"}) {
            CMxParts more = PartOf({mark, 1, 500.0});
            nest.InsertNest(more);
        }
        ZetArray<CMxParts> parts;
        for (const long qty : c.quantities)
            parts.append(PartOf({parts.isEmpty() ? L"M1" : L"M2", qty, 500.0}));
        EXPECT_FALSE(nest.CheckCombinationsAndAdd(parts));
        EXPECT_EQ(nest.GetQty(), c.bars);
        for (long i = 0; i < parts.length(); ++i)
            EXPECT_EQ(parts[i].GetQty(), c.left[static_cast<std::size_t>(i)]) << i;
    }
}

TEST(CMxNestPartsTest, AMarkThatIsTwiceOnTheBarTakesFromItsPartWhileThereIsEnough) {
    const PlainPart piece = {L"M1", 1, 500.0};
    CMxNestParts nest = NestOf({piece, piece});
    ZetArray<CMxParts> parts = {PartOf(piece)};
    EXPECT_FALSE(nest.CheckCombinationsAndAdd(parts));
    EXPECT_EQ(nest.GetQty(), 2);
    EXPECT_EQ(parts[0].GetQty(), 0);
}

}  // namespace
