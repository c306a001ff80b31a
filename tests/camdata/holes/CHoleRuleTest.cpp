#include "support/CaseName.h"

#include "camdata/holes/CHoleRule.h"

#include <gtest/gtest.h>

namespace {

CHoleCode Code(const wchar_t* text) {
    CHoleCode code;
    code.SetValues(text, 1);
    return code;
}

TEST(CHoleRuleTest, SetsEachFieldFromItsArgument) {
    CHoleRule rule;
    rule.SetValues(eHoleShapeSlot,
                   {Code(L"A"), Code(L"B")},
                   {{Code(L"C")}, {}},
                   3,
                   {L"Z20"},
                   {1.0},
                   {2.0},
                   {3.0},
                   {4.0},
                   true,
                   false,
                   Code(L"G"),
                   true,
                   L"X",
                   true);
    const CHoleRule copy = rule;
    EXPECT_EQ(copy.GetHoleShapeType(), eHoleShapeSlot);
    ASSERT_EQ(copy.GetHoleCodes().length(), 2);
    EXPECT_EQ(copy.GetHoleCodes()[1].GetPairCode(), L"B");
    ASSERT_EQ(copy.GetHoleCodeTable().length(), 2);
    EXPECT_EQ(copy.GetHoleCodeTable()[0][0].GetPairCode(), L"C");
    EXPECT_EQ(copy.GetMemNameLength(), 3);
    EXPECT_EQ(copy.GetNotAppMem(), ZetArray<ZetString>{L"Z20"});
    EXPECT_EQ(copy.GetBackMarkArr(), ZetArray<double>{1.0});
    EXPECT_EQ(copy.GetOtherFaceArr(), ZetArray<double>{2.0});
    EXPECT_EQ(copy.GetDiameters(), ZetArray<double>{3.0});
    EXPECT_EQ(copy.GetSecondSizes(), ZetArray<double>{4.0});
    EXPECT_TRUE(copy.GetFirstOption());
    EXPECT_FALSE(copy.GetSecondOption());
    EXPECT_EQ(copy.GetGroupCode().GetPairCode(), L"G");
    EXPECT_TRUE(copy.GetLookInAnotherRule());
    EXPECT_EQ(copy.GetLookInAnotherSuffix(), L"X");
    EXPECT_TRUE(copy.GetThirdOption());
}

struct LookCase {
    const char* name;
    long nameLength;
    const wchar_t* member;
    ZetArray<ZetString> excluded;
    bool lookInAnother;
    bool applies;
    const wchar_t* suffix;
};

class LookInAnotherRuleTest : public ::testing::TestWithParam<LookCase> {};

TEST_P(LookInAnotherRuleTest, AppliesUnlessTheMemberIsExcluded) {
    const LookCase& each = GetParam();
    CHoleRule rule;
    rule.SetValues(eHoleShapeRound,
                   {},
                   {},
                   each.nameLength,
                   each.excluded,
                   {},
                   {},
                   {},
                   {},
                   false,
                   false,
                   {},
                   each.lookInAnother,
                   L"_B",
                   false);
    ZetString suffix = L"left over";
    EXPECT_EQ(rule.LookInAnotherRule(each.member, suffix), each.applies);
    EXPECT_EQ(suffix, each.suffix);
}

INSTANTIATE_TEST_SUITE_P(
    Members,
    LookInAnotherRuleTest,
    ::testing::Values(
        LookCase{
            "NoneExcluded", 3, L"Z20025", {},
               true, true, L""
},
        LookCase{"FirstCharacters", 3, L"Z20025", {L"C20", L"Z20"}, true, false, L"_B"},
        LookCase{"WithoutLastCharacters", -2, L"Z20025", {L"Z200"}, true, false, L"_B"},
        LookCase{"WholeName", 0, L"Z20025", {L"Z20025"}, true, false, L"_B"},
        LookCase{"PartIsNotWhole", 0, L"Z20025", {L"Z20"}, true, true, L""},
        LookCase{"CaseCounts", 3, L"z20025", {L"Z20"}, true, true, L""},
        LookCase{"WithoutTheFlag", 3, L"Z20025", {L"Z20"}, false, false, L""},
        LookCase{"LongerThanTheName", 9, L"Z20", {L"Z20"}, true, false, L"_B"},
        LookCase{"AllCharactersDropped", -9, L"Z20", {L""}, true, false, L"_B"}),
    kCaseName);

}  // namespace
