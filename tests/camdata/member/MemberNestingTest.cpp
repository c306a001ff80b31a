#include "support/CurrentTolerance.h"
#include "support/NestReport.h"
#include "support/TestMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace {

TestMember MemberOf(const std::vector<PlainPart>& parts) {
    TestMember member;
    for (const PlainPart& part : parts)
        member.AppendNestQtyLen(part.qty, part.length, part.mark);
    return member;
}

/// Parts to nest, and the nests that they make: the pieces on a bar and the number of bars.
// clang-format off
struct Case { const char* name; std::vector<PlainPart> parts; std::vector<PlainNest> nests;
              double reserveLength = 0.0; double tolerance = 0.1; double toleranceLeft = 0.1; };
// clang-format on

constexpr int kMost = std::numeric_limits<int>::max();
constexpr long kLeast = std::numeric_limits<long>::min();

// clang-format off
const Case kCases[] = {
    {"no parts", {}, {}},
    {"a nest stands for two bars at most", {{L"A", 9, 1900}},
     {{{{L"A", 2, 1900}}, 2}, {{{L"A", 2, 1900}}, 2}, {{{L"A", 1, 1900}}, 1}}},
    {"longer than a bar", {{L"A", 3, 5000}}, {{{{L"A", 1, 5000}}, 2}, {{{L"A", 1, 5000}}, 1}}},
    {"no exact fill", {{L"A", 2, 2000}}, {{{{L"A", 1, 2000}}, 2}}},
    {"a fit by more than the tolerance", {{L"A", 2, 1999.9}}, {{{{L"A", 2, 1999.9}}, 1}}},
    {"the shortest first", {{L"C", 1, 3000}, {L"A", 3, 1000}, {L"B", 2, 1500}},
     {{{{L"A", 3, 1000}}, 1}, {{{L"B", 2, 1500}}, 1}, {{{L"C", 1, 3000}}, 1}}},
    {"equal within the tolerance: in their order", {{L"A", 1, 3000.05}, {L"B", 1, 3000}},
     {{{{L"A", 1, 3000.05}}, 1}, {{{L"B", 1, 3000}}, 1}}},
    {"parts of one mark have the length of the first", {{L"A", 1, 1000}, {L"A", 1, 1500}},
     {{{{L"A", 2, 1000}}, 1}}},
    {"a second bar takes from the first part of a mark", {{L"A", 1, 1000}, {L"A", 5, 1900}},
     {{{{L"A", 3, 1000}}, 1}, {{{L"A", 2, 1900}}, 1}, {{{L"A", 1, 1900}}, 1}}},
    {"an off-cut above the reserve is filled", {{L"A", 2, 1300}, {L"B", 1, 1350}},
     {{{{L"A", 2, 1300}, {L"B", 1, 1350}}, 1}}, 1399.8},
    {"one part is compared with none", {{L"A", 2, 1999.9}}, {{{{L"A", 1, 1999.9}}, 2}},
     0.0, 0.5, 0.5},
    {"two parts select a tolerance", {{L"A", 1, 1999.9}, {L"A", 1, 1999.9}},
     {{{{L"A", 2, 1999.9}}, 1}}, 0.0, 0.5, 0.1},
    {"also when one has no pieces", {{L"A", 2, 1999.9}, {L"B", 0, 10}},
     {{{{L"A", 2, 1999.9}}, 1}}, 0.0, 0.5, 0.1},
    // What no member should bring: it ends, and soon.
    {"the smallest quantity", {{L"A", kLeast, 1000}}, {}},
    {"no length", {{L"A", kMost, 0}}, {{{{L"A", kMost, 0}}, 1}}},
    {"hardly a length", {{L"A", kMost, 1e-9}}, {{{{L"A", kMost, 1e-9}}, 1}}},
    {"length below 0", {{L"A", kMost, -1}}, {{{{L"A", kMost, -1}}, 1}}},
    {"more of a mark than an int holds", {{L"A", kMost, 0}, {L"A", 2, 0}},
     {{{{L"A", kMost, 0}}, 1}, {{{L"A", 2, 0}}, 1}}},
};
// clang-format on

TEST(MemberNestingTest, CutsPartsFromBars) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        TestMember member = MemberOf(c.parts);
        member.m_reserveLength = c.reserveLength;
        CMxGeom::SetTol(eTolValue, c.tolerance);
        member.Nesting();
        EXPECT_TRUE(CurrentToleranceIs(c.toleranceLeft));
        EXPECT_EQ(ReportsOf(member.m_nests), ReportsOf(c.nests));
        EXPECT_TRUE(member.m_partsToNest.isEmpty());
    }
}

TEST(MemberNestingTest, NestsAddUp) {
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
