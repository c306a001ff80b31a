#include "camjob/run/RunText.h"

#include "camjob/check/FindingText.h"
#include "camjob/compare/ChangesText.h"
#include "camjob/console/ReportText.h"
#include "camjob/console/ShownText.h"
#include "camjob/console/TextTable.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

namespace camjob {

namespace {

using Align = TextTable::Align;

constexpr double kMillimetresAMetre = 1000.0;
constexpr double kPercent = 100.0;

/// Members with errors that are listed; the error file has all of them.
constexpr long kMaxListedMembers = 20;

ZetString InputLine(const RunReport& report) {
    std::vector<ZetString> parts = {Count(report.input.filesRead, L"file") + L" read"};
    if (report.input.skipped > 0)
        parts.push_back(Integer(report.input.skipped) + L" left out");
    if (report.input.notes > 0)
        parts.push_back(Count(report.input.notes, L"note"));
    if (report.input.warnings > 0)
        parts.push_back(Count(report.input.warnings, L"warning") + L" of the reader");
    const ZetString name = report.name.isEmpty() ? ZetString::fromUtf8(report.job) : report.name;
    return OneLine(name) + L": " + Joined(parts, L", ") + L"\n";
}

void AddGroupRow(TextTable& table, const ZetString& name, const plugin::GroupResult& group) {
    table.AddRow({name,
                  Integer(group.members),
                  Integer(group.invalid),
                  Integer(group.steel.pieces),
                  group.steel.ShowMetres(),
                  group.steel.ShowTonnes(),
                  Integer(group.withWarnings),
                  Integer(group.nonStandard)},
                 group.invalid > 0        ? Tone::kError
                 : group.withWarnings > 0 ? Tone::kWarning
                                          : Tone::kPlain);
}

ZetString GroupTable(const RunReport& report, const Terminal& terminal) {
    TextTable table({
        {L"group",         Align::kLeft },
        {L"members",       Align::kRight},
        {L"invalid",       Align::kRight},
        {L"pieces",        Align::kRight},
        {L"metres",        Align::kRight},
        {L"tonnes",        Align::kRight},
        {L"with warnings", Align::kRight},
        {L"non-standard",  Align::kRight}
    });
    for (const RunGroup& group : report.groups)
        AddGroupRow(table, group.name, group.result);
    AddGroupRow(table, L"all", report.SumGroups());
    return table.Format(terminal);
}

ZetString ProfileTable(const RunReport& report, const Terminal& terminal) {
    TextTable table({
        {L"profile", Align::kLeft },
        {L"pieces",  Align::kRight},
        {L"metres",  Align::kRight},
        {L"tonnes",  Align::kRight}
    });
    bool isAnyUnweighed = false;
    for (const plugin::ProfileResult& profile : report.profiles) {
        table.AddRow({OneLine(profile.profileName),
                      Integer(profile.steel.pieces),
                      profile.steel.ShowMetres(),
                      profile.steel.ShowTonnes()});
        isAnyUnweighed = isAnyUnweighed || profile.steel.unweighed > 0;
    }
    return table.Format(terminal) + (isAnyUnweighed
                                         ? Line(L"?: not every NC file tells its weight per metre")
                                         : ZetString());
}

ZetString NestTable(const RunReport& report, const Terminal& terminal) {
    ZetString uncut;
    bool hasRemnants = false;
    TextTable table({
        {L"bars of group", Align::kLeft },
        {L"profile",       Align::kLeft },
        {L"plan",          Align::kLeft },
        {L"pieces m",      Align::kRight},
        {L"used %",        Align::kRight},
        {L"takes",         Align::kRight},
        {L"at least",      Align::kRight},
        {L"first fit",     Align::kRight},
        {L"given",         Align::kRight}
    });
    for (const auto& [group, plan] : report.plans) {
        const plugin::PlanTotals totals = TotalsOf(plan);
        table.AddRow({group,
                      OneLine(NameOfProfile(plan)),
                      plan.kind == job::BarPlan::kLeast ? L"least" : L"given",
                      Number(totals.pieceLength / kMillimetresAMetre),
                      Number(totals.GetUtilisation() * kPercent),
                      DescribeCost(plan, plan.plan.cost),
                      DescribeCost(plan, plan.GetBound()),
                      DescribeCost(plan, plan.firstFit),
                      DescribeCost(plan, plan.given)});
        hasRemnants = hasRemnants || HasRemnants(plan);
        if (totals.uncut > 0)
            uncut += Line(Count(totals.uncut, L"piece") + L" of " + OneLine(NameOfProfile(plan)) +
                          (totals.uncut == 1 ? L" has" : L" have") +
                          L" no bar, none is long enough or left: " + OneLine(DescribeUncut(plan)));
    }
    const ZetString text = table.Format(terminal);
    if (text.isEmpty())
        return text;
    return text +
           Line(
               L"at least: no plan takes less; first fit: longest pieces first; given: shortest "
               L"pieces first") +
           (hasRemnants ? Line(L"of remnants half the length or price counts") : ZetString()) +
           uncut;
}

/// Single parts that assemblies do not come out even with.
ZetString SinglePartTable(const RunReport& report, const Terminal& terminal) {
    TextTable table({
        {L"single part", Align::kLeft },
        {L"ordered",     Align::kRight},
        {L"left over",   Align::kRight},
        {L"missing",     Align::kRight}
    });
    for (const RunMember& member : report.members) {
        const long left = member.result.left;
        if (left == 0)
            continue;
        table.AddRow({OneLine(member.result.mark),
                      Integer(member.result.quantity),
                      Integer(std::max(left, 0L)),
                      Integer(std::max(-left, 0L))});
    }
    return table.Format(terminal);
}

struct UnmadeMember {
    ZetString mark;
    std::string file;
    plugin::AccountNumbers accounts;
    const wchar_t* reason;
};

std::vector<UnmadeMember> UnmadeMembers(const RunReport& report) {
    std::vector<UnmadeMember> unmade;
    for (const RunMember& member : report.members)
        if (!member.result.IsMade())
            unmade.push_back({member.result.mark,
                              member.file.name,
                              member.CountAccounts(),
                              member.result.outcome.isValid ? L"no pieces" : L"invalid"});
    for (const RunUnmadeFile& file : report.unmadeFiles)
        unmade.push_back({file.mark, file.file, file.accounts, L"left out"});
    return unmade;
}

/// Members that are not in the machine files, with the features that are not made with them.
ZetString UnmadeTable(const RunReport& report, const Terminal& terminal) {
    const std::vector<UnmadeMember> unmade = UnmadeMembers(report);
    if (unmade.empty())
        return {};
    TextTable table({
        {L"not made", Align::kLeft },
        {L"because",  Align::kLeft },
        {L"features", Align::kRight},
        {L"file",     Align::kLeft }
    });
    const long count = static_cast<long>(unmade.size());
    for (long i = 0; i < std::min(count, kMaxListedMembers); ++i) {
        const UnmadeMember& member = unmade[static_cast<std::size_t>(i)];
        table.AddRow({OneLine(member.mark),
                      member.reason,
                      Integer(member.accounts[plugin::Account::kNotMade]),
                      OneLine(ZetString::fromUtf8(member.file))},
                     Tone::kError);
    }
    return table.Format(terminal) + MoreLine(count - kMaxListedMembers);
}

ZetString WhereLine(const MemberFile& file, const plugin::Finding& finding) {
    const ZetString name = OneLine(ZetString::fromUtf8(file.name));
    const long number = LineOf(finding, file.lines);
    const ZetString line = number > 0 ? ZetString::format(L":%d", number) : L"";
    return Line(name + line + L": " + OneLine(Describe(finding)));
}

/// Which findings are listed together, under which heading.
struct FindingList {
    const wchar_t* heading;
    job::FileRole file;  ///< that has the members' blocks
    bool areErrors;
    long most;
};

constexpr FindingList kErrorList = {
    L"why invalid or short of parts, and what to do; the members' blocks are in ",
    job::kErrorFile,
    true,
    30};
/// There may be many, on members that are made.
constexpr FindingList kWarningList = {
    L"warnings, and what to do; the members' blocks are in ", job::kWarningFile, false, 10};

/// Where the findings stand, and for each kind what can be done.
ZetString FindingLines(const RunReport& report, const FindingList& list) {
    ZetString lines;
    std::set<int> types;
    long count = 0;
    for (const RunMember& member : report.members)
        for (const plugin::Finding& finding : member.result.findings)
            if (finding.IsPrinted() && finding.IsError() == list.areErrors &&
                ++count <= list.most) {
                lines += WhereLine(member.file, finding);
                types.insert(finding.type);
            }
    if (count == 0)
        return {};
    lines += MoreLine(count - list.most) + RemedyLines(types);
    const ZetString file = OneLine(ZetString::fromUtf8(report.files[list.file].name));
    return Line(list.heading + file) + lines;
}

/// By Account.
constexpr std::array kAccountWords = {
    L"made", L"refused", L"not made", L"set aside", L"noted", L"not for this machine"};
static_assert(kAccountWords.size() == plugin::kAccountCount);

ZetString LeftOutLines(const RunReport& report) {
    ZetString lines;
    for (const RunFault& file : report.leftOut)
        lines += Line(OneLine(ZetString::fromUtf8(file.message)));
    return lines.isEmpty() ? lines : Line(L"files left out") + lines;
}

ZetString QuotedLine(const ZetString& text) {
    std::wstring line = L"\"";
    for (const wchar_t c : text.view())
        line += c == L'\n' ? L"/ " : c == L'\r' ? L" " : std::wstring(1, c);
    return ZetString(std::move(line)) + L"\"";
}

ZetString DescribeSetting(const TakenSetting& setting) {
    const ZetString said =
        setting.ofJob.isEmpty() ? ZetString(L"nothing") : QuotedLine(setting.ofJob);
    return ZetString::fromUtf8(setting.key) + L" = " + QuotedLine(setting.value) + L", changed " +
           ZetString::fromUtf8(setting.since) + L"; the job says " + said +
           (setting.isCertain ? L"" : L" (what it said then is not known)");
}

/// A line for each value that does not come from the job.
ZetString SettingLines(const RunReport& report) {
    ZetString lines;
    for (const TakenSetting& setting : report.settings)
        lines += Line(DescribeSetting(setting));
    return lines.isEmpty() ? lines
                           : L"taken from " + OneLine(ZetString::fromUtf8(report.settingsFile)) +
                                 L" instead of the job\n" + lines;
}

ZetString ChangesOf(const RunReport& report, const Terminal& terminal) {
    if (!report.changes)
        return {};
    OutputChanges changes = *report.changes;
    changes.against = report.NameAgainst();
    return (report.repeatsChanges
                ? ZetString(L"nothing has changed since the last run, which told:\n")
                : ZetString()) +
           ChangesText(changes, kMaxListedMembers, terminal);
}

ZetString FileTable(const RunReport& report, const Terminal& terminal) {
    TextTable table({
        {L"file made", Align::kLeft },
        {L"bytes",     Align::kRight}
    });
    for (const RunFile& file : report.FoldFiles())
        table.AddRow({OneLine(ZetString::fromUtf8(file.name)),
                      Integer(static_cast<long>(file.bytes.value_or(0)))});
    return table.Format(terminal);
}

void WriteMessage(const std::string& text, OutputStream& err, Tone tone = Tone::kPlain) {
    WriteLine(err, ZetString::fromUtf8(text), tone);
}

/// Warnings for which the job refuses a file are told as faults.
void WriteNotes(const RunReport& report, bool showsNotes, OutputStream& err) {
    std::set<std::string> faults;
    for (const RunFault& fault : report.faults)
        faults.insert(fault.message);
    for (const RunNote& note : report.notes) {
        const std::string text = DescribeNote(note);
        const bool isWarning = note.note.severity == dstv::NcNote::Severity::kWarning;
        if ((showsNotes || isWarning) && faults.count(DescribeRefusedNote(note)) == 0)
            WriteMessage(text, err, isWarning ? Tone::kWarning : Tone::kPlain);
    }
}

/// How the run ended, when it did not come to its end.
std::string ClosingMessage(const RunReport& report) {
    switch (report.status) {
        case RunStatus::kRefused:
            return "camjob: nothing was written";
        case RunStatus::kCancelled:
            return "camjob: stopped; the output in " + report.folder + " is as it was";
        case RunStatus::kFault:
            return "camjob: this is a fault of this program; the output in " + report.folder +
                   " is as it was";
        case RunStatus::kDeclined:
            return "camjob: the dialog was cancelled; nothing was written";
        default:
            return {};
    }
}

}  // namespace

ZetString DescribeAccounts(const plugin::AccountNumbers& accounts) {
    std::vector<ZetString> parts;
    for (std::size_t i = 0; i < kAccountWords.size(); ++i)
        if (accounts.features[i] > 0 || i == 0)
            parts.push_back(
                ZetString::format(L"%d %s", accounts.features[i], ZetString(kAccountWords[i])));
    return Count(accounts.Sum(), L"feature") + L": " + Joined(parts, L", ");
}

void WriteRunText(const RunReport& report, bool showsNotes, OutputStream& out, OutputStream& err) {
    const Terminal terminal = out.GetTerminal();
    if (report.hasFinishedEarlierOutput)
        WriteMessage("camjob: finished the output of an earlier run in " + report.folder +
                         ", which was cut off",
                     err);
    WriteNotes(report, showsNotes, err);
    for (const RunFault& fault : report.faults)
        WriteMessage(fault.message, err, Tone::kError);
    if (report.status != RunStatus::kDone)
        WriteText(err, SettingLines(report));
    if (report.status == RunStatus::kDone && !report.uncompared.empty())
        WriteMessage("camjob: " + report.uncompared + "; what has changed is not told", err);
    if (report.status == RunStatus::kDone)
        WriteText(out,
                  Paragraphs({InputLine(report),
                              SettingLines(report),
                              LeftOutLines(report),
                              GroupTable(report, terminal),
                              UnmadeTable(report, terminal),
                              FindingLines(report, kErrorList),
                              FindingLines(report, kWarningList),
                              ProfileTable(report, terminal),
                              SinglePartTable(report, terminal),
                              NestTable(report, terminal),
                              ChangesOf(report, terminal),
                              FileTable(report, terminal),
                              DescribeAccounts(report.SumAccounts()) + L"\n"}));
    else if (const std::string closing = ClosingMessage(report); !closing.empty())
        WriteMessage(closing, err);
}

}  // namespace camjob
