#include "plugin/SamplePart.h"
#include "plugin/rules/HoleRuleMatcher.h"
#include "support/HoleBuilder.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace {

using job::HoleRule;
using plugin::HoleRuleMatcher;

HoleRule Rule(const wchar_t* id, eHoleShapeType shape = eHoleShapeRound) {
    HoleRule rule;
    rule.id = id;
    rule.shape = shape;
    return rule;
}

/// The id of the rule found; "none", "excluded".
std::string Found(const std::vector<HoleRule>& rules,
                  const CHoleAddlInfo& hole,
                  const wchar_t* profile = L"Z200x2.0") {
    const HoleRuleMatcher holeRules(rules);
    const HoleRuleMatcher::Match match = holeRules.Find(hole, profile);
    if (match.excluding != nullptr)
        return "excluded";
    return match.entry == nullptr ? "none" : match.entry->job->id.toUtf8();
}

/// A round hole of 18 on the web, 200 wide.
CHoleAddlInfo WebHole(double y, double size = 18.0) {
    CHoleAddlInfo hole = HoleAt(100, y).Round(size);
    CViewData web;
    web.SetHoleFace(eHoleFaceWeb);
    web.SetFaceWidth(200.0);
    hole.CorrectData(web);
    return hole;
}

struct FitCase {
    const char* name;
    std::vector<double> HoleRule::*list;
    std::vector<double> values;
    CHoleAddlInfo hole;
    bool fits;
};

class Fit : public ::testing::TestWithParam<FitCase> {};

TEST_P(Fit, ListsMatchWithinTheYTolerance) {
    const FitCase& c = GetParam();
    HoleRule rule = Rule(L"r", c.hole.GetHoleShapeType());
    rule.*c.list = c.values;
    EXPECT_EQ(Found({rule}, c.hole), c.fits ? "r" : "none");
}

// clang-format off
const FitCase kFitCases[] = {
    {"AnyDiameter",          &HoleRule::diameters,          {},        WebHole(50),           true},
    {"DiameterAtTheBorder",  &HoleRule::diameters,          {14, 18.5}, WebHole(50),          true},
    {"DiameterBeyond",       &HoleRule::diameters,          {14, 18.6}, WebHole(50),          false},
    {"BackMarkAtTheBorder",  &HoleRule::backMarks,          {50.5},    WebHole(50),           true},
    {"BackMarkBeyond",       &HoleRule::backMarks,          {50.6},    WebHole(50),           false},
    {"FromOtherFace",        &HoleRule::otherFaceDistances, {150},     WebHole(50),           true},
    {"FromOtherFaceBeyond",  &HoleRule::otherFaceDistances, {50},      WebHole(50),           false},
    // 40 between the centres and 18 across: 58 from end to end.
    {"OverallLengthOfSlot",  &HoleRule::lengths,            {58},      HoleAt(0, 0).Slot(18, 40), true},
    {"NotTheCentreDistance", &HoleRule::lengths,            {40},      HoleAt(0, 0).Slot(18, 40), false},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(HoleRuleMatcher, Fit, ::testing::ValuesIn(kFitCases), RowName());

TEST(HoleRuleMatcher, ShapeFaceAndEitherRow) {
    HoleRule rule = Rule(L"r");
    rule.faces = {eHoleFaceTopFlange, eHoleFaceBottomFlange};
    EXPECT_EQ(Found({rule}, HoleAt(100, 50).Round(18).On(eHoleFaceBottomFlange)), "r");
    EXPECT_EQ(Found({rule}, WebHole(50)), "none");
    EXPECT_EQ(Found({Rule(L"slot", eHoleShapeSlot)}, WebHole(50)), "none");
    EXPECT_EQ(Found({Rule(L"no number")}, WebHole(std::nan(""))), "none");
    HoleRule row = Rule(L"row");
    row.backMarks = {30};
    row.otherFaceDistances = {40};
    EXPECT_EQ(Found({row}, WebHole(30)), "row");
    EXPECT_EQ(Found({row}, WebHole(160)), "row");
    EXPECT_EQ(Found({row}, WebHole(40)), "none");
}

HoleRule Of14(HoleRule rule) {
    rule.diameters = {14};
    return rule;
}

TEST(HoleRuleMatcher, NearestHasTheSameDiameterOrAlmost) {
    HoleRule flange14 = Of14(Rule(L"14 on the flange"));
    flange14.faces = {eHoleFaceTopFlange};
    HoleRule web30 = Rule(L"30");
    web30.diameters = {30, 60};
    HoleRule web22 = Rule(L"22");
    web22.diameters = {22};
    HoleRule row40 = Rule(L"40 in a row");
    row40.diameters = {40};
    row40.backMarks = {20};
    row40.otherFaceDistances = {140};
    struct {
        double size;
        std::string rule;
        std::wstring what;
        std::optional<double> required;
    } const cases[] = {
        {14, "14 on the flange", L"face",     {}},
        {27, "30",               L"diameter", 30},
        {19, "22",               L"diameter", 22},
        {40, "40 in a row",      L"row",      60},
    };
    const std::vector<HoleRule> rules = {web30, web22, flange14, row40};
    for (const auto& row : cases) {
        const auto miss = HoleRuleMatcher(rules).FindNearest(WebHole(50, row.size));
        ASSERT_NE(miss.rule, nullptr);
        EXPECT_EQ(miss.rule->id.toUtf8(), row.rule);
        EXPECT_EQ(miss.what, row.what);
        EXPECT_EQ(miss.required, row.required);
    }
}

HoleRule Excluding(const wchar_t* id,
                   const wchar_t* member,
                   const wchar_t* suffix = L"",
                   long nameLength = 0) {
    HoleRule rule = Rule(id);
    rule.excludedMembers = {member};
    rule.otherwiseSuffix = suffix;
    rule.memberNameLength = nameLength;
    return rule;
}

struct ChainCase {
    const char* name;
    std::vector<HoleRule> rules;
    const char* found;
};

class Chain : public ::testing::TestWithParam<ChainCase> {};

TEST_P(Chain, LeadsToTheRuleOfAMember) {
    EXPECT_EQ(Found(GetParam().rules, WebHole(50)), GetParam().found);
}

// The member is Z200x2.0.
// clang-format off
const ChainCase kChainCases[] = {
    {"FirstThatFits",       {Of14(Rule(L"a")), Rule(L"b"), Rule(L"c")},             "b"},
    {"OtherMember",         {Excluding(L"a", L"Z200")},                             "a"},
    {"WholeName",           {Excluding(L"a", L"Z200x2.0"), Rule(L"b")},             "excluded"},
    {"FirstCharacters",     {Excluding(L"a", L"Z2", L"", 2)},                       "excluded"},
    {"LastDropped",         {Excluding(L"a", L"Z200", L"", -4)},                    "excluded"},
    {"NamedRule",           {Excluding(L"a", L"Z200x2.0", L"-z"), Rule(L"a-z")},    "a-z"},
    {"NamedRuleBefore",     {Of14(Rule(L"x")), Excluding(L"x-y", L"Z200x2.0", L"1"), Rule(L"x-y1")}, "x-y1"},
    {"Chain",               {Excluding(L"a", L"Z2", L"b", 2), Excluding(L"ab", L"Z200x2.0", L"c"), Rule(L"abc")}, "abc"},
    {"ChainThatExcludes",   {Excluding(L"a", L"Z2", L"b", 2), Excluding(L"ab", L"Z200x2.0")}, "excluded"},
    {"NamedRuleMustFitToo", {Excluding(L"a", L"Z200x2.0", L"-z"), Of14(Rule(L"a-z")), Rule(L"b")}, "none"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(HoleRuleMatcher, Chain, ::testing::ValuesIn(kChainCases), RowName());

}  // namespace
