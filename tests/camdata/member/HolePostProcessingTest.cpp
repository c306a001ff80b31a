#include "support/AssertionOf.h"
#include "support/CurrentTolerance.h"
#include "support/HoleBuilder.h"
#include "support/TestMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

using Holes = ZetArray<CHoleAddlInfo>;
using Numbers = std::vector<double>;

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

/// Each countersink takes the first hole left at its place; the list need not be ordered.
TEST_F(HolePostProcessingTest, CountersinksAtOnePlaceMarkOneHoleEach) {
    CHoleAddlInfo marked = Round(1);
    marked.SetIsCSK(true);
    const CHoleAddlInfo beside = HoleAt(100, 50.000001).Round(5);
    // clang-format off
    Holes holes = {Countersink(22), Countersink(23, 900), marked, Round(2), Countersink(24),
                   Round(3), Round(4), beside};
    // clang-format on
    member.MakeCSKHoleArrAndMark(holes);
    ASSERT_EQ(SizesOf(holes), Numbers({1, 2, 3, 4, 5}));
    EXPECT_EQ(holes[0].GetCSKPos(), -1) << "was marked before";
    EXPECT_TRUE(holes[1].GetIsCSK() && holes[1].GetCSKPos() == 0 && holes[2].GetIsCSK());
    EXPECT_FALSE(holes[3].GetIsCSK() || holes[4].GetIsCSK());
    EXPECT_EQ(SizesOf(member.m_cskHoles), Numbers({22, 23, 24})) << "with or without a hole";
    EXPECT_EQ(member.m_cskHoles[0].GetHoleStatus(), eHoleStatusCSK);
    EXPECT_TRUE(CurrentToleranceIs(kOther));
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

/// Removed holes remove nothing: 20 and 915 stay.
TEST_F(HolePostProcessingTest, DuplicatesComeByTheHoleThatRemovesThem) {
    Holes holes = Row({0, 900, 905, 10, 902, 1, 20, 915});
    member.MakeDupHoleArr(holes);
    EXPECT_EQ(XsOf(holes), Numbers({0, 900, 20, 915}));
    EXPECT_EQ(XsOf(member.m_duplicateHoles), Numbers({10, 1, 905, 902}));
    EXPECT_TRUE(CurrentToleranceIs(0.1));
}

// Holes inside slots

TEST_F(HolePostProcessingTest, HolesInsideASlotLeave) {
    const CHoleAddlInfo onBack = HoleAt(130, 50).Round(4).On(eHoleFaceWebBack);
    const CHoleAddlInfo slot = HoleAt(100, 50).Slot(14, 40);
    const CHoleAddlInfo inside = WithStatus(Round(5, 200), eHoleStatusInsideSlot);
    member.m_holes = {Round(1, 105), slot, Round(2, 135), Round(3, 150), onBack, inside};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_EQ(SizesOf(member.m_holes), Numbers({14, 3, 4}));
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers({1, 2})) << "not what was marked before";
    EXPECT_TRUE(CurrentToleranceIs(0.5));
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

/// Slots hold each other, and one that is on its way out holds holes still.
TEST_F(HolePostProcessingTest, EqualSlotsRemoveEachOtherAndWhatTheyHold) {
    const HoleAt at(100, 50);
    member.m_holes = {HoleAt(at).Slot(14, 40), HoleAt(at).Slot(14.2, 40), Round(5, 110)};
    member.MakeDupHoleArrForHolesInsideSlot();
    EXPECT_TRUE(member.m_holes.isEmpty());
    EXPECT_EQ(SizesOf(member.m_duplicateHoles), Numbers({14.2, 5, 14, 5}));
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
    const struct { const char* name; CHoleAddlInfo other; bool isPair; double toleranceAfter; } cases[] = {
        {"not classified",           at(600, L"y H14"),       true,  kPairYTol},
        {"waits for a pair",         withStatus(3),           true,  kPairYTol},
        {"valid",                    withStatus(1),           false, 0.5},
        {"countersink",              withStatus(2),           false, 0.5},
        {"pair of another",          withStatus(6),           false, 0.5},
        {"never a pair",             withStatus(9),           false, 0.5},
        {"other code",               at(600, L"H1 4"),        false, 0.5},
        {"other size",               at(600, L"H14", 15.0),   false, 0.1},
        {"other face, other Y",      elsewhere,               true,  kPairYTol},
        {"spacing within tolerance", at(600.4),               true,  kPairYTol},
        {"to the other side",        at(-400),                true,  kPairYTol},
        {"other spacing",            at(600.6),               false, 0.5},
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
