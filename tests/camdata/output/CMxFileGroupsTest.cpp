#include "support/TempFolder.h"
#include "support/host/FakeHost.h"

#include "camdata/output/CMxFileGroups.h"

#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>

namespace {

using Operation = ZetFileFault::Operation;

class CMxFileGroupsTest : public ::testing::Test {
  protected:
    CMxFileGroups FileGroup(const char* file, bool createFilePointer = true) const {
        CMxFileGroups group;
        group.setValues(2, m_folder.NameOf(file), L"", {L"H1", L"H2"}, false, createFilePointer);
        return group;
    }

    TempFolder m_folder;
};

// The file of a file group that gives one.
ZetFileAccess& FileOf(CMxFileGroups& group) {
    ZetFileAccess* file = nullptr;
    EXPECT_TRUE(group.GetFileManager(file));
    return *file;
}

ZetArray<FileFault> FaultsOf(const CMxFileGroups& group) {
    ZetArray<FileFault> faults;
    group.AppendFileFaults(faults);
    return faults;
}

TEST_F(CMxFileGroupsTest, AFileIsOpenedOnceUntilItIsClosed) {
    m_folder.Write("a.txt", "what was there, and longer");
    CMxFileGroups group = FileGroup("a.txt");
    ZetFileAccess& file = FileOf(group);
    file.Write(L"100 % \u00F6\u00DF\n");
    EXPECT_EQ(&FileOf(group), &file);
    // Flag and name are asked in this order: an open file needs no name.
    group.SetFileName(L"");
    EXPECT_EQ(&FileOf(group), &file);
    group.SetCreateFilePointer(false);
    ZetFileAccess* none = nullptr;
    EXPECT_FALSE(group.GetFileManager(none));
    group.closeFile();
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(m_folder.Read("a.txt"), "H1\nH2\n100 % \xC3\xB6\xC3\x9F\n");

    group.SetCreateFilePointer(true);
    EXPECT_FALSE(group.GetFileManager(none));
    group.SetFileName(m_folder.NameOf("a.txt"));
    FileOf(group);
    group.closeFile();
    EXPECT_EQ(m_folder.Read("a.txt"), "H1\nH2\n");
    EXPECT_TRUE(FaultsOf(group).isEmpty());
}

TEST_F(CMxFileGroupsTest, SettingValuesTakesTheLinesAndKeepsTheFile) {
    CMxFileGroups group = FileGroup("a.txt");
    ZetFileAccess& file = FileOf(group);
    ZetArray<ZetString> lines = {L"other"};
    group.setValues(5, m_folder.NameOf("b.txt"), L"link", lines, true, true);
    EXPECT_TRUE(lines.isEmpty());
    EXPECT_EQ(group.GetFileGroupID(), 5);
    EXPECT_EQ(&FileOf(group), &file);
    group.closeFile();
    FileOf(group);
    group = CMxFileGroups();
    EXPECT_EQ(m_folder.Read("a.txt"), "H1\nH2\n");
    EXPECT_EQ(m_folder.Read("b.txt"), "other\n") << "closed by its last holder";
}

TEST_F(CMxFileGroupsTest, CopiesShareClosingButNotWhatIsOpenedLater) {
    CMxFileGroups group = FileGroup("a.txt");
    CMxFileGroups early = group;
    FileOf(group).Write(L"first\n");
    CMxFileGroups late = group;
    late.closeFile();
    EXPECT_EQ(m_folder.Read("a.txt"), "H1\nH2\nfirst\n");
    group.SetFileName(m_folder.NameOf("b.txt"));
    FileOf(group).Write(L"second\n");
    FileOf(late).Write(L"third\n");
    early.closeFile();
    EXPECT_NE(&FileOf(group), &FileOf(late));
    group.closeFile();
    late.closeFile();
    EXPECT_EQ(m_folder.Read("a.txt"), "H1\nH2\nthird\n");
    EXPECT_EQ(m_folder.Read("b.txt"), "H1\nH2\nsecond\n");
}

TEST_F(CMxFileGroupsTest, AFileThatCannotBeOpenedIsLentAndTriedAgain) {
    ClearHostPrints();
    CMxFileGroups group = FileGroup("new/a.txt");
    const FileFault fault = {m_folder.NameOf("new/a.txt"), Operation::kOpen, ENOENT};
    ZetFileAccess& unopened = FileOf(group);
    EXPECT_FALSE(unopened.IsOpen());
    ASSERT_EQ(HostPrints().size(), 2U);
    EXPECT_EQ(HostPrints()[1].text, L"H2\n");
    ZetFileAccess& again = FileOf(group);
    EXPECT_NE(&again, &unopened);
    EXPECT_EQ(FaultsOf(group), ZetArray<FileFault>{fault});

    std::filesystem::create_directory(m_folder.PathOf("new"));
    ZetFileAccess& opened = FileOf(group);
    EXPECT_TRUE(opened.IsOpen());
    EXPECT_FALSE(unopened.Write(L"lost"));
    EXPECT_EQ(FaultsOf(group), ZetArray<FileFault>{fault});
    group.ForgetClosedFiles();
    EXPECT_TRUE(FaultsOf(group).isEmpty());
    EXPECT_EQ(&FileOf(group), &opened);
    group.closeFile();
    EXPECT_EQ(m_folder.Read("new/a.txt"), "H1\nH2\n");
}

TEST_F(CMxFileGroupsTest, FaultsOfTwoFileGroupsAreListedOncePerFile) {
    CMxFileGroups groups[] = {FileGroup("none/a.txt"), FileGroup("none/b.txt"), FileGroup("c.txt")};
    for (CMxFileGroups& group : groups)
        FileOf(group);
    groups[2].closeFile();
    CMxFileGroups copy = groups[0];
    ZetArray<FileFault> faults;
    for (const CMxFileGroups* group : {&groups[0], &copy, &groups[1], &groups[2]})
        group->AppendFileFaults(faults);
    ASSERT_EQ(faults.length(), 2);
    EXPECT_EQ(faults[0].fileName, m_folder.NameOf("none/a.txt"));
    EXPECT_EQ(faults[1].fileName, m_folder.NameOf("none/b.txt"));
}

}  // namespace
