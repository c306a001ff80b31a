#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"
#include "support/TestMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

struct Limited {
    long count = 0;
    long limit = 0;
};

/// A member, its limits and the lines that it gets; every finding is a warning.
// clang-format off
struct MemberCase { const char* name; Limited holes = {}; Limited external = {};
                    Limited internal = {}; double length = 3000.0; double minimum = 1000.0;
                    double maximum = 6000.0; double fixedLength = 0.0; Lines lines = {}; };
const MemberCase kAllWrong = {
    "everything in order and both length lines", {25, 20}, {2, 1}, {4, 0}, 1500.0, 2000.0, 1000.0, 0.0,
    {L"          5 No of holes exceeded the maximum limit of 20",
     L"          1 No of external contours exceeded the maximum limit of 1",
     L"          4 No of Internal contours exceeded the maximum limit of 0",
     L"          Member length (1500.0) should not be greater than 1000",
     L"          Member length (1500.0) is less than 2000"}};
const MemberCase kWrongFixedLength = {
    .name = "fixed length", .length = 2501.0, .fixedLength = 2500.0,
    .lines = {L"          Member length (2501.0) should be 2500 "}};
const MemberCase kCases[] = {
    {"nothing wrong"},
    kAllWrong,
    {"counts at their limits", {3, 3}, {1, 1}, {2, 2}},
    {"negative limits allow any count", {3, -1}, {1, -2}, {2, -1}},
    {.name = "maximum plus tolerance", .length = 6000.5},
    // Longer than the tolerance allows, but not in three decimals.
    {.name = "length is rounded first", .length = 6000.5004},
    {.name = "above maximum", .length = 6000.501,
     .lines = {L"          Member length (6000.5) should not be greater than 6000"}},
    {.name = "minimum less tolerance", .length = 999.5},
    {.name = "below minimum", .length = 999.499,
     .lines = {L"          Member length (999.5) is less than 1000"}},
    // For lengths -1 is a limit like any other.
    {.name = "negative maximum", .minimum = 0.0, .maximum = -1.0,
     .lines = {L"          Member length (3000.0) should not be greater than -1"}},
    kWrongFixedLength,
    {.name = "fixed length within tolerance", .length = 2500.5, .fixedLength = 2500.0},
    {.name = "below fixed length", .length = 2499.499, .fixedLength = 2500.0,
     .lines = {L"          Member length (2499.5) should be 2500 "}},
    {.name = "fixed length replaces the range", .length = 2500.0, .minimum = 2600.0,
     .maximum = 2400.0, .fixedLength = 2500.0},
    {.name = "fixed length within tolerance of zero is none", .fixedLength = 0.5},
    {.name = "short fixed length", .length = 3.0, .fixedLength = 0.6,
     .lines = {L"          Member length (3.0  ) should be 1    "}},
    {.name = "negative fixed length is one", .length = 2500.0, .fixedLength = -2500.0,
     .lines = {L"          Member length (2500.0) should be -2500"}},
    {.name = "no number as length", .length = NAN},
    {.name = "no number as length though fixed", .length = NAN, .fixedLength = 2500.0},
    {.name = "no number as fixed length is none", .maximum = 2000.0, .fixedLength = NAN,
     .lines = {L"          Member length (3000.0) should not be greater than 2000"}},
};
// clang-format on

TestMember MemberOf(const MemberCase& row) {
    CMemTypeAndAttrib type;
    type.SetLength(row.length);
    CMemberValidations limits;
    for (int i = eValidationNoOfHoles; i <= eValidationFixedLength; ++i)
        limits.SetReportType(static_cast<eValidationTypes>(i), eReportingWarning);
    limits.SetNoOfHoles(row.holes.limit);
    limits.SetNoOfExternalContours(row.external.limit);
    limits.SetNoOfInternalContours(row.internal.limit);
    limits.SetMinimumLength(row.minimum);
    limits.SetMaximumLength(row.maximum);
    CMxSingleMemValidation fixed;
    fixed.SetFixedLength(row.fixedLength);
    TestMember member;
    member.SetMemObjects(type, limits);
    member.SetSingleMemValid(fixed);
    member.SetNoOfHoles(row.holes.count);
    for (long i = 0; i < row.external.count; ++i)
        member.NoOfExternalContours_Increment();
    for (long i = 0; i < row.internal.count; ++i)
        member.NoOfInternalContours_Increment();
    return member;
}

TEST(ValidationTest, FilesItsLinesInOrder) {
    for (const MemberCase& row : kCases) {
        SCOPED_TRACE(row.name);
        TestMember member = MemberOf(row);
        member.ValidateMember();
        EXPECT_EQ(member.m_warnings, row.lines);
        EXPECT_EQ(member.m_message, row.lines.isEmpty() ? ZetString() : row.lines.last());
        EXPECT_TRUE(CurrentToleranceIs(0.5));
    }
}

void ExpectErrorWhenOnly(eValidationTypes type, const MemberCase& row, const ZetString& line) {
    SCOPED_TRACE(type);
    TestMember member = MemberOf(row);
    member.m_validations.SetReportType(type, eReportingError);
    member.ValidateMember();
    EXPECT_EQ(member.m_errors, Lines{line});
    EXPECT_EQ(member.m_warnings.length(), row.lines.length() - 1);
}

TEST(ValidationTest, EachFindingHasAReportTypeOfItsOwn) {
    long line = 0;
    // clang-format off
    for (const auto type : {eValidationNoOfHoles, eValidationNoOfExternalContours,
                            eValidationNoOfInternalContours, eValidationMaximumLength,
                            eValidationMinimumLength})
        // clang-format on
        ExpectErrorWhenOnly(type, kAllWrong, kAllWrong.lines[line++]);
    ExpectErrorWhenOnly(eValidationFixedLength, kWrongFixedLength, kWrongFixedLength.lines[0]);
}

TEST(ValidationTest, LengthsAreComparedWithTheXTolerance) {
    CMxGeom::SetXTol(2.0);
    TestMember member = MemberOf({.name = "", .length = 6001.9});
    member.ValidateMember();
    EXPECT_TRUE(member.m_warnings.isEmpty() && CurrentToleranceIs(2.0));
}

TEST(ValidationTest, ChangeHolesStatusChangesNothing) {
    TestMember member;
    member.m_holes = {HoleAt(100, 50).Round(18)};
    member.m_holes[0].SetHoleStatus(eHoleStatusWaitsForPair);
    member.ChangeHolesStatus(eHoleStatusWaitsForPair, eHoleStatusIsPair);
    EXPECT_EQ(member.m_holes[0].GetHoleStatus(), eHoleStatusWaitsForPair);
}

}  // namespace
