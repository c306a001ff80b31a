#include "camjob/SampleJob.h"
#include "camjob/check/CheckCommand.h"
#include "support/Golden.h"

namespace {

/// Files of each fate, judged by the sample job, which also codes rectangular openings.
CamjobRun CheckByJob(const TempFolder& folder, std::vector<std::string> arguments) {
    SampleJob job;
    job.more = "[[hole_rule]]\nid = \"opening\"\nshape = \"rectangle\"\ncode = \"R\"\n";
    job.Write(folder);
    folder.Write("nc/6.nc1", nc::Header("Q", "XX\n  SO") + "EN\n");
    folder.Write(
        "nc/7.nc1",
        nc::Header("W", "Z200x2.0\n  SO", "1500.00") +
            "BO\n  v 700.00 90.00 0.00 0.00l 30.00 20.00 0.00\nIK\n  v 900.00u 80.00 0.00\n"
            "  900 120\n  960 120\n  960 80\n  900 80\nEN\n");
    arguments.insert(arguments.begin(), {"check", "--job", ArgumentFor(folder, "job.toml")});
    for (const char* file : {"nc/1.nc1", "nc/4.nc1", "nc/5.nc1", "nc/6.nc1", "nc/7.nc1"})
        arguments.push_back(ArgumentFor(folder, file));
    return RunTool(arguments);
}

TEST(CheckByJob, ShowsTheBlocksOfTheLibrary) {
    const TempFolder folder;
    const CamjobRun run = CheckByJob(folder, {});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/check/golden",
                              "by-job",
                              WithoutFolder(run.out + "---- stderr\n" + run.err, folder)));
}

TEST(CheckByJob, TellsTheJudgementAsJson) {
    const TempFolder folder;
    const std::string document = ApprovableJson(CheckByJob(folder, {"--json"}).out, folder);
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/check/golden", "by-job-json", document));
}

TEST(CheckByJob, AFaultyJobEndsItAtOnce) {
    const TempFolder folder;
    folder.Write("job.toml", "[job]\nnam = 1\n");
    const CamjobRun run =
        RunTool({"check", "--job", ArgumentFor(folder, "job.toml"), ArgumentFor(folder, "x.nc1")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("job.toml:2:1: "), std::string::npos) << run.err;
}

}  // namespace
