#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"

#include "camdata/tolerance/CMxGeom.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A section 200 high and 60 wide.
CMemTypeAndAttrib Section() {
    constexpr auto kFixed = eProfPropFixed;
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(3, 0, kFixed, 0, 0, 200.0, kFixed, 0, 0, 60.0, kFixed, 0, 0, 2.0, 1.0,
                   kFixed, 0, 0, 0.0, 1.0, 0, 0, L"", L"", 0, 0, 0);
    // clang-format on
    return type;
}

/// The same with a top flange of 80 and a bottom flange of 50.
CMemTypeAndAttrib UnequalFlanges() {
    CMemAttrib attributes;
    attributes.SetValues(0.0, 50.0, 80.0, 0.0);
    CMemTypeAndAttrib type = Section();
    type.SetMemAttrib(attributes);
    return type;
}

/// What GetWarMsg appends less its header.
Lines WarningsOf(const CHoleAddlInfo& hole) {
    Lines lines;
    if (hole.GetWarMsg(lines))
        lines.removeAt(0);
    return lines;
}

HoleAt Round18(double x, double y, eHoleFace face = eHoleFaceWeb) {
    return HoleAt(x, y).Round(18).On(face);
}

/// 40 long; its end at (x, y) is the one that the NC data gives.
HoleAt Slot18(double x, double y, double angle, eHoleFace face = eHoleFaceWeb) {
    return HoleAt(x, y).Slot(18, 40, angle).On(face);
}

/// Too near to everything that a hole on a flange can be too near to.
const CHoleAddlInfo kBadlyPlaced = Slot18(20, 10, 90, eHoleFaceTopFlange);
constexpr double kShortMember = 45.0;
const ZetString kIndent = L"                    ";
const ZetString kEdgeWarning = kIndent + L"Edge distance (10.0) are incorrect";
const ZetString kFaceWarning = kIndent + L"Distance (10.0) from bottom flange is insufficient";
const ZetString kStartWarning = kIndent + L"End distance (20.0) is less than standard";
const ZetString kFarEndWarning = kIndent + L"End distance (25.0) is less than standard";

TEST(HoleChecks, WarnsOfDistancesThatAreTooSmall) {
    const ZetString slotAtEnd = kIndent + L"End distance (10.0) is less than standard";
    const ZetString nearTop = kIndent + L"Distance (10.0) from top flange is insufficient";
    const ZetString noEdge = kIndent + L"Edge distance (0.0) are incorrect";
    const Lines twice = {kStartWarning, kStartWarning};
    const CMemTypeAndAttrib plain = Section();
    const CMemTypeAndAttrib unequal = UnequalFlanges();
    // clang-format off
    struct Case { const char* name; CHoleAddlInfo hole; CMemTypeAndAttrib type;
                  double length; Lines warnings; };
    const Case cases[] = {
        {"web, low", Round18(100, 17.9), plain, 3000, {}},
        {"web, lower", Round18(100, 17.8), plain, 3000,
         {kIndent + L"Distance (17.8) from bottom flange is insufficient"}},
        {"web, high up", Round18(100, 190), plain, 3000, {nearTop}},
        {"web, high up at the start", Round18(20, 190), plain, 3000, {nearTop, kStartWarning}},
        {"web back, one diameter down", Round18(100, 182, eHoleFaceWebBack), plain, 3000, {}},
        {"web back, high up", Round18(100, 190, eHoleFaceWebBack), plain, 3000, {nearTop}},
        {"unknown height", Round18(100, 10), CMemTypeAndAttrib(), 3000, {kFaceWarning, nearTop}},
        {"1.5 diameters in", Round18(100, 33, eHoleFaceTopFlange), plain, 3000, {}},
        {"near the edge", Round18(100, 50, eHoleFaceTopFlange), plain, 3000, {kEdgeWarning}},
        {"near the web", Round18(100, 10, eHoleFaceBottomFlange), plain, 3000, {kFaceWarning}},
        {"wide top", Round18(100, 50, eHoleFaceTopFlange), unequal, 3000, {}},
        {"sloped top", Round18(100, 50, eHoleFaceSlopedTopFlange), unequal, 3000, {}},
        {"narrow bottom", Round18(100, 50, eHoleFaceBottomFlange), unequal, 3000, {noEdge}},
        {"sloped bottom", Round18(100, 50, eHoleFaceSlopedBottomFlange), unequal, 3000, {noEdge}},
        {"unknown face", Round18(100, 20, eHoleFaceNone), plain, 3000,
         {kIndent + L"Edge distance (20.0) are incorrect"}},
        {"beyond the far end", Round18(3005.5, 100), plain, 3000,
         {kIndent + L"End distance (-5.5) is less than standard"}},
        {"no length", Round18(20, 100), plain, 0, twice},
        {"no number as length", Round18(20, 100), plain, kNaN, twice},
        {"hardly a length", Round18(20, 100), plain, 0.06,
         {kStartWarning, kIndent + L"End distance (-19.9) is less than standard"}},
        {"slot at the start", Slot18(50, 100, 180), plain, 3000, {slotAtEnd}},
        {"slot at the far end", Slot18(2950, 100, 0), plain, 3000, {slotAtEnd}},
        {"upright slot", Slot18(100, 150, 90), plain, 3000, {nearTop}},
        {"everything, in order", kBadlyPlaced, plain, kShortMember,
         {kEdgeWarning, kFaceWarning, kStartWarning, kFarEndWarning}},
    };
    // clang-format on
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        CHoleAddlInfo hole = each.hole;
        CMxGeom::SetTol(eTolValue, 7.0);
        hole.CheckEdgeAndEndDist(each.type, each.length);
        EXPECT_EQ(WarningsOf(hole), each.warnings);
        Lines errors;
        EXPECT_FALSE(hole.GetErrMsg(errors));
        EXPECT_TRUE(hole.GetValid());
        EXPECT_EQ(hole.GetHoleStatus(), eHoleStatusNone);
        EXPECT_TRUE(CurrentToleranceIs(0.1));
    }
}

TEST(HoleChecks, EachDistanceHasItsLimit) {
    CMxGeom::SetMinEdgeDist(5.0);
    CMxGeom::SetMinEndDist(22.0);
    CHoleAddlInfo hole = kBadlyPlaced;
    hole.CheckEdgeAndEndDist(Section(), kShortMember);
    EXPECT_EQ(WarningsOf(hole), (Lines{kFaceWarning, kStartWarning}));
}

TEST(HoleChecks, TellsAHoleInOneLine) {
    CHoleAddlInfo square;
    square.SetSqrHoleData(20, 100, 50);
    CViewData webBack;
    webBack.SetHoleFace(eHoleFaceWebBack);
    CHoleAddlInfo rectangle;
    rectangle.SetRectHoleData(60, 20, 300.26, 40, webBack);
    // clang-format off
    struct Case { CHoleAddlInfo hole; ZetString line; };
    const Case cases[] = {
        {Round18(100, 50), L"18.0 round holes on web at (X:100.0, Y:50.0)"},
        {Slot18(80, 50, 0, eHoleFaceTopFlange),
         L"18.0x40.0 slot holes on top flange at (X:100.0, Y:50.0)"},
        {Slot18(80, 50, 0).Countersunk(9.5),
         L"9.5x40.0 countersunk holes on web at (X:100.0, Y:50.0)"},
        {square, L"20.0 square holes on unknown face at (X:100.0, Y:50.0)"},
        {rectangle, L"20.0x60.0 rectangular holes on web back at (X:300.3, Y:40.0)"},
    };
    // clang-format on
    for (const Case& each : cases)
        EXPECT_EQ(each.hole.GetHoleMsg(), kIndent + L" " + each.line);
}

TEST(HoleChecks, ReportsWarningsAndErrorsApart) {
    CHoleAddlInfo hole = Round18(1999.5, 195);
    hole.SetXPosFrom(3000);
    hole.SetYPosFrom(200);
    for (const int type : {0, 3, -1})
        EXPECT_FALSE(hole.AppendMsg(static_cast<eHoleMsgType>(type), L"code"));
    Lines lines;
    EXPECT_FALSE(hole.GetWarMsg(lines) || hole.GetErrMsg(lines));
    hole.AppendMsg(eHoleMsgError, L"  error %s");
    EXPECT_FALSE(hole.AppendMsg(eHoleMsgError, L"last error"));
    EXPECT_FALSE(hole.GetWarMsg(lines));
    EXPECT_TRUE(hole.GetErrMsg(lines));
    hole.AppendMsg(eHoleMsgWarning, L"  warning %s");
    EXPECT_FALSE(hole.AppendMsg(eHoleMsgWarning, L"last warning"));
    EXPECT_TRUE(hole.GetWarMsg(lines));
    EXPECT_EQ(hole.GetHoleCode(), L"code");
    const ZetString divider = L"\t-----------------------------------------------------------";
    // clang-format off
    const Lines expected = {
        divider, L"\tHole Size/Dia  \t: 18 ", L"\tPosition x     \t: 1000.5",
        L"\tPosition y     \t: 5.0 ", L"\t\t  error %s", L"\t\tlast error", divider,
        L"          *Warning in Hole* 18.0 round holes on web at (X:1000.5, Y:5.0)",
        L"  warning %s", L"last warning"};
    // clang-format on
    EXPECT_EQ(lines, expected);
}

}  // namespace
