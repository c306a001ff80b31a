#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"
#include "job/templates/InitTemplates.h"
#include "support/Golden.h"
#include "support/JobKeyNames.h"

#include <nlohmann/json.hpp>

namespace {

TEST(InitCommand, WhatItWritesRunsAsItStands) {
    const TempFolder folder;
    const std::string job = ArgumentFor(folder, "new/Halle 7") + "/job.toml";
    const CamjobRun init =
        RunTool({"init", "--kind", "purlins", ArgumentFor(folder, "new/Halle 7")});
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
    EXPECT_EQ(FindMissingJobKeys(std::string(job::kJobTemplate.text)), std::vector<std::string>());
}

struct KindCase {
    const char* kind;
    int members;
};

TEST(InitCommand, EveryKindRunsWithoutErrors) {
    for (const KindCase& row : {
             KindCase{"purlins", 1},
             {"plates",  1},
             {"frames",  3},
             {"mixed",   4}
    }) {
        SCOPED_TRACE(row.kind);
        const TempFolder folder;
        EXPECT_EQ(RunTool({"init", ArgumentFor(folder, "a"), "--kind", row.kind}).exitCode, 0);
        const CamjobRun run = RunTool({"run", "--json", ArgumentFor(folder, "a/job.toml")});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(nlohmann::json::parse(run.out)["members"].size(), row.members);
    }
}

/// The files of a shop: marks that repeat, drawings that do not, names in Windows-1251, sections of
/// several kinds, files that cannot be read, and two of one name in two folders.
void WriteShop(const TempFolder& folder) {
    std::filesystem::create_directories(folder.PathOf("shop/sub"));
    const auto drawing = [](std::string text, const std::string& number) {
        return text.replace(text.find("D-4711"), 6, number);
    };
    folder.Write(
        "shop/1.nc1",
        drawing(
            nc::Header("A") +
                "BO\n  v 100.00u 50.00 18.00\n  v 200.00 50.00 18.00 0.00l 40.00 0.00 0.00\n  v 400.00 50.00g 12.00 0.00\n  v 500.00 100.00 13.00\n  v 500.00 100.00s 26.00 6.50 0.00 0.00 90.00\n  v 600.00 40.00 20.00 0.00l 80.00 40.00 0.00\nIK\n  v 2000.00u 50.00 0.00\n  2100.00 50.00 0.00\n  2100.00 100.00 0.00\n  2000.00 50.00 0.00\nEN\n",
            "A1"));
    // No height but that in the name.
    std::string flat = nc::Header("B", "ZS175\n  SO", "900.00") + "EN\n";
    flat.replace(flat.find("200.00"), 6, "0.00");
    folder.Write("shop/2.nc1", drawing(flat, "A2"));
    folder.Write(
        "shop/3.nc1",
        drawing(nc::Header("B", "\xC1\xE0\xEB\xEA\xE0 30\n  I", "900.00") +
                    "AK\n  v 0 0\n  900 0\n  900 200\n  50 200\n  50 180\n  0 180\n  0 0\nEN\n",
                "A3"));
    folder.Write("shop/sub/4.NC", drawing(nc::Header("B", "x\n  SO", "900.00") + "EN\n", "A4"));
    folder.Write("shop/sub/1.nc", drawing(nc::Plain("B"), "A4"));
    folder.Write("shop/sub/6.nc", nc::BadLength());
    folder.Write("shop/sub/notes.txt", "no NC file");
}

TEST(InitCommand, MakesAJobFromFiles) {
    const TempFolder folder;
    WriteShop(folder);
    const CamjobRun init = RunTool({"init",
                                    ArgumentFor(folder, "job"),
                                    "--from",
                                    ArgumentFor(folder, "shop/sub/../1.nc1"),
                                    ArgumentFor(folder, "shop")});
    EXPECT_EQ(init.exitCode, 0);
    EXPECT_NE(init.out.find("5 NC files are in the job, 1 are not\n"), std::string::npos);
    EXPECT_TRUE(MatchesGolden(CAMJOB_GOLDEN_FOLDER "/init/golden",
                              "from",
                              WithoutFolder(folder.Read("job/job.toml"), folder)));
    const CamjobRun run = RunTool({"run", "--json", ArgumentFor(folder, "job/job.toml")});
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(nlohmann::json::parse(run.out)["members"].size(), 5u);
}

TEST(InitCommand, WithoutASoundFileThereIsNoJob) {
    const TempFolder folder;
    folder.Write("bad.nc1", nc::BadLength());
    for (const char* from : {"bad.nc1", "gone", "."}) {
        const CamjobRun init =
            RunTool({"init", ArgumentFor(folder, "job"), "--from", ArgumentFor(folder, from)});
        EXPECT_EQ(init.exitCode, 2) << from;
        EXPECT_NE(init.err.find("nothing was written\n"), std::string::npos);
        EXPECT_FALSE(std::filesystem::exists(folder.PathOf("job")));
    }
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
    EXPECT_NE(run.err.find("could not be written ("), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("): nothing was left behind\n"), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(folder.PathOf("half/job.toml")));
}

}  // namespace
