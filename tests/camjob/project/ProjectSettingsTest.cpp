#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// A sample job whose [project] says more, and what stands beside its output.
class ProjectSettingsTest : public ::testing::Test {
  protected:
    ProjectSettingsTest() {
        SampleJob().Write(m_folder);
        m_job = m_folder.Read("job.toml");
        fs::create_directories(m_folder.PathOf("out"));
    }

    void JobSays(const std::string& lines) {
        std::string job = m_job;
        job.insert(job.find("number = "), lines);
        m_folder.Write("job.toml", job);
    }
    CamjobRun Run(std::vector<std::string> more = {}) {
        std::vector<std::string> arguments = {"run", ArgumentFor(m_folder, "job.toml")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunTool(arguments);
    }
    /// The lines of a run about what it takes from the settings, without the times of their files.
    std::string TakenOf(const CamjobRun& run) {
        const std::string head = "instead of the job\n";
        const std::size_t start = run.out.find(head);
        if (start == std::string::npos)
            return "";
        const std::size_t from = start + head.size();
        return run.out.substr(from, run.out.find("\n\n", from) + 1 - from);
    }

    TempFolder m_folder;
    std::string m_job;
};

constexpr const char* kSettings =
    "+s\n+\n+2026-03-02\n+one\r\ntwo\n+C\n+2026-03-02\n+2026-05-01\n+\n";

/// As the dialog keeps it: comments, revision and delivery date were changed.
std::string OriginsWhenJobSaid(const std::string& revision) {
    return R"({"schema": "camjob-settings/1", "values": {
"file_name": {"saved": "s", "job": "s", "since": ""},
"comments": {"saved": "one\r\ntwo", "job": "", "since": "2026-01-02 03:04 UTC"},
"revision": {"saved": "C", "job": ")" +
           revision + R"(", "since": "2026-01-02 03:04 UTC"},
"revision_date": {"saved": "2026-03-02", "job": "2026-03-01", "since": ""},
"delivery_date": {"saved": "2026-05-01", "job": "2026-03-02", "since": "2026-02-03 04:05 UTC"}}})";
}

TEST_F(ProjectSettingsTest, WhatTheDialogChangedCountsUntilTheJobChanges) {
    const std::string comments =
        "  comments = \"one / two\", changed 2026-01-02 03:04 UTC; the job says nothing\n";
    const std::string revision =
        "  revision = \"C\", changed 2026-01-02 03:04 UTC; the job says \"B\"\n";
    const std::string delivery =
        "  delivery_date = \"2026-05-01\", changed 2026-02-03 04:05 UTC; the job says "
        "\"2026-03-02\"\n";
    struct Case {
        const char* name;
        const char* jobSays;
        std::vector<std::string> arguments;
        std::string taken;
    };
    const Case cases[] = {
        {"the job is as it was",         "revision = \"B\"\n",                        {},                    comments + revision + delivery},
        {"the job has changed its mind", "revision = \"D\"\n",                        {},                    comments + delivery           },
        {"the job agrees by now",        "revision = \"C\"\n",                        {},                    comments + delivery           },
        {"a date came into the job",
         "revision = \"B\"\ndelivery_date = \"2026-06-01\"\n",                        {},
         comments + revision                                                                                                               },
        {"not in this run",              "revision = \"B\"\n",                        {"--ignore-settings"}, ""                            },
        {"not in this job",              "settings = \"ignore\"\nrevision = \"B\"\n", {},                    ""                            },
    };
    const auto keep = [&] {
        m_folder.Write("out/project-settings.txt", kSettings);
        m_folder.Write("out/project-settings-job.json", OriginsWhenJobSaid("B"));
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        keep();
        JobSays(row.jobSays);
        const CamjobRun run = Run(row.arguments);
        EXPECT_EQ(run.exitCode, 1) << run.err;
        EXPECT_EQ(TakenOf(run), row.taken);
        const std::string orders = m_folder.Read("out/s-orders.txt");
        const bool isDialogs = row.taken.find("revision") != std::string::npos;
        EXPECT_EQ(orders.find("Revision                  : C") != std::string::npos,
                  isDialogs || row.jobSays == std::string("revision = \"C\"\n"));
        EXPECT_EQ(orders.find(": one\n") != std::string::npos, !row.taken.empty());
    }
    keep();
    for (const char* revisionOfJob : {"D", "B"}) {
        JobSays("revision = \"" + std::string(revisionOfJob) + "\"\n");
        EXPECT_EQ(TakenOf(Run()), comments + delivery) << "once overruled, it is forgotten";
    }
}

/// Older programs, and people, leave no second file.
TEST_F(ProjectSettingsTest, WithoutTheSecondFileAllThatDiffersCounts) {
    JobSays("revision = \"B\"\n");
    m_folder.Write("out/project-settings.txt", kSettings);
    for (const char* origins :
         {"", "{", "[]", "{\"schema\": \"camjob-settings/1\", \"values\": 1}"}) {
        m_folder.Write("out/project-settings-job.json", origins);
        const CamjobRun run = Run({"--json"});
        const nlohmann::json taken = nlohmann::json::parse(run.out)["settings"];
        ASSERT_EQ(taken.size(), 3U);
        EXPECT_EQ(taken[1]["key"], "revision");
        EXPECT_EQ(taken[1]["value"], "C");
        EXPECT_EQ(taken[1]["job"], "B");
        EXPECT_EQ(taken[1]["certain"], false);
        EXPECT_EQ(taken[1]["since"].get<std::string>().size(), 20U);
    }
}

TEST_F(ProjectSettingsTest, FaultsAreToldWithAWayOut) {
    struct Case {
        std::string settings;
        const char* fault;
    };
    const Case cases[] = {
        {"junk",                                "the settings are damaged: they are not eight entries, each behind a \"+\""},
        {"+a/b\n+\n+\n+\n+\n+\n+\n+\n",         "\"file_name\" is \"a/b\": a file's name cannot have"                      },
        {"+s\n+\n+2026-02-30\n+\n+\n+\n+\n+\n",
         "\"cold_rolled_order_date\" is \"2026-02-30\", which is no day"                                                   },
    };
    for (const Case& row : cases) {
        m_folder.Write("out/project-settings.txt", row.settings);
        const CamjobRun run = Run();
        EXPECT_EQ(run.exitCode, 2);
        ExpectParts(
            run.err,
            {"out/project-settings.txt: ",
             row.fault,
             "; correct it with --dialog, or go by the job alone with --ignore-settings\n"});
        EXPECT_EQ(Run({"--ignore-settings"}).exitCode, 1);
    }
}

}  // namespace
