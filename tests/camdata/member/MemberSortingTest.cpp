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
        for (long i = 1; i < list.length(); ++i) {
            const CMxPeilaib* const pair[] = {list[i - 1], list[i]};
            CMxGeom::SetTol(static_cast<eToleranceType>(5), kOther);
            const int compared = CMxPeilaib::compare(&pair[0], &pair[1]);
            ASSERT_EQ(compared, PlainCompare(*pair[0], *pair[1]));
        }
        CMxGeom::SetTol(static_cast<eToleranceType>(5), kOther);
        camdata::detail::SortMembers(list);
        ASSERT_EQ(std::vector(list.begin(), list.end()), expected);
        ASSERT_TRUE(CurrentToleranceIs(members.size() < 2 ? kOther : CMxGeom::GetEPS()));
        // By the keys of one, as if each had them.
        const auto keys =
            members.empty() ? ZetArray<eSortOrder>() : members.back().GetSortOrderArr();
        for (TestMember& member : members)
            member.SetSortOrderArr(keys);
        const auto expectedByOne = PlainSorted({list.begin(), list.end()});
        CMxGeom::SetTol(static_cast<eToleranceType>(5), kOther);
        camdata::detail::SortMembersBy(keys, list);
        ASSERT_EQ(std::vector(list.begin(), list.end()), expectedByOne);
        ASSERT_TRUE(CurrentToleranceIs(members.size() < 2 ? kOther : CMxGeom::GetEPS()));
    }
}

}  // namespace
