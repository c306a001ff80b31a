#include "support/AssertionOf.h"
#include "support/ContourOf.h"
#include "support/CurrentTolerance.h"
#include "support/Outlines.h"

#include "camdata/notches/CNotchAddInfo.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr int kExternal = ZetNCContour::eTypeExternal;
constexpr int kInternal = ZetNCContour::eTypeInternal;
constexpr double kEPS = 0.1;
constexpr double kXTol = 0.5;
constexpr double kOther = 7.0;

// clang-format off
const OutlinePoints kRectangle = {{0, 0}, {1000, 0}, {1000, 200}, {0, 200}, {0, 0}};
const OutlinePoints kStraightVertex = {{0, 0}, {500, 0}, {1000, 0}, {1000, 200}, {0, 200}, {0, 0}};
const OutlinePoints kThinStep = {{0, 0}, {1000, 0}, {1000, 200}, {500, 200}, {500, 199.96}, {0, 199.96}, {0, 0}};
/// 0.1005 high.
const OutlinePoints kStep = {{0, 0}, {1000, 0}, {1000, 200}, {500, 200}, {500, 199.8995}, {0, 199.8995}, {0, 0}};
const OutlinePoints kCrossing = {{0, 0}, {100, 0}, {100, 80}, {50, -20}, {0, 80}, {0, 0}};
const OutlinePoints kTrapezoid = {{0, 0}, {100, 0}, {80, 50}, {20, 50}, {0, 0}};
const OutlinePoints kSkewed = {{0, 0}, {100, 0}, {300, 200}, {200, 200}, {0, 0}};
/// A cut-away corner of 100 x 50 around (50, 175).
const OutlinePoints kLShape = {{0, 0}, {1000, 0}, {1000, 200}, {100, 200}, {100, 150}, {0, 150}, {0, 0}};
const OutlinePoints kChamferedLShape =
    {{0, 0}, {1000, 0}, {1000, 200}, {100, 200}, {100, 150.1}, {99.9, 150}, {0, 150}, {0, 0}};
const OutlinePoints kHardlyChamferedLShape =
    {{0, 0}, {1000, 0}, {1000, 200}, {100, 200}, {100, 150.05}, {99.95, 150}, {0, 150}, {0, 0}};
/// Cut-aways of 100 x 50 around (50, 25) and of 100 x 60 around (950, 30).
const OutlinePoints kBothEndsNotched =
    {{100, 0}, {900, 0}, {900, 60}, {1000, 60}, {1000, 200}, {0, 200}, {0, 50}, {100, 50}, {100, 0}};
/// 20 x 50 around (10, 25).
const OutlinePoints kSmallRectangle = {{0, 0}, {20, 0}, {20, 50}, {0, 50}, {0, 0}};
const OutlinePoints kParallelogram = {{0, 0}, {100, 0}, {130, 40}, {30, 40}, {0, 0}};
/// Around (10, 25), as the small rectangle is; without its last point, around (15, 0).
const OutlinePoints kTriangle = {{0, 0}, {30, 0}, {0, 75}};
const OutlinePoints kOnePoint = {{100, 50}};
// clang-format on

CViewData ViewOn(eHoleFace face) {
    CViewData view;
    view.SetHoleFace(face);
    return view;
}

/// Takes a contour and leaves further pieces out.
void SetData(CNotchAddInfo& notch, const ZetNCContour& contour, const CViewData& view = {}) {
    ZetArray<CNotchAddInfo> extra;
    notch.SetNotchData(contour, view, extra);
}

CNotchAddInfo NotchOf(const OutlinePoints& points, int type, eHoleFace face = eHoleFaceWeb) {
    CNotchAddInfo notch;
    SetData(notch, ContourOf(type, points), ViewOn(face));
    return notch;
}

CNotchAddInfo PieceOf(const OutlinePoints& points, const CViewData& view) {
    CNotchAddInfo notch;
    EXPECT_TRUE(notch.setNotchFromPoly(ZetGeomAugPolygon(points, 0.0), view, kInternal));
    return notch;
}

/// The small rectangle with its lower left corner at (x, y).
CNotchAddInfo OpeningAt(double x, double y, eHoleFace face = eHoleFaceWeb) {
    const auto move = [&](const ZetGeomPoint2d& p) { return ZetGeomPoint2d{p.x + x, p.y + y}; };
    return NotchOf(Mapped(kSmallRectangle, move), kInternal, face);
}

// clang-format off
struct Expected { double x, y; long vertices; double length, width; };
// clang-format on

void ExpectNotch(const CNotchAddInfo& notch, const Expected& expected) {
    EXPECT_NEAR(notch.GetXPos(), expected.x, 1e-9);
    EXPECT_NEAR(notch.GetYPos(), expected.y, 1e-9);
    EXPECT_EQ(notch.GetNoOfVertices(), expected.vertices);
    EXPECT_NEAR(notch.GetLength(), expected.length, 1e-9);
    EXPECT_NEAR(notch.GetWidth(), expected.width, 1e-9);
}

// clang-format off
struct ContourCase { const char* name; int type; OutlinePoints points;
                     eNotchStatus status; Expected notch; std::vector<Expected> extra; };
// clang-format on

void ExpectNotchesOf(const ContourCase& given, const OutlinePoints& points) {
    CNotchAddInfo notch;
    ZetArray<CNotchAddInfo> extra;
    notch.SetNotchData(ContourOf(given.type, points), ViewOn(eHoleFaceWeb), extra);
    EXPECT_EQ(notch.GetNotchStatus(), given.status);
    EXPECT_EQ(notch.GetIsInternal(), given.type == kInternal);
    ExpectNotch(notch, given.notch);
    ASSERT_EQ(extra.length(), static_cast<long>(given.extra.size()));
    for (long i = 0; i < extra.length(); ++i) {
        EXPECT_EQ(extra[i].GetNotchStatus(), eNotchValid);
        EXPECT_FALSE(extra[i].GetIsInternal());
        ExpectNotch(extra[i], given.extra[static_cast<std::size_t>(i)]);
    }
}

TEST(CNotchAddInfoTest, TakesWhatAContourCutsOrShows) {
    // clang-format off
    const ContourCase cases[] = {
        {"rectangle", 0, kRectangle, eNotchNone, {500, 100, 5, 1000, 200}, {}},
        // Every point of the contour counts for its position, the one in the middle of an edge too.
        {"a straight vertex", 0, kStraightVertex, eNotchNone, {500, 80, 6, 0, 0}, {}},
        {"step too thin for a notch", 0, kThinStep, eNotchNone, {500, 799.92 / 6, 7, 0, 0}, {}},
        {"step just thick enough", 0, kStep, eNotchValid, {250, 199.94975, 5, 500, 0.1005}, {}},
        {"crossing itself", 0, kCrossing, eNotchNone, {50, 28, 6, 0, 0}, {}},
        {"L", 0, kLShape, eNotchValid, {50, 175, 5, 100, 50}, {}},
        {"both ends notched", 0, kBothEndsNotched, eNotchValid, {50, 25, 5, 100, 50}, {{950, 30, 5, 100, 60}}},
        {"trapezoid", 0, kTrapezoid, eNotchValid, {20.0 / 3, 100.0 / 3, 4, 0, 0}, {{280.0 / 3, 100.0 / 3, 4, 0, 0}}},
        // The smallest rectangle stands at 45 degrees: it adds the corners (50, -50) and (250, 250).
        {"both ends skewed", 0, kSkewed, eNotchValid, {50, -50.0 / 3, 4, 0, 0}, {{250, 650.0 / 3, 4, 0, 0}}},
        {"L with a chamfer of 0.1", 0, kChamferedLShape, eNotchValid, {59.98, 170.02, 6, 0, 0}, {}},
        {"internal rectangle", 1, kSmallRectangle, eNotchValid, {10, 25, 5, 20, 50}, {}},
        {"internal L", 1, kLShape, eNotchValid, {2200.0 / 6, 700.0 / 6, 7, 0, 0}, {}},
        {"L of another type", 2, kLShape, eNotchValid, {2200.0 / 6, 700.0 / 6, 7, 0, 0}, {}},
    };
    // clang-format on
    for (const ContourCase& each : cases) {
        SCOPED_TRACE(each.name);
        ExpectNotchesOf(each, each.points);
        ExpectNotchesOf(each, Reversed(each.points));
    }
}

TEST(CNotchAddInfoTest, CornersNearEachOtherAreOne) {
    for (const OutlinePoints& points : {kHardlyChamferedLShape, Reversed(kHardlyChamferedLShape)})
        EXPECT_EQ(NotchOf(points, kExternal).GetNoOfVertices(), 5);
}

TEST(CNotchAddInfoTest, AnOutlineThatCutsNothingIsHeldItself) {
    EXPECT_TRUE(NotchOf(kRectangle, kExternal).CheckPosAreaVert(500, 100, 200000, 4));
    const OutlinePoints shortEdge = {
        {0,  0   },
        {20, 0   },
        {20, 0.05},
        {20, 50  },
        {0,  50  },
        {0,  0   }
    };
    for (const int type : {kExternal, kInternal})
        EXPECT_TRUE(NotchOf(shortEdge, type).CheckPosAreaVert(12, 20.01, 1000, 5));
}

TEST(CNotchAddInfoTest, OnlyFurtherPiecesComeCorrected) {
    CViewData view = ViewOn(eHoleFaceWebBack);
    view.SetFaceStr(L"BACK");
    view.SetFaceWidth(200.0);
    view.SetDimFromOtherFace(-1.0);
    CNotchAddInfo notch;
    ZetArray<CNotchAddInfo> notches = {OpeningAt(0, 0)};
    ZetNCContour contour = ContourOf(kExternal, kBothEndsNotched);
    contour.hostTag = 7;
    notch.SetNotchData(contour, view, notches);
    EXPECT_TRUE(notch.CheckPosAreaVert(50, 25, 5000, 4));
    ASSERT_EQ(notches.length(), 2) << "appended to what is there";
    EXPECT_TRUE(notches[1].CheckPosAreaVert(950, 170, 6000, 4));
    EXPECT_EQ(notch.GetContour().hostTag + notches[1].GetContour().hostTag, 14);
    EXPECT_EQ(notch.GetViewData().GetFaceStr() + notches[1].GetViewData().GetFaceStr(), L"WEBWEB");
}

TEST(CNotchAddInfoTest, FewerThanTwoPointsLeaveNoPosition) {
    for (const int type : {kExternal, kInternal}) {
        SCOPED_TRACE(type);
        const CNotchAddInfo onePoint = NotchOf(kOnePoint, type);
        EXPECT_TRUE(std::isnan(onePoint.GetXPos()) && std::isnan(onePoint.GetYPos()));
        EXPECT_EQ(onePoint.GetNoOfVertices(), 0);
        EXPECT_EQ(onePoint.GetNotchStatus(), type == kExternal ? eNotchNone : eNotchValid);
        const CNotchAddInfo noPoint = NotchOf({}, type);
        EXPECT_EQ(noPoint.GetXPos(), 0.0);
        EXPECT_TRUE(std::signbit(noPoint.GetXPos()) && std::signbit(noPoint.GetYPos()));
    }
}

TEST(CNotchAddInfoTest, UnclosedOrIncompleteContours) {
    ExpectNotch(NotchOf(kTriangle, kInternal), {15, 0, 3, 0, 0});  // without its last point
    const OutlinePoints twoPoints = {kTriangle[1], kTriangle[2]};
    ExpectNotch(NotchOf(twoPoints, kInternal), {30, 0, 2, 0, 0});
    ZetNCContour contour = ContourOf(kExternal, kLShape);
    contour.yValues.removeAt(0);
    EXPECT_EQ(AssertionOf([&] {
                  CNotchAddInfo notch;
                  SetData(notch, contour);
              }),
              "isValid( index )");
}

/// The small rectangle with a status and an output text of its own.
CNotchAddInfo Used() {
    CNotchAddInfo notch = OpeningAt(0, 0, eHoleFaceTopFlange);
    notch.SetNotchStatus(eNotchNotAllowed);
    notch.AppendMsg(eHoleMsgCode, L"out");
    return notch;
}

bool HasShape(const CNotchAddInfo& notch) {
    return notch.GetIsRect() || notch.GetIsSqr() || notch.GetIsParallelToAxis();
}

TEST(CNotchAddInfoTest, ResetKeepsOutlinePolygonLengthAndWidth) {
    CNotchAddInfo notch = Used();
    notch.InitValues();
    EXPECT_EQ(notch.GetNotchStatus(), eNotchValid);
    EXPECT_FALSE(HasShape(notch) || notch.GetIsInternal());
    EXPECT_EQ(notch.GetViewData().GetHoleFace(), eHoleFaceNone);
    EXPECT_EQ(notch.GetOutMsg(), L"");
    EXPECT_TRUE(notch.GetXPos() == 0.0 && notch.GetYPos() == 0.0);
    EXPECT_TRUE(notch.CheckPosAreaVert(0, 0, 1000, 4));
    SetData(notch, ContourOf(kInternal, kOnePoint));
    EXPECT_TRUE(notch.GetIsRect()) << "judged by the outline that was there";
}

TEST(CNotchAddInfoTest, ContourResetsNothingAPolygonAll) {
    CNotchAddInfo notch = Used();
    CMxGeom::SetTol(eTolValue, kOther);
    SetData(notch, ContourOf(kInternal, kLShape));
    EXPECT_EQ(notch.GetNotchStatus(), eNotchNotAllowed);
    EXPECT_EQ(notch.GetOutMsg(), L"out");
    EXPECT_TRUE(notch.GetIsRect()) << "six corners are not judged";
    EXPECT_TRUE(CurrentToleranceIs(kOther));
    SetData(notch, ContourOf(kInternal, kParallelogram));
    EXPECT_FALSE(HasShape(notch));
    notch.SetIsRect(true);
    EXPECT_EQ(notch.GetLength(), 20.0) << "that of the rectangle before";

    for (const int type : {kExternal, kInternal, 2}) {
        notch = Used();
        const CViewData view = ViewOn(eHoleFaceWebBack);
        EXPECT_TRUE(notch.setNotchFromPoly(ZetGeomAugPolygon(kTriangle, 0.0), view, type));
        ExpectNotch(notch, {10, 25, 4, 0, 0});
        EXPECT_FALSE(HasShape(notch));
        EXPECT_EQ(notch.GetIsInternal(), type == kInternal);
        EXPECT_EQ(notch.GetNotchStatus(), eNotchValid);
        EXPECT_EQ(notch.GetOutMsg(), L"");
        EXPECT_EQ(notch.GetViewData().GetHoleFace(), eHoleFaceWebBack);
    }
}

using Flags = std::vector<bool>;

TEST(CNotchAddInfoTest, JudgesTheShapeOfFourCorners) {
    // clang-format off
    // The flags: rectangle, parallel to an axis, square.
    struct Case { const char* name; OutlinePoints corners; Flags flags; double length, width; };
    const Case cases[] = {
        {"first side along X", {{0, 0}, {100, 0}, {100, 50}, {0, 50}}, {1, 1, 0}, 100, 50},
        {"first side along -X", {{100, 0}, {0, 0}, {0, 50}, {100, 50}}, {1, 1, 0}, 100, 50},
        {"second side along X", {{0, 0}, {0, 50}, {100, 50}, {100, 0}}, {1, 1, 0}, 100, 50},
        {"turned", {{0, 0}, {30, 40}, {-50, 100}, {-80, 60}}, {1, 0, 0}, 50, 100},
        {"square", {{0, 0}, {50, 0}, {50, 50}, {0, 50}}, {1, 1, 1}, 50, 50},
        {"square on its corner", {{0, 0}, {30, 40}, {-10, 70}, {-40, 30}}, {1, 0, 1}, 50, 50},
        // No right angles are asked for.
        {"equal diagonals", {{0, 0}, {100, 0}, {80, 50}, {20, 50}}, {1, 1, 0}, 100, std::sqrt(2900.0)},
        {"diagonals within 0.1", {{0, 0}, {100, 0}, {100.1, 50}, {0, 50}}, {1, 1, 0}, 100, std::sqrt(2500.01)},
        {"diagonals beyond 0.1", {{0, 0}, {100, 0}, {100.2, 50}, {0, 50}}, {0, 0, 0}, 0, 0},
        {"parallelogram", kParallelogram, {0, 0, 0}, 0, 0},
    };
    // clang-format on
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        const CNotchAddInfo notch = PieceOf(each.corners, CViewData());
        const Flags flags = {notch.GetIsRect(), notch.GetIsParallelToAxis(), notch.GetIsSqr()};
        EXPECT_EQ(flags, each.flags);
        EXPECT_DOUBLE_EQ(notch.GetLength(), each.length);
        EXPECT_DOUBLE_EQ(notch.GetWidth(), each.width);
        EXPECT_TRUE(CurrentToleranceIs(kEPS));
    }
}

TEST(CNotchAddInfoTest, CorrectsYOnly) {
    // clang-format off
    struct Case { const char* name; double yNegate, fromOtherFace, y; };
    constexpr Case kCases[] = {
        {"as it stands", 1.0, 1.0, 25.0},      {"negated", -1.0, 1.0, -25.0},
        {"from other edge", 1.0, -1.0, 175.0}, {"both, in order", -1.0, -1.0, 225.0},
        {"zero is positive", 0.0, 0.0, 25.0},  {"hardly positive", 0.05, 0.05, 25.0},
        {"hardly negative", -0.05, -0.05, 225.0},
    };
    // clang-format on
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CViewData view;
        view.SetFaceWidth(200.0);
        view.SetDimXNegate(-1.0);
        view.SetYValOffset(1000.0);
        view.SetDimYNegate(each.yNegate);
        view.SetDimFromOtherFace(each.fromOtherFace);
        CNotchAddInfo notch;
        SetData(notch, ContourOf(kInternal, kSmallRectangle), view);
        notch.CorrectData();
        EXPECT_EQ(notch.GetXPos(), 10.0);
        EXPECT_EQ(notch.GetYPos(), each.y);
    }
}

TEST(CNotchAddInfoTest, ChecksVerticesThenPositionThenArea) {
    // clang-format off
    struct Case { const char* name; double x, y, area; long vertices;
                  bool fits; double toleranceAfter; };
    constexpr Case kCases[] = {
        {"exact",                        10.0, 25.0, 1000.0, 4, true,  2.0   },
        {"count with the closing point", 10.0, 25.0, 1000.0, 5, false, kOther},
        {"X near",                       10.4, 25.0, 1000.0, 4, true,  2.0   },
        {"X beyond",                     10.6, 25.0, 1000.0, 4, false, kXTol },
        {"Y near",                       10.0, 24.6, 1000.0, 4, true,  2.0   },
        {"Y beyond",                     10.0, 24.4, 1000.0, 4, false, kXTol },
        {"smaller area near",            10.0, 25.0, 998.5,  4, true,  2.0   },
        {"smaller area beyond",          10.0, 25.0, 997.5,  4, false, 2.0   },
        {"larger area near",             10.0, 25.0, 1004.5, 4, true,  5.0   },
        {"larger area beyond",           10.0, 25.0, 1005.5, 4, false, 5.0   },
        {"hardly larger area",           10.0, 25.0, 1000.05, 4, true, 5.0   },
        {"hardly smaller area",          10.0, 25.0, 999.95, 4, true,  2.0   },
    };
    // clang-format on
    const CNotchAddInfo counterClockwise = NotchOf(kSmallRectangle, kInternal);
    const CNotchAddInfo clockwise = NotchOf(Reversed(kSmallRectangle), kInternal);
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        for (const CNotchAddInfo& notch : {counterClockwise, clockwise}) {
            CMxGeom::SetTol(eTolValue, kOther);
            EXPECT_EQ(notch.CheckPosAreaVert(each.x, each.y, each.area, each.vertices), each.fits);
            EXPECT_TRUE(CurrentToleranceIs(each.toleranceAfter));
        }
    }
    CMxGeom::SetXTol(3.0);
    EXPECT_TRUE(counterClockwise.CheckPosAreaVert(12.9, 25.0, 1000.0, 4));
}

TEST(CNotchAddInfoTest, WebAndItsBackAreOneFace) {
    // A notch on the face is looked for on the other.
    // clang-format off
    struct Case { eHoleFace face, otherFace; bool isFound, equal; };
    constexpr Case kCases[] = {
        {eHoleFaceTopFlange, eHoleFaceTopFlange,    true,  true },
        {eHoleFaceWebBack,   eHoleFaceWebBack,      true,  true },
        {eHoleFaceWebBack,   eHoleFaceWeb,          true,  true },
        {eHoleFaceWeb,       eHoleFaceWebBack,      false, true },
        {eHoleFaceTopFlange, eHoleFaceWeb,          false, false},
        {eHoleFaceWebBack,   eHoleFaceBottomFlange, false, false},
    };
    // clang-format on
    for (const Case& each : kCases) {
        SCOPED_TRACE(testing::Message() << each.face << ", " << each.otherFace);
        const CNotchAddInfo notch = OpeningAt(0, 0, each.face);
        EXPECT_EQ(notch.CheckPosAreaVert(10, 25, 1000, 4, each.otherFace, true, eNotchValid),
                  each.isFound);
        EXPECT_EQ(notch == OpeningAt(0, 0, each.otherFace), each.equal);
    }
}

TEST(CNotchAddInfoTest, KindStatusAndVerticesTellNotchesApart) {
    const CNotchAddInfo opening = OpeningAt(0, 0);
    CNotchAddInfo matched = opening;
    matched.SetNotchStatus(eNotchCornerMatched);
    const CNotchAddInfo external = NotchOf(kSmallRectangle, 2);
    const CNotchAddInfo triangle = PieceOf(kTriangle, ViewOn(eHoleFaceWeb));
    for (const CNotchAddInfo& other : {matched, external, triangle}) {
        EXPECT_FALSE(opening == other);
        EXPECT_TRUE(other == CNotchAddInfo(other));
        EXPECT_FALSE(other.CheckPosAreaVert(10, 25, 1000, 4, eHoleFaceWeb, true, eNotchValid));
    }
}

}  // namespace
