#include "support/AssertionOf.h"
#include "support/TempFolder.h"
#include "support/TestMember.h"

#include "camdata/output/CMxAddlInfo.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using Blocks = ZetArray<ZetArray<ZetString>>;

TestMember Member(const HeaderOf& header, const ZetArray<long>& blocks) {
    TestMember member;
    member.m_memType.SetHeaderData(header);
    member.SetAddInfoArrLoc(blocks);
    return member;
}

const HeaderOf kHeader = {.mark = L"M1", .quantity = 3, .profileName = L"Z200"};

CMxAddlInfo Info(Blocks blocks, ZetArray<long> writeOrder) {
    CMxAddlInfo info;
    info.SetAddInfoArr(blocks, writeOrder);
    EXPECT_TRUE(blocks.isEmpty() && writeOrder.isEmpty());
    return info;
}

// What is written to a file behind "before\n".
std::string WrittenBy(const CMxAddlInfo& info) {
    const TempFolder folder;
    ZetFileAccess file;
    file.Open(folder.NameOf("info.txt"), L"w");
    file.Write(L"before\n");
    ZetFileAccess* pointer = &file;
    info.WriteAddInfo(pointer);
    file.Close();
    return folder.Read("info.txt");
}

const std::string kGap = "  \n  \n  \n";
const std::string kM1 = "M1                  Z200                3   \n";
const std::string kLong = "A-mark-of-25-characters..A-profile-of-28-characters..123456\n";

TEST(CMxAddlInfoTest, EveryMemberStandsInBlockZeroAndInTheBlocksItNames) {
    TestMember first = Member(kHeader, {2, 2});
    // clang-format off
    TestMember second = Member({.mark = L"A-mark-of-25-characters..", .quantity = 123456,
                                .profileName = L"A-profile-of-28-characters.."}, {0, 1});
    // clang-format on
    CMxPeilaibArr list;
    list.Append(&first);
    list.Append(&second);
    CMxAddlInfo info = Info({{L"all"}, {L"100 %s"}, {}, {L"never"}}, {2, 0, 1, 2});
    info.AppendInfo(&list);
    info.AppendInfo(ZetArray<CMxPeilaib*>{&first});
    info.AppendInfo(nullptr);
    EXPECT_EQ(WrittenBy(info),
              "before\n" + kGap + kM1 + kM1 + kM1 + kM1 + kGap + "all\n" + kM1 + kLong + kLong +
                  kM1 + kGap + "100 %s\n" + kLong + kGap + kM1 + kM1 + kM1 + kM1);
}

TEST(CMxAddlInfoTest, ABlockThatIsNotThereFailsAnAssertion) {
    CMxAddlInfo empty;
    EXPECT_EQ(AssertionOf([&] { empty.AppendInfo(ZetArray<CMxPeilaib*>()); }), "isValid( index )");
    TestMember member = Member(kHeader, {1, 2});
    CMxAddlInfo info = Info({{L"all"}, {L"one"}}, {0, 1});
    EXPECT_EQ(AssertionOf([&] { info.AppendInfo({&member}); }), "isValid( index )");
    EXPECT_EQ(WrittenBy(info), "before\n" + kGap + "all\n" + kGap + "one\n" + kM1);
}

}  // namespace
