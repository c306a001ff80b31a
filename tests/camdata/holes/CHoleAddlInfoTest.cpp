#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"

#include "camdata/holes/CHoleAddlInfo.h"

#include <utility>

#include <gtest/gtest.h>

namespace {

using Place = std::pair<double, double>;

/// pi has ten decimals only, so slots at an angle are this far from their ideal place.
constexpr double kAngleError = 1e-8;

Place PlaceOf(const CHoleAddlInfo& hole) {
    return {hole.GetXPos(), hole.GetYPos()};
}

Place NcPlaceOf(const CHoleAddlInfo& hole) {
    return {hole.GetHoleData().x, hole.GetHoleData().y};
}

CHoleAddlInfo SquareAt(double x, double y) {
    CHoleAddlInfo square;
    square.SetSqrHoleData(22, x, y);
    return square;
}

TEST(CHoleAddlInfoTest, StoresASlotByItsCentre) {
    // clang-format off
    struct Case { double angle, x, y, reachX, reachY; };
    constexpr Case kCases[] = {
        {0.0, 120.0, 50.0, 20.0, 0.0},  {90.0, 100.0, 70.0, 0.0, 20.0},
        {180.0, 80.0, 50.0, 20.0, 0.0}, {-30.0, 117.3205080757, 40.0, 17.3205080757, 10.0},
    };
    // clang-format on
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.angle);
        const CHoleAddlInfo hole = HoleAt(100, 50).Slot(14, 40, each.angle);
        EXPECT_NEAR(hole.GetHoleData().x, each.x, kAngleError);
        EXPECT_NEAR(hole.GetHoleData().y, each.y, kAngleError);
        EXPECT_NEAR(hole.GetXPosForCheck(-1.0), each.x - each.reachX, kAngleError);
        EXPECT_NEAR(hole.GetYPosForCheck(0.0), each.y - each.reachY, kAngleError);
        EXPECT_EQ(hole.GetSlotAngle(), each.angle);
    }
}

TEST(CHoleAddlInfoTest, MapsViewToOutputCoordinates) {
    // clang-format off
    struct Case { const char* name; double yNegate, fromOtherFace, xNegate, offset; Place place; };
    const Case cases[] = {
        {"as it is",            1,  1,  1,  0,  {100, 30}  },
        {"offset, then sign",   -1, 1,  1,  10, {100, -40} },
        {"from the other edge", 1,  -1, 1,  10, {100, 160} },
        {"everything",          -1, -1, -1, 10, {-100, 240}},
        {"hardly positive",     0.05, 0.05, 0.05, 0, {100, 30} },
        {"hardly negative",     -0.05, -0.05, -0.05, 10, {-100, 240}},
    };
    // clang-format on
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        CViewData view;
        view.SetFaceWidth(200.0);
        view.SetDimYNegate(each.yNegate);
        view.SetDimFromOtherFace(each.fromOtherFace);
        view.SetDimXNegate(each.xNegate);
        view.SetYValOffset(each.offset);
        CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
        hole.CorrectData(view);
        EXPECT_EQ(PlaceOf(hole), each.place);
        EXPECT_EQ(NcPlaceOf(hole), Place(100, 30));
        CHoleAddlInfo square = SquareAt(100, 30);
        square.CorrectData(view);
        EXPECT_EQ(PlaceOf(square), each.place) << "a cut-out, from where it lies";
    }
}

TEST(CHoleAddlInfoTest, XStaysRawUntilSomethingMovesIt) {
    CHoleAddlInfo rounded = HoleAt(100.26, 30.24).Round(18);
    rounded.SetDataPrecision(1);
    EXPECT_EQ(NcPlaceOf(rounded), Place(100.3, 30.24));
    EXPECT_EQ(rounded.GetYPos(), 30.2);
    CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
    hole.SetXPos(101.0);
    hole.SetYPos(31.0);
    EXPECT_EQ(NcPlaceOf(hole), Place(101, 30));
    hole.SetXPosFrom(6000.0);
    EXPECT_EQ(hole.GetXPos(), 5899.0);
    EXPECT_EQ(hole.GetHoleData().x, 101.0);
    hole.SetXPosFrom(6000.0);
    hole.SetYPosFrom(200.0);
    hole.AddYOffset(-9.0);
    EXPECT_EQ(PlaceOf(hole), Place(101, 160));
}

TEST(CHoleAddlInfoTest, ItsShapeFollowsTheFirstFlagThatApplies) {
    // clang-format off
    struct Case { bool isRectangular, isSquare, isCSK; int slot, kind; eHoleShapeType shape;
                  const wchar_t *type, *word; };
    constexpr Case kCases[] = {
        {true,  true,  true,  1, 4, eHoleShapeRectangular, L"RCT", L"rectangular"},
        {false, true,  true,  1, 4, eHoleShapeSquare,      L"SQR", L"square"     },
        {false, false, true,  1, 0, eHoleShapeCountersunk, L"CSK", L"countersunk"},
        {false, false, false, 2, 1, eHoleShapeSlot,        L"SLT", L"slot"       },
        {false, false, false, 0, 0, eHoleShapeRound,       L"RND", L"round"      },
        {false, false, false, 0, 1, eHoleShapeUnknown,     L"UNK", L"unknown"    },
    };
    // clang-format on
    for (const Case& each : kCases) {
        ZetNCHoleData data;
        data.slot = each.slot;
        data.kind = each.kind;
        CHoleAddlInfo hole;
        hole.SetHoleData(data);
        hole.SetIsRectHole(each.isRectangular);
        hole.SetIsSqrHole(each.isSquare);
        hole.SetIsCSK(each.isCSK);
        EXPECT_EQ(hole.GetHoleShapeType(), each.shape);
        EXPECT_EQ(hole.GetHoleType(), each.type);
        EXPECT_EQ(hole.GetHoleTypeForOutPut(), each.word);
    }
}

TEST(CHoleAddlInfoTest, MatchesItsCodeWithoutThePairPrefix) {
    // clang-format off
    struct Case { const wchar_t *current, *asked; bool matches; };
    constexpr Case kCases[] = {
        {L"H18", L"H18", true},      {L"H18", L"h18", false},    {L"H18", L"H1", false},
        {L"  H18", L"H18", true},    {L"y   H18", L"H18", true}, {L" y H18", L"H18", true},
        {L"a bb c", L"bb c", true},  {L"H18 ", L"H18", false},   {L"", L"H18", false},
    };
    // clang-format on
    CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
    EXPECT_FALSE(hole.CheckHoleCode(100.0, L"H18")) << "no code yet";
    for (const Case& each : kCases) {
        hole.SetHoleCode(each.current);
        EXPECT_EQ(hole.CheckHoleCode(100.0, each.asked), each.matches)
            << ZetString(each.current).toUtf8();
    }
    CMxGeom::SetXTol(0.25);
    hole.SetHoleCode(L"H18");
    EXPECT_TRUE(hole.CheckHoleCode(100.25, L"H18"));
    EXPECT_FALSE(hole.CheckHoleCode(100.3, L"H18"));
    EXPECT_TRUE(CurrentToleranceIs(0.25));
    hole.SetXPosFrom(6000.0);
    EXPECT_TRUE(hole.CheckHoleCode(5900.0, L"H18"));
    EXPECT_FALSE(hole.CheckHoleCode(100.0, L"H18")) << "the NC position no longer counts";
}

TEST(CHoleAddlInfoTest, BelongsToItsGroupByPartOfItsCode) {
    // clang-format off
    struct Case { const char* name; const wchar_t* groupCode; bool isMust, belongs, isValid; };
    constexpr Case kCases[] = {
        {"part of the code",                   L"18", true,  true,  true },
        {"no group code",                      L"",   true,  true,  true },
        {"another code, may stand alone",      L"22", false, false, true },
        {"another code, must be in the group", L"22", true,  false, false},
    };
    // clang-format on
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CHoleCode groupCode;
        groupCode.SetValues(each.groupCode, 0);
        CHoleOutPutCode code;
        code.SetGroupCode(groupCode);
        code.SetIsGroupMust(each.isMust);
        CHoleAddlInfo hole;
        hole.SetHoleCode(L"H18");
        hole.SetHoleOutPutCode(code);
        EXPECT_EQ(hole.checkGroupHole(), each.belongs);
        EXPECT_EQ(hole.GetHoleStatus(), each.belongs ? eHoleStatusGroup : eHoleStatusNotInGroup);
        EXPECT_EQ(hole.GetValid(), each.isValid);
    }
}

TEST(CHoleAddlInfoTest, InitValuesMakesItNewAgain) {
    CHoleAddlInfo hole = HoleAt(100, 50).Countersunk(18).On(eHoleFaceWeb);
    EXPECT_TRUE(hole.GetIsCSK() && !hole.GetIsReqdToProcess());
    hole.SetHoleCode(L"H18");
    hole.SetCSKPos(3);
    hole.SetValid(false);
    hole.SetNonStd(true);
    hole.SetIsRectHole(true);
    hole.SetXPosFrom(6000.0);
    hole.InitValues();
    EXPECT_FALSE(hole.GetIsCSK() || hole.GetNonStd() || hole.GetIsRectHole());
    EXPECT_TRUE(hole.GetIsReqdToProcess() && hole.GetValid() && hole.GetHoleCode().isEmpty());
    EXPECT_EQ(hole.GetCSKPos() + hole.GetHoleStatus(), -1);
    EXPECT_EQ(hole.GetHoleData(), ZetNCHoleData());
    EXPECT_EQ(hole.GetViewData().GetHoleFace(), eHoleFaceNone);
    hole.SetXPos(7.0);
    EXPECT_EQ(hole.GetHoleData().x, 7.0) << "raw again";
}

}  // namespace
