#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"
#include "camjob/check/CheckSummary.h"
#include "support/Golden.h"

#include <utility>
#include <vector>

namespace {

struct Case {
    const char* name;                                        ///< also of the golden file
    std::vector<std::pair<std::string, std::string>> files;  ///< name and bytes, in order
};

class CheckText : public ::testing::TestWithParam<Case> {};

TEST_P(CheckText, IsTheApprovedReport) {
    const TempFolder folder;
    std::vector<std::string> arguments{"check"};
    for (const auto& [file, bytes] : GetParam().files) {
        folder.Write(file, bytes);
        arguments.push_back(ArgumentFor(folder, file));
    }
    const CamjobRun run = RunTool(arguments);
    const std::string report = "exit code " + std::to_string(run.exitCode) + "\n---- stdout\n" +
                               run.out + "---- stderr\n" + run.err;
    EXPECT_TRUE(MatchesGolden(
        CAMJOB_GOLDEN_FOLDER "/check/golden", GetParam().name, WithoutFolder(report, folder)));
}

std::string InclinedPlane() {
    // Tilted by 45 degrees about X.
    return nc::Header("E-1") +
           "E1\n"
           "  100.00 0.00 0.00\n"
           "  200.00 0.00 0.00\n"
           "  100.00 100.00 100.00\n"
           "B1\n"
           "  20.00 30.00 18.00\n"
           "EN\n";
}

std::string Contours() {
    // A plate with two outlines, one half round, and an opening.
    return nc::Header("PL-7", "PL 200x2\n  B", "400.00") +
           "AK\n"
           "  v 0.00u 0.00 0.00\n"
           "    150.00 0.00 0.00\n"
           "    150.00 200.00 0.00\n"
           "    0.00 200.00 0.00\n"
           "    0.00 0.00 0.00\n"
           "AK\n"
           "  v 250.00u 0.00 0.00\n"
           "    400.00 0.00 0.00\n"
           "    400.00 200.00 0.00\n"
           "    250.00 0.00 0.00\n"
           "IK\n"
           "  v 50.00u 50.00 0.00\n"
           "    50.00 80.00 0.00\n"
           "    80.00 80.00 0.00\n"
           "    50.00 50.00 0.00\n"
           "PU\n"
           "  v 10.00u 10.00 0.00\n"
           "    20.00 10.00 0.00\n"
           "EN\n";
}

std::string SetAside() {
    return nc::Header("A-1") +
           "BO\n"
           "  v 100.00u 60.00 18.00\n"
           "  v 100.00 60.00 14.00\n"  // the same place
           "  v 112.00 60.00 10.00\n"  // overlaps
           "  v 1000.00 100.00 18.00 0.00l 60.00 0.00 0.00\n"
           "  v 1055.00 100.00 14.00\n"        // inside the slot
           "  v 1055.00 100.00s 20.00 1.00\n"  // its sink
           "  v 2000.00 100.00s 20.00 1.00\n"  // a sink without a hole
           "  h 1030.00 100.00 14.00\n"        // behind the slot: another face
           "EN\n";
}

std::string Notched() {
    // Both ends of the web notched, the left one rounded; the top flange cut off at an angle; an
    // opening given twice; the bottom flange whole.
    return nc::Header("N-2", "Z200x2.0\n  SO", "3000.00") +
           "AK\n"
           "  v 0.00u 0.00 0.00\n"
           "    3000.00 0.00 0.00\n"
           "    3000.00 150.00 0.00\n"
           "    2900.00 150.00 0.00\n"
           "    2900.00 200.00 0.00\n"
           "    120.00 200.00 0.00\n"
           "    120.00 170.00 -20.00\n"
           "    120.00 150.00t -20.00\n"
           "    100.00 150.00 0.00\n"
           "    0.00 150.00 0.00\n"
           "    0.00 0.00 0.00\n"
           "AK\n"
           "  o 0.00s 0.00 0.00\n"
           "    0.00 65.00 0.00\n"
           "    2960.00 65.00 0.00\n"
           "    3000.00 0.00 0.00\n"
           "    0.00 0.00 0.00\n"
           "AK\n"
           "  u 0.00s 0.00 0.00\n"
           "    3000.00 0.00 0.00\n"
           "    3000.00 65.00 0.00\n"
           "    0.00 65.00 0.00\n"
           "    0.00 0.00 0.00\n"
           "IK\n"
           "  v 1500.00u 80.00 0.00\n"
           "    1500.00 120.00 0.00\n"
           "    1560.00 120.00 0.00\n"
           "    1560.00 80.00 0.00\n"
           "    1500.00 80.00 0.00\n"
           "IK\n"
           "  v 1500.00u 80.00 0.00\n"
           "    1500.00 120.00 0.00\n"
           "    1560.00 120.00 0.00\n"
           "    1560.00 80.00 0.00\n"
           "    1500.00 80.00 0.00\n"
           "BO\n"
           "  v 700.00u 90.00 0.00 0.00l 30.00 20.00 30.00\n"
           "EN\n";
}

std::string Notes() {
    return nc::Header("N-1", "XY200\n  Q") +
           "BO\n"
           "  v 6100.00 50.00 18.00\n"
           "  v 100.00 250.00 18.00\n"
           "XX\n"
           "  1 2 3\n"
           "EN\n";
}

// What Windows-1252 and UTF-8 make of the same mark, and a text that would steer a terminal.
const std::string kWindows1252Mark = "Tr\xE4ger \x96 \xD8";
const std::string kUtf8Mark = "Tr\xC3\xA4ger \xE2\x80\x93 \xC3\x98";
const std::string kControlMark = "A\x1B[31mB";

const Case kCases[] = {
    {"all-holes",       {{"Z-101.nc1", nc::AllHoles()}}     },
    {"no-holes",        {{"bare.nc", nc::Header() + "EN\n"}}},
    {"inclined-plane",  {{"plane.nc1", InclinedPlane()}}    },
    {"contours",        {{"plate.nc", Contours()}}          },
    {"set-aside",       {{"doubles.nc1", SetAside()}}       },
    {"notched",         {{"notched.nc1", Notched()}}        },
    {"notes",           {{"notes.nc1", Notes()}}            },
    {"texts",
     {{"Windows.nc1", nc::Plain(kWindows1252Mark)},
      {"\xC3\x9C"
       "ber \xCE\xA3 8.nc1",
       nc::Plain(kUtf8Mark)},
      {"control.nc1", nc::Plain(kControlMark)}}             },
    {"one-refused",     {{"bad.nc1", nc::BadLength()}}      },
    {"refused-between",
     {{"first.nc1", nc::Plain()},
      {"bad.nc1", nc::BadLength()},
      {"last.nc1", nc::AllHoles()},
      {"first.nc1", nc::Plain()}}                           },
};

INSTANTIATE_TEST_SUITE_P(Cases, CheckText, ::testing::ValuesIn(kCases), [](const auto& instance) {
    std::string name = instance.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(CheckSummary, ARefusedFileOutranksAnInvalidMember) {
    camjob::CheckReport invalid;
    invalid.findings.errors = {L"an error"};
    camjob::CheckReport warned;
    warned.findings.warnings = {L"a warning"};
    camjob::CheckSummary summary;
    summary.Add(warned);
    EXPECT_EQ(summary.GetExitCode(), 0);
    summary.Add(invalid);
    EXPECT_EQ(summary.GetExitCode(), 1);
    summary.Add(dstv::NcError{});
    EXPECT_EQ(summary.GetExitCode(), 2);
}

TEST(CheckTextSummary, ListsOnlyTheFirstRefusedFiles) {
    const TempFolder folder;
    std::vector<std::string> arguments{"check"};
    for (int i = 1; i <= 23; ++i)
        arguments.push_back(ArgumentFor(folder, "missing" + std::to_string(i) + ".nc1"));
    const CamjobRun run = RunTool(arguments);
    EXPECT_NE(run.out.find("\n  refused    23\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("missing20.nc1:"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("missing21.nc1:"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("  and 3 more\n"), std::string::npos) << run.out;
    EXPECT_NE(run.err.find("missing23.nc1:"), std::string::npos) << run.err;
}

}  // namespace
