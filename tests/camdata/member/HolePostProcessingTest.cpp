#include "support/AssertionOf.h"
#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"
#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using Holes = ZetArray<CHoleAddlInfo>;
using Numbers = std::vector<double>;

constexpr double kEPS = 0.1;
constexpr double kXTol = 0.5;
constexpr double kYTol = 0.5;
constexpr double kOther = 7.0;

Numbers XsOf(const Holes& holes) {
    Numbers xs;
    for (const CHoleAddlInfo& hole : holes)
        xs.push_back(hole.GetXPos());
    return xs;
}

CHoleAddlInfo Round(double size, double x = 100) {
    return HoleAt(x, 50).Round(size);
}

CHoleAddlInfo Countersink(double size, double x = 100) {
    return HoleAt(x, 50).Countersunk(size);
}

/// Round holes of diameter 14 in a row.
Holes Row(const Numbers& xs) {
    Holes holes;
    for (const double x : xs)
        holes.append(Round(14, x));
    return holes;
}

CHoleAddlInfo WithStatus(CHoleAddlInfo hole, int status) {
    hole.SetHoleStatus(static_cast<eHoleStatus>(status));
    return hole;
}

CHoleAddlInfo WithCode(CHoleAddlInfo hole, const wchar_t* code) {
    hole.SetHoleCode(code);
    return hole;
}

/// A member whose operations start with a current tolerance that none of them selects.
class HolePostProcessingTest : public ::testing::Test {
  protected:
    void SetUp() override { CMxGeom::SetTol(eTolValue, kOther); }

    TestMember member;
};

// Countersinks

TEST_F(HolePostProcessingTest, CountersinksMarkTheirHolesAndLeave) {
    Holes holes = {Round(11), Countersink(22), Round(11, 200), Countersink(23, 300)};
    member.MakeCSKHoleArrAndMark(holes);
    EXPECT_EQ(XsOf(holes), Numbers({100, 200}));
    EXPECT_TRUE(holes[0].GetIsCSK() && holes[0].GetCSKPos() == 0);
    EXPECT_TRUE(!holes[1].GetIsCSK() && holes[1].GetCSKPos() == -1);
    EXPECT_EQ(SizesOf(member.m_cskHoles), Numbers({22, 23})) << "with or without a hole";
    EXPECT_EQ(member.m_cskHoles[0].GetHoleStatus(), eHoleStatusCSK);
    EXPECT_TRUE(CurrentToleranceIs(kOther));
}

/// Each countersink takes the first hole left at its place; the list need not be ordered.
TEST_F(HolePostProcessingTest, CountersinksAtOnePlaceMarkOneHoleEach) {
    CHoleAddlInfo marked = Round(1);
    marked.SetIsCSK(true);
    const CHoleAddlInfo beside = HoleAt(100, 50.000001).Round(5);
    Holes holes = {Countersink(22),
                   Countersink(23, 900),
                   marked,
                   Round(2),
                   Countersink(24),
                   Round(3),
                   Round(4),
                   beside};
    member.MakeCSKHoleArrAndMark(holes);
    ASSERT_EQ(SizesOf(holes), Numbers({1, 2, 3, 4, 5}));
    EXPECT_EQ(holes[0].GetCSKPos(), -1) << "was marked before";
    EXPECT_TRUE(holes[1].GetIsCSK() && holes[2].GetIsCSK());
    EXPECT_FALSE(holes[3].GetIsCSK() || holes[4].GetIsCSK());
    EXPECT_EQ(SizesOf(member.m_cskHoles), Numbers({22, 23, 24}));
}

TEST_F(HolePostProcessingTest, TagsTheFirstHoleAtExactlyThePlace) {
    const CHoleAddlInfo countersink = Countersink(22);
    Holes holes = {countersink, Round(11), Round(12)};
    EXPECT_TRUE(TestMember::TagThisCSKtoMainHole(holes, countersink, 5));
    EXPECT_TRUE(holes[1].GetIsCSK());
    EXPECT_EQ(holes[1].GetCSKPos(), 0) << "not the position given";
    EXPECT_FALSE(holes[2].GetIsCSK());
    EXPECT_TRUE(TestMember::TagThisCSKtoMainHole(holes, countersink, 6));
    EXPECT_FALSE(TestMember::TagThisCSKtoMainHole(holes, countersink, 7)) << "all are marked";
    Holes others = {Round(11)};
    EXPECT_FALSE(TestMember::TagThisCSKtoMainHole(others, Countersink(22, 100.000001), 0));
}

TEST_F(HolePostProcessingTest, CountersunkRoundHolesOnTheWebGetTheFaceOfItsBack) {
    const auto onWeb = [](double x) { return HoleAt(x, 0).Countersunk(20).On(eHoleFaceWeb); };
    CHoleAddlInfo square = onWeb(1);
    square.SetIsSqrHole(true);
    CHoleAddlInfo rectangular = onWeb(2);
    rectangular.SetIsRectHole(true);
    const CHoleAddlInfo plain = HoleAt(3, 0).Round(20).On(eHoleFaceWeb);
    const CHoleAddlInfo onBack = onWeb(4).On(eHoleFaceWebBack);
    Holes holes = {onWeb(0), square, rectangular, plain, onBack, onWeb(5)};
    EXPECT_EQ(TestMember::SetWebFaceForCSKHoles(holes), 2);
    for (const CHoleAddlInfo& hole : holes) {
        const bool isChanged = hole.GetXPos() == 0 || hole.GetXPos() == 5;
        EXPECT_EQ(hole.GetViewData().GetFaceStr() == L"WEBBK", isChanged) << hole.GetXPos();
    }
}

// Duplicates

TEST_F(HolePostProcessingTest, HolesThatTouchOrOverlapAreDuplicates) {
    struct Case {
        const char* name;
        double x;
        double size;
        double otherX;
        double otherSize;
        bool isDuplicate;
    };
    // Rounding makes 1012.1 - 1000 a little more than 12.1. 17.9 is neither within 0.1 of 18 nor
    // below 18 - 0.1.
    constexpr Case kCases[] = {
        {"one place, other diameter",       100.0,  18.0, 100.0,  22.0, true },
        {"overlapping",                     100.0,  18.0, 110.0,  18.0, true },
        {"12.1 apart",                      0.0,    10.0, 12.1,   14.0, true },
        {"12.1 apart, further on",          3000.0, 10.0, 3012.1, 14.0, true },
        {"12.2 apart",                      0.0,    10.0, 12.2,   14.0, false},
        {"12.1 and rounding apart",         1000.0, 10.0, 1012.1, 14.0, false},
        {"17.9 apart: neither 18 nor less", 0.0,    18.0, 17.9,   18.0, false},
        {"17.8 apart",                      0.0,    18.0, 17.8,   18.0, true },
    };
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        TestMember other;
        Holes holes = {Round(each.size, each.x), Round(each.otherSize, each.otherX)};
        other.MakeDupHoleArr(holes);
        EXPECT_EQ(holes.length(), each.isDuplicate ? 1 : 2);
        EXPECT_EQ(holes[0].GetXPos(), each.x) << "the first is kept";
        const Numbers removed = each.isDuplicate ? Numbers{each.otherSize} : Numbers{};
        EXPECT_EQ(SizesOf(other.m_duplicateHoles), removed);
    }
}

/// Equality is that of current positions, overlap that of NC positions.
TEST_F(HolePostProcessingTest, DuplicatesByCurrentAndByNcPosition) {
    CHoleAddlInfo moved = Round(3, 5000);
    moved.SetXPosFrom(5100.0);
    CHoleAddlInfo movedAway = Round(4, 102);
    movedAway.SetXPosFrom(6000.0);
    Holes holes = {Round(14), moved, movedAway, Round(5, 5898)};
    member.MakeDupHoleArr(holes);
    EXPECT_EQ(SizesOf(holes), Numbers({14, 5}));
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers({3, 4}));
}

/// The slot's NC position is its centre; whichever comes first stays.
TEST_F(HolePostProcessingTest, AHoleBesideASlotsCentreIsADuplicateLikeAnyOther) {
    Holes holes = {Round(14, 118), HoleAt(100, 50).Slot(14, 40)};
    member.MakeDupHoleArr(holes);
    EXPECT_EQ(XsOf(holes), Numbers{118});
    EXPECT_TRUE(member.m_duplicateHoles[0].GetIsSlot());
}

TEST_F(HolePostProcessingTest, RemovedHolesRemoveNothing) {
    Holes holes = Row({0, 10, 20});
    member.MakeDupHoleArr(holes);
    EXPECT_EQ(XsOf(holes), Numbers({0, 20}));
}

TEST_F(HolePostProcessingTest, DuplicatesComeByTheHoleThatRemovesThem) {
    Holes holes = Row({0, 900, 901, 2, 902, 1});
    member.MakeDupHoleArr(holes);
    EXPECT_EQ(XsOf(holes), Numbers({0, 900}));
    EXPECT_EQ(XsOf(member.m_duplicateHoles), Numbers({2, 1, 901, 902}));
}

TEST_F(HolePostProcessingTest, DuplicatesSelectATolerance) {
    Holes one = Row({0});
    member.MakeDupHoleArr(one);
    EXPECT_TRUE(CurrentToleranceIs(kOther)) << "nothing to compare";
    Holes two = Row({0, 0});
    member.MakeDupHoleArr(two);
    EXPECT_TRUE(CurrentToleranceIs(kEPS));
}

// Holes inside slots

TEST_F(HolePostProcessingTest, HolesInsideASlotLeave) {
    const CHoleAddlInfo onBack = HoleAt(130, 50).Round(4).On(eHoleFaceWebBack);
    const CHoleAddlInfo slot = HoleAt(100, 50).Slot(14, 40);
    member.m_holes = {Round(1, 105), slot, Round(2, 135), Round(3, 150), onBack};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({14, 3, 4}));
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers({1, 2}));
    EXPECT_EQ(member.m_duplicateHoles[0].GetHoleStatus(), eHoleStatusNone) << "as it was";
    EXPECT_TRUE(CurrentToleranceIs(kYTol));
}

TEST_F(HolePostProcessingTest, AHoleInsideTwoSlotsIsADuplicateTwice) {
    const CHoleAddlInfo upright = HoleAt(110, 45).Slot(14, 20, 90);
    member.m_holes = {HoleAt(100, 50).Slot(14, 40), Round(5, 110), upright};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({14, 14}));
    ASSERT_EQ(SizesOf(member.m_duplicateHoles), Numbers({5, 5}));
    EXPECT_EQ(member.m_duplicateHoles[0].GetHoleStatus(), eHoleStatusNone);
    EXPECT_EQ(member.m_duplicateHoles[1].GetHoleStatus(), eHoleStatusInsideSlot);
}

TEST_F(HolePostProcessingTest, HolesMarkedAsInsideASlotBeforeAreDropped) {
    member.m_holes = {WithStatus(Round(1), eHoleStatusInsideSlot), Round(2, 200)};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_EQ(SizesOf(member.m_holes), Numbers{2});
    EXPECT_TRUE(member.m_duplicateHoles.isEmpty());
}

/// Slots hold each other, and one that is on its way out holds holes still.
TEST_F(HolePostProcessingTest, EqualSlotsRemoveEachOtherAndWhatTheyHold) {
    const HoleAt at(100, 50);
    member.m_holes = {HoleAt(at).Slot(14, 40), HoleAt(at).Slot(14.2, 40), Round(5, 110)};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_TRUE(member.m_holes.isEmpty());
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers({14.2, 5, 14, 5}));
}

TEST_F(HolePostProcessingTest, SlotsSelectATolerance) {
    const CHoleAddlInfo slot = HoleAt(1, 1).Slot(14, 40);
    const CHoleAddlInfo round = HoleAt(5000, 1).Round(14).On(eHoleFaceTopFlange);
    for (const Holes& holes : {
             Holes(), Holes{round, round},
              Holes{slot    }
    }) {
        member.m_holes = holes;
        member.MakeDupHoleArrForHolesInsideSlot();
        EXPECT_TRUE(CurrentToleranceIs(kOther));
    }
    member.m_holes = {slot, round};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_TRUE(CurrentToleranceIs(kYTol)) << "a slot and another hole, wherever it is";
}

// For derived classes

TEST_F(HolePostProcessingTest, PositionsFromTheOtherEnd) {
    CHoleAddlInfo corrected = Round(14, 400);
    corrected.SetXPosFrom(1000.0);
    Holes holes = {Round(14, 400), corrected, HoleAt(100, 50).Slot(14, 40)};
    TestMember::ChangeHolePosition(holes, 3000.0);
    EXPECT_EQ(XsOf(holes), Numbers({2600, 2400, 2880}));
    EXPECT_EQ(holes[0].GetHoleData().x, 400) << "the NC position stays";
    EXPECT_EQ(holes[2].GetSlotVector(), (ZetGeomVector2d{-20.0, 0.0})) << "is not mirrored";
}

TEST_F(HolePostProcessingTest, HolesThatWaitForAPairBecomeValid) {
    EXPECT_EQ(member.MakeValidHoles(), 0);
    for (const int status : {0, 1, 2, 3, 4, 6, 9, 3})
        member.m_holes.append(WithStatus(HoleAt(0, 0).Round(14), status));
    EXPECT_EQ(member.MakeValidHoles(), 3);
    std::vector<int> statuses;
    for (const CHoleAddlInfo& hole : member.m_holes)
        statuses.push_back(hole.GetHoleStatus());
    EXPECT_EQ(statuses, std::vector<int>({0, 1, 2, 1, 4, 6, 9, 1}));
    EXPECT_TRUE(member.m_message.isEmpty());
}

TEST_F(HolePostProcessingTest, FindsThePairOfAHole) {
    constexpr double kPairYTol = 0.25;
    const auto at = [](double x, const wchar_t* holeCode = L"H14", double size = 14.0) {
        return WithCode(Round(size, x), holeCode);
    };
    const auto withStatus = [&](int status) { return WithStatus(at(600), status); };
    const CHoleAddlInfo elsewhere = WithCode(HoleAt(600, 9).Round(14).On(eHoleFaceWebBack), L"H14");
    // clang-format off
    const struct {
        const char* name;
        CHoleAddlInfo other;
        bool isPair;
        double toleranceAfter;
    } cases[] = {
        {"not classified",           at(600, L"y H14"),       true,  kPairYTol},
        {"waits for a pair",         withStatus(3),           true,  kPairYTol},
        {"valid",                    withStatus(1),           false, kXTol},
        {"countersink",              withStatus(2),           false, kXTol},
        {"pair of another",          withStatus(6),           false, kXTol},
        {"never a pair",             withStatus(9),           false, kXTol},
        {"other code",               at(600, L"H1 4"),        false, kXTol},
        {"other size",               at(600, L"H14", 15.0),   false, kEPS},
        {"other face, other Y",      elsewhere,               true,  kPairYTol},
        {"spacing within tolerance", at(600.4),               true,  kPairYTol},
        {"to the other side",        at(-400),                true,  kPairYTol},
        {"other spacing",            at(600.6),               false, kXTol},
    };
    // clang-format on
    CHoleCode code;
    code.SetPairCode(L"H14");
    CMxGeom::SetYTol(kPairYTol);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        TestMember other;
        other.m_holes = {each.other, at(100)};
        CMxGeom::SetTol(eTolValue, kOther);
        EXPECT_EQ(other.GetPairHole(1, code, 500.0), each.isPair ? 0 : -1);
        const eHoleStatus before = each.other.GetHoleStatus();
        EXPECT_EQ(other.m_holes[0].GetHoleStatus(), each.isPair ? eHoleStatusIsPair : before);
        EXPECT_TRUE(CurrentToleranceIs(each.toleranceAfter));
    }
}

/// The tolerance is selected once: what a candidate leaves is what the next is measured with.
TEST_F(HolePostProcessingTest, ACandidateOfOtherSizeNarrowsTheSearch) {
    member.m_holes = Row({0, 500.4});
    EXPECT_EQ(member.GetPairHole(0, CHoleCode(), 500.0), 1);
    member.m_holes = {Round(14, 0), Round(20, 500), Round(14, 500.4)};
    EXPECT_EQ(member.GetPairHole(0, CHoleCode(), 500.0), -1);
}

TEST_F(HolePostProcessingTest, AHoleIsNotItsOwnPair) {
    EXPECT_EQ(member.GetPairHole(0, CHoleCode(), 0.0), -1) << "no holes";
    EXPECT_TRUE(CurrentToleranceIs(kOther));
    member.m_holes = {Round(14), HoleAt(100, 90).Round(14)};
    EXPECT_EQ(member.GetPairHole(0, CHoleCode(), 0.0), 1);
    EXPECT_EQ(member.GetPairHole(0, CHoleCode(), 0.0), -1);
    EXPECT_EQ(AssertionOf([&] { member.GetPairHole(2, CHoleCode(), 0.0); }), "isValid( index )");
}

}  // namespace
