#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"
#include "camjob/SampleJob.h"
#include "support/Golden.h"

#include <filesystem>
#include <fstream>

namespace {

std::string ContentOfFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(HostCommand, PluginGetsThePartsOfAJob) {
    const TempFolder folder;
    SampleJob job;
    job.more = R"([[assembly]]
main = "L1"
parts = [{ mark = "C2", count = 2 }, { mark = "C9" }]
)";
    job.Write(folder);
    const CamjobRun run = RunTool({"host",
                                   CAMJOB_PROBE_PLUGIN,
                                   "--job",
                                   ArgumentFor(folder, "job.toml"),
                                   "--out",
                                   ArgumentFor(folder, "made")});
    std::string report = WithoutFolder(ReportOf(run), folder);
    const std::string plugin = CAMJOB_PROBE_PLUGIN;
    ASSERT_NE(report.find(plugin), std::string::npos) << report;
    report.replace(report.find(plugin), plugin.size(), "PLUGIN");
    EXPECT_TRUE(MatchesGolden(
        CAMJOB_GOLDEN_FOLDER "/host/golden",
        "job",
        report + "---- parts.txt\n" + ContentOfFile(folder.PathOf("made") / "parts.txt")));
}

struct Case {
    const char* name;
    const char* plugin;
    const char* mark;  ///< of the part; what the plug-in does
    int exitCode;
    const char* message;  ///< part of what is shown
};

class HostFaults : public ::testing::TestWithParam<Case> {};

TEST_P(HostFaults, AreTold) {
    const TempFolder folder;
    folder.Write("a.nc1", nc::Plain(GetParam().mark));
    folder.Write("bad.nc1", nc::BadLength());
    folder.Write("text.so", "no module");
    std::string plugin = GetParam().plugin;
    if (plugin.starts_with("{}"))
        plugin = ArgumentFor(folder, plugin.substr(2));
    const std::string file = std::string(GetParam().mark) == "bad" ? "bad.nc1" : "a.nc1";
    const CamjobRun run =
        RunTool({"host", plugin, ArgumentFor(folder, file), "--out", ArgumentFor(folder, "made")});
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    EXPECT_NE((run.out + run.err).find(GetParam().message), std::string::npos)
        << run.out << run.err;
}

const Case kCases[] = {
    {"Invalid",
     CAMJOB_PROBE_PLUGIN,               "INVALID",
     1,                                               "The plug-in returned 1: done, but some members have errors"},
    {"GivenUp",    CAMJOB_PROBE_PLUGIN, "FAIL",    2, "The plug-in returned 2: given up"                          },
    {"File",       CAMJOB_PROBE_PLUGIN, "FILE",    3, "The plug-in returned 3: a file could not be"               },
    {"Odd",        CAMJOB_PROBE_PLUGIN, "ODD",     2, "returned 17, which is no eNCPluginResult (0 to 3)"         },
    {"Assertion",  CAMJOB_PROBE_PLUGIN, "!ASSERT", 2, "isValid( index )"                                          },
    {"Exception",
     CAMJOB_PROBE_PLUGIN,               "!THROW",
     2,                                               "let exceptions out, this one did: no such machine"         },
    {"OtherThrow", CAMJOB_PROBE_PLUGIN, "!BREAK",  2, "one of no known type"                                      },
    {"BadFile",    CAMJOB_PROBE_PLUGIN, "bad",     2, "bad.nc1:10: length"                                        },
    {"NoFunction", CAMJOB_NO_PLUGIN,    "Part",    2, "exports no function RunNCPlugin"                           },
    {"NoFile",     "{}missing.so",      "Part",    2, "the plug-in cannot be loaded"                              },
    {"NoModule",   "{}text.so",         "Part",    2, "the plug-in cannot be loaded"                              },
};

INSTANTIATE_TEST_SUITE_P(Cases, HostFaults, ::testing::ValuesIn(kCases), [](const auto& instance) {
    return std::string(instance.param.name);
});

TEST(HostCommand, WantsPartsAndAFolder) {
    const TempFolder folder;
    folder.Write("a.nc1", nc::Plain("Part"));
    EXPECT_NE(RunTool({"host", CAMJOB_PROBE_PLUGIN}).err.find("FILE or --job is required"),
              std::string::npos);
    const CamjobRun run = RunTool({"host",
                                   CAMJOB_PROBE_PLUGIN,
                                   ArgumentFor(folder, "a.nc1"),
                                   "--out",
                                   ArgumentFor(folder, "a.nc1")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_NE(run.err.find("the folder cannot be made"), std::string::npos) << run.err;
}

}  // namespace
