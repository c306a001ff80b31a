#include "job/CodeFormat.h"
#include "plugin/rules/JobMember.h"

#include <utility>

namespace plugin {

namespace {

constexpr const wchar_t* kUncoveredText = L"No hole rule covers it";
constexpr const wchar_t* kNoShapeText = L"No hole rule is for its shape";
constexpr const wchar_t* kNearestFormat =
    L"No hole rule covers it; the nearest, %s, is for another %s";
constexpr const wchar_t* kExcludedText = L"Its hole rule excludes this member";

job::CodeValues ValuesOf(const CHoleAddlInfo& hole) {
    return {hole.GetSize(),
            OverallLength(hole),
            hole.GetSize(),
            job::NameOf(hole.GetViewData().GetHoleFace()),
            hole.GetXPos(),
            hole.GetYPos(),
            hole.GetHoleData().depth};
}

}  // namespace

void JobMember::CodeHoles() {
    const ZetString profileName = GetProfileName();
    m_judging->entryOfHole.clear();
    m_judging->entryOfHole.reserve(static_cast<std::size_t>(m_holes.length()));
    for (CHoleAddlInfo& hole : m_holes) {
        if (!hole.GetValid()) {
            m_judging->entryOfHole.push_back(nullptr);
            continue;
        }
        const HoleRuleMatcher::Match match = m_rules.GetHoleRules().Find(hole, profileName);
        m_judging->entryOfHole.push_back(match.entry);
        if (match.entry != nullptr)
            CodeHole(hole, *match.entry);
        else if (match.excluding != nullptr)
            RefuseHole({.type = job::kExcludedHole,
                        .text = kExcludedText,
                        .rule = match.excluding->job->id,
                        .ruleLine = match.excluding->job->line},
                       hole);
        else
            HandleUncoveredHole(hole);
    }
}

/// A coded hole may become the second of a pair, until it is settled.
void JobMember::CodeHole(CHoleAddlInfo& hole, const HoleRuleMatcher::Entry& entry) {
    hole.SetHoleStatus(eHoleStatusWaitsForPair);
    hole.SetHoleCode(entry.isFilled ? job::FillCode(entry.job->code, ValuesOf(hole))
                                    : entry.job->code);
    // Nothing asks for it but the groups.
    if (entry.job->group.code.isEmpty())
        return;
    CHoleOutPutCode code = entry.code;
    code.SetHoleCode(StandardCode(hole.GetHoleCode()));
    hole.SetHoleOutPutCode(std::move(code));
}

/// With the rule that comes nearest, and what it wants.
Finding JobMember::UncoveredFinding(const CHoleAddlInfo& hole) const {
    const HoleRuleMatcher::Miss miss = m_rules.GetHoleRules().FindNearest(hole);
    if (miss.rule == nullptr)
        return {.type = job::kUncoveredHole, .text = miss.hasShape ? kUncoveredText : kNoShapeText};
    return {.type = job::kUncoveredHole,
            .text = ZetString::format(kNearestFormat, miss.rule->id, ZetString(miss.what)),
            .rule = miss.rule->id,
            .ruleLine = miss.rule->line,
            .required = miss.required,
            .found = miss.found};
}

void JobMember::HandleUncoveredHole(CHoleAddlInfo& hole) {
    const job::UncoveredRule& uncovered = GetJob().uncoveredHoles;
    if (uncovered.action == job::Uncovered::kReport)
        return RefuseHole(UncoveredFinding(hole), hole);
    if (uncovered.action == job::Uncovered::kOutput)
        FileHole(UncoveredFinding(hole), hole);
    hole.SetHoleCode(job::FillCode(uncovered.code, ValuesOf(hole)));
    hole.SetHoleStatus(eHoleStatusWaitsForPair);
}

/// Files a finding; the hole is not manufactured.
void JobMember::RefuseHole(Finding finding, CHoleAddlInfo& hole) {
    finding.isRefusal = true;
    FileHole(std::move(finding), hole);
    hole.SetValid(false);
    hole.SetHoleStatus(eHoleStatusNeverPair);
}

}  // namespace plugin
