#include "plugin/rules/JobMember.h"

#include <cmath>

namespace plugin {

namespace {

constexpr const wchar_t* kMissingPairText = L"It has no second hole";

bool IsUnsettled(const CHoleAddlInfo& hole) {
    return hole.GetHoleStatus() == eHoleStatusWaitsForPair;
}

}  // namespace

void JobMember::FindPairs() {
    if (!m_rules.GetHoleRules().HasPairs())
        return;
    for (long i = 0; i < m_holes.length(); ++i) {
        const HoleRuleMatcher::Entry* entry = EntryOfHole(i);
        if (entry != nullptr && !entry->job->pairs.empty() && IsUnsettled(m_holes[i]))
            FindPairOf(i, *entry);
    }
    // Only now: a hole without a second one may itself be the second of a later one.
    for (long i = 0; i < m_holes.length(); ++i) {
        const HoleRuleMatcher::Entry* entry = EntryOfHole(i);
        if (entry != nullptr && entry->job->isPairMust && IsUnsettled(m_holes[i]))
            RefuseHole(MissingPairOf(i, *entry->job), m_holes[i]);
    }
}

/// With the spacing that is missed least.
Finding JobMember::MissingPairOf(long index, const job::HoleRule& rule) const {
    Finding finding = {.type = job::kMissingPair,
                       .text = kMissingPairText,
                       .rule = rule.id,
                       .ruleLine = rule.line,
                       .required = rule.pairs.front().spacing};
    const double x = m_holes[index].GetXPos();
    for (const job::PairRule& pair : rule.pairs)
        for (long i = 0; i < m_holes.length(); ++i) {
            const double distance = std::abs(m_holes[i].GetXPos() - x);
            const bool isNearer =
                !finding.found ||
                std::abs(distance - pair.spacing) < std::abs(*finding.found - *finding.required);
            if (i != index && isNearer && m_holes[i].GetHoleCode().contains(pair.code)) {
                finding.required = pair.spacing;
                finding.found = distance;
            }
        }
    return finding;
}

/// Makes a pair with the first hole that one of the rule's pairs names. The pair counts as one
/// hole: the second has a status of its own.
void JobMember::FindPairOf(long index, const HoleRuleMatcher::Entry& entry) {
    const ZetArray<CHoleCode> codes = entry.code.GetPairCodes();
    for (std::size_t i = 0; i < entry.job->pairs.size(); ++i) {
        const CHoleCode& code = codes[static_cast<long>(i)];
        const long second = GetPairHole(index, code, entry.job->pairs[i].spacing);
        if (second < 0)
            continue;
        m_holes[second].SetHoleCode(code.GetPairReplaceStr() + m_holes[second].GetHoleCode());
        m_holes[index].SetHoleStatus(eHoleStatusGroup);
        return;
    }
}

}  // namespace plugin
