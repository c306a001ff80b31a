#include "camjob/run/RunJson.h"

#include "camjob/compare/ChangesJson.h"
#include "camjob/compare/RunDocument.h"
#include "threads/OrderedWork.h"

#include <array>

namespace camjob {

namespace {

/// By the value of RunStatus.
constexpr std::array kStatusWords = {"done", "refused", "cancelled", "failed", "declined", "fault"};

Json SettingJson(const TakenSetting& setting) {
    return {
        {"key",     setting.key           },
        {"value",   setting.value.toUtf8()},
        {"since",   setting.since         },
        {"job",     setting.ofJob.toUtf8()},
        {"certain", setting.isCertain     },
    };
}

Json InputJson(const RunInput& input) {
    return {
        {"filesRead", input.filesRead},
        {"skipped",   input.skipped  },
        {"notes",     input.notes    },
        {"warnings",  input.warnings },
    };
}

/// By the value of plugin::PlanUnit.
constexpr std::array kUnitWords = {"bars", "mm", "price"};

Json WeightJson(const plugin::SteelTotals& steel) {
    const std::optional<double> weight = steel.GetWeight();
    return weight ? Json(*weight) : Json();
}

JsonText PieceJson(const plugin::ProfilePlan& plan, const plugin::PieceOnBar& piece) {
    JsonObject object;
    object.Set("position", plugin::Millimetres(piece.position));
    object.Set("mark", plan.parts[piece.part].mark);
    object.Set("member", plan.parts[piece.part].member);
    object.Set("piece", piece.number);
    object.Set("length", plugin::Millimetres(piece.length));
    return object.ToText();
}

Json CostJson(const plugin::ProfilePlan& plan, std::optional<cutting::Cost> cost) {
    return cost ? Json(CostNumber(plan, *cost)) : Json();
}

Json UncutJson(const plugin::ProfilePlan& plan) {
    Json parts = Json::array();
    for (std::size_t part = 0; part < plan.plan.uncut.size(); ++part)
        if (plan.plan.uncut[part] > 0)
            parts.push_back({
                {"mark",   plan.parts[part].mark                        },
                {"member", plan.parts[part].member                      },
                {"pieces", plan.plan.uncut[part]                        },
                {"length", plugin::Millimetres(plan.demand[part].length)},
            });
    return parts;
}

JsonText EntryJson(const plugin::ProfilePlan& plan,
                   const cutting::PlannedBars& bars,
                   long firstBar,
                   const std::vector<plugin::PieceOnBar>& onBar) {
    const plugin::BarStock& stock = plan.stocks[bars.stock];
    JsonArray pieces;
    for (const plugin::PieceOnBar& piece : onBar)
        pieces.Add(PieceJson(plan, piece));
    JsonObject object;
    object.Set("bar", firstBar);
    object.Set("count", bars.bars);
    object.Set("stock", stock.length);
    object.Set("kerf", stock.kerf);
    object.Set("remnant", stock.remnant ? Json(stock.name.toUtf8()) : Json());
    object.Set("offCut", plugin::Millimetres(bars.offCut));
    object.Set("kept", IsKept(plan, bars));
    object.Set("pieces", pieces.ToText());
    return object.ToText();
}

/// Bars that are cut alike are one entry, with the pieces of its first bar.
JsonText EntriesJson(const plugin::ProfilePlan& plan) {
    JsonArray entries;
    plugin::BarWalk walk(plan);
    long bar = plan.firstBar;
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        entries.Add(EntryJson(plan, bars, bar, walk.Next(bars)));
        walk.Skip(bars, bars.bars - 1);
        bar += static_cast<long>(bars.bars);
    }
    return entries.ToText();
}

}  // namespace

Json RunJsonWriter::ToJson(const RunFault& fault) {
    return {
        {"file",    NameOf(fault.file)                                                        },
        {"line",    fault.line                                                                },
        {"column",  fault.column                                                              },
        {"message", m_isDocument ? NameOf(fault.file) + fault.TextBehindFile() : fault.message},
    };
}

Json RunJsonWriter::ToJson(const RunNote& note) {
    const bool isWarning = note.note.severity == dstv::NcNote::Severity::kWarning;
    return {
        {"file",     NameOf(note.file)             },
        {"line",     note.note.line                },
        {"severity", isWarning ? "warning" : "note"},
        {"text",     note.note.text.toUtf8()       },
    };
}

Json RunJsonWriter::ToJson(const RunUnmadeFile& file) {
    return {
        {"file",     NameOf(file.file)          },
        {"mark",     file.mark.toUtf8()         },
        {"accounts", AccountsJson(file.accounts)},
    };
}

Json RunJsonWriter::ToJson(const RunFile& file) const {
    return {
        {"name",  m_isDocument ? m_report->WithinFolder(file.name) : file.name},
        {"bytes", file.bytes ? Json(*file.bytes) : Json()                     },
    };
}

Json RunJsonWriter::ToJson(const RunGroup& group) {
    const plugin::SteelTotals& steel = group.result.steel;
    return {
        {"group",        group.result.group       },
        {"name",         group.name.toUtf8()      },
        {"members",      group.result.members     },
        {"pieces",       steel.pieces             },
        {"length",       steel.length             },
        {"weight",       WeightJson(steel)        },
        {"invalid",      group.result.invalid     },
        {"withWarnings", group.result.withWarnings},
        {"nonStandard",  group.result.nonStandard },
    };
}

Json RunJsonWriter::ToJson(const plugin::ProfileResult& profile) {
    return {
        {"profile", profile.profileName.toUtf8()},
        {"pieces",  profile.steel.pieces        },
        {"length",  profile.steel.length        },
        {"weight",  WeightJson(profile.steel)   },
    };
}

JsonText RunJsonWriter::ToJson(const RunPlan& run) {
    const plugin::ProfilePlan& plan = run.plan;
    const plugin::PlanTotals totals = TotalsOf(plan);
    const double metres = totals.barLength / 1000.0;
    const auto costOf = [&](std::optional<cutting::Cost> cost) { return CostJson(plan, cost); };
    JsonObject object;
    object.Set("group", plan.group);
    object.Set("name", run.group.toUtf8());
    object.Set("profile", plan.profileName.toUtf8());
    object.Set("material", plan.material.toUtf8());
    object.Set("plan", plan.kind == job::BarPlan::kLeast ? "least" : "given");
    object.Set("bars", totals.bars);
    object.Set("pieces", totals.pieces);
    object.Set("uncut", totals.uncut);
    object.Set("uncutParts", UncutJson(plan));
    object.Set("barLength", totals.barLength);
    object.Set("pieceLength", totals.pieceLength);
    object.Set("utilisation", totals.GetUtilisation());
    object.Set("kerfLoss", totals.kerfLoss);
    object.Set("kept", totals.kept);
    object.Set("scrapped", totals.scrapped);
    object.Set("weight", plan.weightPerMetre > 0.0 ? Json(plan.weightPerMetre * metres) : Json());
    object.Set("unit", kUnitWords[static_cast<std::size_t>(plan.unit)]);
    object.Set("cost", costOf(plan.plan.cost));
    object.Set("lowerBound", costOf(plan.GetBound()));
    object.Set("provedLeast", plan.plan.IsProvedLeast());
    object.Set("firstFit", costOf(plan.firstFit));
    object.Set("given", costOf(plan.given));
    object.Set("entries", EntriesJson(plan));
    return object.ToText();
}

Json RunJsonWriter::ChangesOf() const {
    if (!m_report->changes)
        return {};
    const std::string& against = m_report->changes->against;
    return ChangesJson(*m_report->changes, m_isDocument ? WithoutFolder(against) : against);
}

const char* WordOf(RunStatus status) {
    return kStatusWords[static_cast<std::size_t>(status)];
}

void RunJsonWriter::WriteHead() {
    m_lines.AddField("schema", kRunSchema);
    m_lines.AddField("job", m_isDocument ? WithoutFolder(m_report->job) : m_report->job);
    m_lines.AddField("name", m_report->name.toUtf8());
    if (m_isDocument)
        return;
    m_lines.AddField("folder", m_report->folder);
    m_lines.AddField("finishedEarlierOutput", m_report->hasFinishedEarlierOutput);
}

/// How the run ended comes last: until then the memory may end.
std::string RunJsonWriter::EndText() {
    Json faults = Json::array();
    for (const RunFault& fault : m_report->faults)
        faults.push_back(ToJson(fault));
    return Dump({
        {"faults",   std::move(faults)       },
        {"status",   WordOf(m_report->status)},
        {"exitCode", m_report->GetExitCode() },
    });
}

/// Of their files.
std::vector<std::string> RunJsonWriter::NamesOfMembers() {
    std::vector<std::string> names;
    names.reserve(m_report->members.size());
    for (const RunMember& member : m_report->members)
        names.push_back(NameOf(member.file.name));
    return names;
}

void RunJsonWriter::AddMembers() {
    const std::size_t count = m_report->members.size();
    const std::vector<std::string> names = NamesOfMembers();
    const auto make = [&](std::size_t i) {
        const bool isMade = i < m_made.size() && !m_made[i].empty();
        return isMade ? JsonText{std::move(m_made[i])} : MemberJson(*m_report, i, names[i]);
    };
    threads::ResultsInOrder<JsonText> members(count, m_threads, make);
    m_lines.AddList("members", count, [&](std::size_t) { return members.Next(); });
}

void RunJsonWriter::Write(const RunReport& report) {
    m_report = &report;
    if (m_isDocument)
        m_names.emplace(report.job);
    m_lines.Begin();
    WriteHead();
    AddList("leftOut", m_report->leftOut);
    m_lines.AddList("settings", m_report->settings.size(), [&](std::size_t i) {
        return SettingJson(m_report->settings[i]);
    });
    m_lines.AddField("input", InputJson(m_report->input));
    AddList("notes", m_report->notes);
    AddList("unmadeFiles", m_report->unmadeFiles);
    AddMembers();
    m_lines.AddField("accounts", AccountsJson(m_report->SumAccounts()));
    AddList("groups", m_report->groups);
    AddList("profiles", m_report->profiles);
    AddList("bars", m_report->plans);
    m_lines.AddField("changes", ChangesOf());
    AddList("files", m_report->files);
    const std::string end = EndText();
    m_lines.End(end);
}

}  // namespace camjob
