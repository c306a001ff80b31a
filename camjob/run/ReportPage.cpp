#include "camjob/run/ReportPage.h"

#include "camjob/console/Paths.h"
#include "camjob/console/ReportText.h"
#include "camjob/run/RunText.h"
#include "camjob/show/PartDrawing.h"

#include "camdata/platform/system/Clock.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

namespace camjob {

namespace {

namespace fs = std::filesystem;
using report::FeatureState;
using report::PageFact;
using report::PageTable;

std::string Text(long value) {
    return std::to_string(value);
}

std::string IsoDate(const CalendarDate& date) {
    return ZetString::format(L"%04d-%02d-%02d", date.year, date.month, date.day).toUtf8();
}

std::vector<PageFact> ProjectFacts(const CProjectInformation& project) {
    const auto lines = [](const ZetArray<ZetString>& texts) {
        return Joined({texts.begin(), texts.end()}, L", ").toUtf8();
    };
    return {
        {"Project",       project.GetProjectName().toUtf8()      },
        {"Number",        project.GetProjectNo().toUtf8()        },
        {"Model",         project.GetModelName().toUtf8()        },
        {"Client",        project.GetClient().toUtf8()           },
        {"Order",         project.GetColdRolledOrderNo().toUtf8()},
        {"Detailer",      project.GetDetailer().toUtf8()         },
        {"Revision",      project.GetRevision().toUtf8()         },
        {"Revision date", project.GetRevisionDate().toUtf8()     },
        {"Delivery",      project.GetDeliveryDate().toUtf8()     },
        {"Comments",      lines(project.GetComments())           },
        {"Run on",        IsoDate(Today())                       },
    };
}

std::vector<PageFact> Totals(const RunReport& report) {
    long pieces = 0;
    long valid = 0;
    long withWarnings = 0;
    long nonStandard = 0;
    for (const RunGroup& group : report.groups) {
        pieces += group.result.pieces;
        valid += group.result.members - group.result.invalid;
        withWarnings += group.result.withWarnings;
        nonStandard += group.result.nonStandard;
    }
    long bars = 0;
    for (const RunPlan& plan : report.plans)
        bars += TotalsOf(plan.plan).bars;
    return {
        {"Members",       Text(static_cast<long>(report.members.size())) },
        {"Valid",         Text(valid)                                    },
        {"Invalid",       Text(report.CountInvalid())                    },
        {"With warnings", Text(withWarnings)                             },
        {"Non-standard",  Text(nonStandard)                              },
        {"Pieces",        Text(pieces)                                   },
        {"Bars",          report.plans.empty() ? "" : Text(bars)         },
        {"NC files read", Text(report.input.filesRead)                   },
        {"Features",      DescribeAccounts(report.SumAccounts()).toUtf8()},
    };
}

PageTable GroupTable(const RunReport& report) {
    PageTable table = {
        "Groups",
        {"Group",          "Members", "Invalid", "Pieces", "With warnings", "Non-standard"},
        {},
        ""
    };
    for (const RunGroup& group : report.groups)
        table.rows.push_back({group.name.toUtf8(),
                              Text(group.result.members),
                              Text(group.result.invalid),
                              Text(group.result.pieces),
                              Text(group.result.withWarnings),
                              Text(group.result.nonStandard)});
    return table;
}

report::PlanBar BarOf(const plugin::ProfilePlan& plan,
                      const cutting::PlannedBars& bars,
                      const std::vector<plugin::PieceOnBar>& pieces) {
    const job::Stock& stock = plan.stocks[bars.stock];
    report::PlanBar bar;
    bar.count = static_cast<long>(bars.bars);
    bar.length = stock.length;
    bar.gripEnd = stock.gripEnd;
    bar.offcut = plugin::Millimetres(bars.offCut);
    bar.isOffcutKept = IsKept(plan, bars);
    for (const plugin::PieceOnBar& piece : pieces)
        bar.pieces.push_back({plan.parts[piece.part].mark.toUtf8(),
                              plugin::Millimetres(piece.position),
                              plugin::Millimetres(piece.length)});
    return bar;
}

/// What the plan saves beside the usual ways to fill bars.
std::string SummaryOf(const plugin::ProfilePlan& plan) {
    constexpr double kPercent = 100.0;
    return (DescribeCost(plan, plan.plan.cost) + L", " + DescribeProof(plan) + L"; used " +
            Number(TotalsOf(plan).GetUtilisation() * kPercent) + L" %; longest pieces first: " +
            DescribeCost(plan, plan.firstFit) + L"; shortest first: " +
            DescribeCost(plan, plan.given))
        .toUtf8();
}

report::CuttingPlan PlanOf(const RunPlan& source) {
    const plugin::ProfilePlan& plan = source.plan;
    report::CuttingPlan shown;
    shown.title = (source.group + L": " + NameOfProfile(plan)).toUtf8();
    shown.summary = SummaryOf(plan);
    shown.firstBar = plan.firstBar;
    for (const cutting::PlannedBars& bars : plan.plan.bars)
        shown.bars.push_back(BarOf(plan, bars, plugin::BarWalk(plan).Next(bars)));
    return shown;
}

/// Names without the folder: the same output in another folder has the same page.
PageTable FileTable(const RunReport& report) {
    PageTable table = {
        "Files made", {"File",     "Bytes"},
         {          },
         ""
    };
    for (const RunFile& file : report.files)
        table.rows.push_back(
            {Utf8FromPath(PathFromUtf8(file.name).filename()), std::to_string(file.bytes)});
    return table;
}

PageTable LeftOutTable(const RunReport& report) {
    PageTable table = {
        "Files left out", {"File", "Line", "Why"},
         {     },
         ""
    };
    for (const RunFault& fault : report.leftOut)
        table.rows.push_back({fault.file, fault.line == 0 ? "" : Text(fault.line), fault.message});
    return table;
}

std::string Numbers(const std::vector<double>& values) {
    std::vector<ZetString> texts;
    for (const double value : values)
        texts.push_back(Number(value));
    return texts.empty() ? "any" : Joined(texts, L", ").toUtf8();
}

PageTable HoleRuleTable(const job::Job& job) {
    PageTable table = {
        "Hole rules that judged", {"Rule",        "Diameters", "Back marks", "Code"},
         {   },
         ""
    };
    for (const job::HoleRule& rule : job.holeRules)
        table.rows.push_back({rule.id.toUtf8(),
                              Numbers(rule.diameters),
                              Numbers(rule.backMarks),
                              rule.code.toUtf8()});
    return table;
}

PageTable MemberTypeTable(const job::Job& job) {
    PageTable table = {
        "Member types", {"Type",     "Profile", "Code", "Group"},
         {},
         ""
    };
    for (const job::MemberType& type : job.memberTypes)
        table.rows.push_back({type.id.toUtf8(),
                              type.profilePattern.toUtf8(),
                              type.codePattern.toUtf8(),
                              type.isSkipped ? "left out" : job.groups[type.group].id.toUtf8()});
    return table;
}

FeatureState StateOf(const plugin::MemberOutcome& outcome) {
    if (!outcome.isValid)
        return FeatureState::kError;
    return outcome.hasWarnings ? FeatureState::kWarning : FeatureState::kInOrder;
}

/// What the job wants to have told, the errors first.
std::vector<report::DrawnFinding> FindingsOf(const plugin::MemberResult& result) {
    std::vector<report::DrawnFinding> findings;
    for (const plugin::Finding& finding : result.findings) {
        const bool isWarning = finding.report == eReportingWarning ||
                               finding.report == eReportingSecondWarning ||
                               finding.report == eReportingDefault;
        if (finding.IsError() || isWarning)
            findings.push_back({finding.IsError() ? FeatureState::kError : FeatureState::kWarning,
                                finding.text.toUtf8(),
                                finding.feature ? finding.feature->tag : 0});
    }
    std::stable_partition(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.state == FeatureState::kError;
    });
    return findings;
}

PageTable NoteTable(const RunReport& report) {
    PageTable table = {
        "What the reader of the NC files says", {"File",  "Line", "Text"},
         {      },
         ""
    };
    for (const RunNote& note : report.notes)
        table.rows.push_back({Utf8FromPath(PathFromUtf8(note.file).filename()),
                              note.note.line == 0 ? "" : Text(note.note.line),
                              note.note.text.toUtf8()});
    return table;
}

}  // namespace

void ReportPage::Draw(const dstv::NcFileEntity& entity,
                      const plugin::JobMember& member,
                      const job::MemberType& type,
                      const ZetNCCreator& creator) {
    const report::MemberDrawing drawing =
        DrawingOf(entity, ReportOf(entity, creator, member, type));
    m_members.push_back({drawing.length, m_page.Compact(drawing)});
}

/// Files are named from the job's folder, wherever the run was started.
void ReportPage::AddMembers(const RunReport& report) {
    const fs::path folder = PathFromUtf8(m_job.file).parent_path();
    for (std::size_t i = 0; i < report.members.size(); ++i) {
        const auto& [result, file, accounts] = report.members[i];
        Member& drawn = m_members[i];
        report::PageMember member;
        member.mark = result.mark.toUtf8();
        member.profile = result.profileName.toUtf8();
        member.length = drawn.length;
        member.quantity = result.quantity;
        member.group = m_job.groups[result.group].id.toUtf8();
        member.file =
            Utf8FromPath(PathFromUtf8(file).lexically_proximate(folder).generic_u8string());
        member.state = StateOf(result.outcome);
        member.isNonStandard = result.outcome.isNonStandard;
        member.findings = FindingsOf(result);
        member.accounts = DescribeAccounts(accounts).toUtf8();
        member.drawing = std::move(drawn.drawing);
        m_page.AddMember(member);
    }
}

std::string ReportPage::MakeHtml(const RunReport& report, const CProjectInformation& project) {
    m_page.name = m_job.name.toUtf8();
    m_page.project = ProjectFacts(project);
    m_page.totals = Totals(report);
    m_page.tables = {GroupTable(report),
                     FileTable(report),
                     LeftOutTable(report),
                     NoteTable(report),
                     MemberTypeTable(m_job),
                     HoleRuleTable(m_job)};
    std::transform(
        report.plans.begin(), report.plans.end(), std::back_inserter(m_page.plans), &PlanOf);
    AddMembers(report);
    return m_page.ToHtml();
}

}  // namespace camjob
