#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"

#include "camdata/holes/CHoleAddlInfo.h"

#include <gtest/gtest.h>

namespace {

constexpr double kEPS = 0.1;
constexpr double kYTol = 0.5;
constexpr double kOther = 7.0;

/// Starts with a current tolerance that no operation selects.
class HoleDuplicateRulesTest : public ::testing::Test {
  protected:
    void SetUp() override { CMxGeom::SetTol(eTolValue, kOther); }
};

TEST_F(HoleDuplicateRulesTest, HolesThatTouchOrOverlapAreEqual) {
    // clang-format off
    struct Case { const char* name; double x, size, otherX, otherSize; bool equal; };
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
    // clang-format on
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        const CHoleAddlInfo hole = HoleAt(each.x, 50).Round(each.size).On(eHoleFaceTopFlange);
        const CHoleAddlInfo other = HoleAt(each.otherX, 50).Round(each.otherSize);
        EXPECT_EQ(hole == other, each.equal);
        EXPECT_EQ(other == hole, each.equal);
        EXPECT_TRUE(CurrentToleranceIs(kEPS));
    }
}

/// A round hole whose current position is (x, y) and whose NC position is (ncX, ncY).
CHoleAddlInfo MovedTo(double x, double y, double ncX, double ncY, double size) {
    CHoleAddlInfo hole = HoleAt(ncX, ncY).Round(size);
    hole.SetXPosFrom(ncX + x);
    hole.SetYPosFrom(ncY + y);
    return hole;
}

TEST_F(HoleDuplicateRulesTest, LikeHolesAreEqualWhereverTheyAre) {
    const CHoleAddlInfo round = HoleAt(0, 0).Round(18).On(eHoleFaceWeb);
    const CHoleAddlInfo slot = HoleAt(0, 0).Slot(14, 40);
    const HoleAt roundElsewhere = HoleAt(900, 40).Round(18.05).On(eHoleFaceTopFlange);
    // clang-format off
    struct Case { const char* name; CHoleAddlInfo hole, other; bool equal; double toleranceAfter; };
    const Case cases[] = {
        {"same size on another face", round, roundElsewhere, true, kYTol},
        {"other size", round, HoleAt(0, 0).Round(18.3), false, kEPS},
        {"other shape", round, HoleAt(0, 0).Countersunk(18), false, kEPS},
        {"same slot", slot, HoleAt(9, 9).Slot(14, 40.5), true, kYTol},
        {"turned round", slot, HoleAt(9, 9).Slot(14, 40, 180), true, kYTol},
        {"longer slot", slot, HoleAt(0, 0).Slot(14, 40.6), false, kYTol},
        {"upright slot", slot, HoleAt(0, 0).Slot(14, 40, 90), false, kYTol},
    };
    // clang-format on
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        CMxGeom::SetTol(eTolValue, kOther);
        EXPECT_EQ(each.hole.IsEqual(each.other), each.equal);
        EXPECT_TRUE(CurrentToleranceIs(each.toleranceAfter));
    }
}

TEST_F(HoleDuplicateRulesTest, OnlyASlotIsHeldAgainstTheOther) {
    const CHoleAddlInfo round = HoleAt(0, 0).Round(14);
    const CHoleAddlInfo slot = HoleAt(0, 0).Slot(14, 40);
    EXPECT_TRUE(round.CheckSlotHole(slot));
    EXPECT_TRUE(CurrentToleranceIs(kYTol));
    EXPECT_FALSE(slot.CheckSlotHole(round));
}

TEST_F(HoleDuplicateRulesTest, FindsHolesInsideASlotByCurrentPositionsAndFace) {
    const auto round = [](double x, double y, double size) { return HoleAt(x, y).Round(size); };
    // clang-format off
    struct Case { const char* name; CHoleAddlInfo hole; bool isInside; };
    const Case cases[] = {
        {"at the centre", round(120, 50, 14), true},
        {"beside the centre within tolerance", round(120, 50.4, 14), true},
        {"beside the centre", round(120, 50.6, 14), false},
        {"at the given end", round(100, 50, 14), true},
        {"at the far end, just beyond", round(140.4, 50, 14), true},
        {"beyond the far end", round(140.6, 50, 14), false},
        {"beside the axis", round(130, 50.4, 14), false},
        {"a hair beside the axis", round(140, 50.00001, 14), true},
        {"three hairs beside the axis", round(140, 50.00003, 14), false},
        {"slightly larger", round(120, 50, 14.5), true},
        {"larger", round(120, 50, 14.7), false},
        {"slot", HoleAt(110, 50).Slot(14, 20), true},
        {"on another face", round(120, 50, 14).On(eHoleFaceTopFlange), false},
        {"moved in", MovedTo(120, 50, 5880, 150, 14), true},
        {"moved out along the slot", MovedTo(5880, 50, 120, 50, 14), false},
        {"moved out across the slot", MovedTo(120, 150, 120, 50, 14), false},
    };
    // clang-format on
    const CHoleAddlInfo slot = HoleAt(100, 50).Slot(14, 40);
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(slot.IsInside(each.hole), each.isInside);
        EXPECT_TRUE(CurrentToleranceIs(kYTol));
    }
    CMxGeom::SetTol(eTolValue, kOther);
    EXPECT_FALSE(CHoleAddlInfo(round(100, 50, 40)).IsInside(round(100, 50, 5))) << "in no slot";
    EXPECT_TRUE(CurrentToleranceIs(kYTol)) << "selected before anything is compared";
}

}  // namespace
