#include "support/ContourOf.h"
#include "support/CurrentTolerance.h"
#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <tuple>
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

/// 20 x 20 around (x, y).
ZetNCContour Opening(double x, double y) {
    const ZetGeomPoint2d start = {x - 10, y - 10};
    return ContourOf(ZetNCContour::eTypeInternal,
                     {
                         start, {x + 10, y - 10},
                          {x + 10, y + 10},
                          {x - 10, y + 10},
                          start
    });
}

ZetNCContour External(const Points& points) {
    return ContourOf(ZetNCContour::eTypeExternal, points);
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

/// X, Y and status of each notch.
ZetString PlacesOf(const ZetArray<CNotchAddInfo>& notches) {
    ZetString places;
    for (const CNotchAddInfo& notch : notches) {
        const int status = notch.GetNotchStatus();
        places +=
            ZetString::format(L"(%.15g, %.15g) %d; ", notch.GetXPos(), notch.GetYPos(), status);
    }
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
    const auto web = {HoleData(500, 90, 1), HoleData(100, 90, 2), HoleData(100, 10, 3)};
    Gather({View(1, web), View(0, {HoleData(50, 30, 4)})});
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({3, 2, 1, 4}));
    EXPECT_TRUE(CurrentToleranceIs(kEPS));
    member.GetAndSortHolesNotches();
    EXPECT_EQ(member.m_holes.length(), 8) << "what was there stays";
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
    const ZetNCHoleData first = SetAside(HoleData(500, 30, 1), 1);
    const ZetNCHoleData countersink = SetAside(HoleData(100, 50, 2, 4), 1);
    const ZetNCHoleData other = SetAside(HoleData(900, 50, 3), 2);
    member.SetHoleDataArr({first, countersink, other, HoleData(100, 50, 4)}, view);
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({4, 3})) << "only 1 sets a hole aside";
    EXPECT_FALSE(member.m_holes[0].GetIsCSK()) << "a countersink that is set aside marks nothing";
    ASSERT_EQ(SizesOf(member.m_duplicateHoles), Numbers({1, 2}));
    EXPECT_EQ(member.m_duplicateHoles[0].GetYPos(), 170.0);
    EXPECT_TRUE(member.m_cskHoles.isEmpty());
}

TEST_F(GatheringTest, SlotsHoldHolesOfOtherViewsOfTheirFace) {
    const ZetNCView back = View(3, {HoleData(110, 50, 6)});
    Gather({View(1, {SlotData(100, 50, 14, 40)}), View(4, {HoleData(105, 50, 5)}), back});
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({14, 6}));
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers{5});
    EXPECT_TRUE(CurrentToleranceIs(kYTol));
}

/// The first piece comes last; each is corrected once.
TEST_F(GatheringTest, PiecesOfAContour) {
    CViewData view;
    view.SetFaceWidth(200.0);
    view.SetDimFromOtherFace(-1.0);
    member.SetNotchDataArr({External(kNotchedAtBothEnds)}, view);
    EXPECT_EQ(PlacesOf(member.m_notches), L"(950, 170) 0; (50, 175) 0; ");
}

TEST_F(GatheringTest, ExternalContoursComeBeforeInternalOnes) {
    ZetNCView view;
    view.setViewPos(1);
    view.setInternalContours({Opening(500, 100), Opening(300, 100)});
    view.setExternalContours({External(kWhole)});
    Gather({view});
    EXPECT_EQ(PlacesOf(member.m_notches), L"(500, 100) 4; (500, 100) 0; (300, 100) 0; ");
    EXPECT_TRUE(CurrentToleranceIs(kEPS));
}

TEST_F(GatheringTest, ContoursThatTheLimitsForbid) {
    const std::tuple<long, long, std::vector<int>> cases[] = {
        {0,  0,  {5, 5, 4, 5}},
        {0,  1,  {0, 0, 4, 5}},
        {1,  0,  {5, 5, 4, 0}},
        {-1, -1, {0, 0, 4, 0}},
    };
    for (const auto& [internalLimit, externalLimit, expected] : cases) {
        TestMember limited;
        limited.m_validations.SetNoOfInternalContours(internalLimit);
        limited.m_validations.SetNoOfExternalContours(externalLimit);
        limited.SetNotchDataArr({External(kNotchedAtBothEnds), External(kWhole)}, CViewData());
        limited.SetNotchDataArr({Opening(500, 100)}, CViewData());
        std::vector<int> statuses;
        for (const CNotchAddInfo& notch : limited.m_notches)
            statuses.push_back(notch.GetNotchStatus());
        EXPECT_EQ(statuses, expected) << internalLimit << ' ' << externalLimit;
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
    EXPECT_EQ(PlacesOf(member.m_notches), L"(300, 80) 0; (300, 90) 0; (500, 100) 0; ");
}

}  // namespace
