#include "support/AssertionOf.h"
#include "support/SystemText.h"
#include "support/TempFolder.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/platform/system/Modules.h"
#include "camdata/project/CProjectInformation.h"

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

enum class Can { kChange, kCopy, kNothing };

struct ControlCase {
    int id;
    int tab;  // -1: shown on none, -2: on all
    DialogRect place;
    Can can;
};

// With two output files. Labels are tested by their field, 50 below.
constexpr ControlCase kControlCases[] = {
    {1101, 0,  {150, 40, 250, 20},  Can::kChange },
    {1501, 0,  {150, 65, 250, 20},  Can::kNothing},
    {1502, 0,  {150, 90, 250, 20},  Can::kNothing},
    {1102, 0,  {150, 115, 250, 20}, Can::kCopy   },
    {1201, 1,  {150, 40, 250, 20},  Can::kCopy   },
    {1202, 1,  {150, 65, 250, 20},  Can::kNothing},
    {1203, 1,  {150, 90, 250, 20},  Can::kNothing},
    {1204, 1,  {150, 115, 250, 20}, Can::kNothing},
    {1205, 1,  {150, 140, 250, 20}, Can::kNothing},
    {1206, 1,  {150, 165, 250, 20}, Can::kChange },
    {1207, 1,  {150, 190, 90, 20},  Can::kChange },
    {1208, 1,  {150, 215, 250, 20}, Can::kNothing},
    {1209, 1,  {150, 240, 250, 20}, Can::kNothing},
    {1210, 1,  {150, 265, 250, 20}, Can::kNothing},
    {1211, 1,  {20, 305, 380, 60},  Can::kChange },
    {1212, 1,  {70, 370, 45, 20},   Can::kChange },
    {1213, 1,  {310, 370, 90, 20},  Can::kChange },
    {1301, 2,  {20, 55, 90, 20},    Can::kChange },
    {1302, 2,  {20, 95, 380, 200},  Can::kChange },
    {1551, 0,  {20, 65, 125, 15},   Can::kChange },
    {1152, 0,  {20, 115, 125, 15},  Can::kChange },
    {1251, 1,  {20, 40, 125, 15},   Can::kChange },
    {1257, 1,  {20, 190, 125, 15},  Can::kChange },
    {1260, 1,  {20, 265, 125, 15},  Can::kChange },
    {1261, 1,  {20, 290, 125, 15},  Can::kChange },
    {1262, 1,  {20, 370, 45, 15},   Can::kChange },
    {1263, 1,  {215, 370, 90, 15},  Can::kChange },
    {1351, 2,  {20, 40, 125, 15},   Can::kChange },
    {1352, 2,  {20, 80, 125, 15},   Can::kChange },
    {1002, -2, {10, 10, 410, 395},  Can::kChange },
    {1,    -2, {261, 410, 75, 23},  Can::kChange },
    {2,    -2, {345, 410, 75, 23},  Can::kChange },
    {1001, -2, {11, 410, 90, 23},   Can::kChange },
};

TEST_P(CProjectInformationDlgTest, EveryControlHasItsPlaceOnItsTab) {
    Show([](DialogWindow& window) {
        EXPECT_EQ(window.SelectedTab(kTabs), 0);
        for (const int tab : {0, 1, 2, 0}) {
            if (tab != window.SelectedTab(kTabs))
                window.SelectTab(kTabs, tab);
            for (const ControlCase& row : kControlCases) {
                SCOPED_TRACE(row.id);
                EXPECT_EQ(window.IsShown(row.id), row.tab == tab || row.tab == -2);
                EXPECT_EQ(window.Position(row.id), row.place);
                EXPECT_EQ(window.IsEnabled(row.id), row.can != Can::kNothing);
                EXPECT_EQ(window.IsReadOnly(row.id), row.can == Can::kCopy);
            }
            for (int unused = 1503; unused <= 1506; ++unused)
                EXPECT_FALSE(window.IsShown(unused) || window.IsShown(unused + 50));
        }
    });
}

TEST_P(CProjectInformationDlgTest, ControlsSayWhatTheRecordSays) {
    m_project.SetDialogCaption(L"Output of \"Hall\"");
    m_project.SetModelRef(L"M 1");
    m_project.SetProjectName(L"Name");
    m_project.SetProjectNo(L"No");
    m_project.SetClient(L"Client & Co");
    m_project.SetColdRolledCust(L"Customer");
    m_project.SetContractor(L"Contractor");
    m_project.SetDesigner(L"Designer");
    m_project.SetDetailer(L"Detailer");
    const std::pair<int, ZetString> texts[] = {
        {1101,          L"Hall"                          },
        {1102,          m_folder.NameOf("out")           },
        {1201,          L"M 1"                           },
        {1202,          L"Name"                          },
        {1203,          L"No"                            },
        {1204,          L"Client & Co"                   },
        {1205,          L"Customer"                      },
        {1206,          L"CR-1"                          },
        {1208,          L"Contractor"                    },
        {1209,          L"Designer"                      },
        {1210,          L"Detailer"                      },
        {1211,          L"first\r\n\r\nthird"            },
        {1212,          L"B"                             },
        {1302,          L"Gr\u00FCner Weg 1\r\nK\u00F6ln"},
        {1501,          L"_cut"                          },
        {1502,          L"_list"                         },
        {1551,          L".nc"                           },
        {1552,          L"Parts & bars"                  },
        {1151,          L"File Name"                     },
        {1256,          L"Cold Rolled Order No"          },
        {1352,          L"Delivery Address"              },
        {kOK,           L"OK"                            },
        {kCancel,       L"Cancel"                        },
        {kSaveSettings, L"Save Settings"                 },
    };
    Show([&](DialogWindow& window) {
        EXPECT_EQ(window.Caption(), L"Output of \"Hall\"");
        EXPECT_EQ(window.TabText(kTabs, 0), L"OutPut");
        EXPECT_EQ(window.TabText(kTabs, 1), L"Project Information");
        EXPECT_EQ(window.TabText(kTabs, 2), L"Delivery Information");
        for (const auto& [id, text] : texts)
            EXPECT_EQ(window.Text(id), text) << id;
        EXPECT_EQ(FormatDate(window.Date(1207)), FormatDate({2023, 12, 31}));
        EXPECT_EQ(FormatDate(window.Date(1213)), FormatDate({2024, 1, 2}));
        EXPECT_EQ(FormatDate(window.Date(1301)), FormatDate({2025, 10, 4}));
    });
    m_project.SetDialogCaption(L"");
    Show([](DialogWindow& window) { EXPECT_EQ(window.Caption(), L""); });
}

TEST_P(CProjectInformationDlgTest, AtMostSixOutputFilesHaveARowAndTheLocationFollowsThem) {
    ZetArray<COutPutFiles> files;
    for (int count = 0; count <= 7; ++count, files.append(File(L"s", L"c"))) {
        m_project.SetOutPuts(files);
        Show([count](DialogWindow& window) {
            const int rows = std::min(count, 6);
            EXPECT_EQ(window.Position(1102), (DialogRect{150, 65 + 25 * rows, 250, 20}));
            EXPECT_EQ(window.Position(1152), (DialogRect{20, 65 + 25 * rows, 125, 15}));
            for (int row = 0; row < 6; ++row)
                EXPECT_EQ(window.IsShown(1501 + row), row < rows);
        });
    }
}

TEST_P(CProjectInformationDlgTest, ConfirmedItWritesTheSettingsAndChangesWhatMayBeEdited) {
    m_project.SetClient(L"Client");
    EXPECT_EQ(Show([](DialogWindow& window) {
                  window.SetText(1101, L"Shed");
                  window.SetText(1204, L"Other");
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
    EXPECT_EQ(m_project.GetClient(), L"Client");
    EXPECT_EQ(m_project.GetColdRolledOrderNo(), L"CR-2");
    EXPECT_EQ(m_project.GetColdRolledOrderDate(), dates[0]);
    EXPECT_EQ(m_project.GetMxComments(), L"new\r\nlast\r\n");
    EXPECT_EQ(m_project.GetComments(), (ZetArray<ZetString>{L"new", L"last", L""}));
    EXPECT_EQ(m_project.GetRevision(), L"C");
    EXPECT_EQ(m_project.GetRevisionDate(), dates[1]);
    EXPECT_EQ(m_project.GetDeliveryDate(), dates[2]);
    EXPECT_EQ(m_project.GetMxDeliveryAddress(), L"");
    EXPECT_TRUE(m_project.GetDeliveryAddress().isEmpty());
}

TEST_P(CProjectInformationDlgTest, ConfirmedUntouchedItKeepsWhatItShows) {
    m_project.SetMxComments(L"one\ntwo\rthree\r\n\nf\u00A0%s");
    m_project.SetRevision(L"C\r\nD\n%d");
    m_project.SetRevisionDate(L"soon");
    Show(PressOK);
    EXPECT_EQ(m_project.GetMxComments(), L"one\r\ntwo\r\nthree\r\n\r\nf\u00A0%s");
    EXPECT_EQ(m_project.GetRevision(), L"C D %d");
    EXPECT_EQ(m_project.GetDeliveryAddress(),
              (ZetArray<ZetString>{L"Gr\u00FCner Weg 1", L"K\u00F6ln"}));
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
    struct Case {
        const char* name;
        std::vector<std::string> existing;
        bool answer;
        bool withFiles;
        bool asks;
    };
    // clang-format off
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
    EXPECT_EQ(m_boxes,
              (std::vector<Box>{
                  {L"Save Settings", L"The settings are saved in\n" + name}
    }));
    EXPECT_EQ(m_folder.Read("settings.txt").substr(0, 12), "+Shed\n+CR-1\n");
    EXPECT_EQ(m_project.GetFileName(), L"Hall");

    m_project.SetProjFileName(m_folder.NameOf("none/settings.txt"));
    Show(save);
    EXPECT_EQ(
        m_boxes,
        (std::vector<Box>{
            {L"Save Settings",
             L"The settings could not be saved in\n" + m_project.GetProjFileName() + L"\n" +
                 ZetString::fromUtf8(SystemText(std::errc::no_such_file_or_directory)) + L"."}
    }));
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
    BeTheUser([](DialogWindow& window) { window.Click(kSaveSettings); });
    EXPECT_EQ(AssertionOf([&] { m_project.ShowDialog(); }), "isValid( index )");
    EXPECT_FALSE(std::filesystem::exists(m_folder.PathOf("settings.txt")));

    EXPECT_EQ(Show([](DialogWindow& window) { window.Click(kCancel); }), DialogOutcome::kCancelled);
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
    const wchar_t* const tabs = L"SYSTABCONTROL32";
    const wchar_t* const date = L"SYSDATETIMEPICK32";
    struct Control {
        int id;
        std::wstring kind;
        std::wstring text;
    };
    // clang-format off
    const Control controls[] = {
        {1002, tabs, L""}, {65535, L"#128", L""}, {1101, L"#129", L""}, {1206, L"#129", L""},
        {1207, date, L""}, {1211, L"#129", L""}, {1212, L"#129", L""}, {1213, date, L""},
        {1301, date, L""}, {1302, L"#129", L""}, {1, L"#128", L"OK"}, {2, L"#128", L"Cancel"},
        {1001, L"#128", L"Save Settings"}, {1151, L"#130", L"File Name"},
        {1152, L"#130", L"Location"}, {1102, L"#129", L""}, {1205, L"#129", L""},
        {1255, L"#130", L"Cold Rolled Customer"}, {1352, L"#130", L"Delivery Address"},
        {1351, L"#130", L"Delivery Date"}, {1262, L"#130", L"Revision"},
        {1263, L"#130", L"Revision Date"}, {1257, L"#130", L"Cold Rolled Order Date"},
        {1261, L"#130", L"Comments"}, {1201, L"#129", L""}, {1251, L"#130", L"Model Ref"},
        {1202, L"#129", L""}, {1252, L"#130", L"Project"}, {1203, L"#129", L""},
        {1253, L"#130", L"Project No"}, {1204, L"#129", L""}, {1254, L"#130", L"Client"},
        {1208, L"#129", L""}, {1258, L"#130", L"Contractor"}, {1209, L"#129", L""},
        {1259, L"#130", L"Designer"}, {1210, L"#129", L""}, {1260, L"#130", L"Detailer"},
        {1256, L"#130", L"Cold Rolled Order No"},
        {1501, L"#129", L""}, {1502, L"#129", L""}, {1503, L"#129", L""},
        {1504, L"#129", L""}, {1505, L"#129", L""}, {1506, L"#129", L""},
        {1551, L"#130", L"File Name"}, {1552, L"#130", L"File Name"}, {1553, L"#130", L"File Name"},
        {1554, L"#130", L"File Name"}, {1555, L"#130", L"File Name"}, {1556, L"#130", L"File Name"},
    };
    // clang-format on
    const auto library = static_cast<HMODULE>(OwnModule());
    const HRSRC place = FindResourceW(library, MAKEINTRESOURCEW(1000), RT_DIALOG);
    ASSERT_NE(place, nullptr);
    ResourceReader reader(LockResource(LoadResource(library, place)));
    reader.Skip(8);  // version, help, styles
    EXPECT_EQ(reader.Word(), std::size(controls));
    reader.Skip(2);
    EXPECT_EQ(reader.Word(), 287);
    EXPECT_EQ(reader.Word(), 273);
    reader.Skip(2);  // no menu, the usual class
    EXPECT_EQ(reader.Name(), L"Dialog");
    EXPECT_EQ(reader.Word(), 8);
    reader.Skip(2);
    EXPECT_EQ(reader.Name(), L"MS Shell Dlg");
    for (const Control& control : controls) {
        SCOPED_TRACE(control.id);
        reader.AlignToFour();
        reader.Skip(10);  // help, styles, place
        EXPECT_EQ(reader.Word(), control.id);
        reader.Skip(1);
        EXPECT_EQ(reader.Name(), control.kind);
        EXPECT_EQ(reader.Name(), control.text);
        reader.Skip(1);
    }
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
