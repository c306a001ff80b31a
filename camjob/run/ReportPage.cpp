#include "camjob/run/ReportPage.h"

#include "camjob/compare/ChangeRows.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ReportText.h"
#include "camjob/run/FeatureWords.h"
#include "camjob/run/RuleTables.h"
#include "camjob/run/RunText.h"
#include "camjob/show/PartDrawing.h"
#include "job/Job.h"
#include "report/drawing/DrawingText.h"
#include "report/page/RunPage.h"

#include "camdata/platform/system/Clock.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

using report::FeatureState;
using report::PageFact;
using report::PageTable;

/// A system may give a file any bytes for a name; a page has characters.
std::string FileText(const std::string& name) {
    return ZetString::fromUtf8(name).toUtf8();
}

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

/// What the plans save beside the given order; nothing where that is the plan or pieces are left.
std::string SavingOf(const RunReport& report) {
    std::map<plugin::PlanUnit, const plugin::ProfilePlan*> planOfUnit;
    std::map<plugin::PlanUnit, cutting::Cost> savings;
    for (const RunPlan& plan : report.plans) {
        planOfUnit[plan.plan.unit] = &plan.plan;
        savings[plan.plan.unit] += plan.plan.GetSaving();
    }
    std::vector<ZetString> texts;
    for (const auto& [unit, saving] : savings)
        if (saving > 0)
            texts.push_back(DescribeCost(*planOfUnit[unit], saving));
    return Joined(texts, L" and ").toUtf8();
}

std::vector<PageFact> Totals(const RunReport& report) {
    const plugin::GroupResult sum = report.SumGroups();
    long bars = 0;
    for (const RunPlan& plan : report.plans)
        bars += TotalsOf(plan.plan).bars;
    return {
        {"Members",       Text(static_cast<long>(report.members.size())) },
        {"Valid",         Text(sum.members - sum.invalid)                },
        {"Invalid",       Text(sum.invalid)                              },
        {"With warnings", Text(sum.withWarnings)                         },
        {"Non-standard",  Text(sum.nonStandard)                          },
        {"Pieces",        Text(sum.steel.pieces)                         },
        {"Metres",        sum.steel.ShowMetres().toUtf8()                },
        {"Tonnes",        sum.steel.ShowTonnes().toUtf8()                },
        {"Bars",          report.plans.empty() ? "" : Text(bars)         },
        {"Plans save",    SavingOf(report)                               },
        {"NC files read", Text(report.input.filesRead)                   },
        {"Features",      DescribeAccounts(report.SumAccounts()).toUtf8()},
    };
}

PageTable GroupTable(const RunReport& report) {
    PageTable table = {
        "Groups",
        {"Group",
          "Members", "Invalid",
          "Pieces", "Metres",
          "Tonnes", "With warnings",
          "Non-standard"},
        { },
        ""
    };
    table.firstNumber = 1;
    const auto add = [&](const ZetString& name, const plugin::GroupResult& group) {
        table.rows.push_back({name.toUtf8(),
                              Text(group.members),
                              Text(group.invalid),
                              Text(group.steel.pieces),
                              group.steel.ShowMetres().toUtf8(),
                              group.steel.ShowTonnes().toUtf8(),
                              Text(group.withWarnings),
                              Text(group.nonStandard)});
    };
    for (const RunGroup& group : report.groups)
        add(group.name, group.result);
    add(L"all", report.SumGroups());
    return table;
}

PageTable ProfileTable(const RunReport& report) {
    PageTable table = {
        "Steel by profile", {"Profile",  "Pieces", "Metres", "Tonnes"},
         {},
         ""
    };
    table.firstNumber = 1;
    for (const plugin::ProfileResult& profile : report.profiles)
        table.rows.push_back({profile.profileName.toUtf8(),
                              Text(profile.steel.pieces),
                              profile.steel.ShowMetres().toUtf8(),
                              profile.steel.ShowTonnes().toUtf8()});
    return table;
}

report::PlanBar BarOf(const plugin::ProfilePlan& plan,
                      const cutting::PlannedBars& bars,
                      const std::vector<plugin::PieceOnBar>& pieces) {
    const plugin::BarStock& stock = plan.stocks[bars.stock];
    report::PlanBar bar;
    bar.count = static_cast<long>(bars.bars);
    bar.length = stock.length;
    if (stock.remnant)
        bar.remnant = stock.name.isEmpty() ? "remnant" : "remnant " + stock.name.toUtf8();
    bar.kerf = stock.kerf;
    bar.gripEnd = stock.gripEnd;
    bar.offcut = plugin::Millimetres(bars.offCut);
    bar.isOffcutKept = IsKept(plan, bars);
    for (const plugin::PieceOnBar& piece : pieces)
        bar.pieces.push_back({plan.parts[piece.part].mark,
                              plugin::Millimetres(piece.position),
                              plugin::Millimetres(piece.length)});
    return bar;
}

/// What the plan saves beside the usual ways to fill bars, or what it lacks.
std::string SummaryOf(const plugin::ProfilePlan& plan) {
    if (!plan.IsComplete())
        return (DescribeCost(plan, plan.plan.cost) + L"; no bar is long enough or left for " +
                DescribeUncut(plan))
            .toUtf8();
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
    plugin::BarWalk walk(plan);
    for (const cutting::PlannedBars& bars : plan.plan.bars)
        shown.bars.push_back(BarOf(plan, bars, walk.Next(bars)));
    return shown;
}

/// Lengths in mm; weight in kg, where the NC files tell it.
std::vector<std::string> TotalsRow(const std::string& group,
                                   const std::string& profile,
                                   const plugin::PlanTotals& totals,
                                   std::optional<double> weight) {
    constexpr double kPercent = 100.0;
    const auto text = [](double value) { return report::Number(value, 1); };
    return {group,
            profile,
            Text(totals.bars),
            text(totals.barLength),
            Text(totals.pieces),
            text(totals.pieceLength),
            text(totals.GetUtilisation() * kPercent),
            text(totals.kerfLoss),
            text(totals.kept),
            text(totals.scrapped),
            weight ? text(*weight) : "",
            totals.uncut > 0 ? Text(totals.uncut) : ""};
}

PageTable PlanTotalsTable(const RunReport& report) {
    constexpr double kMillimetresAMetre = 1000.0;
    PageTable table = {
        "Totals of the cutting plans, mm and kg",
        {"Group",
          "Profile", "Bars",
          "Length", "Pieces",
          "Length of pieces", "Used %",
          "Saw cuts", "Off-cuts kept",
          "Scrapped", "Weight",
          "Not cut"},
        {},
        ""
    };
    table.firstNumber = 2;
    plugin::PlanTotals sum;
    std::optional<double> weight = 0.0;
    for (const RunPlan& plan : report.plans) {
        const plugin::PlanTotals totals = TotalsOf(plan.plan);
        const double perMetre = plan.plan.weightPerMetre;
        const double ofPlan = perMetre * totals.barLength / kMillimetresAMetre;
        table.rows.push_back(TotalsRow(plan.group.toUtf8(),
                                       NameOfProfile(plan.plan).toUtf8(),
                                       totals,
                                       perMetre > 0.0 ? std::optional(ofPlan) : std::nullopt));
        sum += totals;
        weight = weight && perMetre > 0.0 ? std::optional(*weight + ofPlan) : std::nullopt;
    }
    table.rows.push_back(TotalsRow("all", "", sum, weight));
    return table;
}

/// Names without the folder: the same output in another folder has the same page.
PageTable FileTable(const RunReport& report) {
    PageTable table = {
        "Files made", {"File",     "Bytes"},
         {          },
         ""
    };
    table.firstNumber = 1;
    for (const RunFile& file : report.files)
        table.rows.push_back({report.WithinFolder(file.name),
                              file.bytes ? std::to_string(*file.bytes) : "this page"});
    return table;
}

/// The place has columns of its own.
std::string TextBehindPlace(const RunFault& fault) {
    const std::string text = fault.TextBehindFile();
    const std::size_t start = text.find_first_not_of(":0123456789 ");
    return start == std::string::npos ? text : text.substr(start);
}

PageTable LeftOutTable(const RunReport& report, const job::Job& job) {
    PageTable table = {
        "Files left out", {"File", "Line", "Why"},
         {     },
         ""
    };
    for (const RunFault& fault : report.leftOut)
        table.rows.push_back({FileText(NameFromFolderOf(job.file, fault.file)),
                              fault.line == 0 ? "" : Text(fault.line),
                              TextBehindPlace(fault)});
    return table;
}

FeatureState StateOf(const plugin::MemberOutcome& outcome) {
    if (!outcome.isValid)
        return FeatureState::kError;
    return outcome.hasWarnings ? FeatureState::kWarning : FeatureState::kInOrder;
}

/// What an earlier dialog changed.
PageTable SettingTable(const RunReport& report) {
    PageTable table = {
        "Settings that counted instead of the job",
        {"What",     "Value", "Changed", "The job says"},
        { },
        ""
    };
    for (const TakenSetting& setting : report.settings)
        table.rows.push_back({setting.key,
                              OneLine(setting.value).toUtf8(),
                              setting.since,
                              OneLine(setting.ofJob).toUtf8()});
    return table;
}

PageTable NoteTable(const RunReport& report) {
    PageTable table = {
        "Notes and warnings on the NC files", {"File",  "Line", "Text"},
         {      },
         ""
    };
    for (const RunNote& note : report.notes)
        table.rows.push_back({FileText(Utf8FromPath(PathFromUtf8(note.file).filename())),
                              note.note.line == 0 ? "" : Text(note.note.line),
                              note.note.text.toUtf8()});
    return table;
}

/// Where a feature lay in an earlier output; null when the member has no such face any more.
std::optional<report::DrawnFeature> EarlierFeature(const OutputFeature& feature,
                                                   const report::MemberDrawing& drawing) {
    const auto face = std::find_if(drawing.faces.begin(),
                                   drawing.faces.end(),
                                   [&](const auto& each) { return each.name == feature.face; });
    if (face == drawing.faces.end())
        return std::nullopt;
    report::DrawnFeature drawn;
    drawn.kind = KindOfWord(feature.kind);
    drawn.state = FeatureState::kSetAside;
    drawn.face = static_cast<std::size_t>(face - drawing.faces.begin());
    drawn.at = {feature.xInFile, feature.yInFile};
    drawn.told = {feature.x, feature.y};
    drawn.size = feature.size;
    drawn.length = feature.length;
    drawn.angle = feature.angle;
    drawn.shape = feature.kind;
    drawn.code = feature.code;
    return drawn;
}

void AddChanges(const MemberChange& change,
                const report::MemberDrawing& drawing,
                report::RunPage& page,
                report::PageMember& member) {
    for (const ChangeRow& row : RowsOf(change))
        member.changes.push_back({row.what, row.before, row.after});
    std::vector<report::DrawnFeature> earlier;
    for (const FeatureChange& feature : change.features)
        if (feature.before && feature.kind != FeatureChangeKind::kRecoded &&
            !feature.before->IsOutline())
            if (auto drawn = EarlierFeature(*feature.before, drawing))
                earlier.push_back(*std::move(drawn));
    member.earlier = page.Compact(earlier);
}

/// Why there is nothing to tell.
std::string NoChanges(const RunReport& report) {
    if (!report.uncompared.empty())
        return "Not known: " + report.uncompared + ".";
    return report.repeatsChanges ? "Nothing, as far as runs in this folder tell."
                                 : "There was no earlier output in this folder.";
}

/// Of the members, then of the bars.
std::vector<PageTable> ChangeTables(const RunReport& report) {
    if (!report.changes)
        return {
            {"What has changed", {}, {}, NoChanges(report)}
        };
    const OutputChanges& changes = *report.changes;
    const std::string title =
        "What has changed against " + report.NameAgainst() + ": " + DescribeChanges(changes);
    PageTable members = {
        title, {"Member",   "What", "Before", "Now"},
         {},
         "No member differs.", true
    };
    PageTable bars = {
        "Bars that have changed", {"Bars",     "What", "Before", "Now"},
         {},
         ""
    };
    for (const MemberChange& change : changes.members)
        for (const ChangeRow& row : RowsOf(change))
            members.rows.push_back({row.name, row.what, row.before, row.after});
    for (const BarChange& change : changes.bars) {
        const ChangeRow row = RowOf(change);
        bars.rows.push_back({row.name, row.what, row.before, row.after});
    }
    return {members, bars};
}

report::PageMember PageMemberOf(const RunReport& report,
                                std::size_t index,
                                long uncut,
                                const job::Job& job,
                                NamesFromFolder& names) {
    const RunMember& source = report.members[index];
    const plugin::MemberResult& result = source.result;
    report::PageMember member;
    member.mark = result.mark.toUtf8();
    member.profile = result.profileName.toUtf8();
    member.material = report.drawings.GetMaterial(index);
    member.length = report.drawings.GetLength(index);
    member.quantity = result.quantity;
    member.group = job.groups[result.group].id.toUtf8();
    member.file = FileText(names.Of(source.file.name));
    member.state = StateOf(result.outcome);
    member.isNonStandard = result.outcome.isNonStandard;
    member.uncut = uncut;
    member.findings = DrawnFindings(result.findings, source.file.lines);
    // What is an error to the job leaves a member with warnings that is made all the same.
    for (report::DrawnFinding& finding : member.findings)
        if (result.outcome.isValid)
            finding.state = std::min(finding.state, FeatureState::kWarning);
    member.accounts = DescribeAccounts(source.CountAccounts()).toUtf8();
    member.drawing = report.drawings.GetCompact(index);
    return member;
}

}  // namespace

ReportPage::ReportPage(const RunReport& report,
                       const job::Job& job,
                       const CProjectInformation& project)
    : m_report(report), m_job(job), m_project(project), m_page(report.drawings.GetTexts()) {}

void ReportPage::AddMembersAndPlans() {
    for (const RunPlan& plan : m_report.plans)
        m_page.AddPlan(PlanOf(plan));
    std::unordered_map<std::string, const MemberChange*> changeOfMark;
    if (m_report.changes)
        for (const MemberChange& change : m_report.changes->members)
            changeOfMark.insert({change.mark, &change});
    const std::vector<long> uncut = m_report.FindUncut();
    NamesFromFolder names(m_job.file);
    for (std::size_t i = 0; i < m_report.members.size(); ++i) {
        report::PageMember member = PageMemberOf(m_report, i, uncut[i], m_job, names);
        const auto change = changeOfMark.find(member.mark);
        if (change != changeOfMark.end())
            AddChanges(*change->second, m_report.drawings.Get(i), m_page, member);
        m_page.AddMember(std::move(member));
    }
}

void ReportPage::AddTables() {
    m_page.name = m_job.name.toUtf8();
    m_page.project = ProjectFacts(m_project);
    m_page.totals = Totals(m_report);
    m_page.tables = {GroupTable(m_report),
                     ProfileTable(m_report),
                     FileTable(m_report),
                     LeftOutTable(m_report, m_job),
                     NoteTable(m_report),
                     SettingTable(m_report)};
    m_page.rules = RuleTables(m_job);
    m_page.planTotals = PlanTotalsTable(m_report);
    m_page.changes = ChangeTables(m_report);
}

void ReportPage::Write(OutputStream& out) {
    AddTables();
    m_page.Write([&](std::string_view text) { out.Write(text); });
}

}  // namespace camjob
