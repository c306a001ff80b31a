#include "support/AssertionOf.h"

#include "camdata/rules/CMemberValidations.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using Numbers = std::vector<double>;

const std::vector<int> kDefaults = {1, 4, 4, 1, 4, 4, 4, 2, 2, 4, 4, 4, 1, 1, 4, 4, 4, 4};

std::vector<int> ReportTypesOf(const CMemberValidations& validations) {
    std::vector<int> types;
    for (std::size_t i = 0; i < kDefaults.size(); ++i)
        types.push_back(validations.GetReportType(static_cast<eValidationTypes>(i)));
    return types;
}

TEST(CMemberValidationsTest, ReportTypesComeFromTheTable) {
    constexpr auto kBeyond = static_cast<eValidationTypes>(18);
    constexpr auto kNegative = static_cast<eValidationTypes>(-1);
    CMemberValidations validations;
    EXPECT_FALSE(validations.SetReportType(kBeyond, eReportingWarning));
    EXPECT_EQ(validations.GetReportType(kBeyond), eReportingError);
    EXPECT_EQ(AssertionOf([&] { validations.GetReportType(kNegative); }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { validations.SetReportType(kNegative, eReportingError); }),
              "isValid( index )");
    EXPECT_EQ(ReportTypesOf(validations), kDefaults);

    EXPECT_TRUE(validations.SetReportType(eValidationMinimumLength, eReportingError));
    EXPECT_EQ(validations.GetReportType(eValidationMinimumLength), eReportingError);
    validations.SetNoOfHoles(12);
    validations.InitialiseValidAndReport();
    EXPECT_EQ(ReportTypesOf(validations), kDefaults);
    EXPECT_EQ(validations.GetNoOfHoles(), 12);
}

TEST(CMemberValidationsTest, LimitsKeepTheirOrder) {
    CMemberValidations validations;
    for (int set = 0; set < 3; ++set) {
        validations.SetValues(1, 2, 3, 4.0, 5.0, set == 0, set == 1, set == 2, 6);
        EXPECT_EQ(validations.GetCutApplicable(), set == 0);
        EXPECT_EQ(validations.GetSqrHolesApplicable(), set == 1);
        EXPECT_EQ(validations.GetPartofAssy(), set == 2);
    }
    const Numbers limits = {validations.GetMinimumLength(), validations.GetMaximumLength()};
    EXPECT_EQ(limits, (Numbers{4, 5}));
    EXPECT_EQ(validations.GetNoOfInternalContours(), 2);
    EXPECT_EQ(validations.GetNoOfExternalContours(), 3);
    EXPECT_EQ(validations.GetLinearDimOrg(), 6);
}

}  // namespace
