#include "plugin/rules/JobMember.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <functional>
#include <tuple>

namespace plugin {

namespace {

constexpr const wchar_t* kMissingGroupText = L"It belongs to no group of holes";

eHoleFace FaceOf(const CHoleAddlInfo& hole) {
    return hole.GetViewData().GetHoleFace();
}

}  // namespace

void JobMember::FindGroups() {
    const std::vector<long> candidates = GroupCandidates();
    CMxGeom::SetTol(eTolX);
    for (auto begin = candidates.begin(); begin != candidates.end();) {
        const auto end = std::find_if(
            begin, candidates.end(), [&](long index) { return !IsSameColumn(*begin, index); });
        FormGroup({begin, end});
        begin = end;
    }
}

/// The holes that may form groups: those of one rule together, of these those of one face, along
/// the member.
std::vector<long> JobMember::GroupCandidates() const {
    if (!m_rules.GetHoleRules().HasGroups())
        return {};
    std::vector<long> candidates;
    for (long i = 0; i < m_holes.length(); ++i) {
        const HoleRuleMatcher::Entry* entry = EntryOfHole(i);
        const bool isUnsettled = m_holes[i].GetHoleStatus() == eHoleStatusWaitsForPair;
        if (entry != nullptr && !entry->job->group.code.isEmpty() && isUnsettled)
            candidates.push_back(i);
    }
    const auto keyOf = [this](long i) {
        return std::tuple(EntryOfHole(i), FaceOf(m_holes[i]), m_holes[i].GetXPos());
    };
    std::stable_sort(
        candidates.begin(), candidates.end(), [&](long a, long b) { return keyOf(a) < keyOf(b); });
    return candidates;
}

bool JobMember::IsSameColumn(long a, long b) const {
    return EntryOfHole(a) == EntryOfHole(b) && FaceOf(m_holes[a]) == FaceOf(m_holes[b]) &&
           CMxGeom::IsEqual_Mx(m_holes[a].GetXPos(), m_holes[b].GetXPos());
}

/// All holes of a column are a group, or none is.
void JobMember::FormGroup(const std::vector<long>& column) {
    const job::GroupRule& group = EntryOfHole(column.front())->job->group;
    const bool isWhole = static_cast<long>(column.size()) == group.holeCount;
    for (const long index : column) {
        CHoleAddlInfo& hole = m_holes[index];
        if (isWhole)
            PutIntoGroup(hole, group);
        if (!hole.checkGroupHole())
            LeaveAlone(hole, *EntryOfHole(index)->job, column.size());
    }
}

void JobMember::PutIntoGroup(CHoleAddlInfo& hole, const job::GroupRule& group) {
    CHoleOutPutCode code = hole.GetHoleOutPutCode();
    code.SetIsGroup(true);
    hole.SetHoleOutPutCode(std::move(code));
    hole.SetHoleCode(group.code + L" " + hole.GetHoleCode());
}

/// The library has refused the hole already when it must be in a group; else it goes out alone.
void JobMember::LeaveAlone(CHoleAddlInfo& hole,
                           const job::HoleRule& rule,
                           std::size_t holesOfColumn) {
    if (rule.group.isMust)
        FileHole({.type = job::kMissingGroup,
                  .text = kMissingGroupText,
                  .rule = rule.id,
                  .ruleLine = rule.line,
                  .required = static_cast<double>(rule.group.holeCount),
                  .found = static_cast<double>(holesOfColumn),
                  .isRefusal = true},
                 hole);
    else
        hole.SetHoleStatus(eHoleStatusWaitsForPair);
}

}  // namespace plugin
