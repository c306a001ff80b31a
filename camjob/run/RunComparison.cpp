#include "camjob/run/RunComparison.h"

#include "camjob/console/Paths.h"
#include "camjob/run/FeatureWords.h"

#include <optional>
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
        cut.pieces.push_back({plan.parts[piece.part].mark,
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

/// Finds the members of which an older document tells the same.
class SameMembers {
  public:
    SameMembers(const RunReport& report, const Positions& positions, MadeMembers& made)
        : m_report(report), m_positions(positions), m_names(report.job), m_made(made) {
        m_made.resize(report.members.size());
    }

    /// The mark of the member in the line; nothing where it differs.
    std::optional<std::string> operator()(std::string_view line);

  private:
    void Keep(std::size_t member, std::string text);

    const RunReport& m_report;
    Positions m_positions;
    NamesFromFolder m_names;
    MadeMembers& m_made;
    std::size_t m_kept = 0;  ///< bytes
};

std::optional<std::string> SameMembers::operator()(std::string_view line) {
    constexpr std::string_view kBeforeMark = "\"mark\":\"";
    const std::size_t begin = line.find(kBeforeMark);
    if (begin == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = line.substr(begin + kBeforeMark.size());
    const auto at = m_positions.find(std::string(rest.substr(0, rest.find('"'))));
    if (at == m_positions.end())
        return std::nullopt;
    const std::string& file = m_report.members[at->second].file.name;
    JsonText own = MemberJson(m_report, at->second, m_names.Of(file));
    if (own.text != line)
        return std::nullopt;
    Keep(at->second, std::move(own.text));
    return at->first;
}

void SameMembers::Keep(std::size_t member, std::string text) {
    constexpr std::size_t kMaxKept = 8u << 20;
    if (m_kept >= kMaxKept)
        return;
    m_kept += text.size();
    m_made[member] = std::move(text);
}

}  // namespace

NewerOutput ToCompare(const RunReport& report, MadeMembers& made) {
    NewerOutput output;
    Positions positions;
    for (const RunMember& member : report.members) {
        output.marks.push_back(member.result.mark.toUtf8());
        positions.insert({output.marks.back(), positions.size()});
    }
    output.markOfLine = SameMembers(report, positions, made);
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
