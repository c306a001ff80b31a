#include "support/CurrentTolerance.h"
#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <array>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Numbers = std::vector<double>;

constexpr double kEPS = 0.1;
constexpr double kYTol = 0.5;
constexpr double kOther = 7.0;

ZetNCHoleData HoleData(double x, double y, double size, int kind = 0) {
    ZetNCHoleData hole;
    hole.x = x;
    hole.y = y;
    hole.size = size;
    hole.kind = kind;
    return hole;
}

ZetNCHoleData SetAside(ZetNCHoleData hole, int commented) {
    hole.commented = commented;
    return hole;
}

ZetNCHoleData SlotData(double x, double y, double size, double length) {
    ZetNCHoleData slot = HoleData(x, y, size);
    slot.slot = 1;
    slot.slotLength = length;
    return slot;
}

using Points = ZetArray<ZetGeomPoint2d>;

ZetNCContour Contour(int type, const Points& points) {
    ZetNCContour contour;
    contour.type = type;
    for (const ZetGeomPoint2d& point : points) {
        contour.xValues.append(point.x);
        contour.yValues.append(point.y);
        contour.bulges.append(0.0);
    }
    return contour;
}

/// 20 x 20 around (x, y).
ZetNCContour Opening(double x, double y) {
    const ZetGeomPoint2d lowerLeft = {x - 10, y - 10};
    const ZetGeomPoint2d lowerRight = {x + 10, y - 10};
    const ZetGeomPoint2d upperRight = {x + 10, y + 10};
    const ZetGeomPoint2d upperLeft = {x - 10, y + 10};
    return Contour(ZetNCContour::eTypeInternal,
                   {lowerLeft, lowerRight, upperRight, upperLeft, lowerLeft});
}

// clang-format off
/// 1000 x 200, cut by 100 x 50 at the lower left and by 100 x 60 at the lower right.
const Points kNotchedAtBothEnds =
    {{100, 0}, {900, 0}, {900, 60}, {1000, 60}, {1000, 200},
     {0, 200}, {0, 50}, {100, 50}, {100, 0}};
const Points kWhole = {{0, 0}, {1000, 0}, {1000, 200}, {0, 200}, {0, 0}};
// clang-format on

ZetNCView View(int position, const ZetArray<ZetNCHoleData>& holes) {
    ZetNCView view;
    view.setViewPos(position);
    view.setHoles(holes);
    return view;
}

Numbers SizesOf(const ZetArray<CHoleAddlInfo>& holes) {
    Numbers sizes;
    for (const CHoleAddlInfo& hole : holes)
        sizes.push_back(hole.GetSize());
    return sizes;
}

using NotchPlace = std::array<double, 3>;

/// X, Y and status of each notch.
std::vector<NotchPlace> PlacesOf(const ZetArray<CNotchAddInfo>& notches) {
    std::vector<NotchPlace> places;
    for (const CNotchAddInfo& notch : notches)
        places.push_back(
            {notch.GetXPos(), notch.GetYPos(), static_cast<double>(notch.GetNotchStatus())});
    return places;
}

/// A member that may have any contour; starts with a current tolerance that nothing selects.
class GatheringTest : public ::testing::Test {
  protected:
    void SetUp() override {
        CMxGeom::SetTol(eTolValue, kOther);
        member.m_validations.SetNoOfInternalContours(-1);
        member.m_validations.SetNoOfExternalContours(-1);
    }

    void Gather(const ZetArray<ZetNCView>& views) {
        member.m_structure.setViews(views);
        member.GetAndSortHolesNotches();
    }

    TestMember member;
};

TEST_F(GatheringTest, MarksAloneAreNothingToGather) {
    ZetNCView marks;
    marks.setMarks({ZetNCMark()});
    ZetNCView numerations;
    numerations.setNumerations({ZetNCNumeration()});
    Gather({ZetNCView(), marks, numerations});
    EXPECT_TRUE(member.m_holes.isEmpty() && member.m_notches.isEmpty());
    EXPECT_TRUE(CurrentToleranceIs(kOther));
}

TEST_F(GatheringTest, HolesComeViewByViewInOrder) {
    const ZetNCView web =
        View(1, {HoleData(500, 90, 1), HoleData(100, 90, 2), HoleData(100, 10, 3)});
    const ZetNCView top = View(0, {HoleData(50, 30, 4)});
    Gather({web, top});
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({3, 2, 1, 4}));
    EXPECT_TRUE(CurrentToleranceIs(kEPS));
    member.GetAndSortHolesNotches();
    EXPECT_EQ(member.m_holes.length(), 8) << "what was there stays";
}

TEST_F(GatheringTest, AViewWithAFeatureSelectsATolerance) {
    Gather({View(1, {HoleData(500, 90, 1)})});
    EXPECT_TRUE(CurrentToleranceIs(kEPS));
}

/// Ordering puts the last of equal holes first, and the first survives.
TEST_F(GatheringTest, OfHolesAtOnePlaceTheLastSurvives) {
    Gather({View(1, {HoleData(100, 50, 1), HoleData(100, 50, 2), HoleData(100, 50, 3)})});
    EXPECT_EQ(SizesOf(member.m_holes), Numbers{3});
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers({2, 1}));
}

TEST_F(GatheringTest, OrderFollowsThePositionsAsTheyAreNow) {
    CViewData mirrored;
    mirrored.SetDimXNegate(-1.0);
    member.SetHoleDataArr({HoleData(100, 0, 1), HoleData(300, 0, 2), HoleData(200, 0, 3)},
                          mirrored);
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({2, 3, 1}));
}

TEST_F(GatheringTest, CountersinksLeaveBeforeDuplicates) {
    Gather({View(1, {HoleData(100, 50, 11), HoleData(100, 50, 22, 4), HoleData(101, 50, 11)})});
    ASSERT_EQ(SizesOf(member.m_holes), Numbers{11});
    EXPECT_TRUE(member.m_holes[0].GetIsCSK());
    EXPECT_EQ(SizesOf(member.m_cskHoles), Numbers{22});
    EXPECT_EQ(member.m_duplicateHoles.length(), 1);
}

/// At once, in the order of the NC data, and in member coordinates.
TEST_F(GatheringTest, HolesSetAsideAreDuplicates) {
    CViewData view;
    view.SetFaceWidth(200.0);
    view.SetDimFromOtherFace(-1.0);
    member.SetHoleDataArr({SetAside(HoleData(500, 30, 1), 1),
                           SetAside(HoleData(100, 50, 2, 4), 1),
                           SetAside(HoleData(900, 50, 3), 2),
                           HoleData(100, 50, 4)},
                          view);
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({4, 3})) << "only 1 sets a hole aside";
    EXPECT_FALSE(member.m_holes[0].GetIsCSK()) << "a countersink that is set aside marks nothing";
    ASSERT_EQ(SizesOf(member.m_duplicateHoles), Numbers({1, 2}));
    EXPECT_EQ(member.m_duplicateHoles[0].GetYPos(), 170.0);
    EXPECT_TRUE(member.m_cskHoles.isEmpty());
}

TEST_F(GatheringTest, SlotsHoldHolesOfOtherViewsOfTheirFace) {
    Gather({View(1, {SlotData(100, 50, 14, 40)}),
            View(4, {HoleData(105, 50, 5)}),
            View(3, {HoleData(110, 50, 6)})});
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({14, 6}));
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers{5});
    EXPECT_TRUE(CurrentToleranceIs(kYTol));
}

/// The first piece comes last; each is corrected once.
TEST_F(GatheringTest, PiecesOfAContour) {
    CViewData view;
    view.SetFaceWidth(200.0);
    view.SetDimFromOtherFace(-1.0);
    member.SetNotchDataArr({Contour(ZetNCContour::eTypeExternal, kNotchedAtBothEnds)}, view);
    EXPECT_EQ(PlacesOf(member.m_notches),
              (std::vector<NotchPlace>{
                  NotchPlace{950, 170, 0},
                  NotchPlace{50,  175, 0}
    }));
}

TEST_F(GatheringTest, ExternalContoursComeBeforeInternalOnes) {
    ZetNCView view;
    view.setViewPos(1);
    view.setInternalContours({Opening(500, 100), Opening(300, 100)});
    view.setExternalContours({Contour(ZetNCContour::eTypeExternal, kWhole)});
    Gather({view});
    EXPECT_EQ(PlacesOf(member.m_notches),
              (std::vector<NotchPlace>{
                  NotchPlace{500, 100, 4},
                  NotchPlace{500, 100, 0},
                  NotchPlace{300, 100, 0}
    }));
    EXPECT_TRUE(CurrentToleranceIs(kEPS));
}

TEST_F(GatheringTest, ContoursThatTheLimitsForbid) {
    const ZetArray<ZetNCContour> external = {
        Contour(ZetNCContour::eTypeExternal, kNotchedAtBothEnds),
        Contour(ZetNCContour::eTypeExternal, kWhole)};
    const ZetArray<ZetNCContour> internal = {Opening(500, 100)};
    struct Case {
        const char* name;
        long internalLimit;
        long externalLimit;
        std::vector<int> statuses;
    };
    const Case cases[] = {
        {"none allowed",  0,  0,  {5, 5, 4, 5}},
        {"external only", 0,  1,  {0, 0, 4, 5}},
        {"internal only", 1,  0,  {5, 5, 4, 0}},
        {"any number",    -1, -1, {0, 0, 4, 0}},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        TestMember limited;
        limited.m_validations.SetNoOfInternalContours(each.internalLimit);
        limited.m_validations.SetNoOfExternalContours(each.externalLimit);
        limited.SetNotchDataArr(external, CViewData());
        limited.SetNotchDataArr(internal, CViewData());
        std::vector<int> statuses;
        for (const CNotchAddInfo& notch : limited.m_notches)
            statuses.push_back(notch.GetNotchStatus());
        EXPECT_EQ(statuses, each.statuses);
    }
}

/// Notches are compared with the tolerance that the holes left.
TEST_F(GatheringTest, ASlotWidensTheSearchForDuplicateNotches) {
    const ZetArray<ZetNCHoleData> slotOnly = {SlotData(800, 50, 14, 40)};
    const ZetArray<ZetNCHoleData> slotAndHole = {SlotData(800, 50, 14, 40), HoleData(10, 50, 14)};
    for (const bool hasHole : {false, true}) {
        ZetNCView view = View(1, hasHole ? slotAndHole : slotOnly);
        view.setInternalContours({Opening(500, 100), Opening(500.4, 100)});
        TestMember other;
        other.m_structure.setViews({view});
        other.GetAndSortHolesNotches();
        EXPECT_EQ(other.m_notches.length(), hasHole ? 1 : 2);
        EXPECT_EQ(other.m_duplicateNotches.length(), hasHole ? 1 : 0);
    }
}

TEST_F(GatheringTest, NotchesAreOrderedOnRequest) {
    member.SetNotchDataArr({Opening(500, 100), Opening(300, 90), Opening(300, 80)}, CViewData());
    TestMember::OrderNotches(member.m_notches);
    EXPECT_EQ(PlacesOf(member.m_notches),
              (std::vector<NotchPlace>{
                  NotchPlace{300, 80,  0},
                  NotchPlace{300, 90,  0},
                  NotchPlace{500, 100, 0}
    }));
}

}  // namespace
