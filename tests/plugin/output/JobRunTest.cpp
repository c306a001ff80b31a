#include "plugin/SamplePart.h"
#include "plugin/output/JobRun.h"
#include "support/Golden.h"
#include "support/TempFolder.h"

#include "camdata/platform/host/HostComError.h"

#include <fstream>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using job::Job;
using plugin::JobRun;

/// Round holes of 18 are coded, all else is an error. Files have no project header; their names
/// begin with "job".
Job RunJob() {
    Job job = SampleJob();
    job::HoleRule rule;
    rule.id = L"bolt";
    rule.diameters = {18};
    rule.code = L"18";
    job.holeRules = {rule};
    job.project.fileName = L"job";
    for (job::OutputFile& file : job.files)
        file.hasProjectHeader = false;
    job.groups[job::kSecondaryGroup].headerLines = {L"Single parts"};
    job.groups[2].headerLines = {L"Members"};
    job.groups[2].sortKeys = {eSortMark};
    // clang-format off
    job.infoHeaders = {{{L"All"}, {L"Non-standard"}, {L"Errors"}, {L"Warnings"}}};
    // clang-format on
    job.infoOrder = {
        job::kErrorsBlock, job::kWarningsBlock, job::kNonStandardBlock, job::kAllMembersBlock};
    return job;
}

void AddAll(JobRun& run, std::initializer_list<Part*> parts) {
    for (Part* part : parts)
        EXPECT_EQ(run.Add(*part), JobRun::Added::kAdded);
}

// M needs A twice and B four times, D and E are alone; C is part of an assembly that is not there.
TEST(JobRun, MembersPartsAndMainPartsInTheirFiles) {
    TempFolder folder;
    Job job = RunJob();
    // clang-format off
    job.assemblies = {{L"M", 0, 0, {{L"A", 1, 0, 0}, {L"B", 1, 0, 0}}}, {L"N", 0, 0, {{L"C", 1, 0, 0}}}};
    // clang-format on
    job.memberTypes[0].reports[job::kQuantity] = eReportingNonStd;
    job.maximumQuantity = 50;
    Part a(L"A"), b(L"B"), c(L"C"), d(L"D"), e(L"E"), m(L"M");
    a.Qty(6).Hole(kWebView, 100, 50, 18);
    b.Qty(1);
    c.Qty(2).Hole(kWebView, 100, 50, 16);
    d.Qty(51);
    m.Qty(4).MainPartWith({&a, &b});
    JobRun run(job, folder.PathOf(""));
    AddAll(run, {&m, &e, &d, &c, &b, &a});
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_TRUE(run.GetFileFaults().isEmpty());
    // C is refused. M is four short of B, so it is an error: three are missing, one is there.
    EXPECT_TRUE(MatchesGoldenFolder(PLUGIN_GOLDEN_FOLDER "/assembly", folder.PathOf("")));

    std::string results;
    for (long i = 0; i < run.GetCount(); ++i) {
        const plugin::MemberResult result = run.TakeMemberResult(static_cast<std::size_t>(i));
        results += result.mark.toUtf8() + " " + std::to_string(result.group) + " x" +
                   std::to_string(result.quantity) + (result.outcome.isValid ? "" : " invalid") +
                   (result.outcome.hasWarnings ? " warned" : "") +
                   (result.outcome.isNonStandard ? " non-standard" : "") + ";";
    }
    EXPECT_EQ(
        results,
        "M 2 x4 invalid;E 2 x1;D 2 x51 warned non-standard;C 1 x2 invalid;B 1 x1 warned;A 1 x6 warned;");
    const std::vector<plugin::GroupResult> groups = run.GetGroupResults();
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[1].members, 3);
    EXPECT_EQ(groups[1].steel.pieces, 52);
    EXPECT_EQ(groups[1].invalid, 1);
    EXPECT_EQ(groups[1].withWarnings, 1);
    EXPECT_EQ(groups[1].nonStandard, 1);
}

TEST(JobRun, SplitGroupsHaveASectionEach) {
    const std::pair<job::GroupSplit, const char*> cases[] = {
        {job::GroupSplit::kProfile,   "Profile C150x1.5: C|Profile Z200x2.0: A B"},
        {job::GroupSplit::kMaterial,  "Material not told: B|Material S: A C"     },
        {job::GroupSplit::kThickness, "Thickness 1.5 mm: C|Thickness 2 mm: A B"  },
    };
    for (const auto& [split, sections] : cases) {
        TempFolder folder;
        Job job = RunJob();
        job.groups[2].split = split;
        Part a(L"A"), b(L"B"), c(L"C", L"C150x1.5");
        JobRun run(job, folder.PathOf(""));
        AddAll(run, {&a.Material(L"S"), &c.Thickness(1.5).Material(L"S"), &b});
        ASSERT_TRUE(run.Write(folder.PathOf("")));
        std::string seen;
        std::istringstream orders(folder.Read("job-orders.txt"));
        for (std::string line; std::getline(orders, line);)
            if (line.starts_with("member mark="))
                seen += " " + line.substr(13, 1);
            else if (line != "end" && line != "Members")
                seen += (seen.empty() ? "" : "|") + line + ":";
        EXPECT_EQ(seen, sections);
    }
}

TEST(JobRun, NestsTheValidMembersOfAGroup) {
    TempFolder folder;
    Job job = RunJob();
    job.groups[2].isNested = true;
    Part a(L"A"), b(L"B"), c(L"C");
    JobRun run(job, folder.PathOf(""));
    AddAll(run, {&a.Qty(2).Length(1500), &b.Length(5000), &c.Length(900)});
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_TRUE(MatchesGoldenFolder(PLUGIN_GOLDEN_FOLDER "/nested", folder.PathOf("")));
    ASSERT_EQ(run.GetPlans().size(), 1u);
    EXPECT_EQ(run.GetPlans()[0].group, 2u);
    EXPECT_EQ(run.GetPlans()[0].plan.cost, 1);
}

TEST(JobRun, ReserveLengthKeepsOffCuts) {
    TempFolder folder;
    Job job = RunJob();
    job.groups[2].isNested = true;
    job.groups[2].reserveLength = 2500.0;
    Part a(L"A");
    JobRun run(job, folder.PathOf(""));
    AddAll(run, {&a.Qty(2).Length(1500)});
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_EQ(run.GetPlans().at(0).plan.cost, 2);
}

TEST(JobRun, MembersFallUnderTheFirstTypeThatFits) {
    Job job = RunJob();
    job::MemberType skipped = job.memberTypes[0];
    skipped.profilePattern = L"C*x1.?";
    skipped.isSkipped = true;
    job.memberTypes[0].profilePattern = L"Z*";
    job.memberTypes[0].codePattern = L"S?";
    job.memberTypes.insert(job.memberTypes.begin(), skipped);
    Part fits(L"A", L"Z200x2.0");
    Part isSkipped(L"B", L"C150x1.5");
    Part isLonger(L"C", L"C150x1.55");
    Part isLowerCase(L"D", L"z200");
    JobRun run(job, "");
    EXPECT_EQ(run.Add(fits), JobRun::Added::kAdded);
    EXPECT_EQ(run.Add(isSkipped), JobRun::Added::kSkipped);
    EXPECT_EQ(run.Add(isLonger), JobRun::Added::kNoType);
    EXPECT_EQ(run.Add(isLowerCase), JobRun::Added::kNoType);
}

TEST(JobRun, ProjectHeadsTheFilesUnderTheirOwnLines) {
    TempFolder folder;
    Job job = RunJob();
    job.files[job::kOrderFile].headerLines = {L"LINE 1"};
    job.files[job::kOrderFile].hasProjectHeader = true;
    job.project.name = L"Shed";
    job.project.comments = {L"one", L"two"};
    job.project.revisionDate = L"";
    job.project.deliveryDate = L"soon";
    job.date = CalendarDate{2026, 3, 2};
    JobRun run(job, folder.PathOf(""));
    ASSERT_TRUE(run.Write(folder.PathOf("")));
    EXPECT_TRUE(MatchesGoldenFolder(PLUGIN_GOLDEN_FOLDER "/project-header", folder.PathOf("")));
    EXPECT_EQ(Today().day, 2);
}

TEST(JobRun, CanBeCancelledBetweenMembersAndTellsFileFaults) {
    TempFolder folder;
    const Job job = RunJob();
    Part a(L"A");
    Part b(L"B");
    JobRun run(job, folder.PathOf(""));
    AddAll(run, {&a, &b});
    int asked = 0;
    EXPECT_FALSE(run.Write(folder.PathOf(""), [&asked] { return ++asked == 2; }));
    const std::string ofFirstMember =
        "Members\nmember mark=\"A\" quantity=1 profile=\"Z200x2.0\" length=3000.000 material=\"\" weight=0.000\nend\n";
    EXPECT_EQ(folder.Read("job-orders.txt"), ofFirstMember) << "not closed";

    // An error of the host or of the caller leaves no file open either.
    JobRun failing(job, folder.PathOf(""));
    AddAll(failing, {&a, &b});
    asked = 0;
    const auto fail = [&asked]() -> bool { return ++asked == 2 ? throw HostComError(5) : false; };
    EXPECT_THROW(failing.Write(folder.PathOf(""), fail), HostComError);
    EXPECT_EQ(folder.Read("job-orders.txt"), ofFirstMember) << "not closed";

    JobRun nowhere(job, folder.PathOf(""));
    EXPECT_TRUE(nowhere.Write(folder.PathOf("missing")));
    EXPECT_EQ(nowhere.GetFileFaults().length(), 4);
}

}  // namespace
