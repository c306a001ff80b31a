#include "support/AssertionOf.h"

#include "camdata/rules/CMemberValidations.h"

#include <array>

#include <gtest/gtest.h>

namespace {

constexpr std::array kDefaults = {1, 4, 4, 1, 4, 4, 4, 2, 2, 4, 4, 4, 1, 1, 4, 4, 4, 4};

void ExpectDefaultReportTypes(const CMemberValidations& validations) {
    for (std::size_t i = 0; i < kDefaults.size(); ++i)
        EXPECT_EQ(validations.GetReportType(static_cast<eValidationTypes>(i)), kDefaults[i]) << i;
}

TEST(CMemberValidationsTest, ReportTypesComeFromTheTable) {
    constexpr auto kBeyond = static_cast<eValidationTypes>(kDefaults.size());
    constexpr auto kNegative = static_cast<eValidationTypes>(-1);
    CMemberValidations validations;
    ExpectDefaultReportTypes(validations);
    EXPECT_EQ(validations.GetReportType(kBeyond), eReportingError);
    EXPECT_FALSE(validations.SetReportType(kBeyond, eReportingWarning));
    EXPECT_EQ(validations.GetReportType(kBeyond), eReportingError);
    EXPECT_EQ(AssertionOf([&] { validations.GetReportType(kNegative); }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { validations.SetReportType(kNegative, eReportingError); }),
              "isValid( index )");
    ExpectDefaultReportTypes(validations);

    EXPECT_TRUE(validations.SetReportType(eValidationMinimumLength, eReportingError));
    EXPECT_EQ(validations.GetReportType(eValidationMinimumLength), eReportingError);
    validations.SetNoOfHoles(12);
    validations.InitialiseValidAndReport();
    ExpectDefaultReportTypes(validations);
    EXPECT_EQ(validations.GetNoOfHoles(), 12);
}

TEST(CMemberValidationsTest, LimitsKeepTheirOrder) {
    CMemberValidations validations;
    EXPECT_EQ(validations.GetNoOfHoles(), -1);
    EXPECT_EQ(validations.GetNoOfInternalContours(), 0);
    EXPECT_EQ(validations.GetNoOfExternalContours(), 0);
    EXPECT_EQ(validations.GetMinimumLength(), 0.0);
    EXPECT_EQ(validations.GetMaximumLength(), -1.0);

    validations.SetReportType(eValidationNoOfHoles, eReportingNonStd);
    validations.SetValues(1, 2, 3, 4.0, 5.0, false, false, false, 6);
    EXPECT_EQ(validations.GetNoOfHoles(), 1);
    EXPECT_EQ(validations.GetNoOfInternalContours(), 2);
    EXPECT_EQ(validations.GetNoOfExternalContours(), 3);
    EXPECT_EQ(validations.GetMinimumLength(), 4.0);
    EXPECT_EQ(validations.GetMaximumLength(), 5.0);
    EXPECT_EQ(validations.GetLinearDimOrg(), 6);
    EXPECT_EQ(validations.GetReportType(eValidationNoOfHoles), eReportingNonStd);

    for (int set = 0; set < 3; ++set) {
        SCOPED_TRACE(set);
        validations.SetValues(1, 2, 3, 4.0, 5.0, set == 0, set == 1, set == 2, 6);
        EXPECT_EQ(validations.GetCutApplicable(), set == 0);
        EXPECT_EQ(validations.GetSqrHolesApplicable(), set == 1);
        EXPECT_EQ(validations.GetPartofAssy(), set == 2);
    }
}

}  // namespace
