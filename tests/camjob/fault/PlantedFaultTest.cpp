#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "camjob/SampleJob.h"
#include "dstv/NcEntries.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace {

/// A line with a hole that nobody makes; 0: none.
long s_plantedLine = 0;

}  // namespace

/// In the place of the reader's own, with the fault that the accounts are there for.
std::vector<dstv::NcEntry> dstv::EntriesOf(const NcPart&) {
    if (s_plantedLine == 0)
        return {};
    return {
        {L"hole", s_plantedLine, false}
    };
}

namespace {

TEST(PlantedFault, EndsTheRunBeforeItReplacesAnything) {
    const TempFolder folder;
    SampleJob job;
    job.Write(folder);
    s_plantedLine = 0;
    ASSERT_EQ(RunJobFile(folder).exitCode, 1);
    const Files before = ContentOf(folder.PathOf("out"));
    ASSERT_FALSE(before.empty());

    job.number = "2";
    job.Write(folder);
    s_plantedLine = 23;
    const CamjobRun told = RunJobFile(folder);
    EXPECT_EQ(told.exitCode, 4);
    EXPECT_NE(told.err.find("nc/2.nc1:23: hole: neither made nor told\n"), std::string::npos)
        << told.err;
    EXPECT_NE(told.err.find("this is a fault of this program; the output in "), std::string::npos);
    EXPECT_EQ(told.out, "");
    const CamjobRun run = RunTool(
        {"run", ArgumentFor(folder, "job.toml"), "--out", ArgumentFor(folder, "out"), "--json"});
    EXPECT_EQ(run.exitCode, 4);
    const auto document = nlohmann::json::parse(run.out);
    EXPECT_EQ(document["status"], "fault");
    EXPECT_EQ(document["exitCode"], 4);
    EXPECT_EQ(document["faults"][0]["line"], 23);
    for (const char* list : {"members", "groups", "bars", "files"})
        EXPECT_TRUE(document[list].empty()) << list;
    EXPECT_EQ(ContentOf(folder.PathOf("out")), before);
}

}  // namespace
