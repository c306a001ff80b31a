#include "camdata/output/CMxGroups.h"

#include <gtest/gtest.h>

namespace {

TEST(CMxGroupsTest, SettingValuesTakesTheArraysAndLeavesTheRest) {
    CMxGroups group;
    EXPECT_EQ(group.GetMemGroupID(), -1);
    EXPECT_FALSE(group.GetNesting());
    group.SetNesting(true);

    ZetArray<long> files = {4, 0};
    ZetArray<ZetString> headers = {L"H1", L"H2"};
    ZetArray<eSortOrder> keys = {eSortLength, eSortMark};
    group.setValues(7, files, headers, keys);
    EXPECT_TRUE(files.isEmpty() && headers.isEmpty() && keys.isEmpty());
    EXPECT_EQ(group.GetMemGroupID(), 7);
    EXPECT_EQ(group.GetFileGroupIDs(), (ZetArray<long>{4, 0}));
    EXPECT_EQ(group.GetHeaderInfos(), (ZetArray<ZetString>{L"H1", L"H2"}));
    EXPECT_EQ(group.GetSortOrderArr(), (ZetArray<eSortOrder>{eSortLength, eSortMark}));

    files = {5};
    headers = {L"H3"};
    const CMxGroups before = group;
    group.setValues(8, files, headers);
    EXPECT_TRUE(files.isEmpty() && headers.isEmpty());
    EXPECT_EQ(group.GetMemGroupID(), 8);
    EXPECT_EQ(group.GetFileGroupIDs(), ZetArray<long>{5});
    EXPECT_EQ(group.GetHeaderInfos(), ZetArray<ZetString>{L"H3"});
    EXPECT_TRUE(group.GetNesting() && group.GetSortOrderArr().length() == 2);
    EXPECT_EQ(before.GetHeaderInfos().length(), 2);
}

}  // namespace
