#include "plugin/rules/JobMember.h"

namespace plugin {

namespace {

constexpr const wchar_t* kUncoveredText = L"No hole rule covers it";
constexpr const wchar_t* kExcludedText = L"Its hole rule excludes this member";

}  // namespace

void JobMember::CodeHoles() {
    const ZetString profileName = GetProfileName();
    m_entryOfHole.clear();
    for (CHoleAddlInfo& hole : m_holes) {
        const HoleRuleMatcher::Match match = m_rules.GetHoleRules().Find(hole, profileName);
        m_entryOfHole.push_back(match.entry);
        if (match.entry != nullptr)
            CodeHole(hole, *match.entry);
        else if (match.isExcluded)
            RefuseHole(job::kExcludedHole, kExcludedText, hole);
        else
            HandleUncoveredHole(hole);
    }
}

/// A coded hole may become the second of a pair, until it is settled.
void JobMember::CodeHole(CHoleAddlInfo& hole, const HoleRuleMatcher::Entry& entry) {
    hole.SetHoleCode(entry.job->code);
    hole.SetHoleOutPutCode(entry.code);
    hole.SetHoleStatus(eHoleStatusWaitsForPair);
}

void JobMember::HandleUncoveredHole(CHoleAddlInfo& hole) {
    const job::UncoveredRule& uncovered = GetJob().uncoveredHoles;
    if (uncovered.action == job::Uncovered::kReport)
        return RefuseHole(job::kUncoveredHole, kUncoveredText, hole);
    if (uncovered.action == job::Uncovered::kOutput)
        FileHole(job::kUncoveredHole, kUncoveredText, hole);
    hole.SetHoleCode(uncovered.code);
    hole.SetHoleStatus(eHoleStatusWaitsForPair);
}

/// Files a finding; the hole is not manufactured.
void JobMember::RefuseHole(job::ValidationType type, const wchar_t* what, CHoleAddlInfo& hole) {
    FileHole(type, what, hole);
    hole.SetValid(false);
    hole.SetHoleStatus(eHoleStatusNeverPair);
}

}  // namespace plugin
