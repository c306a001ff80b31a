#include "camdata/holes/CHoleRule.h"

#include <gtest/gtest.h>

namespace {

using Numbers = ZetArray<double>;
using Texts = ZetArray<ZetString>;

CHoleCode Code(const wchar_t* text) {
    CHoleCode code;
    code.SetValues(text, 1);
    return code;
}

/// `flag`: the only one of the four that is set, in the order of the arguments.
CHoleRule RuleFor(long nameLength, const Texts& excluded, int flag) {
    CHoleRule rule;
    // clang-format off
    rule.SetValues(eHoleShapeSlot, {Code(L"A"), Code(L"B")}, {{Code(L"C")}, {}}, nameLength,
                   excluded, {1.0}, {2.0}, {3.0}, {4.0}, flag == 0, flag == 1, Code(L"G"),
                   flag == 2, L"_B", flag == 3);
    // clang-format on
    return rule;
}

TEST(CHoleRuleTest, SetsEachFieldFromItsArgument) {
    const CHoleRule rule = RuleFor(3, {L"Z20"}, -1);
    // clang-format off
    const Texts codes = {rule.GetHoleCodes().last().GetPairCode(),
                         rule.GetHoleCodeTable()[0][0].GetPairCode(),
                         rule.GetGroupCode().GetPairCode(), rule.GetLookInAnotherSuffix()};
    // clang-format on
    EXPECT_EQ(codes, (Texts{L"B", L"C", L"G", L"_B"}));
    EXPECT_EQ(rule.GetHoleShapeType(), eHoleShapeSlot);
    EXPECT_EQ(rule.GetBackMarkArr(), Numbers{1.0});
    EXPECT_EQ(rule.GetOtherFaceArr(), Numbers{2.0});
    EXPECT_EQ(rule.GetDiameters(), Numbers{3.0});
    EXPECT_EQ(rule.GetSecondSizes(), Numbers{4.0});
    EXPECT_TRUE(RuleFor(3, {}, 0).GetFirstOption() && RuleFor(3, {}, 1).GetSecondOption());
    EXPECT_TRUE(RuleFor(3, {}, 2).GetLookInAnotherRule() && RuleFor(3, {}, 3).GetThirdOption());
}

TEST(CHoleRuleTest, AppliesUnlessTheMemberIsExcluded) {
    constexpr int kLook = 2;
    // clang-format off
    struct Case { const char* name; long nameLength; const wchar_t* member; Texts excluded;
                  int flag; bool applies; const wchar_t* suffix; };
    const Case cases[] = {
        {"first characters",        3,  L"Z20025", {L"C20", L"Z20"}, kLook, false, L"_B"},
        {"without last characters", -2, L"Z20025", {L"Z200"},        kLook, false, L"_B"},
        {"whole name",              0,  L"Z20025", {L"Z20025"},      kLook, false, L"_B"},
        {"part is not whole",       0,  L"Z20025", {L"Z20"},         kLook, true,  L""  },
        {"case counts",             3,  L"z20025", {L"Z20"},         kLook, true,  L""  },
        {"without the flag",        3,  L"Z20025", {L"Z20"},         0,     false, L""  },
        {"longer than the name",    9,  L"Z20",    {L"Z20"},         kLook, false, L"_B"},
        {"all characters dropped",  -9, L"Z20",    {L""},            kLook, false, L"_B"},
        {"none excluded",           0,  L"Z20",    {},               kLook, true,  L""  },
    };
    // clang-format on
    for (const Case& each : cases) {
        const CHoleRule rule = RuleFor(each.nameLength, each.excluded, each.flag);
        ZetString suffix = L"left over";
        EXPECT_EQ(rule.LookInAnotherRule(each.member, suffix), each.applies) << each.name;
        EXPECT_EQ(suffix, each.suffix) << each.name;
    }
}

}  // namespace
