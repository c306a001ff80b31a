#include "plugin/rules/JobMember.h"
#include "plugin/rules/UprightRectangle.h"

namespace plugin {

namespace {

/// The mean of many corners is off by rounding.
constexpr int kDecimals = 6;

bool CanBeHole(const CNotchAddInfo& notch) {
    return notch.GetIsInternal() && IsUprightRectangle(notch);
}

/// The hole that a rectangular opening is; its length runs along the member.
CHoleAddlInfo HoleOf(const CNotchAddInfo& opening) {
    ZetNCHoleData data;
    data.hostTag = opening.GetContour().hostTag;
    const double x = opening.GetXPos(kDecimals);
    const double y = opening.GetYPos(kDecimals);
    CHoleAddlInfo hole;
    hole.SetHoleData(data);
    hole.CorrectData(opening.GetViewData());
    if (opening.GetIsSqr())
        hole.SetSqrHoleData(opening.GetWidth(), x, y);
    else
        hole.SetRectHoleData(opening.GetLength(), opening.GetWidth(), x, y, opening.GetViewData());
    return hole;
}

}  // namespace

/// NC data holds a rectangular hole as an opening. It becomes a hole where a rule covers it.
void JobMember::TakeRectangularHoles() {
    const HoleRuleMatcher& rules = m_rules.GetHoleRules();
    if (!rules.HasRectangles())
        return;
    ZetArray<CNotchAddInfo> notches;
    for (CNotchAddInfo& notch : m_notches) {
        if (!CanBeHole(notch)) {
            notches.append(std::move(notch));
            continue;
        }
        CHoleAddlInfo hole = HoleOf(notch);
        if (rules.Find(hole, GetProfileName()).entry == nullptr)
            notches.append(std::move(notch));
        else
            m_holes.append(std::move(hole));
    }
    m_notches = std::move(notches);
}

}  // namespace plugin
