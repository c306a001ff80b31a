#include "support/HeaderOf.h"

#include "camdata/rules/CMemTypeAndAttrib.h"
#include "camdata/rules/MemberTypeValues.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Numbers = std::vector<double>;

/// Where a dimension comes from, and its part of the profile name.
struct Source {
    int type, start, length;
};

/// Fixed values 201, 61, 2.5 and 7, in the order of the sources.
CMemTypeAndAttrib TypeFrom(const Source (&from)[4], double thickFactor, double slopeFactor) {
    const auto type = [&](int i) { return static_cast<eProfPropType>(from[i].type); };
    CMemTypeAndAttrib memType;
    // clang-format off
    memType.SetValues(3, 11, type(0), from[0].start, from[0].length, 201.0,
                      type(1), from[1].start, from[1].length, 61.0,
                      type(2), from[2].start, from[2].length, 2.5, thickFactor,
                      type(3), from[3].start, from[3].length, 7.0, slopeFactor,
                      12, 13, L"Z purlin", L"Z", 14, 15, 16);
    // clang-format on
    return memType;
}

/// The same by the names of the values.
CMemTypeAndAttrib NamedTypeFrom(const Source (&from)[4], double thickFactor, double slopeFactor) {
    const auto dimension = [&](int i, double value, double factor) {
        return DimensionValues{
            static_cast<eProfPropType>(from[i].type), from[i].start, from[i].length, value, factor};
    };
    return MakeMemberType({.recordType = 3,
                           .profileLength = 11,
                           .height = dimension(0, 201.0, 1.0),
                           .width = dimension(1, 61.0, 1.0),
                           .thickness = dimension(2, 2.5, thickFactor),
                           .slope = dimension(3, 7.0, slopeFactor),
                           .checkProfileLength = 12,
                           .viewStart = 13,
                           .description = L"Z purlin",
                           .shortName = L"Z",
                           .nameStart = 14,
                           .nameLength = 15,
                           .attributeSearchLength = 16});
}

constexpr CMemTypeAndAttrib (*kWaysToSet[])(const Source (&)[4], double, double) = {TypeFrom,
                                                                                    NamedTypeFrom};

CMemTypeAndAttrib TypeFrom(const Source& all) {
    return TypeFrom({all, all, all, all}, 0.1, 1.0);
}

CMemAttrib Attributes() {
    CMemAttrib attributes;
    attributes.SetValues(200.0, 60.0, 70.0, 2.0);
    return attributes;
}

// clang-format off
Numbers SizesOf(const CMemTypeAndAttrib& type) {
    return {type.GetProfileHeight(), type.GetProfileWidth(),
            type.GetProfileThick(), type.GetTopFlangeSlope()};
}
// clang-format on

Numbers FlangeWidthsOf(const CMemTypeAndAttrib& type) {
    return {type.GetTopFlangeWidth(), type.GetBottomFlangeWidth()};
}

/// All that is neither a dimension nor the header.
std::vector<long> NumbersOf(const CMemTypeAndAttrib& type) {
    return {type.GetRecordType(),
            type.GetProfileLength(),
            type.GetCheckProfileLength(),
            type.GetViewStartNo(),
            type.GetNameStartPos(),
            type.GetNameLength(),
            type.GetSearchLenForAttrib()};
}

ZetString TextsOf(const CMemTypeAndAttrib& type) {
    return type.GetProfDesc() + L"|" + type.GetShortName();
}

TEST(CMemTypeAndAttribTest, SetsEachFieldFromItsArgument) {
    const Source sources[] = {
        {2, 0, 0},
        {2, 0, 0},
        {2, 0, 0},
        {2, 0, 0}
    };
    for (const auto& set : kWaysToSet) {
        const CMemTypeAndAttrib type = set(sources, 0.1, 1.0);
        EXPECT_EQ(NumbersOf(type), (std::vector<long>{3, 11, 12, 13, 14, 15, 16}));
        EXPECT_EQ(TextsOf(type), L"Z purlin|Z");
    }
}

TEST(CMemTypeAndAttribTest, WhatIsNotNamedIsAsNobodySetIt) {
    const CMemTypeAndAttrib named = MakeMemberType({});
    const CMemTypeAndAttrib untouched;
    EXPECT_EQ(NumbersOf(named), NumbersOf(untouched));
    EXPECT_EQ(TextsOf(named), TextsOf(untouched));
    EXPECT_EQ(SizesOf(named), SizesOf(untouched));
}

TEST(CMemTypeAndAttribTest, EachDimensionHasItsOwnSourceAndPlace) {
    const Numbers fixed = {201, 61, 2.5, 7};
    for (const auto& set : kWaysToSet)
        for (std::size_t i = 0; i < fixed.size(); ++i) {
            // clang-format off
            Source sources[] = {{1, 1, 3}, {1, 4, 2}, {1, 6, 2}, {1, 8, 2}};
            // clang-format on
            sources[i].type = eProfPropFixed;
            CMemTypeAndAttrib type = set(sources, 0.1, 5.0);
            type.SetProfileName(L"Z2006015-12");
            Numbers expected = {200, 60, 1.5, -12};
            expected[i] = fixed[i];
            EXPECT_EQ(SizesOf(type), expected) << i;
        }
}

TEST(CMemTypeAndAttribTest, DimensionsComeFromTheirSource) {
    // clang-format off
    struct Case { Source source; const wchar_t* profile; double height, width, thick, slope; };
    constexpr Case kCases[] = {
        {{0, 0, 0}, L"", 202, 62, 3, -0.1},        {{1, 2, 2}, L"Z-15", 15, 15, 1.5, 5},
        {{1, 3, 2}, L"Z20-12", -1, -1, -0.1, -12}, {{1, 3, 2}, L"Z20+12", 1, 1, 0.1, 12},
        {{1, 3, 2}, L"Z20", 0, 0, 0, 0},           {{1, -1, 3}, L"200Z", 0, 0, 0, 200},
        {{1, 0, 3}, L"ZED", 0, 0, 0, 0},           {{2, 0, 0}, L"", 201, 61, 2.5, 7},
        {{3, 0, 0}, L"", 200, 60, 2, -0.1},        {{4, 0, 0}, L"", -0.1, -0.1, -0.1, -0.1},
        {{9, 0, 0}, L"", -0.1, -0.1, -0.1, -0.1},  {{1, 1, 1}, L"Z75", 7, 7, 0.7, 5},
    };
    // clang-format on
    for (const Case& each : kCases) {
        SCOPED_TRACE("source " + std::to_string(each.source.type) + ", profile " +
                     ZetString(each.profile).toUtf8());
        CMemTypeAndAttrib type = TypeFrom(each.source);
        type.SetHeaderData(HeaderOf{
            .profileName = each.profile, .height = 202.0, .width = 62.0, .thickness = 3.0});
        type.SetMemAttrib(Attributes());
        const Numbers sizes = {each.height, each.width, each.thick, each.slope};
        for (std::size_t i = 0; i < sizes.size(); ++i)
            EXPECT_DOUBLE_EQ(SizesOf(type)[i], sizes[i]) << i;
    }
}

TEST(CMemTypeAndAttribTest, AttributesDecideTheFlangeWidths) {
    CMemTypeAndAttrib type = TypeFrom({eProfPropFixed, 0, 0});
    EXPECT_EQ(FlangeWidthsOf(type), (Numbers{61, 61}));
    type.SetMemAttrib(Attributes());
    EXPECT_EQ(FlangeWidthsOf(CMemTypeAndAttrib(type)), (Numbers{70, 60}));
}

TEST(CMemTypeAndAttribTest, RoundsTheLengthAsPrinted) {
    CMemTypeAndAttrib type;
    type.SetLength(1234.56789);
    EXPECT_EQ(type.GetLength(), 1234.568);
    type.SetLength(0.0625);
    EXPECT_EQ(type.GetLength(), 0.062);
}

}  // namespace
