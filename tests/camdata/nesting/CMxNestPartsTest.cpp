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
        {{{L"M1", 1, 1500.4}, {L"M2", 1, 2000.0}}, "1 No @   500 long   Cut from Mark M1"},
        {{third, third, third},                    "1 No @     0 long   Cut from Mark M1"},
        {{{L"M1", 1, 3999.9}},                     ""                                    },
    };
    for (const auto& [pieces, text] : cases)
        EXPECT_EQ(WastageOf(NestOf(pieces)), text) << pieces.front().length;
}

TEST(CMxNestPartsTest, ListsTheMarksOfABar) {
    CMxParts first = PartOf({L"M1", 2, 1200.5});
    CMxParts second = PartOf({L"M2", 1, 800.0});
    CMxNestParts nest;
    ASSERT_TRUE(nest.SetNestMainPart(first) && nest.InsertNest(first) && nest.InsertNest(second));
    EXPECT_EQ(nest.GenerateCombinations().toUtf8(),
              "Part mark (M1) combinations are as below\n"
              "\tMark:M1, Qty:2, Length: 1200\n"
              "\tMark:M2, Qty:1, Length:  800");
    EXPECT_EQ(nest.GetOutputPartNo(), L"M1");
    EXPECT_DOUBLE_EQ(nest.GenerateOffCutLength(), 799.0);
    CMxParts other = PartOf({L"M3", 1, 500.0});
    ASSERT_TRUE(nest.SetNestMainPart(other));
    EXPECT_EQ(nest.GenerateCombinations().toUtf8(),
              "Part mark (M3) combinations are as below\n\tMark:M3, Qty:1, Length:  500");
}

TEST(CMxNestPartsTest, AnEmptyNestIsAWholeBar) {
    CMxNestParts nest;
    CMxParts none = PartOf({L"M1", 0, 100.0});
    EXPECT_FALSE(nest.SetNestMainPart(none) || nest.AppendNestPart(none) || nest.InsertNest(none));
    EXPECT_EQ(nest.GetQty(), 0);
    EXPECT_EQ(nest.GenerateOffCutLength(), 4000.0);
    EXPECT_EQ(WastageOf(nest), "0 No @  4000 long   Cut from Mark ");
    EXPECT_TRUE(nest.GenerateCombinations().isEmpty());
    EXPECT_TRUE(nest.GetOutputPartNo().isEmpty());
}

/// No piece is taken, and the mark that is there is found.
TEST(CMxNestPartsTest, AQuantityFarBelow0IsLeftAsItIs) {
    constexpr long kFarBelow0 = std::numeric_limits<long>::min() + 5;
    CMxNestParts nest = NestOf({
        PlainPart{L"M1", 1, 1000.0}
    });
    CMxParts part = PartOf({L"M1", kFarBelow0, 100.0});
    EXPECT_TRUE(nest.InsertNest(part));
    EXPECT_EQ(part.GetQty(), kFarBelow0);
    EXPECT_EQ(nest.GenerateOffCutLength(), 3000.0);
}

}  // namespace
