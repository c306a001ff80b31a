#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "camjob/run/SeveralJobs.h"

#include <filesystem>
#include <sstream>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Jobs of one folder each: "a" with a member that has errors, "b" without any and with other
/// tolerances, "c" whose NC file cannot be read, "t" that has the output folder of "a".
void WriteJobs(const TempFolder& folder) {
    for (const char* name : {"a", "b", "c", "t"})
        fs::create_directories(folder.PathOf(std::string(name) + "/nc"));
    std::string text = SampleJob().Text();
    text.erase(text.find("[[assembly]]"));
    folder.Write("a/job.toml", text);
    folder.Write("a/nc/1.nc1", nc::Plain("P1"));
    folder.Write("a/nc/2.nc1", nc::Header("P2", "Z200x2.0\n  SO", "2500.00") + "EN\n");
    folder.Write("b/job.toml", text + "[tolerances]\neps = 0.5\nx = 2.0\ny = 2.0\n");
    folder.Write("b/nc/1.nc1", nc::Plain("P3"));
    folder.Write("c/job.toml", text);
    folder.Write("c/nc/1.nc1", nc::BadLength());
    std::string other = text;
    other.replace(other.find("\ndate"), 0, "\noutput = \"../a/out\"");
    folder.Write("t/job.toml", other);
    folder.Write("t/nc/1.nc1", nc::Plain("P4"));
}

std::vector<std::string> Arguments(const std::string& jobs, const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"run"};
    for (const char job : jobs)
        arguments.push_back(std::string(1, job) + "/job.toml");
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

TEST(SeveralJobs, TheWorstOfThemIsTheExitCode) {
    struct Case {
        std::string jobs;
        std::vector<std::string> options;
        int exitCode;
        std::string told;     ///< part of the report
        std::string message;  ///< part of what goes wrong
    };
    const Case cases[] = {
        {"b",   {},                 0, "1 file read",                          ""                                        },
        {"ba",  {},                 1, "2 jobs\n",                             ""                                        },
        {"ab",  {},                 1, "b/job.toml  done ",                    ""                                        },
        {"acb", {},                 2, "c/job.toml  nothing was written",      "c/nc/1.nc1:10: length"                   },
        {"gb",  {},                 2, "g/job.toml  nothing was written",      "g/job.toml: there is no"                 },
        {"at",
         {},
         2,                            "t/job.toml  nothing was written",
         "t/job.toml: its output folder is that of a/job.toml"                                                           },
        {"aa",  {},                 2, "nothing was written",                  "its output folder is that of a/job.toml" },
        {"ab",  {"--out", "x"},     2, "",                                     "--out and --against go with one job only"},
        {"ab",  {"--against", "x"}, 2, "",                                     "--out and --against go with one job only"},
        {"bc",  {"--json"},         2, "\"ended\":{\"done\":1,\"refused\":1}", ""                                        },
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.jobs);
        const TempFolder folder;
        WriteJobs(folder);
        const CurrentFolder current(folder.PathOf("."));
        const CamjobRun run = RunTool(Arguments(each.jobs, each.options));
        EXPECT_EQ(run.exitCode, each.exitCode);
        ExpectParts(run.out, {each.told});
        ExpectParts(run.err, {each.message});
        // What others came to does not touch the good ones.
        const bool isMade = each.jobs.find('b') != std::string::npos && run.out != "";
        EXPECT_EQ(fs::exists("b/out/s-orders.txt"), isMade);
    }
}

TEST(SeveralJobs, EachComesToWhatItComesToAlone) {
    const TempFolder together;
    const TempFolder alone;
    std::vector<nlohmann::json> lines;
    {
        WriteJobs(together);
        const CurrentFolder current(together.PathOf("."));
        lines = DocumentsIn(RunTool(Arguments("abc", {"--json"})).out);
    }
    ASSERT_EQ(lines.size(), 4u);
    WriteJobs(alone);
    const CurrentFolder current(alone.PathOf("."));
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string job(1, "abc"[i]);
        const CamjobRun run = RunTool(Arguments(job, {"--jsonl"}));
        EXPECT_EQ(DocumentsIn(run.out), std::vector{lines[i]}) << job;
        EXPECT_EQ(ContentOf(alone.PathOf(job)), ContentOf(together.PathOf(job))) << job;
    }
    EXPECT_EQ(lines[3]["members"], 3);
    EXPECT_EQ(lines[3]["invalidMembers"], 1);
}

// The one that is stopped is as it was, and none comes behind it.
TEST(SeveralJobs, CtrlCStopsAllThatFollow) {
    const TempFolder folder;
    WriteJobs(folder);
    const CurrentFolder current(folder.PathOf("."));
    camjob::StagingDisk disk;
    TextStream out;
    TextStream err;
    const auto isCancelled = [] { return fs::exists("b/out/s-orders.txt"); };
    const int code = camjob::RunJobs(
        {
            .jobs = {"b/job.toml", "a/job.toml", "c/job.toml"}
    },
        {.disk = disk, .isCancelled = isCancelled},
        out,
        err);
    EXPECT_EQ(code, 130);
    EXPECT_FALSE(fs::exists("a/out"));
    ExpectParts(out.GetText(), {"a/job.toml  stopped ", "1 job not begun\n"});
}

}  // namespace
