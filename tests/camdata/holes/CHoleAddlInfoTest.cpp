#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"

#include "camdata/holes/CHoleAddlInfo.h"

#include <gtest/gtest.h>

namespace {

/// pi has ten decimals only, so slots at an angle are this far from their ideal place.
constexpr double kAngleError = 1e-8;

TEST(CHoleAddlInfoTest, StoresASlotByItsCentre) {
    struct Case {
        double angle;
        double x;
        double y;
        double reachX;
        double reachY;
    };
    constexpr Case kCases[] = {
        {0.0,   120.0,          50.0, 20.0,          0.0 },
        {90.0,  100.0,          70.0, 0.0,           20.0},
        {180.0, 80.0,           50.0, 20.0,          0.0 },
        {-30.0, 117.3205080757, 40.0, 17.3205080757, 10.0},
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.angle);
        const CHoleAddlInfo hole = HoleAt(100, 50).Slot(14, 40, each.angle);
        EXPECT_NEAR(hole.GetHoleData().x, each.x, kAngleError);
        EXPECT_NEAR(hole.GetHoleData().y, each.y, kAngleError);
        EXPECT_NEAR(hole.GetXPosForCheck(0.0), each.x - each.reachX, kAngleError);
        EXPECT_NEAR(hole.GetYPosForCheck(0.0), each.y - each.reachY, kAngleError);
        EXPECT_EQ(hole.GetSlotAngle(), each.angle);
    }
}

TEST(CHoleAddlInfoTest, TakesOverACountersink) {
    const CHoleAddlInfo sink = HoleAt(1, 2).Countersunk(18);
    EXPECT_EQ(sink.GetHoleStatus(), eHoleStatusCSK);
    EXPECT_TRUE(sink.GetIsCSK());
    EXPECT_FALSE(sink.GetIsReqdToProcess());
}

TEST(CHoleAddlInfoTest, MapsViewToOutputCoordinates) {
    struct Case {
        const char* name;
        double yNegate;
        double fromOtherFace;
        double xNegate;
        double offset;
        double x;
        double y;
    };
    constexpr Case kCases[] = {
        {"as it is",            1,  1,  1,  0,  100,  30 },
        {"offset, then sign",   -1, 1,  1,  10, 100,  -40},
        {"from the other edge", 1,  -1, 1,  10, 100,  160},
        {"all of Y",            -1, -1, 1,  10, 100,  240},
        {"X negated",           1,  1,  -1, 0,  -100, 30 },
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CViewData view;
        view.SetFaceWidth(200.0);
        view.SetDimYNegate(each.yNegate);
        view.SetDimFromOtherFace(each.fromOtherFace);
        view.SetDimXNegate(each.xNegate);
        view.SetYValOffset(each.offset);
        CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
        hole.CorrectData(view);
        EXPECT_EQ(hole.GetXPos(), each.x);
        EXPECT_EQ(hole.GetYPos(), each.y);
        EXPECT_EQ(hole.GetHoleData().x, 100.0);
        EXPECT_EQ(hole.GetHoleData().y, 30.0);
    }
}

TEST(CHoleAddlInfoTest, MapsACutOutFromWhereItLies) {
    CViewData view;
    view.SetFaceWidth(200.0);
    view.SetDimYNegate(-1.0);
    view.SetDimFromOtherFace(-1.0);
    view.SetDimXNegate(-1.0);
    view.SetYValOffset(10.0);
    CHoleAddlInfo square;
    square.SetSqrHoleData(22, 300, 30);
    square.CorrectData(view);
    EXPECT_EQ(square.GetXPos(), -300.0);
    EXPECT_EQ(square.GetYPos(), 240.0);
}

TEST(CHoleAddlInfoTest, XStaysRawUntilSomethingMovesIt) {
    CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
    hole.SetXPos(101.0);
    hole.SetYPos(31.0);
    EXPECT_EQ(hole.GetHoleData().x, 101.0);
    EXPECT_EQ(hole.GetHoleData().y, 30.0);
    hole.SetXPosFrom(6000.0);
    EXPECT_EQ(hole.GetXPos(), 5899.0);
    EXPECT_EQ(hole.GetHoleData().x, 101.0);
    hole.SetXPosFrom(6000.0);
    EXPECT_EQ(hole.GetXPos(), 101.0);
    hole.SetYPosFrom(200.0);
    hole.AddYOffset(-9.0);
    EXPECT_EQ(hole.GetYPos(), 160.0);
}

TEST(CHoleAddlInfoTest, RoundsPositionsWhereTheyAreStored) {
    CHoleAddlInfo hole = HoleAt(100.26, 30.24).Round(18);
    hole.SetDataPrecision(1);
    EXPECT_EQ(hole.GetHoleData().x, 100.3);
    EXPECT_EQ(hole.GetHoleData().y, 30.24);
    EXPECT_EQ(hole.GetYPos(), 30.2);
}

TEST(CHoleAddlInfoTest, MeasuresForChecksFromEitherEnd) {
    const CHoleAddlInfo round = HoleAt(100, 30).Round(18);
    const CHoleAddlInfo slot = HoleAt(100, 30).Slot(18, 40);  // centre at 120
    EXPECT_EQ(round.GetXPosForCheck(-1.0), 100.0);
    EXPECT_EQ(round.GetXPosForCheck(6000.0), 5900.0);
    EXPECT_EQ(round.GetYPosForCheck(200.0), 170.0);
    EXPECT_EQ(slot.GetXPosForCheck(6000.0), 5860.0);
}

TEST(CHoleAddlInfoTest, CutOutsLieInOutputCoordinates) {
    CHoleAddlInfo square;
    square.SetSqrHoleData(22, 300, 60);
    EXPECT_EQ(square.GetXPos(), 300.0);
    EXPECT_EQ(square.GetYPos(), 60.0);
    EXPECT_EQ(square.GetSize(), 22.0);

    CViewData view;
    view.SetHoleFace(eHoleFaceBottomFlange);
    view.SetProfileFaceWidth(65);
    CHoleAddlInfo rectangle;
    rectangle.SetRectHoleData(50, 20, 400, 70, view);
    EXPECT_EQ(rectangle.GetXPos(), 400.0);
    EXPECT_EQ(rectangle.GetYPos(), 70.0);
    EXPECT_EQ(rectangle.GetSize(), 20.0);
    EXPECT_EQ(rectangle.GetHoleData().slotLength, 50.0);
    EXPECT_FALSE(rectangle.GetIsSlot());
    EXPECT_EQ(rectangle.GetHoleFaceStr(), L"bottom flange");
    EXPECT_EQ(rectangle.GetProfileFaceWidth(), 65.0);
}

TEST(CHoleAddlInfoTest, ItsShapeFollowsTheFirstFlagThatApplies) {
    struct Case {
        bool isRectangular;
        bool isSquare;
        bool isCSK;
        int slot;
        int kind;
        eHoleShapeType shape;
        const wchar_t* type;
        const wchar_t* word;
    };
    constexpr Case kCases[] = {
        {true,  true,  true,  1, 4, eHoleShapeRectangular, L"RCT", L"rectangular"},
        {false, true,  true,  1, 4, eHoleShapeSquare,      L"SQR", L"square"     },
        {false, false, true,  1, 0, eHoleShapeCountersunk, L"CSK", L"countersunk"},
        {false, false, false, 2, 1, eHoleShapeSlot,        L"SLT", L"slot"       },
        {false, false, false, 0, 0, eHoleShapeRound,       L"RND", L"round"      },
        {false, false, false, 0, 1, eHoleShapeUnknown,     L"UNK", L"unknown"    },
    };
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

TEST(CHoleAddlInfoTest, OnlyACountersinkOnTheWebMovesToItsBack) {
    const auto faceAfter = [](CHoleAddlInfo hole) {
        const bool changed = hole.SetWebFaceCorrectly();
        EXPECT_EQ(changed, hole.GetViewData().GetFaceStr() == L"WEBBK");
        return hole.GetViewData().GetFaceStr();
    };
    CHoleAddlInfo hole = HoleAt(1, 2).Countersunk(18).On(eHoleFaceWeb);
    EXPECT_EQ(faceAfter(hole), L"WEBBK");
    hole.SetIsRectHole(true);
    EXPECT_EQ(faceAfter(hole), L"NON");
    hole.SetIsRectHole(false);
    hole.SetIsSqrHole(true);
    EXPECT_EQ(faceAfter(hole), L"NON");
    EXPECT_EQ(faceAfter(HoleAt(1, 2).Countersunk(18).On(eHoleFaceWebBack)), L"NON");
    EXPECT_EQ(faceAfter(HoleAt(1, 2).Round(18).On(eHoleFaceWeb)), L"NON");
}

TEST(CHoleAddlInfoTest, MatchesItsCodeWithoutThePairPrefix) {
    struct Case {
        const wchar_t* current;
        const wchar_t* asked;
        bool matches;
    };
    constexpr Case kCases[] = {
        {L"H18",     L"H18",  true },
        {L"H18",     L"h18",  false},
        {L"H18",     L"H1",   false},
        {L"  H18",   L"H18",  true },
        {L"y H18",   L"H18",  true },
        {L"y   H18", L"H18",  true },
        {L" y H18",  L"H18",  true },
        {L"a bb c",  L"bb c", true },
        {L"H18 ",    L"H18",  false},
        {L"",        L"H18",  false},
    };
    for (const Case& each : kCases) {
        CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
        hole.SetHoleCode(each.current);
        EXPECT_EQ(hole.CheckHoleCode(100.0, each.asked), each.matches)
            << ZetString(each.current).toUtf8();
    }
    CMxGeom::SetXTol(0.25);
    CHoleAddlInfo hole = HoleAt(100, 30).Round(18);
    EXPECT_FALSE(hole.CheckHoleCode(100.0, L"H18")) << "no code yet";
    hole.SetHoleCode(L"H18");
    EXPECT_TRUE(hole.CheckHoleCode(100.25, L"H18"));
    EXPECT_FALSE(hole.CheckHoleCode(100.3, L"H18"));
    EXPECT_TRUE(CurrentToleranceIs(0.25));
    hole.SetXPosFrom(6000.0);
    EXPECT_TRUE(hole.CheckHoleCode(5900.0, L"H18"));
    EXPECT_FALSE(hole.CheckHoleCode(100.0, L"H18")) << "the NC position no longer counts";
}

TEST(CHoleAddlInfoTest, BelongsToItsGroupByPartOfItsCode) {
    struct Case {
        const char* name;
        const wchar_t* groupCode;
        bool isMust;
        bool belongs;
        bool isValid;
    };
    constexpr Case kCases[] = {
        {"part of the code",                   L"18", true,  true,  true },
        {"no group code",                      L"",   true,  true,  true },
        {"another code, may stand alone",      L"22", false, false, true },
        {"another code, must be in the group", L"22", true,  false, false},
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CHoleCode groupCode;
        groupCode.SetValues(each.groupCode, 0);
        CHoleOutPutCode code;
        code.SetGroupCode(groupCode);
        code.SetIsGroupMust(each.isMust);
        CHoleAddlInfo hole;
        hole.SetHoleCode(L"H22");
        hole.SetHoleCode(L"H18");
        hole.SetHoleOutPutCode(code);
        EXPECT_EQ(hole.checkGroupHole(), each.belongs);
        EXPECT_EQ(hole.GetHoleStatus(), each.belongs ? eHoleStatusGroup : eHoleStatusNotInGroup);
        EXPECT_EQ(hole.GetValid(), each.isValid);
    }
}

TEST(CHoleAddlInfoTest, AppendsOnlyCodesToTheCodes) {
    CHoleAddlInfo hole;
    EXPECT_FALSE(hole.AppendMsg(eHoleMsgCode, L"H18"));
    for (const int type : {1, 2, 3, -1})
        EXPECT_FALSE(hole.AppendMsg(static_cast<eHoleMsgType>(type), L"text"));
    EXPECT_EQ(hole.GetHoleCode(), L"H18");
    EXPECT_EQ(hole.GetPairCode(), L"");
}

TEST(CHoleAddlInfoTest, InitValuesMakesItNewAgain) {
    CHoleAddlInfo hole = HoleAt(100, 50).Countersunk(18).On(eHoleFaceWeb);
    CHoleOutPutCode code;
    code.SetIsGroup(true);
    hole.SetHoleOutPutCode(code);
    hole.SetHoleCode(L"H18");
    hole.SetCSKPos(3);
    hole.SetValid(false);
    hole.SetNonStd(true);
    hole.SetIsRectHole(true);
    hole.SetXPosFrom(6000.0);
    hole.InitValues();
    EXPECT_EQ(hole.GetHoleData(), ZetNCHoleData());
    EXPECT_EQ(hole.GetViewData().GetPrintDef(), CViewData().GetPrintDef());
    EXPECT_FALSE(hole.GetHoleOutPutCode().GetIsGroup());
    EXPECT_EQ(hole.GetHoleCode(), L"");
    EXPECT_EQ(hole.GetCSKPos(), -1);
    EXPECT_EQ(hole.GetHoleStatus(), eHoleStatusNone);
    EXPECT_TRUE(hole.GetValid());
    EXPECT_FALSE(hole.GetNonStd());
    EXPECT_EQ(hole.GetHoleShapeType(), eHoleShapeRound);
    EXPECT_TRUE(hole.GetIsReqdToProcess());
    hole.SetXPos(7.0);
    EXPECT_EQ(hole.GetHoleData().x, 7.0) << "raw again";
}

}  // namespace
