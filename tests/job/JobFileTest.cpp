#include "job/JobFile.h"
#include "support/BrokenFiles.h"
#include "support/TempFolder.h"

namespace {

using job::Job;
using job::JobError;

std::string ReadSample(const std::string& name) {
    std::ifstream stream(std::string(JOB_TEST_FOLDER "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The faults of a job file, a line each and without its name; "" when it is good.
std::string FaultsOf(const job::JobResult& result) {
    std::string text;
    if (const auto* errors = std::get_if<std::vector<JobError>>(&result)) {
        EXPECT_FALSE(errors->empty());
        for (JobError error : *errors) {
            error.file.clear();
            const std::string line = DescribeJobError(error);
            text += line.substr(line.find_first_not_of(": ")) + "\n";
        }
    }
    return text;
}

std::string FaultsOfText(const std::string& text) {
    const TempFolder folder;
    return FaultsOf(job::ReadJobFile(folder.Write("job.toml", text)));
}

Job ReadGoodJob() {
    job::JobResult result = job::ReadJobFile(JOB_TEST_FOLDER "/good-job.toml");
    EXPECT_EQ(FaultsOf(result), "");
    return std::get<Job>(std::move(result));
}

class BrokenJob : public ::testing::TestWithParam<BrokenFile> {};

TEST_P(BrokenJob, EveryFaultIsTold) {
    std::string text = ReadSample("good-job.toml");
    const std::size_t at = text.find(GetParam().oldText);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, GetParam().oldText.size(), GetParam().newText);
    EXPECT_EQ(FaultsOfText(text), GetParam().faults);
}

INSTANTIATE_TEST_SUITE_P(Cases,
                         BrokenJob,
                         ::testing::ValuesIn(ReadBrokenFiles(JOB_TEST_FOLDER "/broken-jobs.txt")),
                         [](const auto& instance) { return instance.param.name; });

TEST(JobFile, EveryKeyReachesItsPlace) {
    const Job job = ReadGoodJob();
    EXPECT_EQ(job.name, L"Hall 7");
    ASSERT_EQ(job.ncFiles.size(), 2u);
    EXPECT_EQ(job.ncFiles[1].text, "more/Träger.nc1");
    EXPECT_EQ(job.ncFiles[1].line, 4);
    EXPECT_EQ(job.ncFiles[1].column, 25);
    EXPECT_EQ(GetOutputFolder(job), std::filesystem::path(JOB_TEST_FOLDER) / "made");
    EXPECT_EQ(job.date->year * 10000 + job.date->month * 100 + job.date->day, 20260331);
    EXPECT_EQ(job.maximumQuantity, 250);
}

TEST(JobFile, ProjectData) {
    const job::ProjectData p = ReadGoodJob().project;
    // clang-format off
    const ZetString texts[] = {
        p.caption, p.fileName, p.settingsFile, p.modelName, p.modelRef, p.name, p.number, p.client,
        p.coldRolledCustomer, p.coldRolledOrderNo, p.coldRolledOrderDate, p.contractor, p.designer,
        p.detailer, p.revision, p.revisionDate, p.deliveryDate, p.commentMarker};
    // clang-format on
    ZetString joined;
    for (const ZetString& text : texts)
        joined += text + L"|";
    EXPECT_EQ(joined,
              L"Project of hall 7|hall7|hall7-settings.txt|Model|M-7|Hall|26-007|M\u00FCller|Steel "
              L"& Co|CR-1|2026-03-01|Contractor|Designer|Detailer|C|2026-03-02|2026-04-01|// |");
    EXPECT_EQ(p.comments, (std::vector<ZetString>{L"one", L"two"}));
    EXPECT_EQ(p.deliveryAddress, (std::vector<ZetString>{L"Yard", L"Street 1"}));
}

TEST(JobFile, TolerancesFilesAndGroups) {
    const Job job = ReadGoodJob();
    const job::Tolerances& t = job.tolerances;
    EXPECT_EQ((std::vector{t.eps, t.general, t.x, t.y, t.angle}),
              (std::vector{0.01, 1.0, 0.25, 0.75, 0.1}));
    EXPECT_EQ((std::vector{t.edgeDistance, t.distanceFromFace, t.endDistance}),
              (std::vector{20.0, -2.5, 0.0}));
    EXPECT_FALSE(job.areDistancesChecked);

    std::vector<ZetString> endings;
    for (const job::OutputFile& file : job.files)
        endings.push_back(file.ending);
    const std::vector<ZetString> wanted = {L"-orders.txt",
                                           L"-summary.txt",
                                           L"-errors.txt",
                                           L"-warnings.txt",
                                           L"-plates.txt",
                                           L"-rows.csv",
                                           L""};
    EXPECT_EQ(endings, wanted);
    EXPECT_EQ(job.files[6].nc.value().folder, "parts");
    EXPECT_EQ(job.files[6].nc.value().names, L"{mark}-{profile}.nc");
    EXPECT_EQ(job.formats.at(job.files[5].format.value()).name, L"csv");
    EXPECT_EQ(job.files[job::kInfoFile].headerLines, std::vector<ZetString>{L"SUMMARY"});
    EXPECT_FALSE(job.files[job::kInfoFile].hasProjectHeader);
    EXPECT_TRUE(job.files[job::kFirstOwnFile].hasProjectHeader);

    ASSERT_EQ(job.groups.size(), 5u);
    EXPECT_EQ(job.groups[1].files, std::vector<std::size_t>{4});
    EXPECT_EQ(job.groups[1].sortKeys, (std::vector{eSortProfileNameLength, eSortGroupID}));
    EXPECT_EQ(job.groups[2].files, (std::vector<std::size_t>{0, 4}));
    EXPECT_EQ(job.groups[2].headerLines, (std::vector<ZetString>{L"", L"Purlins"}));
    // clang-format off
    EXPECT_EQ(job.groups[2].sortKeys,
              (std::vector{eSortProfileHeight, eSortProfileWidth, eSortProfileThick, eSortLength,
                           eSortProfileName, eSortMark}));
    // clang-format on
    EXPECT_TRUE(job.groups[2].isNested);
    EXPECT_EQ(job.groups[2].reserveLength, 150.5);
    EXPECT_EQ(job.groups[4].plan, job::BarPlan::kLeast);
    EXPECT_EQ(job.cutting.effort, 500);
    ASSERT_EQ(job.remnants.size(), 1u);
    EXPECT_EQ(job.remnants[0].name, L"Rack 7");
    ASSERT_EQ(job.stocks.size(), 1u);
    EXPECT_EQ(job.stocks[0].price, 96.5);
    EXPECT_EQ(job.stocks[0].gripEnd, 25.5);
    EXPECT_EQ(job.stocks[0].leastOffcut, 1000.0);
    EXPECT_EQ(job.groups[3].id, L"rest");
    EXPECT_EQ(job.groups[3].files, std::vector<std::size_t>{0});
}

TEST(JobFile, NcInputAndLineEnds) {
    const Job job = ReadGoodJob();
    EXPECT_EQ(job.nc.mark, job::MarkSource::kFileName);
    EXPECT_STREQ(NameOf(job.nc.encoding), "iso-8859-13");
    EXPECT_EQ(job.nc.unreadable, job::WhenNot::kLeaveOut);
    EXPECT_EQ(job.nc.unmatched, job::WhenNot::kLeaveOut);
    EXPECT_TRUE(job.reports.areSourcesTold);
    EXPECT_EQ(job.files[job::kWarningFile].lineEnds, job::LineEnds::kCrLf);
    EXPECT_EQ(job.files[job::kOrderFile].lineEnds, job::LineEnds::kLf);
}

TEST(JobFile, MemberTypes) {
    const Job job = ReadGoodJob();
    ASSERT_EQ(job.memberTypes.size(), 2u);
    EXPECT_TRUE(job.memberTypes[1].isSkipped);
    const job::MemberType& type = job.memberTypes[0];
    EXPECT_EQ(type.profilePattern, L"Z200*");
    EXPECT_EQ(type.codePattern, L"SO");
    EXPECT_EQ(type.group, 2u);
    EXPECT_EQ(type.pattern, 0u);
    EXPECT_EQ(type.topFlange.zero, 64.5);
    EXPECT_FALSE(type.topFlange.isReversed);
    EXPECT_EQ(type.bottomFlange.zero, 66.5);
    EXPECT_TRUE(type.bottomFlange.isReversed);

    CMemTypeAndAttrib member = type.type;
    member.SetProfileName(L"Z200x25");
    EXPECT_EQ(member.GetRecordType(), 2);
    EXPECT_EQ(member.GetProfileHeight(), 200.0);
    EXPECT_EQ(member.GetProfileWidth(), 66.0);
    EXPECT_EQ(member.GetTopFlangeWidth(), 74.0);
    EXPECT_EQ(member.GetProfileThick(), 25 * 0.1);
    EXPECT_EQ(member.GetTopFlangeSlope(), -7.5);
    EXPECT_EQ(member.GetNameStartPos() * 10 + member.GetNameLength(), 17);
    EXPECT_EQ(member.GetProfDesc() + member.GetShortName(), L"Z purlinZ");
    EXPECT_EQ(job.memberTypes[1].type.GetProfDesc(), L"frame");
}

TEST(JobFile, LimitsAndReportTypes) {
    const Job job = ReadGoodJob();
    const CMemberValidations& limits = job.memberTypes[0].limits;
    EXPECT_EQ(limits.GetNoOfHoles(), 40);
    EXPECT_EQ(limits.GetNoOfInternalContours(), 2);
    EXPECT_EQ(limits.GetNoOfExternalContours(), 0);
    EXPECT_EQ(limits.GetMinimumLength(), 300.0);
    EXPECT_EQ(limits.GetMaximumLength(), 12000.0);
    const std::vector<int> wanted = {4, 1, 2, 3, 5, 6, 7, 4, 4, 1, 1, 1, 4, 4, 1, 1, 1, 1};
    const job::ReportTypes& reports = job.memberTypes[0].reports;
    EXPECT_EQ(std::vector<int>(reports.begin(), reports.begin() + 18), wanted);

    const CMemberValidations& none = job.memberTypes[1].limits;
    EXPECT_EQ(none.GetNoOfHoles(), -1);
    EXPECT_EQ(none.GetNoOfInternalContours(), -1);
    EXPECT_EQ(none.GetNoOfExternalContours(), -1);
    EXPECT_GT(none.GetMaximumLength(), 1e6);
}

TEST(JobFile, HoleRuleMatcher) {
    const Job job = ReadGoodJob();
    ASSERT_EQ(job.holeRules.size(), 2u);
    const job::HoleRule& rule = job.holeRules[0];
    EXPECT_EQ(rule.id + L" " + rule.otherwiseSuffix + L" " + rule.code, L"bolt -heavy W18");
    EXPECT_EQ(rule.shape, eHoleShapeSlot);
    EXPECT_EQ(rule.diameters, (std::vector{18.0, 22.5}));
    EXPECT_EQ(rule.lengths, std::vector{38.0});
    EXPECT_EQ(rule.faces, (std::vector{eHoleFaceWeb, eHoleFaceWebBack}));
    EXPECT_EQ(rule.backMarks, std::vector{60.0});
    EXPECT_EQ(rule.otherFaceDistances, (std::vector{60.0, 45.0}));
    EXPECT_EQ(rule.excludedMembers, std::vector<ZetString>{L"Z2"});
    EXPECT_EQ(rule.memberNameLength, 2);
    ASSERT_EQ(rule.pairs.size(), 1u);
    EXPECT_EQ(rule.pairs[0].code + rule.pairs[0].prefix, L"Wz ");
    EXPECT_EQ(rule.pairs[0].spacing, 40.0);
    EXPECT_TRUE(rule.isPairMust);
    EXPECT_EQ(rule.group.code, L"DUO");
    EXPECT_EQ(rule.group.holeCount, 3);
    EXPECT_TRUE(rule.group.isMust);
    EXPECT_EQ(job.uncoveredHoles.action, job::Uncovered::kOutput);
    EXPECT_EQ(job.uncoveredHoles.code, L"H?");
}

TEST(JobFile, NotchesPatternsAssembliesAndInfo) {
    const Job job = ReadGoodJob();
    ASSERT_EQ(job.cornerNotches.size(), 1u);
    const job::CornerNotch& notch = job.cornerNotches[0];
    EXPECT_EQ(notch.along, job::NotchCorner::kEnd);
    EXPECT_EQ(notch.across, job::NotchCorner::kEnd);
    EXPECT_EQ(notch.definition.face, eHoleFaceBottomFlange);
    EXPECT_EQ(notch.definition.vertexCount, 4);
    EXPECT_TRUE(notch.definition.mustBeRect && notch.definition.mustBeParallelToAxis);
    EXPECT_EQ(notch.definition.outPutFormat, L"COPE %.1f x %.1f AT %5.1f");
    EXPECT_EQ(notch.definition.valueSelectors, (ZetArray<int>{5, 4, 1}));
    EXPECT_EQ(job.uncoveredNotches.action, job::Uncovered::kAccept);

    ASSERT_EQ(job.patterns.size(), 1u);
    EXPECT_EQ(job.patterns[0].fixedLength, 1280.0);
    EXPECT_TRUE(job.patterns[0].isMirrorAllowed);
    const job::PatternHole& hole = job.patterns[0].holes.at(0);
    EXPECT_EQ(hole.diameter, 14.0);
    EXPECT_EQ(hole.positions, (std::vector{50.0, -50.0, 0.5}));
    EXPECT_EQ(hole.code + hole.message, L"E14no %.0f at %.0f");

    ASSERT_EQ(job.assemblies.size(), 1u);
    EXPECT_EQ(job.assemblies[0].mark, L"M1");
    EXPECT_EQ(job.assemblies[0].parts.at(0).mark, L"C1");
    EXPECT_EQ(job.assemblies[0].parts.at(0).count, 2);
    EXPECT_EQ(job.assemblies[0].parts.at(1).count, 1);

    const std::vector<ZetString> headers = {L"All", L"Odd", L"Bad", L"Doubtful"};
    for (std::size_t block = 0; block < headers.size(); ++block)
        EXPECT_EQ(job.infoHeaders[block], std::vector<ZetString>{headers[block]});
    EXPECT_EQ(job.infoOrder, (std::vector<std::size_t>{0, 1}));
}

constexpr const char* kSmall =
    "[job]\nnc_files = [\"*\"]\n[[group]]\nid = \"g\"\n[[member_type]]\nid = \"t\"\ngroup = \"g\"\n";

std::string WithLineEnds(std::string text, const std::string& lineEnd) {
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += lineEnd.size())
        text.replace(at, 1, lineEnd);
    return text;
}

TEST(JobFile, FormsOfAFile) {
    const std::string small = kSmall;
    const std::string mark = "\xEF\xBB\xBF";
    const std::string missing =
        "[job] is missing\n[[group]] is missing\n[[member_type]] is missing\n";
    // clang-format off
    const std::pair<std::string, std::string> cases[] = {
        {small, ""},
        {mark + WithLineEnds(small, "\r\n"), ""},
        {mark + "[jbo]", missing + "1:2: unknown table \"jbo\"; did you mean \"job\"?\n"},
        {"", missing},
        {"# only a comment", missing},
        {small + "name = \"\xFC\"\n", "8: this line is not UTF-8: save the file with the encoding UTF-8\n"},
        {std::string("\xFF\xFE[\0j\0", 6), "1: this line is not UTF-8: save the file with the encoding UTF-8\n"},
        {small + "a.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.q.r.s.t.u.v = 1\n", "8:42: too many dots: no table of a job lies so deep\n"},
        {small + "# ......................\n", ""},
        {std::string(4u * 1024 * 1024 + 1, '\n'), "the file is larger than 4 MB: this is no job file\n"},
    };
    // clang-format on
    for (const auto& [text, faults] : cases) {
        SCOPED_TRACE(text.substr(0, 40));
        EXPECT_EQ(FaultsOfText(text), faults);
    }
}

TEST(JobFile, NoFile) {
    const TempFolder folder;
    const std::string name = folder.NameOf("gone.toml").toUtf8();
    const auto errors = std::get<1>(job::ReadJobFile(folder.PathOf("gone.toml")));
    EXPECT_EQ(DescribeJobError(errors.at(0)), name + ": there is no such file");
    EXPECT_EQ(FaultsOf(job::ReadJobFile(folder.PathOf("."))), "this is a folder, not a job file\n");
}

TEST(JobFile, NamesOfItsFilesBeginWithItsOwn) {
    const TempFolder folder;
    const Job job = std::get<Job>(job::ReadJobFile(folder.Write("Halle \xC3\x84.toml", kSmall)));
    EXPECT_EQ(job.project.fileName, L"Halle \u00C4");
    EXPECT_EQ(GetOutputFolder(job), folder.PathOf("out"));
}

/// A file that ends anywhere is told, and trips nothing.
TEST(JobFile, CutAnywhere) {
    const std::string text = ReadSample("good-job.toml");
    const TempFolder folder;
    for (std::size_t length = 0; length < text.size(); length += 37)
        FaultsOf(job::ReadJobFile(folder.Write("job.toml", text.substr(0, length))));
}

}  // namespace
