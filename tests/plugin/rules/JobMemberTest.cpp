#include "plugin/SamplePart.h"
#include "plugin/rules/JobMember.h"
#include "support/FindingText.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>

namespace {

using job::Job;
using job::NotchCorner;
using job::Uncovered;

/// A rule for round holes of 18 with code "18".
job::HoleRule Rule18() {
    job::HoleRule rule;
    rule.id = L"r18";
    rule.diameters = {18};
    rule.code = L"18";
    return rule;
}

Job JobWithRule(const std::function<void(job::HoleRule&)>& change = [](auto&) {}) {
    Job job = SampleJob();
    job.holeRules = {Rule18()};
    change(job.holeRules.front());
    return job;
}

// ---- pairs and groups ---------------------------------------------------------------------------

struct TogetherCase {
    const char* name;
    std::vector<ZetGeomPoint2d> places;
    void (*change)(job::HoleRule&);
    const char* holes;
    long count;
};

class Together : public ::testing::TestWithParam<TogetherCase> {};

TEST_P(Together, HolesAreCodedAndCounted) {
    const TogetherCase& c = GetParam();
    Part part(L"Z1");
    for (const ZetGeomPoint2d& place : c.places)
        part.Hole(kWebView, place.x, place.y, 18.0);
    Judged judged(JobWithRule(c.change), part);
    EXPECT_EQ(judged.Holes(), c.holes);
    EXPECT_EQ(judged->GetNoOfHoles(), c.count);
}

// clang-format off
void PairAt40(job::HoleRule& rule) { rule.pairs = {{L"18", 40.0, L"y "}}; }
void PairMust(job::HoleRule& rule) { PairAt40(rule); rule.isPairMust = true; }
void PairOr(job::HoleRule& rule) { rule.pairs = {{L"X", 60.0, L"z "}, {L"18", 60.0, L"z "}}; }
void GroupOf2(job::HoleRule& rule) { rule.group = {L"G", 2, false}; }
void GroupMust(job::HoleRule& rule) { rule.group = {L"G", 2, true}; }
void PairThenGroup(job::HoleRule& rule) { PairAt40(rule); GroupOf2(rule); }

const TogetherCase kTogetherCases[] = {
    {"Alone",            {{100, 50}, {140, 50}},             [](auto&) {},  "[100 50 18][140 50 18]", 2},
    {"Pair",             {{100, 50}, {140, 50}, {300, 50}},  PairAt40,      "[100 50 18][140 50 y 18][300 50 18]", 2},
    {"PairAtTheBorder",  {{100, 50}, {140.5, 90}},           PairAt40,      "[100 50 18][140.5 90 y 18]", 1},
    {"PairBeyond",       {{100, 50}, {140.6, 50}},           PairAt40,      "[100 50 18][140.6 50 18]", 2},
    {"ThreeInARow",      {{100, 50}, {140, 50}, {180, 50}},  PairAt40,      "[100 50 18][140 50 y 18][180 50 18]", 2},
    {"SecondPairOfRule", {{100, 50}, {160, 50}},             PairOr,        "[100 50 18][160 50 z 18]", 1},
    {"MissingPair",      {{100, 50}, {140, 50}, {300, 50}},  PairMust,      "[100 50 18][140 50 y 18](300 50 18)", 1},
    {"Group",            {{100, 60}, {100.5, 140}, {300, 60}}, GroupOf2,    "[100 60 G 18][100.5 140 G 18][300 60 18]", 3},
    {"ColumnBeyond",     {{100, 60}, {100.6, 140}},          GroupOf2,      "[100 60 18][100.6 140 18]", 2},
    {"TooManyForAGroup", {{100, 60}, {100, 100}, {100, 140}}, GroupOf2,     "[100 60 18][100 100 18][100 140 18]", 3},
    {"MissingGroup",     {{100, 60}, {100, 140}, {300, 60}}, GroupMust,     "[100 60 G 18][100 140 G 18](300 60 18)", 2},
    {"PairsGoFirst",     {{100, 60}, {100, 140}, {140, 60}}, PairThenGroup, "[100 60 18][100 140 18][140 60 y 18]", 2},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(JobMember, Together, ::testing::ValuesIn(kTogetherCases), RowName());

TEST(JobMember, GroupsAreOfOneRuleAndOneFace) {
    Job job = JobWithRule(GroupOf2);
    job.holeRules.push_back(Rule18());
    job.holeRules[1].diameters = {14};
    job.holeRules[1].code = L"14";
    job.holeRules[1].group = {L"H", 2, false};
    Part part(L"Z1");
    part.Hole(kTopView, 100, 30, 18).Hole(kWebView, 100, 60, 18).Hole(kWebView, 100, 100, 14);
    part.Hole(kWebView, 100, 150, 14).Hole(kBottomView, 100, 30, 18);
    EXPECT_EQ(Judged(job, part).Holes(),
              "[100 30 18][100 60 18][100 100 H 14][100 150 H 14][100 30 18]");
}

// ---- findings -----------------------------------------------------------------------------------

struct FindingCase {
    const char* name;
    int type;  ///< eValidationTypes or job::ValidationType
    void (*setUp)(Job&, Part&);
    const char* lines;
};

class Finding : public ::testing::TestWithParam<FindingCase> {};

TEST_P(Finding, GoesWhereItsReportTypeSays) {
    const FindingCase& c = GetParam();
    Job job = SampleJob();
    Part part(L"Z1");
    c.setUp(job, part);
    eReportingTypes& report = job.memberTypes.front().reports[static_cast<std::size_t>(c.type)];
    report = eReportingError;
    EXPECT_EQ(Judged(job, part).Errors(), c.lines);
    report = eReportingWarning;
    const Judged warned(job, part);
    EXPECT_EQ(warned.Warnings(), c.lines);
    EXPECT_EQ(warned.Errors(), "");
    report = job::kReportingOff;
    const Judged silent(job, part);
    EXPECT_EQ(silent.Errors() + silent.Warnings(), "");
    ASSERT_EQ(silent.member->GetFindings().size(), 1u);
    const plugin::Finding& finding = silent.member->GetFindings().front();
    EXPECT_EQ(finding.type, c.type);
    const job::FindingType& type = job::kFindingTypes[c.type];
    EXPECT_TRUE(IsTextOf(type, finding.text.toUtf8())) << finding.text.toUtf8() << type.text;
}

void HoleAndRule(Job& job, Part& part) {
    job.holeRules = {Rule18()};
    part.Hole(kWebView, 300, 50, 18);
}

// clang-format off
const FindingCase kFindingCases[] = {
    {"Holes", eValidationNoOfHoles, [](Job& job, Part& part) {
         HoleAndRule(job, part);
         job.memberTypes[0].limits.SetNoOfHoles(0);
     },
     "1 No of holes exceeded the maximum limit of 0\n"},
    {"InternalContours", eValidationNoOfInternalContours, [](Job& job, Part& part) {
         job.uncoveredNotches.action = Uncovered::kAccept;
         job.memberTypes[0].limits.SetNoOfInternalContours(1);
         part.Opening(kWebView, 500, 100, 60, 40).Opening(kWebView, 700, 100, 60, 40);
     },
     "1 No of Internal contours exceeded the maximum limit of 1\n"},
    {"MinimumLength", eValidationMinimumLength, [](Job& job, Part&) { job.memberTypes[0].limits.SetMinimumLength(3001.0); },
     "Member length (3000.0) is less than 3001\n"},
    {"MaximumLength", eValidationMaximumLength, [](Job& job, Part&) { job.memberTypes[0].limits.SetMaximumLength(2999.0); },
     "Member length (3000.0) should not be greater than 2999\n"},
    {"FixedLength", eValidationFixedLength, [](Job& job, Part&) {
         job.patterns = {{L"p", 0, 2000.0, false, {}}};
         job.memberTypes[0].pattern = 0;
         job.memberTypes[0].limits.SetMaximumLength(2999.0);
     },
     "Member length (3000.0) should be 2000 \n"},
    {"UncoveredHole", job::kUncoveredHole, [](Job&, Part& part) { part.Hole(kWebView, 300, 50, 18); },
     "No hole rule is for its shape: 18.0 round holes on web at (X:300.0, Y:50.0)\n"},
    {"HoleDistance", job::kHoleDistance, [](Job& job, Part& part) {
         job.areDistancesChecked = true;
         job.holeRules = {Rule18()};
         part.Hole(kWebView, 300, 100, 18).Hole(kWebView, 300, 10, 18);
     },
     "*Warning in Hole* 18.0 round holes on web at (X:300.0, Y:10.0)\n"
     "Distance (10.0) from bottom flange is insufficient\n"},
    {"HoleInsideSlot", job::kHoleInsideSlot, [](Job& job, Part& part) {
         job.uncoveredHoles.action = Uncovered::kAccept;
         part.Slot(kWebView, 100, 50, 18, 40).Hole(kWebView, 139, 50, 10);
     },
     "Left out, it lies inside a slot: 10.0 round holes on web at (X:139.0, Y:50.0); the slot: 18.0x40.0 slot holes on web at (X:120.0, Y:50.0)\n"},
    {"ExcludedHole", job::kExcludedHole, [](Job& job, Part& part) {
         HoleAndRule(job, part);
         job.holeRules[0].excludedMembers = {L"Z200x2.0"};
     },
     "Its hole rule excludes this member: 18.0 round holes on web at (X:300.0, Y:50.0)\n"},
    {"MissingPair", job::kMissingPair, [](Job& job, Part& part) {
         HoleAndRule(job, part);
         PairMust(job.holeRules[0]);
     },
     "It has no second hole: 18.0 round holes on web at (X:300.0, Y:50.0)\n"},
    {"MissingGroup", job::kMissingGroup, [](Job& job, Part& part) {
         HoleAndRule(job, part);
         GroupMust(job.holeRules[0]);
     },
     "It belongs to no group of holes: 18.0 round holes on web at (X:300.0, Y:50.0)\n"},
    {"DuplicateHole", job::kDuplicateHole, [](Job& job, Part& part) {
         HoleAndRule(job, part);
         part.Hole(kWebView, 300, 50, 18);
     },
     "Left out, it repeats or touches another hole: 18.0 round holes on web at (X:300.0, Y:50.0); the other: 18.0 round holes on web at (X:300.0, Y:50.0)\n"},
    {"DuplicateNotch", job::kDuplicateNotch, [](Job& job, Part& part) {
         job.uncoveredNotches.action = Uncovered::kAccept;
         part.Opening(kWebView, 500, 100, 60, 40).Opening(kWebView, 500, 100, 60, 40);
     },
     "Position x     : 500.0\nPosition y     : 100.0\nFace           : web\n"
     "Left out, it repeats another notch on web at (X:500.0, Y:100.0)\n--------------------------------------------------\n"},
    {"UncoveredNotch", job::kUncoveredNotch, [](Job&, Part& part) { part.Opening(kWebView, 500, 100, 60, 40); },
     "Position x     : 500.0\nPosition y     : 100.0\nFace           : web\n"
     "No corner notch describes it\n--------------------------------------------------\n"},
    {"NotchNotAllowed", job::kUncoveredNotch, [](Job& job, Part& part) {
         job.memberTypes[0].limits.SetNoOfInternalContours(0);
         part.Opening(kWebView, 500, 100, 60, 40);
     },
     "Position x     : 500.0\nPosition y     : 100.0\nFace           : web\n"
     "Members of this type may have no such notch\n--------------------------------------------------\n"},
    {"FixedPattern", job::kFixedPattern, [](Job& job, Part&) {
         job.patterns = {{L"p", 0, 3000.0, false, {{18.0, L"18", {0.5, -100.0}, L"no %.0f hole at %.1f"}}}};
         job.memberTypes[0].pattern = 0;
     },
     "no 18 hole at 1500.0 or 2900.0\n"},
    {"Quantity", job::kQuantity, [](Job& job, Part& part) {
         job.maximumQuantity = 10;
         part.Qty(11);
     },
     "Quantity (11) is above 10\n"},
    {"LongerThanStock", job::kLongerThanStock, [](Job& job, Part& part) {
         job.groups[2].isNested = true;
         part.Length(4000.2);
     },
     "Member length (4000.2) is greater than the stock length 4000\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(JobMember, Finding, ::testing::ValuesIn(kFindingCases), RowName());

TEST(JobMember, NoFindingAtTheLimitsOfQuantityAndStock) {
    Job job = SampleJob();
    job.maximumQuantity = 10;
    job.groups[2].isNested = true;
    Part part(L"Z1");
    EXPECT_EQ(Judged(job, part.Qty(10).Length(4000.0)).Errors(), "");
}

struct UncoveredCase {
    Uncovered action;
    const char* hole;
    bool isTold;
    eNotchStatus notch;
    long contours;
};

TEST(JobMember, WhatNoRuleCovers) {
    // clang-format off
    const UncoveredCase cases[] = {
        {Uncovered::kReport, "(300 50 )",  true,  eNotchNotAllowed,    0},
        {Uncovered::kOutput, "[300 50 ?]", true,  eNotchCornerMatched, 1},
        {Uncovered::kAccept, "[300 50 ?]", false, eNotchValid,         1},
    };
    // clang-format on
    for (const UncoveredCase& c : cases) {
        Job job = SampleJob();
        job.uncoveredHoles.action = c.action;
        job.uncoveredNotches.action = c.action;
        Part part(L"Z1");
        part.Hole(kWebView, 300, 50, 18).Opening(kWebView, 500, 100, 60, 40);
        Judged judged(job, part);
        EXPECT_EQ(judged.Holes(), c.hole);
        EXPECT_EQ(judged.Errors().empty(), !c.isTold);
        EXPECT_EQ(judged->GetNotches()[0].GetNotchStatus(), c.notch);
        EXPECT_EQ(judged->GetNoOfInternalContours(), c.contours);
        EXPECT_EQ(judged->GetNoOfHoles(), c.contours);
    }
}

// ---- notches ------------------------------------------------------------------------------------

job::CornerNotch Corner(NotchCorner along, NotchCorner across, const wchar_t* format) {
    job::CornerNotch corner;
    corner.along = along;
    corner.across = across;
    corner.definition.face = eHoleFaceWeb;
    corner.definition.vertexCount = 4;
    corner.definition.mustBeRect = true;
    corner.definition.mustBeParallelToAxis = true;
    corner.definition.outPutFormat = format;
    corner.definition.valueSelectors = {4, 5};
    return corner;
}

/// An outline with 60 x 40 cut off at one corner.
ZetArray<ZetGeomPoint2d> CutAt(bool atEnd, bool atUpperEdge) {
    // clang-format off
    ZetArray<ZetGeomPoint2d> points = {{60, 0}, {3000, 0}, {3000, 200}, {0, 200}, {0, 40}, {60, 40}};
    // clang-format on
    for (ZetGeomPoint2d& point : points) {
        point.x = atEnd ? 3000.0 - point.x : point.x;
        point.y = atUpperEdge ? 200.0 - point.y : point.y;
    }
    return points;
}

TEST(JobMember, CornerNotchesAtEachCorner) {
    constexpr NotchCorner kStart = NotchCorner::kStart;
    constexpr NotchCorner kEnd = NotchCorner::kEnd;
    Job job = SampleJob();
    job.cornerNotches = {Corner(kStart, kStart, L"SL %.0f %.0f"),
                         Corner(kEnd, kStart, L"EL %.0f %.0f"),
                         Corner(kStart, kEnd, L"SU %.0f %.0f"),
                         Corner(kEnd, kEnd, L"EU %.0f %.0f"),
                         Corner(NotchCorner::kAny, NotchCorner::kAny, L"ANY %.0f %.0f")};
    const auto outMsg = [&job](bool atEnd, bool atUpperEdge) {
        Part part(L"Z1");
        part.Contour(kWebView, ZetNCContour::eTypeExternal, CutAt(atEnd, atUpperEdge));
        return Judged(job, part)->GetNotches()[0].GetOutMsg().toUtf8();
    };
    EXPECT_EQ(outMsg(false, false), "SL 60 40");
    EXPECT_EQ(outMsg(true, false), "EL 60 40");
    EXPECT_EQ(outMsg(false, true), "SU 60 40");
    EXPECT_EQ(outMsg(true, true), "EU 60 40");
    job.cornerNotches.erase(job.cornerNotches.begin() + 1);
    EXPECT_EQ(outMsg(true, false), "ANY 60 40");
}

// ---- steps before the rules ---------------------------------------------------------------------

TEST(JobMember, FlangesBeginAtTheirZeroLines) {
    Job job = SampleJob();
    job.memberTypes[0].topFlange = {30.0, false};
    job.memberTypes[0].bottomFlange = {66.0, true};
    job.uncoveredHoles = {Uncovered::kAccept, L"?"};
    job.uncoveredNotches.action = Uncovered::kAccept;
    Part part(L"Z1");
    part.Hole(kTopView, 100, 50, 18).Hole(kWebView, 100, 100, 18);
    part.Slot(kBottomView, 300, 36, 18, 20, 90.0).Opening(kBottomView, 500, 46, 60, 20);
    Judged judged(job, part);
    // The slot runs from 36 to 56: centre 46, and turned over.
    EXPECT_EQ(judged.Holes(), "[100 20 ?][100 100 ?][300 20 ?]");
    EXPECT_EQ(judged->GetHoles()[2].GetSlotAngle(), -90.0);
    EXPECT_EQ(judged->GetNotches()[0].GetYPos(), 20.0);
}

TEST(JobMember, RectangularOpeningsAreHolesWhereARuleCoversThem) {
    Job job = SampleJob();
    job::HoleRule rectangle = Rule18();
    rectangle.shape = eHoleShapeRectangular;
    rectangle.diameters = {20};
    rectangle.lengths = {60};
    rectangle.code = L"R";
    job::HoleRule square = rectangle;
    square.shape = eHoleShapeSquare;
    square.lengths = {20};
    square.code = L"Q";
    job.holeRules = {rectangle, square};
    Part part(L"Z1");
    part.Opening(kWebView, 500, 100, 60, 20).Opening(kWebView, 700, 100, 20, 60);
    part.Opening(kWebView, 900, 100, 20, 20);
    Judged judged(job, part);
    EXPECT_EQ(judged.Holes(), "[500 100 R][900 100 Q]");
    EXPECT_EQ(judged->GetNotches().length(), 1);
    EXPECT_EQ(judged->GetHoles()[1].GetHoleData().hostTag, 3);
}

TEST(JobMember, EveryHoleOnceWithTheReasonWhyItIsSetAside) {
    using plugin::SetAside;
    Part part(L"Z1");
    ZetNCHoleData marked;
    marked.commented = 1;
    part.Hole(kWebView, marked);
    // Two slots crossed: the hole lies inside both.
    part.Slot(kWebView, 100, 50, 18, 80).Slot(kWebView, 140, 10, 18, 80, 90.0);
    part.Hole(kWebView, 179, 50, 10).Hole(kWebView, 300, 50, 18).Hole(kWebView, 300, 50, 18);
    part.Hole(kWebView, 500, 50, 13).Hole(kWebView, 500, 50, 26, ZetNCHoleData::eKindCountersunk);
    Judged judged(job::BuiltInJob(), part);
    std::map<long, SetAside> reasons;
    for (const plugin::MemberHole& hole : judged->CollectHoles())
        EXPECT_TRUE(reasons.insert({hole.record.GetHoleData().hostTag, hole.setAside}).second);
    // clang-format off
    const std::map<long, SetAside> expected = {
        {1, SetAside::kMarked}, {2, SetAside::kNot}, {3, SetAside::kInsideSlot},
        {4, SetAside::kInsideSlot}, {5, SetAside::kDuplicate}, {6, SetAside::kNot},
        {7, SetAside::kNot}, {8, SetAside::kCountersink}};
    // clang-format on
    EXPECT_EQ(reasons, expected);
    EXPECT_EQ(judged.Warnings() + judged.Errors(), "");
}

// ---- fixed patterns -----------------------------------------------------------------------------

struct PatternCase {
    const char* name;
    std::vector<double> holesAt;
    bool isMirrorAllowed;
    const char* errors;
};

class Pattern : public ::testing::TestWithParam<PatternCase> {};

// Needs holes in the middle, at 250 or 2900, and at 400.
TEST_P(Pattern, NamesWhatIsMissing) {
    const PatternCase& c = GetParam();
    Job job = JobWithRule();
    const ZetString message = L"%.0f at %.0f";
    // clang-format off
    job.patterns = {{L"p", 0, 3000.0, c.isMirrorAllowed,
                     {{18.0, L"18", {0.5}, message}, {18.0, L"18", {250.0, -100.0}, message},
                      {18.0, L"18", {400.0}, message}}}};
    // clang-format on
    job.memberTypes[0].pattern = 0;
    Part part(L"Z1");
    for (const double x : c.holesAt)
        part.Hole(kWebView, x, 100.0, 18.0);
    EXPECT_EQ(Judged(job, part).Errors(), c.errors);
}

// clang-format off
const PatternCase kPatternCases[] = {
    {"Whole",          {250, 400, 1500},   false, ""},
    {"Alternative",    {400, 1500, 2900},  false, ""},
    {"AtTheBorder",    {250.5, 400, 1500}, false, ""},
    {"Beyond",         {250.6, 400, 1500}, false, "18 at 250 or 2900.0\n"},
    {"Missing",        {250},              false, "18 at 1500\n18 at 400\n"},
    {"Mirrored",       {1500, 2600, 2750}, true,  ""},
    {"MirroredHoleMissing", {1500, 2750},  true,  "18 at 2600\n"},
    {"HalfMirrored",   {250, 1500, 2600},  true,  "18 at 400\n"},
    {"MirrorRefused",  {1500, 2600, 2750}, false, "18 at 250 or 2900.0\n18 at 400\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(JobMember, Pattern, ::testing::ValuesIn(kPatternCases), RowName());

TEST(JobMember, PatternNeedsAHoleForEachAndTheRightCodeDiameterAndLength) {
    Job job = JobWithRule();
    // clang-format off
    job.patterns = {{L"p", 0, 3000.0, false, {{18.0, L"18", {400.0}, L"a"}, {18.0, L"18", {400.0}, L"b"},
                                           {14.0, L"18", {400.0}, L"c"}}}};
    // clang-format on
    job.memberTypes[0].pattern = 0;
    Part part(L"Z1");
    EXPECT_EQ(Judged(job, part.Hole(kWebView, 400, 50, 18)).Errors(), "b\nc\n");
    EXPECT_EQ(Judged(job, part.Hole(kWebView, 400, 150, 18).Length(2900)).Errors(),
              "c\nMember length (2900.0) should be 3000 \n");
    job.patterns[0].holes = {
        job::PatternHole{18.0, L"X", {400.0}, L"d"}
    };
    EXPECT_EQ(Judged(job, part.Length(3000)).Errors(), "d\n");
}

}  // namespace
