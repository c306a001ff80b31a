#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"
#include "camjob/check/CheckSummary.h"
#include "support/Golden.h"

#include <utility>
#include <vector>

namespace {

struct Case {
    std::string name;                                        ///< of the golden file
    std::vector<std::pair<std::string, std::string>> files;  ///< name and bytes, in order
};

void ExpectApprovedReport(const Case& row) {
    const TempFolder folder;
    std::vector<std::string> arguments{"check"};
    for (const auto& [file, bytes] : row.files) {
        folder.Write(file, bytes);
        arguments.push_back(ArgumentFor(folder, file));
    }
    const std::string report = ReportOf(RunTool(arguments));
    EXPECT_TRUE(MatchesGolden(
        CAMJOB_GOLDEN_FOLDER "/check/golden", row.name, WithoutFolder(report, folder)));
}

// What Windows-1252 and UTF-8 make of the same mark, and a text that would steer a terminal.
const std::string kWindows1252Mark = "Tr\xE4ger \x96 \xD8";
const std::string kUtf8Mark = "Tr\xC3\xA4ger \xE2\x80\x93 \xC3\x98";
const std::string kControlMark = "A\x1B[31mB";

TEST(CheckText, IsTheApprovedReport) {
    for (const char* name :
         {"all-holes", "no-holes", "inclined-plane", "contours", "set-aside", "notched", "notes"})
        ExpectApprovedReport({name, {{name + std::string(".nc1"), CheckedFile(name)}}});
    // clang-format off
    const Case cases[] = {
        {"texts", {{"Windows.nc1", nc::Plain(kWindows1252Mark)},
                   {"\xC3\x9C" "ber \xCE\xA3 8.nc1", nc::Plain(kUtf8Mark)},
                   {"control.nc1", nc::Plain(kControlMark)}}},
        {"one-refused", {{"bad.nc1", nc::BadLength()}}},
        {"refused-between", {{"first.nc1", nc::Plain()}, {"bad.nc1", nc::BadLength()},
                             {"last.nc1", CheckedFile("all-holes")}, {"first.nc1", nc::Plain()}}},
    };
    // clang-format on
    for (const Case& row : cases)
        ExpectApprovedReport(row);
}

TEST(CheckSummary, ARefusedFileOutranksAnInvalidMember) {
    camjob::CheckReport invalid;
    invalid.findings = {{.report = eReportingError}};
    camjob::CheckReport warned;
    warned.findings = {{.report = eReportingWarning}};
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
