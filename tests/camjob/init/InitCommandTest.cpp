#include "camjob/CamjobRun.h"
#include "job/templates/InitTemplates.h"
#include "support/JobKeyNames.h"

namespace {

TEST(InitCommand, WhatItWritesRunsAsItStands) {
    const TempFolder folder;
    const std::string job = ArgumentFor(folder, "new/Halle 7") + "/job.toml";
    const CamjobRun init = RunTool({"init", ArgumentFor(folder, "new/Halle 7")});
    EXPECT_EQ(init.err, "");
    EXPECT_EQ(init.exitCode, 0);
    const CamjobRun check =
        RunTool({"check", "--job", job, ArgumentFor(folder, "new/Halle 7/nc/P1.nc1")});
    EXPECT_EQ(check.err, "");
    EXPECT_EQ(check.exitCode, 0);
    const CamjobRun run = RunTool({"run", job});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_NE(folder.Read("new/Halle 7/out/sample-orders.txt").find("member mark=\"P1\""),
              std::string::npos);
}

TEST(InitCommand, TemplateShowsEveryKey) {
    EXPECT_EQ(FindMissingJobKeys(std::string(job::kInitTemplates.front().text)),
              std::vector<std::string>());
}

TEST(InitCommand, ReplacesNothing) {
    const TempFolder folder;
    for (const char* file : {"a/job.toml", "b/nc/P1.nc1"}) {
        SCOPED_TRACE(file);
        std::filesystem::create_directories(folder.PathOf(file).parent_path());
        folder.Write(file, "mine");
        const CamjobRun run = RunTool({"init", ArgumentFor(folder, std::string(file, 1))});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_NE(run.err.find("is there already: nothing was written\n"), std::string::npos);
        EXPECT_EQ(folder.Read(file), "mine");
    }
    EXPECT_FALSE(std::filesystem::exists(folder.PathOf("a/nc")));
    EXPECT_FALSE(std::filesystem::exists(folder.PathOf("b/job.toml")));
}

/// A file stands where a folder is needed: at the top, and after the job file has been written.
TEST(InitCommand, LeavesNothingBehindWhenItCannotWrite) {
    const TempFolder folder;
    folder.Write("file", "mine");
    EXPECT_EQ(RunTool({"init", ArgumentFor(folder, "file")}).exitCode, 3);
    EXPECT_EQ(folder.Read("file"), "mine");

    std::filesystem::create_directory(folder.PathOf("half"));
    folder.Write("half/nc", "mine");
    const CamjobRun run = RunTool({"init", ArgumentFor(folder, "half")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_NE(run.err.find("could not be written: nothing was left behind\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder.PathOf("half/job.toml")));
}

}  // namespace
