#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "support/DialogHand.h"
#include "support/TempFolder.h"

#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kSaveSettings = 1001;
constexpr int kTabs = 1002;
constexpr int kFileName = 1101;
constexpr int kOrderNo = 1206;
constexpr int kComments = 1211;
constexpr int kRevision = 1212;
constexpr int kDeliveryDate = 1301;
constexpr int kAddress = 1302;

/// `camjob run --dialog`, with a hand at the dialog.
class ProjectDialogTest : public ::testing::Test {
  protected:
    ProjectDialogTest() {
        SampleJob sample;
        sample.more = "\n[[file]]\nid = \"plan\"\nending = \"-plan.txt\"\n";
        sample.Write(m_folder);
        JobSays("revision = \"B\"\ndelivery_address = [\"+49 40 123\", \"Yard\"]\n");
    }

    void JobSays(const std::string& lines) {
        if (m_job.empty())
            m_job = m_folder.Read("job.toml");
        std::string job = m_job;
        job.insert(job.find("number = "), lines);
        m_folder.Write("job.toml", job);
    }

    using Drive = std::function<void(DialogWindow& window, DialogHand hand)>;

    CamjobRun RunWithDialog(const Drive& drive, std::vector<std::string> more = {}) {
        bool hasRun = false;
        m_boxes.clear();
        SetDialogDriver(DialogDriver{DialogDriver::Backend::kNative,
                                     [&](DialogWindow& window) {
                                         drive(window, DialogHand(window));
                                         hasRun = true;
                                     },
                                     [this](const ZetString& caption, const ZetString& text) {
                                         m_boxes.push_back((caption + L"|" + text).toUtf8());
                                         return true;
                                     }});
        std::vector<std::string> arguments = {"run", "--dialog", ArgumentFor(m_folder, "job.toml")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        CamjobRun run = RunTool(arguments);
        SetDialogDriver({});
        EXPECT_TRUE(hasRun) << run.err;
        return run;
    }
    CamjobRun Run() { return RunTool({"run", ArgumentFor(m_folder, "job.toml")}); }
    std::string Settings() const { return m_folder.Read("out/project-settings.txt"); }

    TempFolder m_folder;
    std::string m_job;
    std::vector<std::string> m_boxes;
};

TEST_F(ProjectDialogTest, ShowsTheFilesThatWillBeWritten) {
    const auto rowsOf = [](const DialogWindow& window) {
        std::string rows;
        for (int row = 0; row < 6 && window.IsShown(1501 + row); ++row)
            rows += (window.Text(1551 + row) + L": " + window.Text(1501 + row) + L"\n").toUtf8();
        return rows;
    };
    const CamjobRun run = RunWithDialog([&](DialogWindow& window, DialogHand hand) {
        EXPECT_EQ(rowsOf(window),
                  "-orders.txt: s-orders.txt\nCutting list: s-cutting.txt\n"
                  "Additional information: s-info.txt\nErrors: s-errors.txt\n"
                  "Warnings: s-warnings.txt\nown: s-own.txt\n");
        EXPECT_TRUE(window.IsShown(1506));
        const ZetString location = window.Text(1102);
        EXPECT_EQ(
            location,
            m_folder.NameOf("out") + m_folder.NameOf("").mid(m_folder.NameOf("").length() - 1));
        hand.Type("hall");
        EXPECT_EQ(window.Text(1501) + window.Text(1506), L"hall-orders.txthall-own.txt");
        hand.Press(DialogHand::Key::kReturn);
    });
    EXPECT_EQ(run.exitCode, 1) << run.err;
    EXPECT_TRUE(fs::exists(m_folder.PathOf("out/hall-cutting.txt")));
    ExpectParts(run.out, {"file_name = \"hall\", changed 2", " UTC; the job says \"s\"\n"});
}

TEST_F(ProjectDialogTest, WhatIsTypedCountsUntilTheJobChanges) {
    RunWithDialog([](DialogWindow& window, DialogHand hand) {
        hand.ClickTab(1);
        hand.Replace(kRevision, "C");
        hand.Replace(kComments, "one");
        hand.Press(DialogHand::Key::kReturn);
        hand.Type("two");
        window.SetDate(kDeliveryDate, {2101, 3, 14});
        hand.Click(kOk);
    });
    EXPECT_EQ(Settings(), "+s\n+\n+2026-03-02\n+one\r\ntwo\n+C\n+2026-03-02\n+2101-03-14\n+\n")
        << "eight entries, dates of one form; an address that cannot be saved is the job's";
    EXPECT_EQ(m_boxes, std::vector<std::string>());
    const auto has = [](const CamjobRun& run, const std::string& part) {
        return run.out.find(part) != std::string::npos;
    };
    CamjobRun run = Run();
    EXPECT_TRUE(has(run, "  revision = \"C\", changed 2")) << run.out << run.err;
    EXPECT_TRUE(has(run, "; the job says \"B\"\n"));
    EXPECT_TRUE(has(run, "  comments = \"one / two\""));
    EXPECT_TRUE(has(run, "  delivery_date = \"2101-03-14\""));
    EXPECT_FALSE(has(run, "delivery_address"));
    ExpectParts(m_folder.Read("out/s-orders.txt"),
                {": one\n",
                 ": two\n",
                 "Revision                  : C\n",
                 ": 2101-03-14\n",
                 ": +49 40 123\n"});
    JobSays("revision = \"D\"\n");
    run = Run();
    EXPECT_FALSE(has(run, "revision"));
    EXPECT_TRUE(has(run, "  comments = \"one / two\""));
    // The dialog opens with what counts, and follows the job again where it is told the same.
    RunWithDialog([](DialogWindow& window, DialogHand hand) {
        EXPECT_EQ(window.Text(kRevision) + window.Text(kComments), L"Done\r\ntwo");
        hand.ClickTab(1);
        hand.Click(kComments);
        hand.Press(DialogHand::Key::kSelectAll);
        hand.Press(DialogHand::Key::kDelete);
        hand.Click(kOk);
    });
    EXPECT_FALSE(has(Run(), "comments"));
}

TEST_F(ProjectDialogTest, AnUntouchedOkChangesNothing) {
    JobSays(
        "cold_rolled_order_date = \"1601-01-01\"\nrevision_date = \"2029-12-31\"\n"
        "delivery_date = \"9999-12-31\"\ncomments = [\"\", \"+1\", \" x \", \"\"]\n");
    Run();
    const Files before = ContentOf(m_folder.PathOf("out"));
    const auto confirm = [](DialogWindow&, DialogHand hand) { hand.Click(kOk); };
    for (const char* time : {"first", "again"}) {
        SCOPED_TRACE(time);
        const CamjobRun run = RunWithDialog(confirm);
        EXPECT_EQ(run.out.find("instead of the job"), std::string::npos) << run.out;
        Files after = ContentOf(m_folder.PathOf("out"));
        EXPECT_EQ(after.erase("project-settings.txt") + after.erase("project-settings-job.json"),
                  2U);
        EXPECT_EQ(after, before);
    }
}

TEST_F(ProjectDialogTest, WhatCannotBeSavedOrUsedIsToldWithTheDialogOpen) {
    struct Case {
        int tab;
        int field;
        const char* typed;
        const char* fault;
    };
    const Case cases[] = {
        {0, kFileName, "a/b",    "File Name: a file's name cannot have any of < > : \" / \\ | ? *"},
        {0, kFileName, "aux.",   "File Name: Windows keeps this name for a device"                },
        {1, kOrderNo,  "+4711",  "Cold Rolled Order No: the text begins with \"+\", which"        },
        {2, kAddress,  "+20095", "Delivery Address: line 1 begins with \"+\", which"              },
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.typed);
        RunWithDialog([&](DialogWindow& window, DialogHand hand) {
            hand.ClickTab(row.tab);
            hand.Replace(row.field, row.typed);
            hand.ClickTab((row.tab + 1) % 3);
            for (const int button : {kSaveSettings, kOk}) {
                m_boxes.clear();
                hand.Click(button);
                ASSERT_EQ(m_boxes.size(), 1U);
                ExpectParts(m_boxes[0], {std::string("Project information|") + row.fault});
                EXPECT_FALSE(window.IsClosed());
                EXPECT_EQ(window.SelectedTab(kTabs), row.tab);
                EXPECT_EQ(window.Focus(), row.field);
                EXPECT_EQ(window.Text(row.field).toUtf8(), row.typed);
            }
            EXPECT_FALSE(fs::exists(m_folder.PathOf("out/project-settings.txt")));
            hand.Click(kCancel);
        });
    }
    const wchar_t* const pasted[] = {L"a\tb", L"a\u0001", L"a\u202Eb", L"one\r\n+two"};
    RunWithDialog([&](DialogWindow& window, DialogHand hand) {
        for (const wchar_t* text : pasted) {
            m_boxes.clear();
            window.SetText(kComments, text);
            hand.Click(kOk);
            EXPECT_EQ(m_boxes.size(), 1U);
        }
        window.SetText(kComments, L"");
        for (const wchar_t* name : {L"", L"a\u202Eb"}) {
            m_boxes.clear();
            window.SetText(kFileName, name);
            hand.Click(kOk);
            EXPECT_EQ(m_boxes.size(), 1U);
        }
        window.SetText(kFileName, L"good");
        hand.Click(kOk);
        EXPECT_TRUE(window.IsConfirmed());
    });
    EXPECT_EQ(Settings().substr(0, 6), "+good\n");
}

TEST_F(ProjectDialogTest, FaultySettingsLockNobodyOut) {
    struct Case {
        const char* settings;
        const char* told;
        const wchar_t* revision;
    };
    const Case cases[] = {
        {"junk",                                "the settings are damaged",                       L"B"},
        {"+a/b\n+\n+\n+\n+Z\n+\n+\n+\n",        "\"file_name\" is \"a/b\": a file's name cannot", L"Z"},
        {"+s\n+\n+\n+\n+Z\n+\n+next week\n+\n", "\"delivery_date\" is \"next week\"",             L"Z"},
    };
    fs::create_directories(m_folder.PathOf("out"));
    for (const Case& row : cases) {
        SCOPED_TRACE(row.told);
        m_folder.Write("out/project-settings.txt", row.settings);
        EXPECT_EQ(Run().exitCode, 2);
        const CamjobRun run = RunWithDialog([&](DialogWindow& window, DialogHand hand) {
            ASSERT_EQ(m_boxes.size(), 1U);
            ExpectParts(m_boxes[0], {row.told, "The job's own values are shown instead"});
            EXPECT_EQ(window.Text(kFileName), L"s");
            EXPECT_EQ(window.Text(kRevision), row.revision);
            hand.Click(kOk);
        });
        EXPECT_EQ(run.exitCode, 1) << run.err;
        EXPECT_EQ(Run().exitCode, 1);
    }
}

TEST_F(ProjectDialogTest, SavedSettingsStayWhenTheDialogIsCancelled) {
    CamjobRun run = RunWithDialog([](DialogWindow&, DialogHand hand) {
        hand.Type("t");
        hand.Click(kCancel);
    });
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "camjob: the dialog was cancelled; nothing was written\n");
    EXPECT_FALSE(fs::exists(m_folder.PathOf("out")));
    run = RunWithDialog([](DialogWindow& window, DialogHand hand) {
        hand.Type("saved");
        hand.Click(kSaveSettings);
        window.SetText(kFileName, L"typed later");
        hand.Press(DialogHand::Key::kEscape);
    });
    EXPECT_EQ(run.exitCode, 0);
    ExpectParts(Run().out, {"file_name = \"saved\", changed 2", "; the job says \"s\"\n"});
    // It goes by the job alone, but what is entered counts from now on.
    run = RunWithDialog(
        [](DialogWindow& window, DialogHand hand) {
            EXPECT_EQ(window.Text(kFileName), L"s");
            hand.Click(kOk);
        },
        {"--ignore-settings"});
    EXPECT_EQ(Run().out.find("file_name"), std::string::npos);
}

/// Texts that nobody expects: these, or those of a file that has a JSON list of others.
std::vector<std::string> UnexpectedTexts() {
    if (const char* const file = std::getenv("CAMJOB_UNEXPECTED_TEXTS"))
        return nlohmann::json::parse(std::ifstream(file, std::ios::binary));
    return {"A\u0001B", "a\u202Eb", "+1", "a\r\n+b", "aux", "%s{mark}", "A\uFFFFB"};
}

/// But for line ends. What turns the direction counts only where a text stands in others.
bool HasControls(const std::string& utf8, bool isField = false) {
    const ZetString text = ZetString::fromUtf8(utf8);
    const std::wstring_view characters = text;
    return std::any_of(characters.begin(), characters.end(), [=](wchar_t c) {
        return c != L'\r' && c != L'\n' &&
               (camdata::detail::IsControl(c) || (!isField && camdata::detail::IsLayoutControl(c)));
    });
}

TEST_F(ProjectDialogTest, WhateverIsPastedIsKeptOrRefused) {
    for (const std::string& text : UnexpectedTexts())
        for (const int field : {kFileName, kOrderNo, kComments, kRevision, kAddress}) {
            SCOPED_TRACE(std::to_string(field) + " " + text.substr(0, 40));
            fs::remove_all(m_folder.PathOf("out"));
            bool isTaken = false;
            const CamjobRun run = RunWithDialog([&](DialogWindow& window, DialogHand hand) {
                window.SetText(field, ZetString::fromUtf8(text));
                hand.Click(kOk);
                isTaken = window.IsClosed();
                if (!isTaken)
                    hand.Click(kCancel);
            });
            EXPECT_EQ(m_boxes.size(), isTaken ? 0U : 1U);
            EXPECT_FALSE(HasControls(run.out + run.err + (isTaken ? "" : m_boxes[0])));
            EXPECT_EQ(run.exitCode, isTaken ? 1 : 0) << run.err;
            if (!isTaken)
                continue;
            const Files written = ContentOf(m_folder.PathOf("out"));
            EXPECT_EQ(Run().exitCode, 1) << "what was kept is read again";
            EXPECT_TRUE(ContentOf(m_folder.PathOf("out")) == written);
        }
}

TEST_F(ProjectDialogTest, WhateverTheJobSaysIsShownOrRefused) {
    struct Field {
        const char* key;
        int control;
        bool isList;
    };
    constexpr Field kFields[] = {
        {"model_ref",            1201,      false},
        {"name",                 1202,      false},
        {"client",               1204,      false},
        {"cold_rolled_customer", 1205,      false},
        {"cold_rolled_order_no", kOrderNo,  false},
        {"contractor",           1208,      false},
        {"designer",             1209,      false},
        {"detailer",             1210,      false},
        {"comments",             kComments, true },
        {"revision",             kRevision, false},
        {"delivery_address",     kAddress,  true },
    };
    for (const std::string& text : UnexpectedTexts())
        for (const Field& field : kFields) {
            SCOPED_TRACE(field.key + (" " + text.substr(0, 40)));
            const std::string value = nlohmann::json(text).dump();
            JobSays(field.key + (field.isList ? " = [" + value + "]\n" : " = " + value + "\n"));
            fs::remove_all(m_folder.PathOf("out"));
            const CamjobRun run = Run();
            EXPECT_FALSE(HasControls(run.out + run.err));
            if (run.exitCode == 2)
                continue;
            const Files before = ContentOf(m_folder.PathOf("out"));
            const auto confirm = [&](DialogWindow& window, DialogHand hand) {
                EXPECT_FALSE(HasControls(window.Text(field.control).toUtf8(), true));
                hand.Click(kOk);
            };
            EXPECT_EQ(RunWithDialog(confirm).exitCode, 1);
            Files after = ContentOf(m_folder.PathOf("out"));
            std::erase_if(after,
                          [](const auto& file) { return file.first.starts_with("project-"); });
            EXPECT_TRUE(after == before);
        }
}

}  // namespace
