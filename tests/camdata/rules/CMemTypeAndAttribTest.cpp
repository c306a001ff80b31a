#include "camdata/rules/CMemTypeAndAttrib.h"

#include <string>

#include <gtest/gtest.h>

namespace {

/// A member type whose four dimensions share a source; fixed values 201, 61, 2.5 and 7.
CMemTypeAndAttrib TypeFrom(int from, int start = 0, int length = 0, double thickFactor = 0.1) {
    const auto source = static_cast<eProfPropType>(from);
    CMemTypeAndAttrib type;
    type.SetValues(3,
                   11,
                   source,
                   start,
                   length,
                   201.0,
                   source,
                   start,
                   length,
                   61.0,
                   source,
                   start,
                   length,
                   2.5,
                   thickFactor,
                   source,
                   start,
                   length,
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
    const CMemTypeAndAttrib type = TypeFrom(eProfPropFixed);
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

TEST(CMemTypeAndAttribTest, EachDimensionHasItsOwnSourceAndPlace) {
    struct Case {
        int fixed;  ///< the one of the four dimensions that has a fixed value
        double height;
        double width;
        double thick;
        double slope;
    };
    constexpr Case kCases[] = {
        {0, 201, 60, 1.5, -12},
        {1, 200, 61, 1.5, -12},
        {2, 200, 60, 2.5, -12},
        {3, 200, 60, 1.5, 7  },
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.fixed);
        const auto source = [&](int dimension) {
            return dimension == each.fixed ? eProfPropFixed : eProfPropName;
        };
        CMemTypeAndAttrib type;
        type.SetValues(3,
                       11,
                       source(0),
                       1,
                       3,
                       201.0,
                       source(1),
                       4,
                       2,
                       61.0,
                       source(2),
                       6,
                       2,
                       2.5,
                       0.1,
                       source(3),
                       8,
                       2,
                       7.0,
                       5.0,
                       12,
                       13,
                       L"Z purlin",
                       L"Z",
                       14,
                       15,
                       16);
        type.SetProfileName(L"Z2006015-12");
        EXPECT_EQ(type.GetProfileHeight(), each.height);
        EXPECT_EQ(type.GetProfileWidth(), each.width);
        EXPECT_EQ(type.GetProfileThick(), each.thick);
        EXPECT_EQ(type.GetTopFlangeSlope(), each.slope);
    }
}

TEST(CMemTypeAndAttribTest, DimensionsComeFromTheirSource) {
    struct Case {
        int source;
        int start;
        int length;
        const wchar_t* profile;
        double height;
        double width;
        double thick;
        double slope;
    };
    constexpr Case kCases[] = {
        {0, 0,  0, L"",       202,  62,   3,    -0.1},
        {1, 2,  2, L"Z-15",   15,   15,   1.5,  5   },
        {1, 3,  2, L"Z20-12", -1,   -1,   -0.1, -12 },
        {1, 3,  2, L"Z20+12", 1,    1,    0.1,  12  },
        {1, 3,  2, L"Z20",    0,    0,    0,    0   },
        {1, -1, 3, L"200Z",   0,    0,    0,    200 },
        {1, 0,  3, L"ZED",    0,    0,    0,    0   },
        {2, 0,  0, L"",       201,  61,   2.5,  7   },
        {3, 0,  0, L"",       200,  60,   2,    -0.1},
        {4, 0,  0, L"",       -0.1, -0.1, -0.1, -0.1},
        {9, 0,  0, L"",       -0.1, -0.1, -0.1, -0.1},
    };
    ZetNCHeaderData header;
    header.height = 202.0;
    header.width = 62.0;
    header.thickness = 3.0;
    for (const Case& each : kCases) {
        SCOPED_TRACE("source " + std::to_string(each.source) + ", profile " +
                     ZetString(each.profile).toUtf8());
        CMemTypeAndAttrib type = TypeFrom(each.source, each.start, each.length);
        header.profileName = each.profile;
        type.SetHeaderData(header);
        type.SetMemAttrib(Attributes());
        EXPECT_DOUBLE_EQ(type.GetProfileHeight(), each.height);
        EXPECT_DOUBLE_EQ(type.GetProfileWidth(), each.width);
        EXPECT_DOUBLE_EQ(type.GetProfileThick(), each.thick);
        EXPECT_DOUBLE_EQ(type.GetTopFlangeSlope(), each.slope);
    }
}

TEST(CMemTypeAndAttribTest, OnlyTheThicknessHasAFactor) {
    CMemTypeAndAttrib type = TypeFrom(eProfPropName, 1, 3, 0.01);
    type.SetProfileName(L"Z150");
    EXPECT_DOUBLE_EQ(type.GetProfileThick(), 1.5);
    EXPECT_EQ(type.GetProfileHeight(), 150.0);
}

TEST(CMemTypeAndAttribTest, AttributesDecideTheFlangeWidths) {
    CMemTypeAndAttrib type = TypeFrom(eProfPropFixed);
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
