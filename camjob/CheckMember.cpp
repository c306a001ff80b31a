#include "camjob/CheckMember.h"

#include "camdata/util/CMxUtil.h"

#include <utility>

namespace camjob {

namespace {

constexpr double kAnyLength = 1e9;
constexpr int kProcessedRecordType = 2;

CMemTypeAndAttrib TypeFromHeader() {
    constexpr eProfPropType kSource = eProfPropHeader;
    constexpr eProfPropType kNone = eProfPropNone;
    CMemTypeAndAttrib type;
    // clang-format off
    type.SetValues(kProcessedRecordType, 0,
                   kSource, -1, 0, 0.0,       // height
                   kSource, -1, 0, 0.0,       // width
                   kSource, -1, 0, 0.0, 1.0,  // thickness
                   kNone, -1, 0, 0.0, 1.0,    // slope of the top flange
                   0, 0, L"NC file", L"NC", 0, 0, 0);
    // clang-format on
    return type;
}

CMemberValidations NoLimits() {
    CMemberValidations limits;
    limits.SetNoOfHoles(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfInternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetNoOfExternalContours(CMxUtil::m_NOT_LIMITED);
    limits.SetMaximumLength(kAnyLength);
    return limits;
}

}  // namespace

CheckMember::CheckMember(ZetNCCreator& creator) {
    SetMemObjects(TypeFromHeader(), NoLimits());
    SetNCObjects(&creator);
    SetEntTypeAndProfileName(creator.getNCEntity()->getType(), creator.getHeader().profileName);
    GetAndSortHolesNotches();
    SetNoOfHoles(m_holes.length());
    for (const CNotchAddInfo& notch : m_notches) {
        if (notch.GetIsInternal())
            NoOfInternalContours_Increment();
        else if (notch.GetNotchStatus() != eNotchNone)
            NoOfExternalContours_Increment();
    }
    for (CHoleAddlInfo& hole : m_holes)
        hole.CheckEdgeAndEndDist(m_memType, GetLength());
    ValidateMember();
}

std::vector<MemberHole> CheckMember::CollectHoles() const {
    std::vector<MemberHole> holes;
    for (const CHoleAddlInfo& hole : m_holes)
        holes.push_back({hole, SetAside::kNot});
    for (const CHoleAddlInfo& hole : m_cskHoles)
        holes.push_back({hole, SetAside::kCountersink});
    const std::unordered_set<long> insideSlots = FindHolesInsideSlots();
    // A hole inside several slots was set aside once for each.
    std::unordered_set<long> seen;
    for (const CHoleAddlInfo& hole : m_duplicateHoles) {
        const long tag = hole.GetHoleData().hostTag;
        if (!seen.insert(tag).second)
            continue;
        const SetAside unlessMarked =
            insideSlots.count(tag) > 0 ? SetAside::kInsideSlot : SetAside::kDuplicate;
        holes.push_back({hole, hole.IsCommented() ? SetAside::kMarked : unlessMarked});
    }
    return holes;
}

/// The library does not say why it set a hole aside: a copy of the member with all its holes is
/// asked once more.
std::unordered_set<long> CheckMember::FindHolesInsideSlots() const {
    if (m_duplicateHoles.isEmpty())
        return {};
    CheckMember copy(*this);
    for (CHoleAddlInfo& hole : copy.m_duplicateHoles) {
        hole.SetHoleStatus(eHoleStatusNone);
        if (!hole.IsCommented())
            copy.m_holes.append(std::move(hole));
    }
    copy.m_duplicateHoles.removeAll();
    copy.MakeDupHoleArrForHolesInsideSlot();
    std::unordered_set<long> tags;
    for (const CHoleAddlInfo& hole : copy.m_duplicateHoles)
        tags.insert(hole.GetHoleData().hostTag);
    return tags;
}

}  // namespace camjob
