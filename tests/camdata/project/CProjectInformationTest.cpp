#include "support/TempFolder.h"

#include "camdata/project/CProjectInformation.h"

#include <cerrno>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::wstring>;

/// A record that expects a number of settings entries.
class Project : public CProjectInformation {
  public:
    explicit Project(int expectedEntryCount) { m_expectedEntryCount = expectedEntryCount; }
};

/// A line of settings per field that has one, in the order of the file.
Texts SettingsOf(const CProjectInformation& project) {
    Texts texts;
    // clang-format off
    for (const ZetString& text : {
             project.GetFileName(), project.GetColdRolledOrderNo(), project.GetColdRolledOrderDate(),
             project.GetMxComments(), project.GetRevision(), project.GetRevisionDate(),
             project.GetDeliveryDate(), project.GetMxDeliveryAddress()})
        // clang-format on
        texts.emplace_back(text.view());
    return texts;
}

/// A record whose settings are "-" and that reads them from "set.txt" in a folder.
Project ProjectIn(const TempFolder& folder, int expectedEntryCount) {
    Project project(expectedEntryCount);
    project.SetLocation(folder.NameOf("se"));
    project.SetSettingFileName(L"t.txt");
    project.SetFileName(L"-");
    project.SetColdRolledOrderNo(L"-");
    project.SetColdRolledOrderDate(L"-");
    project.SetMxComments(L"-");
    project.SetRevision(L"-");
    project.SetRevisionDate(L"-");
    project.SetDeliveryDate(L"-");
    project.SetMxDeliveryAddress(L"-");
    return project;
}

struct SettingsCase {
    const char* name;
    std::string bytes;
    Texts entries;   // as far as the fields go
    int count = -1;  // of entries in the file; -1: those of `entries`
};

// clang-format off
const Texts kAToH = {L"a", L"b", L"c", L"d", L"e", L"f", L"g", L"h"};
const SettingsCase kSettingsCases[] = {
    {"Empty", "", {}},
    {"AllEntries", "+a\n+b\n+c\n+d\n+e\n+f\n+g\n+h\n", kAToH},
    {"MoreThanTheFields", "+a\n+b\n+c\n+d\n+e\n+f\n+g\n+h\n+i\n+j\n", kAToH, 10},
    {"SeveralLines", "+a\r\nb\r\n\r\nc\n+d\n", {L"a\r\nb\r\n\r\nc", L"d"}},
    {"BareLineFeedsLoseACharacter", "+one\ntwo\nthree\n", {L"on\r\ntw\r\nthree"}},
    {"WithoutPlusAllIsOneEntry", "a\nb\nc\n", {L"\r\n\r\nc"}},
    {"EmptyEntryIsContinued", "+\nx\n", {L"\r\nx"}},
    {"OnlyLineFeeds", "\n\n\n", {L"\r\r\n"}},
    {"NonCharacterEndsTheFile", "+a\n+b\xEF\xBF\xBF\n+c\n", {L"a"}},
    {"PlusesAtTheBeginning", "++abc\n", {L"abc"}},
    {"PlusWithinALine", "+a+b\n+\n", {L"a+b", L""}},
    {"CarriageReturnAtTheEndStays", "+out\r\n+b\r\n", {L"out\r", L"b\r"}},
    {"ContinuationWithPlusSplits", "+a\r\n+b\r\nc\n", {L"a\r", L"b\r\nc"}},
    {"LoneCarriageReturns", "+a\rb\r+c\r\n", {L"a\rb\r+c\r"}},
    {"LastLineWithoutLineFeedIsDropped", "+a\n+b", {L"a"}},
    {"OpenContinuationDropsItsEntry", "+a\n+b\r\nc", {L"a"}},
    {"NullCharacter", std::string("+a\0b\n", 5), {std::wstring(L"a\0b", 3)}},
    {"DamagedUtf8", "+a\xFF" "b\xC3\n+\xE2\x82", {L"a\uFFFDb\uFFFD"}},
};
// clang-format on

class CProjectInformationSettingsTest : public ::testing::TestWithParam<SettingsCase> {};

TEST_P(CProjectInformationSettingsTest, AreReadWhenTheirNumberIsRight) {
    const SettingsCase& row = GetParam();
    const int count = row.count < 0 ? static_cast<int>(row.entries.size()) : row.count;
    const Texts unchanged(8, L"-");
    const TempFolder folder;
    folder.Write("set.txt", row.bytes);
    for (const int wrong : {count - 1, count + 1}) {
        Project project = ProjectIn(folder, wrong);
        EXPECT_FALSE(project.GetDetailFromFile());
        EXPECT_EQ(SettingsOf(project), unchanged);
    }
    Project project = ProjectIn(folder, count);
    EXPECT_TRUE(project.GetDetailFromFile());
    Texts expected = row.entries;
    expected.resize(8, L"-");
    EXPECT_EQ(SettingsOf(project), expected);
}

INSTANTIATE_TEST_SUITE_P(Files,
                         CProjectInformationSettingsTest,
                         ::testing::ValuesIn(kSettingsCases),
                         [](const auto& test) { return std::string(test.param.name); });

class CProjectInformationTest : public ::testing::Test {
  protected:
    TempFolder m_folder;
};

TEST_F(CProjectInformationTest, WithoutASettingsFileNothingChanges) {
    Project project = ProjectIn(m_folder, 8);
    EXPECT_TRUE(project.GetDetailFromFile());
    EXPECT_EQ(SettingsOf(project), Texts(8, L"-"));
}

TEST_F(CProjectInformationTest, ARecordExpectsNoEntriesUntilADerivedClassSaysHowMany) {
    CProjectInformation project;
    project.SetLocation(m_folder.NameOf("s"));
    project.SetSettingFileName(L"et.txt");
    m_folder.Write("set.txt", "+a\n+b\n+c\n+d\n+e\n+f\n+g\n+h\n");
    EXPECT_FALSE(project.GetDetailFromFile());
    EXPECT_EQ(project.GetFileName(), L"");
    m_folder.Write("set.txt", "");
    EXPECT_TRUE(project.GetDetailFromFile());
}

TEST_F(CProjectInformationTest, ASettingsFileOfManyLinesIsRead) {
    std::string lines = "+";
    std::wstring entry;
    for (int i = 0; i < 300'000; ++i) {
        lines += "x\r\n";
        entry += L"x\r\n";
    }
    m_folder.Write("set.txt", lines);
    Project project = ProjectIn(m_folder, 1);
    ASSERT_TRUE(project.GetDetailFromFile());
    // The last line end is an LF behind the CR.
    EXPECT_TRUE(project.GetFileName().view() ==
                std::wstring_view(entry).substr(0, entry.size() - 1));
}

TEST_F(CProjectInformationTest, WhatIsSavedCanBeReadBack) {
    Project project = ProjectIn(m_folder, 8);
    project.SetProjFileName(m_folder.NameOf("set.txt"));
    project.SetProjInfoArrInFile({L"+", L"+", L"+", L"+", L"+", L"+", L"+", L"+"});
    constexpr long kOthers = 7 * 3 + 2;  // "+-\n", and "+" and "\n" of the comments
    project.SetMxComments(ZetString(L'x', CProjectInformation::kMaxSettingsLength - kOthers));
    EXPECT_FALSE(project.WriteSettings());
    EXPECT_TRUE(project.GetDetailFromFile());
    m_folder.Write("set.txt", m_folder.Read("set.txt") + "+");
    EXPECT_FALSE(project.GetDetailFromFile());

    m_folder.Write("set.txt", "as it was");
    project.SetMxComments(project.GetMxComments() + L"x");
    const std::optional<FileFault> fault = project.WriteSettings();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->fileName, project.GetProjFileName());
    EXPECT_EQ(fault->systemError, EFBIG);
    EXPECT_EQ(m_folder.Read("set.txt"), "as it was");
}

#if defined(__linux__)
TEST_F(CProjectInformationTest, ASettingsFileThatCannotBeReadIsRefused) {
    // The memory of a process can be opened, but there is nothing at address 0.
    Project project(0);
    project.SetLocation(L"/proc/self/");
    project.SetSettingFileName(L"mem");
    EXPECT_FALSE(project.GetDetailFromFile());
}

TEST_F(CProjectInformationTest, ASettingsFileWithoutAnEndIsRefused) {
    Project project(0);
    project.SetLocation(L"/dev/");
    project.SetSettingFileName(L"zero");
    EXPECT_FALSE(project.GetDetailFromFile());
}
#endif

struct HeaderCase {
    const char* name;
    const wchar_t* comment;
    const wchar_t* label;
    const wchar_t* value;
    Texts lines;
};

// clang-format off
const HeaderCase kHeaderCases[] = {
    {"OneLine", L"# ", L"Client", L"100 %s", {L"# Client                    : 100 %s"}},
    {"SeveralLines", L"# ", L"Comments", L"one\r\n\r\ntwo\nhalf",
     {L"# Comments                  : one", L"#                           : ",
      L"#                           : two\nhalf"}},
    {"LineEndAtTheEnd", L"//", L"A label of 29 characters long", L"x\r\n",
     {L"//A label of 29 characters long : x", L"//                          : "}},
    {"LineEndAtTheBeginning", L"\r\n", L"L", L"x", {L"\r\nL                         : x"}},
    {"LineEndAtTheBeginningAndWithin", L"\r\n", L"L", L"x\r\ny",
     {L"", L"\r\n                          : L                         : x",
      L"\r\n                          : y"}},
    {"CommentOfThreeCharacters", L"REM", L"L", L"x\r\ny",
     {L"REML                         : x", L"REM                         : y"}},
    {"NoComment", L"", L"", L"", {L"                          : "}},
};
// clang-format on

TEST_F(CProjectInformationTest, HeaderLines) {
    for (const HeaderCase& row : kHeaderCases) {
        SCOPED_TRACE(row.name);
        CProjectInformation project;
        project.SetCommentStr(row.comment);
        project.SetFileHeaderArr({L"before"});
        project.AppendFileHeaderLine(row.label, row.value);
        ZetArray<ZetString> expected = {L"before"};
        for (const std::wstring& line : row.lines)
            expected.append(ZetString(line));
        EXPECT_EQ(project.GetFileHeaderArr(), expected);
    }
}

TEST_F(CProjectInformationTest, TheHostsTextsGoWhereTheyBelong) {
    using ID = ZetNCProjectData::ID;
    ZetNCProjectData data;
    for (int id = -1; id <= 10; ++id)
        data.SetData(static_cast<ID>(id), ZetString::format(L"text %d", id));
    EXPECT_EQ(data.GetData(static_cast<ID>(-1)), L"");
    EXPECT_EQ(data.GetData(static_cast<ID>(10)), L"");
    CProjectInformation p;
    p.SetModelRef(L"kept");
    p.SetProjectData(data);
    // clang-format off
    const ZetString texts = p.GetProjectName() + p.GetProjectNo() + p.GetClient() +
                            p.GetColdRolledCust() + p.GetColdRolledOrderNo() + p.GetContractor() +
                            p.GetDesigner() + p.GetDetailer() + p.GetModelRef();
    // clang-format on
    EXPECT_EQ(texts, L"text 0text 1text 2text 3text 4text 5text 7text 9kept");
}

TEST_F(CProjectInformationTest, DatesAreTodaysAtFirst) {
    SetClock([] { return CalendarDate{2024, 2, 29}; });
    const CProjectInformation project;
    SetClock([] { return CalendarDate{2025, 1, 1}; });
    const CProjectInformation copy = project;
    const ZetString date = FormatDate({2024, 2, 29});
    for (const CProjectInformation* each : {&project, &copy}) {
        EXPECT_EQ(each->GetColdRolledOrderDate(), date);
        EXPECT_EQ(each->GetRevisionDate(), date);
        EXPECT_EQ(each->GetDeliveryDate(), date);
    }
}

TEST_F(CProjectInformationTest, OutputFilesBringTheirNumber) {
    COutPutFiles file;
    file.SetValues(L"_cut", L"Cutting list");
    CProjectInformation project;
    project.SetOutPuts({file, file});
    EXPECT_EQ(project.GetNoOfOutPuts(), 2);
    project.SetFileNameArr({file});
    EXPECT_EQ(project.GetNoOfOutPuts(), 2);
    project.SetOutPuts({});
    EXPECT_EQ(project.GetNoOfOutPuts(), 0);
    EXPECT_TRUE(project.GetFileNameArr().isEmpty());
}

}  // namespace
