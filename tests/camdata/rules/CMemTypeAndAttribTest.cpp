#include "support/CaseName.h"

#include "camdata/rules/CMemTypeAndAttrib.h"

#include <gtest/gtest.h>

namespace {

/// How the dimensions of a test's member type are obtained.
struct Sources {
    eProfPropType source = eProfPropNone;
    int start = 0;
    int length = 0;
};

/// A member type whose four dimensions share a source; fixed values 201, 61, 2.5 and 7.
CMemTypeAndAttrib TypeFrom(const Sources& from, double thickFactor = 0.1) {
    CMemTypeAndAttrib type;
    type.SetValues(3,
                   11,
                   from.source,
                   from.start,
                   from.length,
                   201.0,
                   from.source,
                   from.start,
                   from.length,
                   61.0,
                   from.source,
                   from.start,
                   from.length,
                   2.5,
                   thickFactor,
                   from.source,
                   from.start,
                   from.length,
                   7.0,
                   1.0,
                   12,
                   13,
                   L"Z purlin",
                   L"Z",
                   14,
                   15,
                   16);
    return type;
}

CMemAttrib Attributes() {
    CMemAttrib attributes;
    attributes.SetValues(200.0, 60.0, 70.0, 2.0);
    return attributes;
}

TEST(CMemTypeAndAttribTest, ANewTypeKnowsNoDimension) {
    const CMemTypeAndAttrib type;
    EXPECT_EQ(type.GetProfileHeight(), -0.1);
    EXPECT_EQ(type.GetProfileWidth(), -0.1);
    EXPECT_EQ(type.GetProfileThick(), -0.1);
    EXPECT_EQ(type.GetTopFlangeWidth(), -0.1);
    EXPECT_EQ(type.GetBottomFlangeWidth(), -0.1);
    EXPECT_EQ(type.GetTopFlangeSlope(), -0.1);
    EXPECT_EQ(type.GetProfDesc(), L"Not Implemented");
    EXPECT_EQ(type.GetShortName(), L"NA");
    EXPECT_EQ(type.GetViewStartNo(), 99);
    EXPECT_EQ(type.GetNameStartPos(), 4);
}

TEST(CMemTypeAndAttribTest, SetsEachFieldFromItsArgument) {
    CMemTypeAndAttrib type;
    type.SetLength(5000.0);
    type = TypeFrom({eProfPropFixed});
    EXPECT_EQ(type.GetRecordType(), 3);
    EXPECT_EQ(type.GetProfileLength(), 11);
    EXPECT_EQ(type.GetCheckProfileLength(), 12);
    EXPECT_EQ(type.GetViewStartNo(), 13);
    EXPECT_EQ(type.GetProfDesc(), L"Z purlin");
    EXPECT_EQ(type.GetShortName(), L"Z");
    EXPECT_EQ(type.GetNameStartPos(), 14);
    EXPECT_EQ(type.GetNameLength(), 15);
    EXPECT_EQ(type.GetSearchLenForAttrib(), 16);
}

struct DimensionCase {
    const char* name;
    Sources from;
    const wchar_t* profile;
    double height;
    double width;
    double thick;
    double slope;
};

class DimensionTest : public ::testing::TestWithParam<DimensionCase> {};

TEST_P(DimensionTest, ComesFromItsSource) {
    const DimensionCase& each = GetParam();
    CMemTypeAndAttrib type = TypeFrom(each.from);
    ZetNCHeaderData header;
    header.profileName = each.profile;
    header.height = 202.0;
    header.width = 62.0;
    header.thickness = 3.0;
    type.SetHeaderData(header);
    type.SetMemAttrib(Attributes());
    EXPECT_DOUBLE_EQ(type.GetProfileHeight(), each.height);
    EXPECT_DOUBLE_EQ(type.GetProfileWidth(), each.width);
    EXPECT_DOUBLE_EQ(type.GetProfileThick(), each.thick);
    EXPECT_DOUBLE_EQ(type.GetTopFlangeSlope(), each.slope);
}

constexpr auto kUnknownSource = static_cast<eProfPropType>(9);

INSTANTIATE_TEST_SUITE_P(
    Sources,
    DimensionTest,
    ::testing::Values(
        DimensionCase{
            "Header", {eProfPropHeader},
             L"", 202, 62, 3, -0.1
},
        DimensionCase{"Name", {eProfPropName, 2, 2}, L"Z-15", 15, 15, 1.5, 5},
        DimensionCase{"NameWithMinus", {eProfPropName, 3, 2}, L"Z20-12", -1, -1, -0.1, -12},
        DimensionCase{"NameWithPlus", {eProfPropName, 3, 2}, L"Z20+12", 1, 1, 0.1, 12},
        DimensionCase{"NameTooShort", {eProfPropName, 3, 2}, L"Z20", 0, 0, 0, 0},
        DimensionCase{"NameBeforeItsStart", {eProfPropName, -1, 3}, L"200Z", 0, 0, 0, 200},
        DimensionCase{"NameIsNoNumber", {eProfPropName, 0, 3}, L"ZED", 0, 0, 0, 0},
        DimensionCase{"Fixed", {eProfPropFixed}, L"", 201, 61, 2.5, 7},
        DimensionCase{"Attributes", {eProfPropAttrib}, L"", 200, 60, 2, -0.1},
        DimensionCase{"None", {eProfPropNone}, L"", -0.1, -0.1, -0.1, -0.1},
        DimensionCase{"Unknown", {kUnknownSource}, L"", -0.1, -0.1, -0.1, -0.1}),
    kCaseName);

TEST(CMemTypeAndAttribTest, OnlyTheThicknessHasAFactor) {
    CMemTypeAndAttrib type = TypeFrom({eProfPropName, 1, 3}, 0.01);
    type.SetProfileName(L"Z150");
    EXPECT_DOUBLE_EQ(type.GetProfileThick(), 1.5);
    EXPECT_EQ(type.GetProfileHeight(), 150.0);
}

TEST(CMemTypeAndAttribTest, AttributesDecideTheFlangeWidths) {
    CMemTypeAndAttrib type = TypeFrom({eProfPropFixed});
    EXPECT_EQ(type.GetTopFlangeWidth(), 61.0);
    EXPECT_EQ(type.GetBottomFlangeWidth(), 61.0);
    type.SetMemAttrib(Attributes());
    EXPECT_EQ(type.GetTopFlangeWidth(), 70.0);
    EXPECT_EQ(type.GetBottomFlangeWidth(), 60.0);
    EXPECT_EQ(CMemTypeAndAttrib(type).GetTopFlangeWidth(), 70.0);
}

TEST(CMemTypeAndAttribTest, RoundsTheLengthAsPrinted) {
    CMemTypeAndAttrib type;
    type.SetLength(1234.56789);
    EXPECT_EQ(type.GetLength(), 1234.568);
    type.SetLength(0.0625);
    EXPECT_EQ(type.GetLength(), 0.062);
}

TEST(CMemTypeAndAttribTest, QuantityMayGoBelowZero) {
    ZetNCHeaderData header;
    header.quantity = 5;
    CMemTypeAndAttrib type;
    type.SetHeaderData(header);
    EXPECT_EQ(type.SubtractQty(2), 3);
    EXPECT_EQ(type.SubtractQty(4), -1);
    EXPECT_EQ(type.GetQty(), -1);
}

}  // namespace
