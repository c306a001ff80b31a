#include "support/TempFolder.h"
#include "support/host/FakeHost.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/platform/host/HostComError.h"
#include "camdata/util/CMxUtil.h"

#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::wstring>;

class CMxUtilTest : public ::testing::Test {
  protected:
    CMxUtilTest() { ClearHostPrints(); }
};

// What the fake host printed, as texts.
Texts PrintedTexts() {
    Texts texts;
    for (const HostPrint& print : HostPrints())
        texts.push_back(print.text);
    return texts;
}

TEST_F(CMxUtilTest, RunsOfCharacters) {
    const std::tuple<int, bool, const wchar_t*, const wchar_t*> cases[] = {
        {20, false, L"                    ", L"--------------------"},
        {5,  true,  L"    \n",               L"----\n"              },
        {1,  false, L" ",                    L"-"                   },
        {1,  true,  L"\n",                   L"\n"                  },
        {0,  true,  L"",                     L""                    },
        {-3, true,  L"",                     L""                    },
    };
    for (const auto& [count, newLine, spaces, divider] : cases) {
        EXPECT_EQ(CMxUtil::GetSpaces(count, newLine), spaces) << count;
        EXPECT_EQ(CMxUtil::GetLineDivider(count, newLine), divider) << count;
    }
}

// The order of the trials does not depend on the order of loading.
TEST_F(CMxUtilTest, FirstLoadedModuleOfTheTrialsPrints) {
    // clang-format off
    const std::pair<std::vector<std::wstring>, HostPrint> cases[] = {
        {{}, {"main program", L"a\n", false}},
        {{L"kwdb19"}, {"kwdb19", L"a\n", false}},
        {{L"kwdb19", L"kwdb18"}, {"kwdb18", L"a\n", false}},
        {{L"kwdb18", L"kwutil15"}, {"kwutil15", L"a\n", true}},
        {{L"kwutil15", L"kwdb16"}, {"kwdb16", L"a\n", true}},
        {{L"kwdb16", L"kwdb18", L"kwutil15", L"kwdb17", L"kwdb19"}, {"kwdb17", L"a\n", false}},
    };
    // clang-format on
    for (const auto& [modules, printed] : cases) {
        ClearHostPrints();
        std::vector<std::unique_ptr<FakeModule>> loaded;
        for (const std::wstring& module : modules)
            loaded.push_back(std::make_unique<FakeModule>(module + L".dll"));
        EXPECT_EQ(CMxUtil::PrintPrompt(L"a"), 1);
        EXPECT_EQ(HostPrints(), std::vector<HostPrint>{printed});
    }
}

// It is linked with a library that has the function, but it has none of its own.
TEST_F(CMxUtilTest, FoundModuleThatCannotPrintEndsTheTrials) {
    const FakeModule mute(L"linked/kwdb17.dll");
    const FakeModule next(L"kwdb16.dll");
    ASSERT_NE(mute.Function<FakeHostSetPrinted>("linkedSetPrinted"), nullptr);
    mute.Function<FakeHostSetPrinted>("linkedSetPrinted")(RecordHostPrint);
    EXPECT_EQ(CMxUtil::PrintPrompt(L"a"), 1);
    EXPECT_EQ(HostPrints(), std::vector<HostPrint>{});
    mute.Function<int (*)(const wchar_t*)>("linkedPrint")(L"b");
    EXPECT_EQ(PrintedTexts(), Texts{L"b"});
}

TEST_F(CMxUtilTest, AddsALineFeedOnlyToATextWithoutAny) {
    CMxUtil::PrintPrompt(L"100 %d done");
    CMxUtil::PrintPrompt(L"\nfirst");
    CMxUtil::PrintPrompt(L"in\nside");
    CMxUtil::PrintPrompt(L"");
    EXPECT_EQ(PrintedTexts(), (Texts{L"100 %d done\n", L"\nfirst", L"in\nside", L"\n"}));
}

TEST_F(CMxUtilTest, PrintsCoordinatesWithTwoDecimals) {
    EXPECT_EQ(CMxUtil::PrintPoint({1.0, -2.345678, 1000.5}, L"Corner"), 1);
    EXPECT_EQ(CMxUtil::PrintVector({0.0, 0.999, -1.0}, L""), 1);
    EXPECT_EQ(PrintedTexts(), (Texts{L"\nCorner : 1.00,-2.35,1000.50", L"\n : 0.00,1.00,-1.00"}));
}

TEST_F(CMxUtilTest, PrintsACoordinateSystemToAnOpenFileOrOnTheCommandLine) {
    FakeCoordinateSystem cs;
    ZetFileAccess file;
    const Texts lines = {L"The CS output as follows\n",
                         L"\nOrigin   10.000,  -20.500, 12345.679",
                         L"\nX-Axis    0.000,    1.000,    0.000",
                         L"\nY-Axis   -1.000,    0.000,    0.000",
                         L"\nZ-Axis    0.000,    0.000,    1.000"};
    for (ZetFileAccess* unopened : {static_cast<ZetFileAccess*>(nullptr), &file}) {
        ClearHostPrints();
        EXPECT_EQ(CMxUtil::PrintCS(&cs, unopened), 1);
        EXPECT_EQ(PrintedTexts(), lines);
    }
    ClearHostPrints();
    const TempFolder folder;
    ASSERT_TRUE(file.Open(folder.NameOf("cs.txt"), L"w"));
    EXPECT_EQ(CMxUtil::PrintCS(&cs, &file), 1);
    file.Close();
    const std::string text = folder.Read("cs.txt");
    EXPECT_EQ(std::wstring(text.begin(), text.end()),
              lines[0] + lines[1] + L"\n" + lines[2] + L"\n" + lines[3] + L"\n" + lines[4] + L"\n");
    EXPECT_EQ(PrintedTexts(), Texts());
}

TEST_F(CMxUtilTest, CoordinateSystemThatCannotBeReadPrintsNothing) {
    FakeCoordinateSystem cs;
    cs.m_zAxisResult = kHostFail;
    EXPECT_THROW(CMxUtil::PrintCS(&cs), HostComError);
    EXPECT_EQ(CMxUtil::PrintCS(nullptr), 0);
    EXPECT_EQ(PrintedTexts(), Texts());
}

TEST_F(CMxUtilTest, WritesLinesAsTheyAreOrPrintsThemWithoutAnOpenFile) {
    const TempFolder folder;
    const ZetArray<ZetString> lines = {L"one", L"two\n", L"100 %s"};
    ZetFileAccess file;
    ASSERT_TRUE(file.Open(folder.NameOf("lines.txt"), L"w"));
    EXPECT_EQ(CMxUtil::AsArrStrPrint(lines, &file), 1);
    EXPECT_EQ(PrintedTexts(), Texts());
    file.Close();
    EXPECT_EQ(folder.Read("lines.txt"), "one\ntwo\n\n100 %s\n");
    EXPECT_EQ(CMxUtil::AsArrStrPrint(lines, &file) + CMxUtil::AsArrStrPrint(lines), 2);
    const Texts printed = {L"one\n", L"two\n", L"100 %s\n", L"one\n", L"two\n", L"100 %s\n"};
    EXPECT_EQ(PrintedTexts(), printed);
}

TEST_F(CMxUtilTest, VersionOfOtherModules) {
    const FakeModule with(L"kwdb17.dll");
    const FakeModule without(L"kwdb16.dll");
    EXPECT_EQ(CMxUtil::GetDllVersion(FindLoadedModule(L"kwdb17.dll")), L"17.3.0.65535");
    EXPECT_EQ(CMxUtil::GetDllVersion(FindLoadedModule(L"kwdb16.dll")), L"0.0.0.0");
    EXPECT_EQ(CMxUtil::GetDllVersion(nullptr), L"0.0.0.0");
}

}  // namespace
