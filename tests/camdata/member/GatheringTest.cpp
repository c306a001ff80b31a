#include "support/ContourOf.h"
#include "support/CurrentTolerance.h"
#include "support/TestMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using Numbers = std::vector<double>;

ZetNCHoleData HoleData(double x, double y, double size, int kind = 0) {
    return {.x = x, .y = y, .kind = kind, .size = size};
}

ZetNCHoleData SlotData(double x, double y, double size, double length) {
    return {.x = x, .y = y, .size = size, .slot = 1, .slotLength = length};
}

/// 20 x 20 around (x, y).
ZetNCContour Opening(double x, double y) {
    // clang-format off
    return ContourOf(ZetNCContour::eTypeInternal, {{x - 10, y - 10}, {x + 10, y - 10},
                     {x + 10, y + 10}, {x - 10, y + 10}, {x - 10, y - 10}});
    // clang-format on
}

// clang-format off
const ZetNCContour kWhole = ContourOf(ZetNCContour::eTypeExternal,
    {{0, 0}, {1000, 0}, {1000, 200}, {0, 200}, {0, 0}});
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
        CMxGeom::SetTol(eTolValue, 7.0);
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
    EXPECT_TRUE(CurrentToleranceIs(7.0));
}

TEST_F(GatheringTest, HolesComeViewByViewInOrder) {
    const auto web = {HoleData(500, 90, 1), HoleData(100, 90, 2), HoleData(100, 10, 3)};
    Gather({View(1, web), View(0, {HoleData(50, 30, 4)})});
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({3, 2, 1, 4}));
    EXPECT_TRUE(CurrentToleranceIs(0.1));
    member.GetAndSortHolesNotches();
    EXPECT_EQ(member.m_holes.length(), 8) << "what was there stays";
}

TEST_F(GatheringTest, ExternalContoursComeBeforeInternalOnes) {
    ZetNCView view;
    view.setViewPos(1);
    view.setInternalContours({Opening(500, 100), Opening(300, 100)});
    view.setExternalContours({kWhole});
    Gather({view});
    EXPECT_EQ(PlacesOf(member.m_notches), L"(500, 100) 4; (500, 100) 0; (300, 100) 0; ");
    EXPECT_TRUE(CurrentToleranceIs(0.1));
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

}  // namespace
