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

TEST_F(HolePostProcessingTest, CountersinksMarkTheirHolesAndGoToAListOfTheirOwn) {
    Holes holes = {Countersink(22, 300), Countersink(22), Round(11), Round(12), Round(11, 200)};
    member.MakeCSKHoleArrAndMark(holes);
    EXPECT_EQ(XsOf(holes), Numbers({100, 100, 200}));
    EXPECT_EQ(XsOf(member.m_cskHoles), Numbers({300, 100}));
    EXPECT_TRUE(holes[0].GetIsCSK());
    EXPECT_FALSE(holes[1].GetIsCSK() || holes[2].GetIsCSK());
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
    member.m_holes = {Round(14, 0), Round(14, 500.4)};
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
