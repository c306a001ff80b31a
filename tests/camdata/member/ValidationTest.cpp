#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"
#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <cmath>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

/// A member, its limits and the lines that it gets. Without changes it is 3000 long, may be 1000 to
/// 6000, has no holes and contours and may have none; every finding is a warning.
struct MemberCase {
    explicit MemberCase(const char* caseName) : name(caseName) {
        for (int i = eValidationNoOfHoles; i <= eValidationFixedLength; ++i)
            validations.SetReportType(static_cast<eValidationTypes>(i), eReportingWarning);
        validations.SetNoOfHoles(0);
        Between(1000.0, 6000.0).Long(3000.0);
    }
    MemberCase& Holes(long count, long limit) {
        holes = count;
        validations.SetNoOfHoles(limit);
        return *this;
    }
    MemberCase& External(long count, long limit) {
        externalContours = count;
        validations.SetNoOfExternalContours(limit);
        return *this;
    }
    MemberCase& Internal(long count, long limit) {
        internalContours = count;
        validations.SetNoOfInternalContours(limit);
        return *this;
    }
    MemberCase& Between(double minimum, double maximum) {
        validations.SetMinimumLength(minimum);
        validations.SetMaximumLength(maximum);
        return *this;
    }
    MemberCase& Long(double length) {
        type.SetLength(length);
        return *this;
    }
    MemberCase& Fixed(double length) {
        fixed.SetFixedLength(length);
        return *this;
    }
    MemberCase& Gets(Lines expected) {
        lines = std::move(expected);
        return *this;
    }

    std::string name;
    long holes = 0;
    long externalContours = 0;
    long internalContours = 0;
    CMemTypeAndAttrib type;
    CMemberValidations validations;
    CMxSingleMemValidation fixed;
    Lines lines;
};

void PrintTo(const MemberCase& row, std::ostream* out) {
    *out << row.name;
}

TestMember MemberOf(const MemberCase& row) {
    TestMember member;
    member.SetMemObjects(row.type, row.validations);
    member.SetSingleMemValid(row.fixed);
    member.SetNoOfHoles(row.holes);
    for (long i = 0; i < row.externalContours; ++i)
        member.NoOfExternalContours_Increment();
    for (long i = 0; i < row.internalContours; ++i)
        member.NoOfInternalContours_Increment();
    return member;
}

MemberCase AllWrong() {
    return MemberCase("EverythingInOrderAndBothLengthLines")
        .Holes(25, 20)
        .External(2, 1)
        .Internal(4, 0)
        .Long(1500.0)
        .Between(2000.0, 1000.0)
        .Gets({L"          5 No of holes exceeded the maximum limit of 20",
               L"          1 No of external contours exceeded the maximum limit of 1",
               L"          4 No of Internal contours exceeded the maximum limit of 0",
               L"          Member length (1500.0) should not be greater than 1000",
               L"          Member length (1500.0) is less than 2000"});
}

MemberCase WrongFixedLength() {
    return MemberCase("FixedLength")
        .Long(2501.0)
        .Fixed(2500.0)
        .Gets({L"          Member length (2501.0) should be 2500 "});
}

const MemberCase kCases[] = {
    MemberCase("NothingWrong"),
    AllWrong(),
    MemberCase("CountsAtTheirLimits").Holes(3, 3).External(1, 1).Internal(2, 2),
    MemberCase("NegativeLimitsAllowAnyCount").Holes(3, -1).External(1, -2).Internal(2, -1),
    MemberCase("MaximumPlusTolerance").Long(6000.5),
    // Longer than the tolerance allows, but not in three decimals.
    MemberCase("LengthIsRoundedFirst").Long(6000.5004),
    MemberCase("AboveMaximum")
        .Long(6000.501)
        .Gets({L"          Member length (6000.5) should not be greater than 6000"}),
    MemberCase("MinimumLessTolerance").Long(999.5),
    MemberCase("BelowMinimum")
        .Long(999.499)
        .Gets({L"          Member length (999.5) is less than 1000"}),
    // For lengths -1 is a limit like any other.
    MemberCase("NegativeMaximum")
        .Between(0.0, -1.0)
        .Gets({L"          Member length (3000.0) should not be greater than -1"}),
    WrongFixedLength(),
    MemberCase("FixedLengthWithinTolerance").Long(2500.5).Fixed(2500.0),
    MemberCase("BelowFixedLength")
        .Long(2499.499)
        .Fixed(2500.0)
        .Gets({L"          Member length (2499.5) should be 2500 "}),
    MemberCase("FixedLengthReplacesTheRange").Long(2500.0).Fixed(2500.0).Between(2600.0, 2400.0),
    MemberCase("FixedLengthWithinToleranceOfZeroIsNone").Fixed(0.5),
    MemberCase("ShortFixedLength")
        .Long(3.0)
        .Fixed(0.6)
        .Gets({L"          Member length (3.0  ) should be 1    "}),
    MemberCase("NegativeFixedLengthIsOne")
        .Long(2500.0)
        .Fixed(-2500.0)
        .Gets({L"          Member length (2500.0) should be -2500"}),
    MemberCase("NoNumberAsLength").Long(NAN),
    MemberCase("NoNumberAsLengthThoughFixed").Long(NAN).Fixed(2500.0),
    MemberCase("NoNumberAsFixedLengthIsNone")
        .Fixed(NAN)
        .Between(1000.0, 2000.0)
        .Gets({L"          Member length (3000.0) should not be greater than 2000"}),
};

class ValidationTest : public ::testing::TestWithParam<MemberCase> {};

TEST_P(ValidationTest, FilesItsLinesInOrder) {
    TestMember member = MemberOf(GetParam());
    member.ValidateMember();
    EXPECT_EQ(member.m_warnings, GetParam().lines);
    EXPECT_EQ(member.m_message, GetParam().lines.isEmpty() ? ZetString() : GetParam().lines.last());
    EXPECT_TRUE(CurrentToleranceIs(0.5));
}

INSTANTIATE_TEST_SUITE_P(Member, ValidationTest, ::testing::ValuesIn(kCases), [](const auto& test) {
    return test.param.name;
});

void ExpectErrorWhenOnly(eValidationTypes type, const MemberCase& row, const ZetString& line) {
    SCOPED_TRACE(type);
    TestMember member = MemberOf(row);
    member.m_validations.SetReportType(type, eReportingError);
    member.ValidateMember();
    EXPECT_EQ(member.m_errors, Lines{line});
    EXPECT_EQ(member.m_warnings.length(), row.lines.length() - 1);
}

TEST(MemberValidation, EachFindingHasAReportTypeOfItsOwn) {
    constexpr eValidationTypes kOrder[] = {eValidationNoOfHoles,
                                           eValidationNoOfExternalContours,
                                           eValidationNoOfInternalContours,
                                           eValidationMaximumLength,
                                           eValidationMinimumLength};
    const MemberCase allWrong = AllWrong();
    for (long i = 0; i < allWrong.lines.length(); ++i)
        ExpectErrorWhenOnly(kOrder[i], allWrong, allWrong.lines[i]);
    const MemberCase wrongFixedLength = WrongFixedLength();
    ExpectErrorWhenOnly(eValidationFixedLength, wrongFixedLength, wrongFixedLength.lines[0]);
}

TEST(MemberValidation, DefaultLimitsAllowNoContourAndNoLength) {
    TestMember member;
    member.m_memType.SetLength(3000.0);
    member.SetNoOfHoles(1000);
    member.NoOfInternalContours_Increment();
    member.NoOfInternalContours_Increment();
    member.ValidateMember();
    const Lines expected = {L"          2 No of Internal contours exceeded the maximum limit of 0",
                            L"          Member length (3000.0) should not be greater than -1"};
    EXPECT_EQ(member.m_errors, expected);
    EXPECT_TRUE(member.m_warnings.isEmpty());
    EXPECT_TRUE(member.GetValid());
}

TEST(MemberValidation, LengthsAreComparedWithTheXTolerance) {
    CMxGeom::SetXTol(2.0);
    TestMember member = MemberOf(MemberCase("").Long(6001.9));
    member.ValidateMember();
    EXPECT_TRUE(member.m_warnings.isEmpty());
    EXPECT_TRUE(CurrentToleranceIs(2.0));
}

TEST(MemberValidation, ChangeHolesStatusChangesNothing) {
    TestMember member;
    for (const eHoleStatus status : {eHoleStatusNone, eHoleStatusWaitsForPair, eHoleStatusGroup}) {
        member.m_holes.append(HoleAt(100, 50).Round(18));
        member.m_holes.last().SetHoleStatus(status);
    }
    member.ChangeHolesStatus(eHoleStatusWaitsForPair, eHoleStatusIsPair);
    EXPECT_EQ(member.m_holes[0].GetHoleStatus(), eHoleStatusNone);
    EXPECT_EQ(member.m_holes[1].GetHoleStatus(), eHoleStatusWaitsForPair);
    EXPECT_EQ(member.m_holes[2].GetHoleStatus(), eHoleStatusGroup);
}

}  // namespace
