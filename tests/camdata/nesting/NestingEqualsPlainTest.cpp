#include "support/CurrentTolerance.h"
#include "support/NestReport.h"
#include "support/RandomRounds.h"
#include "support/TestMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace {

/// A seeded source of parts. Few marks for many parts, so that some share one.
class RandomParts {
  public:
    explicit RandomParts(std::uint64_t seed) : m_random(seed), m_kind(Below(6)) {}

    int Below(int end) { return static_cast<int>(m_random() % static_cast<std::uint64_t>(end)); }

    PlainPart Part() {
        return {ZetString::format(L"M%d", Below(m_marks)), Below(14) - 1, Length()};
    }
    std::vector<PlainPart> List() {
        std::vector<PlainPart> parts;
        for (int count = Below(40); count > 0; --count)
            parts.push_back(Part());
        return parts;
    }

  private:
    double Length() {
        constexpr double kInf = std::numeric_limits<double>::infinity();
        constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
        constexpr double kOdd[] = {0.0, -0.0, -700.0, 1e-9, kInf, -kInf, kNaN};
        if (m_kind == 5)
            return Below(4) == 0 ? kOdd[Below(7)] : 100.0 * Below(45);
        constexpr double kLeast[] = {300, 0, 3999, 1333, 0};
        constexpr double kStep[] = {0.1, 50, 0.01, 0.01, 0.05};
        constexpr int kSteps[] = {36000, 90, 200, 60, 2000};
        return kLeast[m_kind] + Below(kSteps[m_kind]) * kStep[m_kind];
    }

    std::mt19937_64 m_random;
    int m_kind;
    int m_marks = Below(2) == 0 ? 8 : 1000;
};

double ToleranceOf(int round) {
    constexpr double kTolerances[] = {0.1, 0.5, 0.0, 2.0};
    return kTolerances[round % 4];
}

TEST(NestingEqualsPlainTest, RandomLists) {
    constexpr double kReserves[] = {0.0, 0.0, 500.0, 2000.0, -50.0};
    for (int round = 0; round < RandomRounds(1000); ++round) {
        SCOPED_TRACE(round);
        RandomParts random(static_cast<std::uint64_t>(round));
        const std::vector<PlainPart> parts = random.List();
        CMxGeom::SetEPS(round % 7 == 0 ? 0.03 : 0.1);
        TestMember member;
        member.m_reserveLength = kReserves[round % 5];
        for (const PlainPart& part : parts)
            member.AppendNestQtyLen(part.qty, part.length, part.mark);
        CMxGeom::SetTol(eTolValue, ToleranceOf(round));
        const auto plain = ReportsOf(PlainNesting(parts, member.m_reserveLength));
        CMxGeom::SetTol(eTolValue, ToleranceOf(round));
        member.Nesting();
        const double left = parts.size() < 2 ? ToleranceOf(round) : CMxGeom::GetEPS();
        ASSERT_TRUE(CurrentToleranceIs(left));
        ASSERT_EQ(ReportsOf(member.m_nests), plain);
    }
}

/// The operations of one nest in any order, on parts that stand in any order.
TEST(NestingEqualsPlainTest, RandomOperations) {
    for (int round = 0; round < RandomRounds(1000); ++round) {
        SCOPED_TRACE(round);
        RandomParts random(static_cast<std::uint64_t>(round));
        std::vector<PlainPart> plainParts = random.List();
        plainParts.push_back({L"M1", 5, 400.0});
        ZetArray<CMxParts> parts;
        for (const PlainPart& part : plainParts)
            parts.append(PartOf(part));
        CMxGeom::SetTol(eTolValue, ToleranceOf(round));
        PlainNest plain;
        plain.Append(plainParts.back());
        plain.qty = 1;
        CMxNestParts nest;
        nest.SetNestMainPart(parts.last());
        for (int step = 0; step < 30; ++step) {
            const int at = random.Below(static_cast<int>(plainParts.size()));
            PlainPart& plainPart = plainParts[static_cast<std::size_t>(at)];
            if (step == 12)
                ASSERT_EQ(nest.AppendNestPart(parts[at]), plain.Append(plainPart));
            else
                ASSERT_EQ(nest.InsertNest(parts[at]), plain.Insert(plainPart));
            ASSERT_EQ(std::bit_cast<std::uint64_t>(nest.GenerateOffCutLength()),
                      std::bit_cast<std::uint64_t>(plain.OffCut()));
            ASSERT_EQ(parts[at].GetQty(), plainPart.qty);
        }
        plain.CheckCombinations(plainParts);
        EXPECT_FALSE(nest.CheckCombinationsAndAdd(parts));
        ASSERT_EQ(ReportOf(nest), ReportOf(plain));
        for (std::size_t i = 0; i < plainParts.size(); ++i)
            ASSERT_EQ(parts[static_cast<long>(i)].GetQty(), plainParts[i].qty);
    }
}

}  // namespace
