#include "support/CurrentTolerance.h"
#include "support/NestReport.h"
#include "support/TestMember.h"

#include "camdata/holes/CMxGeom.h"

#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

TestMember MemberOf(const std::vector<PlainPart>& parts) {
    TestMember member;
    for (const PlainPart& part : parts)
        member.AppendNestQtyLen(part.qty, part.length, part.mark);
    return member;
}

/// Parts to nest, and the nests that they make.
struct Case {
    explicit Case(const char* caseName) : name(caseName) {}
    Case& Part(const wchar_t* mark, long qty, double length) {
        parts.push_back({mark, qty, length});
        return *this;
    }
    Case& Nest(long bars, std::vector<PlainNest::Entry> entries) {
        nests.push_back({std::move(entries), bars});
        return *this;
    }
    Case& Reserve(double length) {
        reserveLength = length;
        return *this;
    }
    Case& Tolerance(double before, double after) {
        tolerance = before;
        toleranceLeft = after;
        return *this;
    }

    std::string name;
    std::vector<PlainPart> parts;
    std::vector<PlainNest> nests;
    double reserveLength = 0.0;
    double tolerance = 0.1;
    double toleranceLeft = 0.1;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class MemberNestingTest : public ::testing::TestWithParam<Case> {};

TEST_P(MemberNestingTest, CutsPartsFromBars) {
    const Case& c = GetParam();
    TestMember member = MemberOf(c.parts);
    member.m_reserveLength = c.reserveLength;
    CMxGeom::SetTol(eTolValue, c.tolerance);
    member.Nesting();
    EXPECT_TRUE(CurrentToleranceIs(c.toleranceLeft));
    EXPECT_EQ(ReportsOf(member.m_nests), ReportsOf(c.nests));
    EXPECT_TRUE(member.m_partsToNest.isEmpty());
}

std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Orders,
    MemberNestingTest,
    ::testing::Values(
        Case("NoParts"),
        Case("ANestStandsForTwoBarsAtMost")
            .Part(L"A", 9, 1900)
            .Nest(2,
                  {
                      {L"A", 2, 1900}
})
            .Nest(2, {{L"A", 2, 1900}})
            .Nest(1, {{L"A", 1, 1900}}),
        Case("LongerThanABar")
            .Part(L"A", 3, 5000)
            .Nest(2, {{L"A", 1, 5000}})
            .Nest(1, {{L"A", 1, 5000}}),
        Case("NoExactFill").Part(L"A", 2, 2000).Nest(2, {{L"A", 1, 2000}}),
        Case("AFitByMoreThanTheTolerance").Part(L"A", 2, 1999.9).Nest(1, {{L"A", 2, 1999.9}}),
        Case("TheShortestFirst")
            .Part(L"C", 1, 3000)
            .Part(L"A", 3, 1000)
            .Part(L"B", 2, 1500)
            .Nest(1, {{L"A", 3, 1000}})
            .Nest(1, {{L"B", 2, 1500}})
            .Nest(1, {{L"C", 1, 3000}}),
        Case("FilledFromTheShortestUp")
            .Part(L"C", 3, 2100)
            .Part(L"B", 1, 1800)
            .Part(L"A", 1, 1700)
            .Nest(1, {{L"A", 1, 1700}, {L"B", 1, 1800}})
            .Nest(2, {{L"C", 1, 2100}})
            .Nest(1, {{L"C", 1, 2100}}),
        Case("TwoBarsOfSeveralMarks")
            .Part(L"A", 2, 1999.96)
            .Part(L"B", 2, 1999.9)
            .Nest(2, {{L"A", 1, 1999.96}, {L"B", 1, 1999.9}}),
        Case("EqualWithinTheToleranceKeepTheirOrder")
            .Part(L"A", 1, 3000.05)
            .Part(L"B", 1, 3000)
            .Nest(1, {{L"A", 1, 3000.05}})
            .Nest(1, {{L"B", 1, 3000}}),
        Case("PartsOfOneMarkHaveTheLengthOfTheFirst")
            .Part(L"A", 1, 1000)
            .Part(L"A", 1, 1500)
            .Nest(1, {{L"A", 2, 1000}}),
        Case("ASecondBarTakesFromTheFirstPartOfAMarkOnly")
            .Part(L"A", 1, 1000)
            .Part(L"A", 5, 1900)
            .Nest(1, {{L"A", 3, 1000}})
            .Nest(1, {{L"A", 2, 1900}})
            .Nest(1, {{L"A", 1, 1900}})),
    NameOf);

INSTANTIATE_TEST_SUITE_P(ReserveLength,
                         MemberNestingTest,
                         ::testing::Values(Case("OffCutAboveItIsFilled")
                                               .Reserve(1399.8)
                                               .Part(L"A", 2, 1300)
                                               .Part(L"B", 1, 1350)
                                               .Nest(1,
                                                     {
                                                         {L"A", 2, 1300},
                                                         {L"B", 1, 1350}
}),
                                           Case("OffCutWithinTheToleranceOfItStays")
                                               .Reserve(1399.95)
                                               .Part(L"A", 2, 1300)
                                               .Part(L"B", 1, 1350)
                                               .Nest(1, {{L"A", 2, 1300}})
                                               .Nest(1, {{L"B", 1, 1350}})),
                         NameOf);

// One part is compared with none.
INSTANTIATE_TEST_SUITE_P(Tolerance,
                         MemberNestingTest,
                         ::testing::Values(Case("OfOnePartAsItStands")
                                               .Tolerance(0.5, 0.5)
                                               .Part(L"A", 2, 1999.9)
                                               .Nest(2,
                                                     {
                                                         {L"A", 1, 1999.9}
}),
                                           Case("OfTwoParts")
                                               .Tolerance(0.5, 0.1)
                                               .Part(L"A", 1, 1999.9)
                                               .Part(L"A", 1, 1999.9)
                                               .Nest(1, {{L"A", 2, 1999.9}}),
                                           Case("OfAPartWithPiecesAndOneWithout")
                                               .Tolerance(0.5, 0.1)
                                               .Part(L"A", 2, 1999.9)
                                               .Part(L"B", 0, 10)
                                               .Nest(1, {{L"A", 2, 1999.9}})),
                         NameOf);

constexpr int kMost = std::numeric_limits<int>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// What no member should bring: it ends, and soon.
INSTANTIATE_TEST_SUITE_P(
    OddValues,
    MemberNestingTest,
    ::testing::Values(
        Case("NoQuantity").Part(L"A", 0, 1000),
        Case("QuantityBelow0").Part(L"A", -3, 1000),
        Case("TheSmallestQuantity").Part(L"A", std::numeric_limits<long>::min(), 1000),
        Case("NoLength")
            .Part(L"A", kMost, 0)
            .Nest(1,
                  {
                      {L"A", kMost, 0}
}),
        Case("HardlyALength").Part(L"A", kMost, 1e-9).Nest(1, {{L"A", kMost, 1e-9}}),
        Case("LengthBelow0").Part(L"A", kMost, -1).Nest(1, {{L"A", kMost, -1}}),
        Case("MoreOfAMarkThanAnIntHolds")
            .Part(L"A", kMost, 0)
            .Part(L"A", 2, 0)
            .Nest(1, {{L"A", kMost, 0}})
            .Nest(1, {{L"A", 2, 0}}),
        Case("NoNumber").Part(L"A", 3, kNaN).Nest(2, {{L"A", 1, kNaN}}).Nest(1, {{L"A", 1, kNaN}}),
        Case("Infinite").Part(L"A", 2, kInfinity).Nest(2, {{L"A", 1, kInfinity}}),
        Case("InfiniteBelow0").Part(L"A", 5, -kInfinity).Nest(1, {{L"A", 5, -kInfinity}})),
    NameOf);

TEST(MemberNestsTest, AddUp) {
    TestMember member = MemberOf({
        {L"A", 1, 1000}
    });
    member.Nesting();
    member.AppendNestQtyLen(1, 2000, L"B");
    member.Nesting();
    ASSERT_EQ(member.m_nests.length(), 2);
    EXPECT_EQ(member.m_nests[1].GetOutputPartNo(), L"B");
}

}  // namespace
