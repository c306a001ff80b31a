#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"

#include "camdata/holes/CHoleAddlInfo.h"

#include <gtest/gtest.h>

namespace {

constexpr double kEPS = 0.1;
constexpr double kYTol = 0.5;
constexpr double kOther = 7.0;

/// Starts with a current tolerance that no operation selects.
class HoleComparisonTest : public ::testing::Test {
  protected:
    void SetUp() override { CMxGeom::SetTol(eTolValue, kOther); }
};

TEST_F(HoleComparisonTest, HolesThatTouchOrOverlapAreEqual) {
    struct Case {
        const char* name;
        double x;
        double size;
        double otherX;
        double otherSize;
        bool equal;
    };
    constexpr Case kCases[] = {
        {"touching",                          0.0,   18.0, 17.95,  18.0, true },
        {"touching further along",            100.0, 18.0, 117.95, 18.0, true },
        {"apart",                             0.0,   18.0, 18.2,   18.0, false},
        {"overlapping",                       0.0,   18.0, 5.0,    18.0, true },
        {"one inside the other",              0.0,   40.0, 3.0,    10.0, true },
        {"apart by the tolerance",            0.0,   10.0, 12.1,   14.0, true },
 // 22.1 - 10.0 is a little above 12.1.
        {"apart by the tolerance, elsewhere", 10.0,  10.0, 22.1,   14.0, false},
 // |17.9 - 18| is a little above 0.1, and 17.9 is not below 18 - 0.1.
        {"overlapping by the tolerance",      0.0,   18.0, 17.9,   18.0, false},
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        const CHoleAddlInfo hole = HoleAt(each.x, 50).Round(each.size);
        const CHoleAddlInfo other =
            HoleAt(each.otherX, 50).Round(each.otherSize).On(eHoleFaceTopFlange);
        EXPECT_EQ(hole == other, each.equal);
        EXPECT_EQ(other == hole, each.equal);
        EXPECT_TRUE(CurrentToleranceIs(kEPS));
    }
}

TEST_F(HoleComparisonTest, ExactlyEqualPositionsNeedNoTolerance) {
    const CHoleAddlInfo hole = HoleAt(100, 50).Round(18);
    CHoleAddlInfo other = HoleAt(500, 50).Round(2);
    other.SetXPosFrom(600.0);
    EXPECT_TRUE(hole == other);
    EXPECT_TRUE(CurrentToleranceIs(kOther));
}

TEST_F(HoleComparisonTest, OverlapIsMeasuredBetweenNcPositions) {
    const CHoleAddlInfo hole = HoleAt(100, 50).Round(18);
    CHoleAddlInfo other = HoleAt(105, 50).Round(18);
    other.SetXPosFrom(6000.0);
    EXPECT_TRUE(hole == other);
    CHoleAddlInfo far = HoleAt(5895, 50).Round(18);
    far.SetXPosFrom(6000.0);
    EXPECT_EQ(far.GetXPos(), other.GetHoleData().x);
    EXPECT_FALSE(hole == far);

    CHoleAddlInfo across = HoleAt(100, 55).Round(18);
    across.SetYPosFrom(200.0);
    EXPECT_TRUE(hole == across);
    CHoleAddlInfo farAcross = HoleAt(100, 145).Round(18);
    farAcross.SetYPosFrom(200.0);
    EXPECT_FALSE(hole == farAcross);
}

TEST_F(HoleComparisonTest, LikeHolesAreEqualWhereverTheyAre) {
    struct Case {
        const char* name;
        CHoleAddlInfo hole;
        CHoleAddlInfo other;
        bool equal;
        double toleranceAfter;
    };
    const CHoleAddlInfo round = HoleAt(0, 0).Round(18).On(eHoleFaceWeb);
    const CHoleAddlInfo roundElsewhere = HoleAt(900, 40).Round(18.05).On(eHoleFaceTopFlange);
    const CHoleAddlInfo larger = HoleAt(0, 0).Round(18.3);
    const CHoleAddlInfo countersunk = HoleAt(0, 0).Countersunk(18);
    const CHoleAddlInfo slot = HoleAt(0, 0).Slot(14, 40);
    const CHoleAddlInfo slotElsewhere = HoleAt(9, 9).Slot(14, 40.5);
    const CHoleAddlInfo turnedSlot = HoleAt(9, 9).Slot(14, 40, 180);
    const CHoleAddlInfo longerSlot = HoleAt(0, 0).Slot(14, 40.6);
    const CHoleAddlInfo uprightSlot = HoleAt(0, 0).Slot(14, 40, 90);
    const Case cases[] = {
        {"same size on another face", round, roundElsewhere, true,  kYTol},
        {"other size",                round, larger,         false, kEPS },
        {"other shape",               round, countersunk,    false, kEPS },
        {"same slot",                 slot,  slotElsewhere,  true,  kYTol},
        {"turned round",              slot,  turnedSlot,     true,  kYTol},
        {"longer slot",               slot,  longerSlot,     false, kYTol},
        {"upright slot",              slot,  uprightSlot,    false, kYTol},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        EXPECT_EQ(each.hole.IsEqual(each.other), each.equal);
        EXPECT_TRUE(CurrentToleranceIs(each.toleranceAfter));
    }
}

TEST_F(HoleComparisonTest, OnlyASlotIsHeldAgainstTheOther) {
    const CHoleAddlInfo round = HoleAt(0, 0).Round(14);
    const CHoleAddlInfo slot = HoleAt(0, 0).Slot(14, 40);
    EXPECT_TRUE(round.CheckSlotHole(slot));
    EXPECT_TRUE(CurrentToleranceIs(kYTol));
    EXPECT_FALSE(slot.CheckSlotHole(round));
}

TEST_F(HoleComparisonTest, FindsRoundHolesInsideASlot) {
    struct Case {
        const char* name;
        double x;
        double y;
        double size;
        bool isInside;
    };
    constexpr Case kCases[] = {
        {"at the centre",                      120.0, 50.0,     14.0, true },
        {"beside the centre within tolerance", 120.0, 50.4,     14.0, true },
        {"beside the centre",                  120.0, 50.6,     14.0, false},
        {"at the given end",                   100.0, 50.0,     14.0, true },
        {"at the far end, just beyond",        140.4, 50.0,     14.0, true },
        {"beyond the far end",                 140.6, 50.0,     14.0, false},
        {"beside the axis",                    130.0, 50.4,     14.0, false},
        {"a hair beside the axis",             140.0, 50.00001, 14.0, true },
        {"three hairs beside the axis",        140.0, 50.00003, 14.0, false},
        {"slightly larger",                    120.0, 50.0,     14.5, true },
        {"larger",                             120.0, 50.0,     14.7, false},
    };
    const CHoleAddlInfo slot = HoleAt(100, 50).Slot(14, 40);
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(slot.IsInside(HoleAt(each.x, each.y).Round(each.size)), each.isInside);
        EXPECT_TRUE(CurrentToleranceIs(kYTol));
    }
}

TEST_F(HoleComparisonTest, InsideMeansInASlotOfTheSameFace) {
    const CHoleAddlInfo round = HoleAt(100, 50).Round(40);
    EXPECT_FALSE(round.IsInside(HoleAt(100, 50).Round(5)));
    EXPECT_TRUE(CurrentToleranceIs(kYTol)) << "selected before anything is compared";
    const CHoleAddlInfo slot = HoleAt(100, 50).Slot(14, 40);
    EXPECT_TRUE(slot.IsInside(HoleAt(110, 50).Slot(14, 20)));
    EXPECT_FALSE(slot.IsInside(HoleAt(120, 50).Round(14).On(eHoleFaceTopFlange)));
}

TEST_F(HoleComparisonTest, InsideIsMeasuredBetweenCurrentPositions) {
    const CHoleAddlInfo slot = HoleAt(100, 50).Slot(14, 40);
    CHoleAddlInfo movedIn = HoleAt(5880, 50).Round(14);
    CHoleAddlInfo movedOut = HoleAt(120, 50).Round(14);
    movedIn.SetXPosFrom(6000.0);
    movedOut.SetXPosFrom(6000.0);
    EXPECT_TRUE(slot.IsInside(movedIn));
    EXPECT_FALSE(slot.IsInside(movedOut));
    movedIn.SetYPosFrom(200.0);
    EXPECT_FALSE(slot.IsInside(movedIn));
}

}  // namespace
