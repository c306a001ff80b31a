#include "support/CurrentTolerance.h"
#include "support/PlainMemberOrder.h"
#include "support/TestMember.h"

#include "camdata/member/MemberSorting.h"

#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Keys = ZetArray<int>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kOther = 7.0;

TestMember MemberOf(const HeaderOf& header, long groupID, const Keys& keys) {
    TestMember member = MemberOf(header);
    member.SetGroupID(groupID);
    ZetArray<eSortOrder> order;
    for (const int key : keys)
        order.append(static_cast<eSortOrder>(key));
    member.SetSortOrderArr(order);
    return member;
}

int Compare(const CMxPeilaib& first, const CMxPeilaib& second) {
    const CMxPeilaib* const members[] = {&first, &second};
    return CMxPeilaib::compare(&members[0], &members[1]);
}

/// Members of groups 7 and 3, and what comparing them and comparing them the other way round gives.
// clang-format off
struct OrderCase { const char* name; Keys keys; HeaderOf a, b; int result, reverse; };

const OrderCase kOrders[] = {
    {"no keys", {}, {.mark = L"A"}, {.mark = L"B"}, 0, 0},
    {"mark", {0}, {.mark = L"B10"}, {.mark = L"B9"}, -1, 1},
    {"mark, case counts", {0}, {.mark = L"b"}, {.mark = L"B"}, 1, -1},
    {"profile name", {1}, {.profileName = L"C"}, {.profileName = L"B"}, 1, -1},
    {"height", {2}, {.height = 200.2}, {.height = 200.0}, 1, -1},
    {"width", {3}, {.width = 70.0}, {.width = 70.2}, -1, 1},
    {"thickness", {4}, {.thickness = 2.0}, {.thickness = 1.5}, 1, -1},
    {"length", {5}, {.length = 3000.0}, {.length = 3000.2}, -1, 1},
    {"equal lengths", {5}, {.length = 3000.0}, {.length = 3000.1}, 0, 0},
    {"length in 3 decimals", {5}, {.length = 3000.0}, {.length = 3000.1004}, 0, 0},
    {"the tolerance apart: neither is first", {5}, {.length = 1000.0}, {.length = 1000.1}, 1, 1},
    {"not a number", {2}, {.height = kNaN}, {.height = 200.0}, 1, 1},
    {"length of name", {6}, {.profileName = L"C1000"}, {.profileName = L"Z20"}, 2, -2},
    {"group", {7}, {}, {}, 4, -4},
    {"unknown keys", {9, -1}, {.mark = L"A"}, {.mark = L"B"}, 0, 0},
    {"unknown keys are skipped", {9, 7}, {}, {}, 4, -4},
    {"equal heights, mark decides", {2, 0}, {.mark = L"B", .height = 200.05}, {.mark = L"A", .height = 200.0}, 1, -1},
    {"height decides before mark", {2, 0}, {.mark = L"B", .height = 200.0}, {.mark = L"A", .height = 200.2}, -1, 1},
};
// clang-format on

TEST(MemberSortingTest, TheFirstKeyThatTellsMembersApartDecides) {
    for (const OrderCase& row : kOrders) {
        SCOPED_TRACE(row.name);
        const TestMember a = MemberOf(row.a, 7, row.keys);
        const TestMember b = MemberOf(row.b, 3, row.keys);
        CMxGeom::SetTol(static_cast<eToleranceType>(5), kOther);
        EXPECT_EQ(Compare(a, b), row.result);
        EXPECT_TRUE(CurrentToleranceIs(0.1));
        EXPECT_EQ(Compare(b, a), row.reverse);
    }
}

TEST(MemberSortingTest, TheFirstMembersKeysCount) {
    const TestMember byMark = MemberOf(HeaderOf{.mark = L"A"}, 7, {0});
    const TestMember byGroup = MemberOf(HeaderOf{.mark = L"B"}, 3, {7});
    EXPECT_EQ(Compare(byMark, byGroup), -1);
    EXPECT_EQ(Compare(byGroup, byMark), -4);
}

using Members = std::vector<TestMember>;

/// Members whose numbers lie about a tolerance apart, with one list of keys or several.
Members RandomMembers(std::mt19937& random) {
    const auto number = [&](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    const auto text = [&] { return ZetString(L"A1A10").mid(number(5), number(4)); };
    const auto value = [&] { return number(30) == 0 ? kNaN : 1000.0 + 0.05 * number(8); };
    const int count = number(number(9) == 0 ? 90 : 12);
    const bool isMixed = number(4) == 0;
    Keys keys;
    Members members;
    for (int i = 0; i < count; ++i) {
        if (i == 0 || isMixed)
            keys = {number(10) - 1, number(10) - 1, number(10) - 1};
        const HeaderOf header = {L"", text(), 0, text(), L"", value(), value(), value(), value()};
        members.push_back(MemberOf(header, number(5), keys));
    }
    return members;
}

TEST(MemberSortingTest, SortingEqualsPlainSteps) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Members members = RandomMembers(random);
        CMxGeom::SetEPS(seed % 3 == 0 ? 0.3 : 0.1);
        ZetArray<CMxPeilaib*> list;
        for (TestMember& member : members)
            list.append(&member);
        const auto expected = PlainSorted({list.begin(), list.end()});
        CMxGeom::SetTol(static_cast<eToleranceType>(5), kOther);
        camdata::detail::SortMembers(list);
        ASSERT_EQ(std::vector(list.begin(), list.end()), expected);
        ASSERT_TRUE(CurrentToleranceIs(members.size() < 2 ? kOther : CMxGeom::GetEPS()));
    }
}

}  // namespace
