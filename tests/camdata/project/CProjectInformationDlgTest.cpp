#include "support/AssertionOf.h"
#include "support/Golden.h"
#include "support/SystemText.h"
#include "support/TempFolder.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/platform/system/Modules.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/project/ProjectDialogGuide.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

using Backend = DialogDriver::Backend;
using Box = std::pair<ZetString, ZetString>;

constexpr int kTabs = 1002;
constexpr int kOK = 1;
constexpr int kCancel = 2;
constexpr int kSaveSettings = 1001;

const Box kOverwrite = {L"Overwrite Option",
                        L"Output files already exist!\n Do you want to replace the files?"};

COutPutFiles File(const wchar_t* suffix, const wchar_t* caption) {
    COutPutFiles file;
    file.SetValues(suffix, caption);
    return file;
}

/// Every rule of the dialog, in memory and in real windows.
class CProjectInformationDlgTest : public ::testing::TestWithParam<Backend> {
  protected:
    CProjectInformationDlgTest() {
        SetClock([] { return CalendarDate{2024, 2, 29}; });
        m_project.SetProjFileName(m_folder.NameOf("settings.txt"));
        m_project.SetProjInfoArrInFile({L"+", L"+", L"+", L"+", L"+", L"+", L"+", L"+"});
        m_project.SetLocation(m_folder.NameOf("out"));
        m_project.SetFileName(L"Hall");
        m_project.SetColdRolledOrderNo(L"CR-1");
        m_project.SetColdRolledOrderDate(FormatDate({2023, 12, 31}));
        m_project.SetMxComments(L"first\r\n\r\nthird");
        m_project.SetRevision(L"B");
        m_project.SetRevisionDate(FormatDate({2024, 1, 2}));
        m_project.SetDeliveryDate(FormatDate({2025, 10, 4}));
        m_project.SetMxDeliveryAddress(L"Gr\u00FCner Weg 1\r\nK\u00F6ln");
        m_project.SetOutPuts({File(L"_cut", L".nc"), File(L"_list", L"Parts & bars")});
    }

    using Drive = std::function<void(DialogWindow&)>;

    /// The driver plays the user, and answers every box with m_answer.
    void BeTheUser(const Drive& drive) {
        m_driverRuns = 0;
        m_boxes.clear();
        SetDialogDriver(DialogDriver{GetParam(),
                                     [this, drive](DialogWindow& window) {
                                         ++m_driverRuns;
                                         drive(window);
                                     },
                                     [this](const ZetString& caption, const ZetString& text) {
                                         m_boxes.emplace_back(caption, text);
                                         return m_answer;
                                     }});
    }
    DialogOutcome Show(const Drive& drive) {
        BeTheUser(drive);
        m_project.ShowDialog();
        EXPECT_EQ(m_driverRuns, 1);
        EXPECT_EQ(m_project.GetDialogResult().reason, L"");
        return m_project.GetDialogResult().outcome;
    }
    static void PressOK(DialogWindow& window) { window.Click(kOK); }

    TempFolder m_folder;
    CProjectInformation m_project;
    bool m_answer = false;
    int m_driverRuns = 0;
    std::vector<Box> m_boxes;
};

#if defined(CAMDATA_HAS_DIALOGS)
constexpr Backend kBackends[] = {Backend::kMemory, Backend::kNative};
#else
constexpr Backend kBackends[] = {Backend::kMemory};
#endif

INSTANTIATE_TEST_SUITE_P(In,
                         CProjectInformationDlgTest,
                         ::testing::ValuesIn(kBackends),
                         [](const auto& test) {
                             return test.param == Backend::kMemory ? "Memory" : "Windows";
                         });

// clang-format off
/// All controls but the frame.
constexpr int kControls[] = {
    1101, 1102, 1201, 1202, 1203, 1204, 1205, 1206, 1207, 1208, 1209, 1210, 1211, 1212, 1213, 1301,
    1302, 1501, 1502, 1503, 1504, 1505, 1506, 1151, 1152, 1251, 1252, 1253, 1254, 1255, 1256, 1257,
    1258, 1259, 1260, 1261, 1262, 1263, 1351, 1352, 1551, 1552, 1553, 1554, 1555, 1556, kTabs, kOK,
    kCancel, kSaveSettings};
// clang-format on

/// The text of a control; line ends as "|".
std::string TextOf(const DialogWindow& window, int id) {
    if (id == kTabs)
        return window.TabText(id, window.SelectedTab(id)).toUtf8();
    if (id == 1207 || id == 1213 || id == 1301) {
        const CalendarDate date = window.Date(id);
        return ZetString::format(L"%d-%d-%d", date.year, date.month, date.day).toUtf8();
    }
    std::string text = window.Text(id).toUtf8();
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
        text.replace(at, 2, "|");
    return text;
}

/// The controls that are shown, a line each: place, text, and whether it can be changed.
std::string ControlsOf(const DialogWindow& window) {
    std::string text;
    for (const int id : kControls) {
        const DialogRect at = window.Position(id);
        const char* const state = window.IsReadOnly(id) ? "copy " : "fixed ";
        if (window.IsShown(id))
            text += std::to_string(id) + " at " + std::to_string(at.x) + " " +
                    std::to_string(at.y) + ", " + std::to_string(at.width) + " x " +
                    std::to_string(at.height) + ": " +
                    (window.IsEnabled(id) && !window.IsReadOnly(id) ? "" : state) + "[" +
                    TextOf(window, id) + "]\n";
    }
    return text;
}

TEST_P(CProjectInformationDlgTest, ShowsTheRecordInItsPlaces) {
    m_project.SetDialogCaption(L"Output of \"Hall\"");
    m_project.SetLocation(L"D:\\Jobs");
    m_project.SetModelRef(L"M 1");
    m_project.SetProjectName(L"Name");
    m_project.SetProjectNo(L"No");
    m_project.SetClient(L"Client & Co");
    m_project.SetColdRolledCust(L"Customer");
    m_project.SetContractor(L"Contractor");
    m_project.SetDesigner(L"Designer");
    m_project.SetDetailer(L"Detailer");
    std::string shown;
    Show([&](DialogWindow& window) {
        shown = window.Caption().toUtf8() + "\n";
        for (const int tab : {0, 1, 2, 0}) {
            if (tab != window.SelectedTab(kTabs))
                window.SelectTab(kTabs, tab);
            shown += ControlsOf(window);
        }
    });
    EXPECT_TRUE(MatchesGolden(PROJECT_GOLDEN_FOLDER, "dialog", shown));
    m_project.SetDialogCaption(L"");
    Show([](DialogWindow& window) { EXPECT_EQ(window.Caption(), L""); });
}

TEST_P(CProjectInformationDlgTest, AtMostSixOutputFilesHaveARowAndTheLocationFollowsThem) {
    ZetArray<COutPutFiles> files;
    for (int count = 0; count <= 7; ++count, files.append(File(L"s", L"c"))) {
        m_project.SetOutPuts(files);
        Show([count](DialogWindow& window) {
            const int rows = std::min(count, 6);
            EXPECT_EQ(window.SelectedTab(kTabs), 0);
            EXPECT_EQ(window.Position(1102), (DialogRect{150, 65 + 25 * rows, 250, 20}));
            EXPECT_EQ(window.Position(1152), (DialogRect{20, 65 + 25 * rows, 125, 15}));
            for (int row = 0; row < 6; ++row)
                EXPECT_EQ(window.IsShown(1501 + row), row < rows);
        });
    }
}

TEST_P(CProjectInformationDlgTest, ConfirmedItWritesTheSettingsAndChangesWhatMayBeEdited) {
    m_project.SetClient(L"Client");
    const ZetString location = m_project.GetLocation();
    EXPECT_EQ(Show([](DialogWindow& window) {
                  window.SetText(1101, L"Shed");
                  for (const int id : {1102, 1201, 1202, 1203, 1204, 1205, 1208, 1209, 1210})
                      window.SetText(id, L"Other");
                  window.SetText(1206, L"CR-2");
                  window.SetDate(1207, {1999, 12, 31});
                  window.SetText(1211, L"new\r\nlast\r\n");
                  window.SetText(1212, L"C");
                  window.SetDate(1213, {2024, 11, 7});
                  window.SetDate(1301, {2101, 3, 14});
                  window.SetText(1302, L"");
                  window.Click(kOK);
              }),
              DialogOutcome::kConfirmed);
    const ZetString dates[] = {
        FormatDate({1999, 12, 31}), FormatDate({2024, 11, 7}), FormatDate({2101, 3, 14})};
    EXPECT_EQ(m_folder.Read("settings.txt"),
              "+Shed\n+CR-2\n+" + dates[0].toUtf8() + "\n+new\r\nlast\r\n\n+C\n+" +
                  dates[1].toUtf8() + "\n+" + dates[2].toUtf8() + "\n+\n");
    EXPECT_FALSE(m_project.GetSettingsFault());
    EXPECT_FALSE(m_project.GetIsCancelled());
    EXPECT_EQ(m_project.GetFileName(), L"Shed");
    EXPECT_EQ(m_project.GetLocation(), location);
    EXPECT_EQ(m_project.GetClient(), L"Client");
    EXPECT_EQ(m_project.GetModelRef() + m_project.GetProjectName() + m_project.GetProjectNo() +
                  m_project.GetColdRolledCust() + m_project.GetContractor() +
                  m_project.GetDesigner() + m_project.GetDetailer(),
              L"");
    EXPECT_EQ(m_project.GetColdRolledOrderNo() + m_project.GetRevision(), L"CR-2C");
    EXPECT_EQ(m_project.GetColdRolledOrderDate(), dates[0]);
    EXPECT_EQ(m_project.GetComments(), (ZetArray<ZetString>{L"new", L"last", L""}));
    EXPECT_EQ(m_project.GetRevisionDate(), dates[1]);
    EXPECT_EQ(m_project.GetDeliveryDate(), dates[2]);
    EXPECT_TRUE(m_project.GetDeliveryAddress().isEmpty());
}

TEST_P(CProjectInformationDlgTest, ConfirmedUntouchedItKeepsWhatItShows) {
    m_project.SetMxComments(L"one\ntwo\rthree\r\n\nf\u00A0%s");
    m_project.SetMxDeliveryAddress(L"\r\nK\u00F6ln");
    m_project.SetRevision(L"C\r\nD\n%d");
    m_project.SetRevisionDate(L"soon");
    Show(PressOK);
    EXPECT_EQ(m_project.GetMxComments(), L"one\r\ntwo\r\nthree\r\n\r\nf\u00A0%s");
    EXPECT_EQ(m_project.GetRevision(), L"C D %d");
    EXPECT_EQ(m_project.GetDeliveryAddress(), (ZetArray<ZetString>{L"", L"K\u00F6ln"}));
    EXPECT_EQ(m_project.GetColdRolledOrderDate(), FormatDate({2023, 12, 31}));
    EXPECT_EQ(m_project.GetRevisionDate(), FormatDate({2024, 2, 29})) << "no date: today";
}

TEST_P(CProjectInformationDlgTest, CancelledItChangesNothing) {
    const CProjectInformationDlgTest::Drive drives[] = {
        [](DialogWindow& window) {
            window.SetText(1101, L"Shed");
            window.Click(kCancel);
            window.Click(kOK);
        },
        [](DialogWindow& window) { window.SetText(1101, L"left open"); },
    };
    for (const auto& drive : drives) {
        m_project.SetIsCancelled(false);
        EXPECT_EQ(Show(drive), DialogOutcome::kCancelled);
        EXPECT_TRUE(m_project.GetIsCancelled());
        EXPECT_EQ(m_project.GetFileName(), L"Hall");
        EXPECT_FALSE(std::filesystem::exists(m_folder.PathOf("settings.txt")));
    }
    EXPECT_EQ(Show(PressOK), DialogOutcome::kConfirmed);
    EXPECT_TRUE(m_project.GetIsCancelled()) << "stays until the plug-in takes it back";
}

TEST_P(CProjectInformationDlgTest, ReplacingOutputTakesAYes) {
    // clang-format off
    struct Case { const char* name; std::vector<std::string> existing; bool answer, withFiles, asks; };
    const Case cases[] = {
        {"nothing there",                   {},              false, true,  false},
        {"the second file is not looked at", {"outHallParts & bars", "outHall"}, false, true, false},
        {"no",                              {"outHall.nc"},  false, true,  true },
        {"yes",                             {"outHall.nc"},  true,  true,  true },
        {"without output files",            {"outHall"},     true,  false, true },
    };
    // clang-format on
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        const TempFolder folder;
        for (const std::string& file : row.existing)
            folder.Write(file, "");
        m_project.SetLocation(folder.NameOf("out"));
        m_project.SetMxComments(L"-");
        if (!row.withFiles)
            m_project.SetOutPuts({});
        m_answer = row.answer;
        const bool closes = row.answer || !row.asks;
        Show([&](DialogWindow& window) {
            window.SetText(1211, L"entered");
            window.Click(kOK);
            EXPECT_EQ(window.IsClosed(), closes);
            EXPECT_EQ(window.Text(1211), L"entered");
        });
        EXPECT_EQ(m_boxes, row.asks ? std::vector<Box>{kOverwrite} : std::vector<Box>{});
        EXPECT_EQ(m_project.GetMxComments(), closes ? L"entered" : L"-");
    }
}

TEST_P(CProjectInformationDlgTest, AFolderIsNoOutputToReplace) {
    m_project.SetLocation(m_folder.NameOf(""));
    m_project.SetFileName(L"");
    m_project.SetOutPuts({});
    EXPECT_EQ(Show(PressOK), DialogOutcome::kConfirmed);
    EXPECT_TRUE(m_boxes.empty());
}

TEST_P(CProjectInformationDlgTest, SavingSettingsTellsWhereOrWhyNot) {
    const auto save = [](DialogWindow& window) {
        window.SetText(1101, L"Shed");
        window.Click(kSaveSettings);
        EXPECT_FALSE(window.IsClosed());
    };
    EXPECT_EQ(Show(save), DialogOutcome::kCancelled);
    const ZetString name = m_folder.NameOf("settings.txt");
    const ZetString caption = L"Save Settings";
    EXPECT_EQ(m_boxes, std::vector<Box>(1, {caption, L"The settings are saved in\n" + name}));
    EXPECT_EQ(m_folder.Read("settings.txt").substr(0, 12), "+Shed\n+CR-1\n");
    EXPECT_EQ(m_project.GetFileName(), L"Hall");

    m_project.SetProjFileName(m_folder.NameOf("none/settings.txt"));
    Show(save);
    const ZetString failed =
        L"The settings could not be saved in\n" + m_project.GetProjFileName() + L"\n" +
        ZetString::fromUtf8(SystemText(std::errc::no_such_file_or_directory)) + L".";
    EXPECT_EQ(m_boxes, std::vector<Box>(1, {caption, failed}));
    EXPECT_EQ(Show(PressOK), DialogOutcome::kConfirmed);
    ASSERT_TRUE(m_project.GetSettingsFault());
    EXPECT_EQ(m_project.GetSettingsFault()->fileName, m_project.GetProjFileName());
    EXPECT_EQ(m_project.GetSettingsFault()->systemError, ENOENT);

    m_project.SetProjFileName(L"");
    Show([&](DialogWindow& window) {
        EXPECT_FALSE(window.IsEnabled(kSaveSettings));
        save(window);
    });
    EXPECT_TRUE(m_boxes.empty());
}

TEST_P(CProjectInformationDlgTest, WithoutASettingsFileOKKeepsTheEntries) {
    m_project = CProjectInformation();
    const auto enter = [](DialogWindow& window) {
        window.SetText(1101, L"Shed");
        window.Click(kOK);
    };
    EXPECT_EQ(Show(enter), DialogOutcome::kConfirmed);
    EXPECT_EQ(m_project.GetFileName(), L"Shed");
    ASSERT_TRUE(m_project.GetSettingsFault());
    EXPECT_EQ(m_project.GetSettingsFault()->operation, ZetFileFault::Operation::kOpen);
}

TEST_P(CProjectInformationDlgTest, ErrorsComeOutOfTheDialog) {
    const auto fail = [](auto&&...) -> bool { throw std::runtime_error("of the driver"); };
    BeTheUser(fail);
    EXPECT_THROW(m_project.ShowDialog(), std::runtime_error);

    m_folder.Write("outHall.nc", "");
    SetDialogDriver(DialogDriver{GetParam(), PressOK, fail});
    EXPECT_THROW(m_project.ShowDialog(), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(m_folder.PathOf("settings.txt")));

    BeTheUser([](DialogWindow& window) { window.Text(9999); });
    EXPECT_EQ(AssertionOf([&] { m_project.ShowDialog(); }), "control exists");

    m_project.SetProjInfoArrInFile({L"+"});
    BeTheUser([](DialogWindow& window) {
        window.Click(kSaveSettings);
        EXPECT_TRUE(window.IsClosed());
    });
    EXPECT_EQ(AssertionOf([&] { m_project.ShowDialog(); }), "isValid( index )");
    EXPECT_FALSE(std::filesystem::exists(m_folder.PathOf("settings.txt")));

    EXPECT_EQ(Show([](DialogWindow& window) { window.Click(kCancel); }), DialogOutcome::kCancelled);
}

/// Counts what it hears of.
struct CountingGuide final : ProjectDialogGuide {
    void OnFilled(DialogWindow& window) override {
        editsBefore = edits;
        focusBefore = window.Focus();
    }
    void OnEdited(DialogWindow&, int) override { ++edits; }
    ZetString FindFault(DialogWindow&, const CProjectInformation&) override { return {}; }
    void OnSaved() override { ++saves; }

    int edits = 0;
    int saves = 0;
    int editsBefore = -1;
    int focusBefore = -1;
};

TEST_P(CProjectInformationDlgTest, AGuideHearsWhatTheUserDoes) {
    CountingGuide guide;
    BeTheUser([](DialogWindow& window) {
        window.SetText(1101, L"Shed");
        window.Click(kSaveSettings);
        if (GetParam() == Backend::kMemory)
            window.SetFocus(0);
        window.SelectTab(kTabs, 1);
    });
    m_project.ShowGuidedDialog(guide);
    EXPECT_EQ(guide.editsBefore, 0);
    EXPECT_EQ(guide.edits, 1);
    EXPECT_EQ(guide.saves, 1);
    if (GetParam() == Backend::kMemory) {
        EXPECT_EQ(guide.focusBefore, 0);
    }
}

TEST_P(CProjectInformationDlgTest, TheAccumulatorShowsTheDialogOfItsProject) {
    CMxCamGlobAcc accumulator;
    accumulator.SetProjectInfo(new CProjectInformation(m_project));
    BeTheUser(PressOK);
    accumulator.showProjInfoUID();
    EXPECT_EQ(m_driverRuns, 1);
    EXPECT_EQ(accumulator.GetProjectInfo()->GetDialogResult().outcome, DialogOutcome::kConfirmed);
}

#if defined(_WIN32)
/// Reads the words and texts of a dialog resource, one after the other.
class ResourceReader {
  public:
    explicit ResourceReader(const void* resource)
        : m_begin(static_cast<const WORD*>(resource)), m_at(m_begin) {}

    WORD Word() { return *m_at++; }
    void Skip(int words) { m_at += words; }
    void AlignToFour() { m_at += (m_at - m_begin) % 2; }
    /// A text, or "#" and a number.
    std::wstring Name() {
        if (*m_at == 0xFFFF) {
            m_at += 2;
            return L"#" + std::to_wstring(m_at[-1]);
        }
        const std::wstring text(reinterpret_cast<const wchar_t*>(m_at));
        m_at += text.size() + 1;
        return text;
    }

  private:
    const WORD* m_begin;
    const WORD* m_at;
};

TEST(CProjectInformationDlgResourceTest, IsADialogOfTheLibrary) {
    // Buttons are #128, edit fields #129, labels #130. The resource compiler writes classes in
    // capitals.
    const auto library = static_cast<HMODULE>(OwnModule());
    const HRSRC place = FindResourceW(library, MAKEINTRESOURCEW(1000), RT_DIALOG);
    ASSERT_NE(place, nullptr);
    ResourceReader reader(LockResource(LoadResource(library, place)));
    reader.Skip(8);  // version, help, styles
    const int controls = reader.Word();
    reader.Skip(2);
    std::wstring text = std::to_wstring(controls) + L" controls, " + std::to_wstring(reader.Word());
    text += L" x " + std::to_wstring(reader.Word()) + L": [";
    reader.Skip(2);  // no menu, the usual class
    text += reader.Name() + L"] ";
    text += std::to_wstring(reader.Word()) + L" [";
    reader.Skip(2);
    text += reader.Name() + L"]\n";
    for (int i = 0; i < controls; ++i) {
        reader.AlignToFour();
        reader.Skip(10);  // help, styles, place
        text += std::to_wstring(reader.Word()) + L" ";
        reader.Skip(1);
        text += reader.Name() + L" [";
        text += reader.Name() + L"]\n";
        reader.Skip(1);
    }
    EXPECT_TRUE(MatchesGolden(PROJECT_GOLDEN_FOLDER, "dialog-resource", ZetString(text).toUtf8()));
}
#endif

#if !defined(CAMDATA_HAS_DIALOGS)
TEST(CProjectInformationDlgWithoutWindowsTest, CountsAsCancelledAndSaysWhy) {
    CProjectInformation project;
    project.ShowDialog();
    EXPECT_TRUE(project.GetIsCancelled());
    EXPECT_EQ(project.GetDialogResult().outcome, DialogOutcome::kNotShown);
    EXPECT_TRUE(project.GetDialogResult().reason.contains(L"camdata_qt.so"));
}
#endif

}  // namespace
