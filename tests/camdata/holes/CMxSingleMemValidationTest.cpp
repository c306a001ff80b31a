#include "support/AssertionOf.h"
#include "support/CurrentTolerance.h"

#include "camdata/holes/CMxSingleMemValidation.h"

#include <gtest/gtest.h>

namespace {

using Numbers = ZetArray<double>;

constexpr double kEPS = 0.1;
constexpr double kOther = 7.0;

CMxSingleMemValidation Prescription(double fixedLength, const ZetArray<CMxHoles>& holes) {
    CMxSingleMemValidation validation;
    validation.SetValues(fixedLength, holes, false);
    return validation;
}

TEST(CMxSingleMemValidationTest, TurnsPositionsIntoDistancesFromTheStart) {
    // clang-format off
    struct Case { const char* name; double length, x, distance; long converted; };
    constexpr Case kCases[] = {
        {"fraction",                6000,  0.5,   3000.0,  1},
        {"lowest fraction",         6000,  0.11,  660.0,   1},
        {"highest fraction",        6000,  0.89,  5340.0,  1},
        {"from the far end",        6000,  -100,  5900.0,  1},
        {"just from the far end",   6000,  -0.11, 5999.89, 1},
        {"distance",                6000,  250.0, 250.0,   0},
        {"start",                   6000,  0.0,   0.0,     0},
        {"one is a distance",       6000,  1.0,   1.0,     0},
        {"low end of the fraction", 6000,  0.1,   0.1,     0},
        {"high end",                6000,  0.9,   0.9,     0},
        {"not yet the far end",     6000,  -0.1,  -0.1,    0},
        {"no fixed length",         0,     0.5,   0.5,     0},
        {"hardly a fixed length",   0.1,   -100,  -100.0,  0},
        {"negative fixed length",   -6000, 0.5,   0.5,     0},
    };
    // clang-format on
    ZetArray<CMxHoles> holes;
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        CMxHoles hole;
        hole.SetHoleXPos(each.x);
        holes.append(hole);
        CMxSingleMemValidation validation = Prescription(each.length, {hole});
        EXPECT_EQ(validation.setHolesPosition(), each.converted);
        EXPECT_DOUBLE_EQ(validation.GetMxHoles()[0].GetHoleXPos(), each.distance);
        EXPECT_TRUE(CurrentToleranceIs(kEPS));
    }
    EXPECT_EQ(Prescription(6000.0, holes).setHolesPosition(), 8);
}

TEST(CMxSingleMemValidationTest, CountsAndRenamesTheExpectedHoles) {
    CMxHoles found;
    found.SetFound(true);
    CMxSingleMemValidation validation = Prescription(0.0, {found, CMxHoles(), found});
    EXPECT_EQ(validation.GetNoOfHolesFound(), 2);
    EXPECT_FALSE(validation.GetMxHoles()[0].GetIsMirrApplicable());
    validation.replaceHoleCode(L"H18");
    for (const CMxHoles& hole : validation.GetMxHoles())
        EXPECT_EQ(hole.GetHoleCode(), L"H18");
    validation.SetValues(0.0, {CMxHoles()}, true);
    EXPECT_TRUE(validation.GetMxHoles()[0].GetIsMirrApplicable());
}

TEST(CMxHolesTest, SetsEachFieldFromItsArgument) {
    CMxHoles hole;
    hole.SetValues(18, L"P", Numbers{250.0, 300.0}, L"%.0f", true, false);
    EXPECT_TRUE(hole.GetIsMirrApplicable() && !hole.GetFound() && hole.GetHoleXPos() == 250.0);
    hole.SetValues(20, L"Q", 400.0, L"missing", false, true);
    EXPECT_TRUE(!hole.GetIsMirrApplicable() && hole.GetFound());
    EXPECT_EQ(hole.GetHoleDia() + hole.GetHoleXPos(), 420.0);
    EXPECT_EQ(hole.GetHoleCode(), L"Q");
    EXPECT_EQ(hole.GetErrMsg(0.0), L"missing or 300.0") << "the alternatives stay";
    EXPECT_EQ(AssertionOf([&] { hole.SetValues(18, L"P", Numbers(), L"", true, true); }),
              "isValid( index )");
}

TEST(CMxHolesTest, ReportsAMissingHole) {
    // clang-format off
    struct Case { const char* name; const wchar_t* format; Numbers positions;
                  const wchar_t* text; };
    const Case cases[] = {
        {"diameter and position", L"no hole %.1f at %.1f", {250.0}, L"no hole 18.0 at 250.0"},
        {"wrong conversion", L"%s at %.0f", {250.0}, L"%s at 250"},
        {"within the tolerance", L"%.0f at %.1f", {-0.1}, L"18 at -0.1"},
        {"hardly beyond it", L"%.0f at %.2f", {-0.15}, L"18 at 5999.85"},
        {"fractions stay", L"%.0f at %.1f", {0.5}, L"18 at 0.5"},
        {"alternatives as stored", L"%.0f at %.0f", {-100, -200.25, 40},
         L"18 at 5900 or -200.2 or 40.0"},
    };
    // clang-format on
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        CMxHoles hole;
        hole.SetValues(18, L"P", each.positions, each.format, false, false);
        EXPECT_EQ(hole.GetErrMsg(6000.0), each.text);
        EXPECT_TRUE(CurrentToleranceIs(kEPS));
    }
}

}  // namespace
