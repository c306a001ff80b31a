#include "camjob/run/RunComparison.h"

#include "camjob/console/Paths.h"
#include "camjob/run/FeatureWords.h"
#include "camjob/run/MemberJson.h"

#include <string_view>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

OutputFeature ToCompare(const report::DrawnFeature& drawn, const report::DrawnFace& face) {
    return {face.name,
            WordOf(drawn.kind),
            drawn.told.x,
            drawn.told.y,
            drawn.size,
            drawn.length,
            drawn.angle,
            drawn.code.empty() ? drawn.text : drawn.code,
            drawn.at.x,
            drawn.at.y};
}

OutputMember ToCompare(const RunReport& report, std::size_t index) {
    const plugin::MemberResult& result = report.members[index].result;
    const plugin::MemberOutcome& outcome = result.outcome;
    OutputMember member;
    member.mark = result.mark.toUtf8();
    member.profile = result.profileName.toUtf8();
    member.material = report.drawings.GetMaterial(index);
    member.quantity = result.quantity;
    member.length = report.drawings.GetLength(index);
    member.status = StatusInWords(outcome.isValid, outcome.hasWarnings, outcome.isNonStandard);
    const report::MemberDrawing drawing = report.drawings.Get(index);
    for (const report::DrawnFeature& feature : drawing.features)
        member.features.push_back(ToCompare(feature, drawing.faces[feature.face]));
    return member;
}

OutputCut ToCompare(const plugin::ProfilePlan& plan,
                    const cutting::PlannedBars& bars,
                    const std::vector<plugin::PieceOnBar>& pieces) {
    const plugin::BarStock& stock = plan.stocks[bars.stock];
    OutputCut cut;
    cut.count = static_cast<long>(bars.bars);
    cut.stock = stock.length;
    cut.kerf = stock.kerf;
    if (stock.remnant)
        cut.remnant = stock.name.toUtf8();
    cut.offCut = plugin::Millimetres(bars.offCut);
    cut.isKept = IsKept(plan, bars);
    for (const plugin::PieceOnBar& piece : pieces)
        cut.pieces.push_back({plan.parts[piece.part].mark.toUtf8(),
                              plugin::Millimetres(piece.position),
                              plugin::Millimetres(piece.length)});
    return cut;
}

OutputBars ToCompare(const RunPlan& run) {
    const plugin::ProfilePlan& plan = run.plan;
    const plugin::PlanTotals totals = TotalsOf(plan);
    OutputBars compared = {run.group.toUtf8(),
                           plan.profileName.toUtf8(),
                           plan.material.toUtf8(),
                           totals.bars,
                           totals.GetUtilisation(),
                           totals.uncut,
                           {}};
    plugin::BarWalk walk(plan);
    for (const cutting::PlannedBars& bars : plan.plan.bars)
        compared.cuts.push_back(ToCompare(plan, bars, walk.Next(bars)));
    return compared;
}

/// Members by their mark.
using Positions = std::unordered_map<std::string, std::size_t>;

std::optional<std::string> MarkOfLine(const RunReport& report,
                                      const Positions& positions,
                                      NamesFromFolder& names,
                                      std::string_view line) {
    constexpr std::string_view kBeforeMark = "\"mark\":\"";
    const std::size_t begin = line.find(kBeforeMark);
    if (begin == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = line.substr(begin + kBeforeMark.size());
    const auto at = positions.find(std::string(rest.substr(0, rest.find('"'))));
    if (at == positions.end())
        return std::nullopt;
    const std::string& file = report.members[at->second].file.name;
    const JsonText own = MemberJson(report, at->second, names.Of(file));
    return own.text == line ? std::optional(at->first) : std::nullopt;
}

}  // namespace

NewerOutput ToCompare(const RunReport& report) {
    NewerOutput output;
    Positions positions;
    for (const RunMember& member : report.members) {
        output.marks.push_back(member.result.mark.toUtf8());
        positions.insert({output.marks.back(), positions.size()});
    }
    output.markOfLine =
        [&report, positions, names = NamesFromFolder(report.job)](std::string_view line) mutable {
            return MarkOfLine(report, positions, names, line);
        };
    output.lookUp = [&report, positions = std::move(positions)](
                        const std::string& mark) -> std::optional<OutputMember> {
        const auto at = positions.find(mark);
        return at == positions.end() ? std::nullopt : std::optional(ToCompare(report, at->second));
    };
    for (const RunPlan& plan : report.plans)
        output.bars.push_back(ToCompare(plan));
    return output;
}

}  // namespace camjob
