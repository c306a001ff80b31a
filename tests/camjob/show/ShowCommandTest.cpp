#include "camjob/CamjobRun.h"
#include "camjob/FolderContent.h"
#include "camjob/NcFiles.h"
#include "camjob/SampleJob.h"
#include "support/Golden.h"

#include <filesystem>

namespace {

/// Every kind of feature, texts that markup could stumble over or must not have, an opening, a
/// notch and a mitre.
std::string Everything() {
    std::string text = CheckedFile("all-holes");
    text.replace(text.find("Z-101"), 5, "<Z&\"1>");
    text.replace(text.find("10r Z-101"), 9, "10r Tr\xC3\xA4ger</svg>\xEF\xBF\xBF");
    text.replace(text.find("EN\n"),
                 3,
                 "KO\n  v 1200.00u 20.00\n    1300.00 30.00\n"
                 "AK\n  v 0.00u 0.00 0.00\n    6000.00 0.00 0.00\n    6000.00 150.00 0.00\n"
                 "    5900.00 200.00 0.00\n    0.00 200.00 0.00\n    0.00 0.00 0.00\nEN\n");
    return text;
}

TEST(ShowCommand, DrawingsAreTheApprovedOnes) {
    const TempFolder folder;
    std::filesystem::create_directories(folder.PathOf("made"));
    folder.Write("all.nc1", Everything());
    folder.Write(
        "tube.nc1",
        nc::Header("T1", "RO114.3x4\n  RO", "900.00") + "BO\n  v 450.00 239.00 18.00\nEN\n");
    std::vector<std::string> arguments = {"show",
                                          ArgumentFor(folder, "all.nc1"),
                                          ArgumentFor(folder, "tube.nc1"),
                                          "--out",
                                          ArgumentFor(folder, "made")};
    EXPECT_EQ(RunTool(arguments).exitCode, 0);
    arguments.push_back("--dxf");
    EXPECT_EQ(RunTool(arguments).exitCode, 0);
    EXPECT_TRUE(MatchesGoldenFolder(CAMJOB_GOLDEN_FOLDER "/show/golden", folder.PathOf("made")));
}

struct UsageCase {
    const char* name;
    std::vector<std::string> arguments;
    int exitCode;
    const char* message;  ///< part of what is told; folders left out
    std::vector<std::string> made = {};
};

class ShowUsage : public ::testing::TestWithParam<UsageCase> {};

TEST_P(ShowUsage, WritesOnlyWhatWasAskedFor) {
    const TempFolder folder;
    std::filesystem::create_directories(folder.PathOf("b"));
    folder.Write("a.nc1", nc::Plain("A"));
    for (const char* const hall : {"halls/1", "halls/2"}) {
        std::filesystem::create_directories(folder.PathOf(hall));
        folder.Write(std::string(hall) + "/a.nc1", nc::Plain("A"));
    }
    folder.Write("b/a.nc1", nc::Plain("B"));
    std::filesystem::create_directories(folder.PathOf("none"));
    std::filesystem::create_directories(folder.PathOf("twice"));
    folder.Write("twice/a.NC1", nc::Plain("A"));
    folder.Write("twice/b.nc", nc::Plain("B"));
    folder.Write("bad.nc1", nc::BadLength());
    folder.Write("job.toml", SampleJob().Text());
    folder.Write("long.nc1", nc::Header("LONG") + "EN\n");
    folder.Write("nc.svg", nc::Plain("C"));
    const Files before = ContentOf(folder.PathOf(""));
    std::vector<std::string> arguments = {"show"};
    for (const std::string& argument : GetParam().arguments)
        arguments.push_back(argument.front() == '-' ? argument : ArgumentFor(folder, argument));
    const CamjobRun run = RunTool(arguments);
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    EXPECT_NE(WithoutFolder(run.out + run.err, folder).find(GetParam().message), std::string::npos)
        << run.out << run.err;
    Files made = ContentOf(folder.PathOf(""));
    for (const auto& [name, bytes] : before)
        EXPECT_EQ(made[name], bytes) << name;
    EXPECT_EQ(made.size(), before.size() + GetParam().made.size());
    for (const std::string& name : GetParam().made)
        EXPECT_TRUE(made.count(name)) << name;
}

INSTANTIATE_TEST_SUITE_P(
    Table,
    ShowUsage,
    ::testing::Values(
        UsageCase{
            "ToStandardOutput", {"a.nc1"},
             0, "</svg>\n"
},
        UsageCase{"DxfToStandardOutput", {"a.nc1", "--dxf"}, 0, "\nEOF\n"},
        UsageCase{"ToFile", {"a.nc1", "--out", "x.svg"}, 0, "x.svg", {"x.svg"}},
        UsageCase{"ToFolder", {"a.nc1", "--out", "new"}, 0, "new/a.svg", {"new/a.svg"}},
        UsageCase{"Folder", {"b", "--out", "n"}, 0, "n/a.svg", {"n/a.svg"}},
        UsageCase{"Folders", {"halls/", "--out", "n"}, 0, "n/1/a.svg", {"n/1/a.svg", "n/2/a.svg"}},
        UsageCase{"EmptyFolder", {"none", "--out", "n"}, 2, "none"},
        UsageCase{"OneFileTwice",
                  {"twice/a.NC1", "twice", "twice/b.nc", "--out", "n"},
                  0,
                  "n/b.svg",
                  {"n/a.svg", "n/b.svg"}},
        UsageCase{"FolderWithoutOut", {"twice"}, 2, "say --out DIR"},
        UsageCase{
            "BadFileAmongGood", {"bad.nc1", "a.nc1", "--out", "n"}, 2, "bad.nc1:10", {"n/a.svg"}},
        UsageCase{"SeveralWithoutFolder", {"a.nc1", "bad.nc1"}, 2, "say --out DIR"},
        UsageCase{"WrongEnding", {"a.nc1", "--out", "x.dxf"}, 2, "must end in .svg, or say --dxf"},
        UsageCase{
            "OneNameTwice", {"a.nc1", "b/a.nc1", "--out", "n"}, 2, "would both become n/a.svg"},
        UsageCase{"OntoInput", {"nc.svg", "--out", "nc.svg"}, 2, "would replace nc.svg"},
        UsageCase{"FolderIsFile", {"a.nc1", "--out", "bad.nc1"}, 3, "could not be written"},
        UsageCase{"MemberWithErrors",
                  {"a.nc1", "long.nc1", "--job", "job.toml", "--out", "n"},
                  1,
                  "n/long.svg",
                  {"n/a.svg", "n/long.svg"}},
        UsageCase{"BadJob", {"a.nc1", "--job", "bad.nc1"}, 2, "bad.nc1:"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
