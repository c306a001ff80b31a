#include "support/PlainGathering.h"
#include "support/RandomMember.h"
#include "support/RandomRounds.h"
#include "support/TestMember.h"

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr double kOther = 7.0;

/// The current tolerance, found by comparing with it; "none" when it is no number, or negative.
double ProbedTolerance() {
    if (!CMxGeom::IsEqual_Mx(0.0, 0.0))
        return CMxGeom::IsLess_Mx(0.0, 0.0) ? -1.0 : -2.0;
    std::uint64_t within = 0;
    auto beyond = std::bit_cast<std::uint64_t>(std::numeric_limits<double>::infinity());
    while (within + 1 < beyond) {
        const std::uint64_t middle = (within + beyond) / 2;
        (CMxGeom::IsEqual_Mx(std::bit_cast<double>(middle), 0.0) ? within : beyond) = middle;
    }
    return std::bit_cast<double>(within);
}

/// All that post-processing can change of a record, numbers as their bits; the first element tells
/// which record it is.
using Print = std::vector<std::uint64_t>;
using Prints = std::vector<Print>;

std::uint64_t BitsOf(double value) {
    return std::isnan(value) ? 1 : std::bit_cast<std::uint64_t>(value);
}

template <typename... Values>
Print BitsOfAll(const Values&... values) {
    return {BitsOf(static_cast<double>(values))...};
}

// clang-format off
Print PrintOf(const CHoleAddlInfo& hole) {
    return BitsOfAll(hole.GetHoleData().depth, hole.GetXPos(), hole.GetYPos(), hole.GetHoleData().x,
                     hole.GetHoleData().y, hole.GetSize(), hole.GetSlotVector().x,
                     hole.GetSlotVector().y, hole.GetHoleStatus(), hole.GetViewData().GetHoleFace(),
                     hole.GetCSKPos(), hole.GetIsCSK(), hole.GetValid(), hole.GetIsReqdToProcess());
}

Print PrintOf(const CNotchAddInfo& notch) {
    return BitsOfAll(notch.GetXPos(), notch.GetYPos(), notch.GetLength(), notch.GetWidth(),
                     notch.GetNoOfVertices(), notch.GetNotchStatus(),
                     notch.GetViewData().GetHoleFace(), notch.GetIsInternal());
}

// clang-format on
template <typename Records>
Prints PrintsOf(const Records& records) {
    Prints prints;
    for (const auto& record : records)
        prints.push_back(PrintOf(record));
    return prints;
}

/// What a gathering leaves: holes, countersinks, duplicate holes, notches, duplicate notches.
struct Outcome {
    std::array<Prints, 5> lists;
    double tolerance;

    bool operator==(const Outcome&) const = default;
};

/// Tolerances of the process, and how many internal and external contours a member may have.
// clang-format off
struct Settings { double eps, yTol; long internalLimit, externalLimit; };
// clang-format on

Settings RandomSettings(unsigned long long seed) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    // clang-format off
    static const Settings kOdd[] = {
        {0.0, 0.0, -1, -1}, {-0.1, -0.3, -1, 0}, {3.0, 5.0, 0, -1}, {kNaN, 0.5, -1, -1},
        {0.1, kNaN, -1, -1}, {kInfinity, kInfinity, -1, -1}, {2e15, 2e15, -1, -1},
    };
    // clang-format on
    constexpr std::size_t kEvery = 6;
    if (seed % kEvery != 0)
        return {0.1, 0.5, seed % 5 == 0 ? 0 : -1, seed % 7 == 0 ? 0 : 2};
    return kOdd[seed / kEvery % std::size(kOdd)];
}

void Select(const Settings& settings) {
    CMxGeom::SetEPS(settings.eps);
    CMxGeom::SetYTol(settings.yTol);
    CMxGeom::SetTol(eTolValue, kOther);
}

Outcome OutcomeOfPlain(const std::vector<RandomView>& views, const Settings& settings) {
    Select(settings);
    PlainMember member;
    for (const RandomView& view : views) {
        member.TakeHoles(view.holes, view.data);
        member.TakeNotches(
            view.contours, view.data, settings.internalLimit, settings.externalLimit);
    }
    member.Finish();
    // clang-format off
    return {{PrintsOf(member.holes), PrintsOf(member.cskHoles), PrintsOf(member.duplicateHoles),
             PrintsOf(member.notches), PrintsOf(member.duplicateNotches)}, ProbedTolerance()};
    // clang-format on
}

Outcome OutcomeOfLibrary(const std::vector<RandomView>& views, const Settings& settings) {
    Select(settings);
    TestMember member;
    member.m_validations.SetNoOfInternalContours(settings.internalLimit);
    member.m_validations.SetNoOfExternalContours(settings.externalLimit);
    for (const RandomView& view : views) {
        member.SetHoleDataArr(view.holes, view.data);
        member.SetNotchDataArr(view.contours, view.data);
    }
    member.MakeDupHoleArrForHolesInsideSlot();
    member.MakeDupNotchArr();
    // clang-format off
    return {{PrintsOf(member.m_holes), PrintsOf(member.m_cskHoles),
             PrintsOf(member.m_duplicateHoles), PrintsOf(member.m_notches),
             PrintsOf(member.m_duplicateNotches)}, ProbedTolerance()};
    // clang-format on
}

std::string TextOf(const Outcome& outcome) {
    std::string text = "tolerance " + std::to_string(outcome.tolerance);
    for (const Prints& prints : outcome.lists) {
        text += "\n" + std::to_string(prints.size()) + ":";
        for (const Print& print : prints)
            text += " " + std::to_string(std::bit_cast<double>(print.front()));
    }
    return text;
}

/// Every list and the tolerance left behind, bit for bit.
TEST(GatheringEqualsPlainTest, RandomMembers) {
    const auto members = static_cast<unsigned long long>(RandomRounds(10000));
    std::array<std::size_t, 5> found = {};
    for (unsigned long long seed = 1; seed <= members; ++seed) {
        const std::vector<RandomView> views = RandomMember(seed).GetViews();
        const Outcome plain = OutcomeOfPlain(views, RandomSettings(seed));
        const Outcome fast = OutcomeOfLibrary(views, RandomSettings(seed));
        ASSERT_TRUE(plain == fast)
            << "seed " << seed << ' ' << TextOf(plain) << "\nnot " << TextOf(fast);
        for (std::size_t i = 0; i < found.size(); ++i)
            found[i] += plain.lists[i].size();
    }
    for (const std::size_t count : found)
        EXPECT_GT(count, members / 2) << "the members hold too little";
}

/// Holes that were moved after gathering: their current positions say nothing about their NC ones.
TEST(GatheringEqualsPlainTest, DuplicatesOfMovedHoles) {
    std::mt19937_64 random(1);
    const auto number = [&](int below) {
        return static_cast<double>(random() % static_cast<unsigned long long>(below));
    };
    for (int round = 0; round < RandomRounds(300); ++round) {
        SCOPED_TRACE(round);
        std::vector<CHoleAddlInfo> records;
        const int count = round % 4 == 1 ? round % 3 : 60;
        for (int i = 0; i < count; ++i) {
            const double x = round % 3 == 0 ? 25.0 * i : number(count < 3 ? 20 : 4000);
            ZetNCHoleData data = {.x = x, .y = number(40), .size = 1.75 + number(20)};
            data.depth = i;
            CHoleAddlInfo hole;
            hole.SetHoleData(data);
            hole.SetXPosFrom(data.x + number(round % 2 == 0 ? 20 : 500));
            hole.SetYPosFrom(data.y + number(3));
            records.push_back(hole);
        }
        TestMember member;
        ZetArray<CHoleAddlInfo> fast(records.begin(), records.end());
        CMxGeom::SetTol(eTolValue, kOther);
        member.MakeDupHoleArr(fast);
        ASSERT_EQ(ProbedTolerance(), count < 2 ? kOther : 0.1);
        RecordPtrs<CHoleAddlInfo> plain = PtrsTo(records);
        std::vector<CHoleAddlInfo> duplicates;
        PlainDuplicates(plain, duplicates, PlainIsDuplicate);
        ASSERT_EQ(PrintsOf(duplicates), PrintsOf(member.m_duplicateHoles));
        Prints kept;
        for (const CHoleAddlInfo* hole : plain)
            kept.push_back(PrintOf(*hole));
        ASSERT_EQ(kept, PrintsOf(fast));
    }
}

/// Two holes are duplicates up to the mean of their diameters and the tolerance, however large they
/// are, in a row or moved, alone or among many.
TEST(GatheringEqualsPlainTest, HolesOfAllSizesAreDuplicatesAsFarAsTheyTouch) {
    const auto countOf = [](double first, double second, double apart, int variant) {
        ZetArray<CHoleAddlInfo> holes;
        const auto add = [&](double x, double y, double size) {
            CHoleAddlInfo hole;
            hole.SetHoleData({.x = x, .y = y, .size = size});
            if (variant % 2 == 1)
                hole.SetXPosFrom(3.0 * x + 0.5 * y);
            holes.append(hole);
        };
        add(100.0, 7.0, first);
        add(100.0 + (variant < 4 ? apart : 0.0), 7.0 + (variant < 4 ? 0.0 : apart), second);
        for (int i = 0; i < (variant % 4 < 2 ? 0 : 30); ++i)
            add(200.0 + 40.0 * i, 10.0 + i, 16.0);
        TestMember member;
        member.MakeDupHoleArr(holes);
        return member.m_duplicateHoles.length();
    };
    CMxGeom::SetEPS(0.1);
    for (double first = 0.25; first < 20.0; first += 0.5)
        for (double second = 0.25; second < 20.0; second += 0.5)
            for (int variant = 0; variant < 8; ++variant) {
                const double mean = 0.5 * (first + second);
                ASSERT_EQ(countOf(first, second, mean + 0.05, variant), 1)
                    << first << ", " << second << ", " << variant;
                ASSERT_EQ(countOf(first, second, mean + 0.15, variant), 0)
                    << first << ", " << second << ", " << variant;
            }
}

/// Orders the holes of a view both ways.
TEST(GatheringEqualsPlainTest, OrderOfHolesAndNotches) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    std::mt19937_64 random(1);
    for (int round = 0; round < RandomRounds(3000); ++round) {
        SCOPED_TRACE(round);
        const bool isLong = round % 50 == 1;
        const auto number = [&] {
            const auto drawn = random() % (round % 3 == 0 ? 4 : 3);
            const double scale = isLong && round % 4 == 1 ? 1.7e308 : 1.0;
            return drawn == 3 ? kNaN : (static_cast<double>(drawn) - 1.0) * scale;
        };
        std::vector<CHoleAddlInfo> records(random() % (isLong ? 400 : 12));
        ZetArray<CNotchAddInfo> notches;
        for (std::size_t i = 0; i < records.size(); ++i) {
            records[i].SetSqrHoleData(static_cast<double>(i), number(), number());
            CNotchAddInfo notch;
            notch.SetXPosFrom(records[i].GetXPos());
            notch.SetYPosFrom(records[i].GetYPos());
            notches.append(notch);
        }
        ZetArray<CHoleAddlInfo> fast(records.begin(), records.end());
        TestMember::OrderHoles(fast);
        RecordPtrs<CHoleAddlInfo> plain = PtrsTo(records);
        PlainOrder(plain);
        TestMember::OrderNotches(notches);
        for (std::size_t i = 0; i < plain.size(); ++i) {
            const long at = static_cast<long>(i);
            ASSERT_EQ(plain[i]->GetSize(), fast[at].GetSize());
            ASSERT_EQ(BitsOf(plain[i]->GetXPos()), BitsOf(notches[at].GetXPos()));
            ASSERT_EQ(BitsOf(plain[i]->GetYPos()), BitsOf(notches[at].GetYPos()));
        }
    }
}

}  // namespace
