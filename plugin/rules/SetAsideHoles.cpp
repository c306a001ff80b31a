#include "plugin/rules/JobMember.h"

#include <utility>

namespace plugin {

namespace {

constexpr const wchar_t* kInsideSlotText = L"Left out, it lies inside a slot";
constexpr const wchar_t* kDuplicateText = L"Left out, it repeats or touches another hole";
constexpr const wchar_t* kDuplicateNotchText = L"Left out, it repeats another notch";

/// A hole inside several slots was set aside once for each; all but the first have this status.
bool IsRepeated(const CHoleAddlInfo& hole) {
    return hole.GetHoleStatus() == eHoleStatusInsideSlot;
}

}  // namespace

JobMember::HoleKey JobMember::KeyOf(const CHoleAddlInfo& hole) {
    const ZetNCHoleData& data = hole.GetHoleData();
    return {data.hostTag, hole.GetViewData().GetHoleFace(), data.x, data.y, data.size};
}

/// The library does not say why it set a hole aside: it is asked once more, with all holes that are
/// not marked back in the list.
void JobMember::FindHolesInsideSlots() {
    if (m_duplicateHoles.isEmpty())
        return;
    ZetArray<CHoleAddlInfo> holes = m_holes;
    ZetArray<CHoleAddlInfo> duplicates = std::exchange(m_duplicateHoles, {});
    for (const CHoleAddlInfo& hole : duplicates) {
        if (hole.IsCommented())
            continue;
        m_holes.append(hole);
        m_holes.last().SetHoleStatus(eHoleStatusNone);
    }
    MakeDupHoleArrForHolesInsideSlot();
    for (const CHoleAddlInfo& hole : m_duplicateHoles)
        m_insideSlots.insert(KeyOf(hole));
    m_holes = std::move(holes);
    m_duplicateHoles = std::move(duplicates);
}

SetAside JobMember::WhySetAside(const CHoleAddlInfo& hole) const {
    if (hole.IsCommented())
        return SetAside::kMarked;
    return m_insideSlots.count(KeyOf(hole)) > 0 ? SetAside::kInsideSlot : SetAside::kDuplicate;
}

void JobMember::FileSetAside() {
    FindHolesInsideSlots();
    for (const CHoleAddlInfo& hole : m_duplicateHoles) {
        const SetAside reason = IsRepeated(hole) ? SetAside::kNot : WhySetAside(hole);
        if (reason == SetAside::kInsideSlot)
            FileHole(job::kHoleInsideSlot, kInsideSlotText, hole);
        else if (reason == SetAside::kDuplicate)
            FileHole(job::kDuplicateHole, kDuplicateText, hole);
    }
    for (const CNotchAddInfo& notch : m_duplicateNotches)
        FileNotch(job::kDuplicateNotch, kDuplicateNotchText, notch);
}

std::vector<MemberHole> JobMember::CollectHoles() const {
    std::vector<MemberHole> holes;
    for (const CHoleAddlInfo& hole : m_holes)
        holes.push_back({hole, SetAside::kNot});
    for (const CHoleAddlInfo& hole : m_cskHoles)
        holes.push_back({hole, SetAside::kCountersink});
    for (const CHoleAddlInfo& hole : m_duplicateHoles) {
        if (!IsRepeated(hole))
            holes.push_back({hole, WhySetAside(hole)});
    }
    return holes;
}

}  // namespace plugin
