#include "camdata/holes/CHoleRule.h"

#include <gtest/gtest.h>

namespace {

CHoleCode Code(const wchar_t* text) {
    CHoleCode code;
    code.SetValues(text, 1);
    return code;
}

CHoleRule RuleFor(long nameLength, const ZetArray<ZetString>& excluded, bool lookInAnother) {
    CHoleRule rule;
    rule.SetValues(eHoleShapeSlot,
                   {Code(L"A"), Code(L"B")},
                   {{Code(L"C")}, {}},
                   nameLength,
                   excluded,
                   {1.0},
                   {2.0},
                   {3.0},
                   {4.0},
                   true,
                   false,
                   Code(L"G"),
                   lookInAnother,
                   L"_B",
                   true);
    return rule;
}

TEST(CHoleRuleTest, SetsEachFieldFromItsArgument) {
    const CHoleRule rule = RuleFor(3, {L"Z20"}, true);
    EXPECT_EQ(rule.GetHoleShapeType(), eHoleShapeSlot);
    ASSERT_EQ(rule.GetHoleCodes().length(), 2);
    EXPECT_EQ(rule.GetHoleCodes()[1].GetPairCode(), L"B");
    ASSERT_EQ(rule.GetHoleCodeTable().length(), 2);
    EXPECT_EQ(rule.GetHoleCodeTable()[0][0].GetPairCode(), L"C");
    EXPECT_EQ(rule.GetMemNameLength(), 3);
    EXPECT_EQ(rule.GetNotAppMem(), ZetArray<ZetString>{L"Z20"});
    EXPECT_EQ(rule.GetBackMarkArr(), ZetArray<double>{1.0});
    EXPECT_EQ(rule.GetOtherFaceArr(), ZetArray<double>{2.0});
    EXPECT_EQ(rule.GetDiameters(), ZetArray<double>{3.0});
    EXPECT_EQ(rule.GetSecondSizes(), ZetArray<double>{4.0});
    EXPECT_EQ(rule.GetGroupCode().GetPairCode(), L"G");
    EXPECT_EQ(rule.GetLookInAnotherSuffix(), L"_B");
}

TEST(CHoleRuleTest, KeepsItsFlagsApart) {
    for (int set = 0; set < 4; ++set) {
        SCOPED_TRACE(set);
        CHoleRule rule;
        rule.SetValues(eHoleShapeRound,
                       {},
                       {},
                       0,
                       {},
                       {},
                       {},
                       {},
                       {},
                       set == 0,
                       set == 1,
                       Code(L"G"),
                       set == 2,
                       L"",
                       set == 3);
        EXPECT_EQ(rule.GetFirstOption(), set == 0);
        EXPECT_EQ(rule.GetSecondOption(), set == 1);
        EXPECT_EQ(rule.GetLookInAnotherRule(), set == 2);
        EXPECT_EQ(rule.GetThirdOption(), set == 3);
    }
}

TEST(CHoleRuleTest, AppliesUnlessTheMemberIsExcluded) {
    struct Case {
        const char* name;
        long nameLength;
        const wchar_t* member;
        const wchar_t* excluded;
        bool lookInAnother;
        bool applies;
        const wchar_t* suffix;
    };
    constexpr Case kCases[] = {
        {"first characters",        3,  L"Z20025", L"Z20",    true,  false, L"_B"},
        {"without last characters", -2, L"Z20025", L"Z200",   true,  false, L"_B"},
        {"whole name",              0,  L"Z20025", L"Z20025", true,  false, L"_B"},
        {"part is not whole",       0,  L"Z20025", L"Z20",    true,  true,  L""  },
        {"case counts",             3,  L"z20025", L"Z20",    true,  true,  L""  },
        {"without the flag",        3,  L"Z20025", L"Z20",    false, false, L""  },
        {"longer than the name",    9,  L"Z20",    L"Z20",    true,  false, L"_B"},
        {"all characters dropped",  -9, L"Z20",    L"",       true,  false, L"_B"},
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        const CHoleRule rule =
            RuleFor(each.nameLength, {L"C20", each.excluded}, each.lookInAnother);
        ZetString suffix = L"left over";
        EXPECT_EQ(rule.LookInAnotherRule(each.member, suffix), each.applies);
        EXPECT_EQ(suffix, each.suffix);
    }
    ZetString suffix = L"left over";
    EXPECT_TRUE(RuleFor(0, {}, true).LookInAnotherRule(L"Z20", suffix));
    EXPECT_EQ(suffix, L"");
}

}  // namespace
