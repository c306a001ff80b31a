#include "camdata/member/CMxPeilaib.h"
#include "camdata/member/CountersunkHoleSearch.h"
#include "camdata/member/DuplicateHoleSearch.h"
#include "camdata/member/HoleInSlotSearch.h"
#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace {

using camdata::detail::HoleInSlot;

constexpr const wchar_t* kPairHolesNotFound = L"%s pair holes not found";

bool HasStatus(const CHoleAddlInfo& hole, eHoleStatus status) {
    return hole.GetHoleStatus() == status;
}

void DropHolesOfStatus(ZetArray<CHoleAddlInfo>& holes, eHoleStatus status) {
    const auto hasStatus = [status](const CHoleAddlInfo& hole) { return HasStatus(hole, status); };
    if (std::any_of(holes.begin(), holes.end(), hasStatus))
        camdata::detail::DropRecords(holes, [&](long index) { return hasStatus(holes[index]); });
}

template <typename Make>
auto FromEach(const ZetArray<CHoleAddlInfo>& holes, const Make& make) {
    std::vector<decltype(make(holes.first()))> values;
    values.reserve(static_cast<std::size_t>(holes.length()));
    std::transform(holes.begin(), holes.end(), std::back_inserter(values), make);
    return values;
}

bool CanBecomePair(const CHoleAddlInfo& hole) {
    return HasStatus(hole, eHoleStatusNone) || HasStatus(hole, eHoleStatusWaitsForPair);
}

}  // namespace

void CMxPeilaib::MakeCSKHoleArrAndMark(ZetArray<CHoleAddlInfo>& holes) {
    const auto roles = FromEach(holes, camdata::detail::CountersinkRoleOf);
    for (const long index : camdata::detail::FindCountersunkHoles(roles))
        camdata::detail::MarkAsCountersunk(holes[index]);
    for (const CHoleAddlInfo& hole : holes) {
        if (HasStatus(hole, eHoleStatusCSK))
            m_cskHoles.append(hole);
    }
    DropHolesOfStatus(holes, eHoleStatusCSK);
}

bool CMxPeilaib::TagThisCSKtoMainHole(ZetArray<CHoleAddlInfo>& holes,
                                      CHoleAddlInfo cskHole,
                                      long /*position*/) {
    const auto mainHole = std::find_if(holes.begin(), holes.end(), [&](const CHoleAddlInfo& hole) {
        return camdata::detail::CountersinkRoleOf(hole).canBeMarked &&
               hole.GetXPos() == cskHole.GetXPos() && hole.GetYPos() == cskHole.GetYPos();
    });
    if (mainHole == holes.end())
        return false;
    camdata::detail::MarkAsCountersunk(*mainHole);
    return true;
}

long CMxPeilaib::SetWebFaceForCSKHoles(ZetArray<CHoleAddlInfo>& holes) {
    long changed = 0;
    for (CHoleAddlInfo& hole : holes)
        changed += hole.SetWebFaceCorrectly() ? 1 : 0;
    return changed;
}

void CMxPeilaib::MakeDupHoleArr(ZetArray<CHoleAddlInfo>& holes) {
    if (holes.length() < 2)
        return;
    CMxGeom::SetTol(eTolEPS);
    const auto places =
        FromEach(holes, [](const CHoleAddlInfo& hole) { return camdata::detail::PlaceOf(hole); });
    camdata::detail::MoveRemoved(
        camdata::detail::FindDuplicateHoles(places), holes, m_duplicateHoles);
}

void CMxPeilaib::MakeDupHoleArrForHolesInsideSlot() {
    for (const HoleInSlot& found : camdata::detail::FindHolesInSlots(m_holes)) {
        CHoleAddlInfo& hole = m_holes[found.hole];
        // A copy per slot that holds it, from the second one on with the new status.
        m_duplicateHoles.append(hole);
        hole.SetHoleStatus(eHoleStatusInsideSlot);
    }
    DropHolesOfStatus(m_holes, eHoleStatusInsideSlot);
}

void CMxPeilaib::ChangeHolePosition(ZetArray<CHoleAddlInfo>& holes, double length) {
    for (CHoleAddlInfo& hole : holes)
        hole.SetXPosFrom(length);
}

long CMxPeilaib::MakeValidHoles() {
    for (CHoleAddlInfo& hole : m_holes) {
        if (!HasStatus(hole, eHoleStatusWaitsForPair))
            continue;
        const ZetString pairCode = hole.GetPairCode();
        if (pairCode.isEmpty())
            hole.SetHoleStatus(eHoleStatusGroup);
        else
            m_message = ZetString::format(kPairHolesNotFound, pairCode);
    }
    return static_cast<long>(std::count_if(m_holes.begin(), m_holes.end(), [](const auto& hole) {
        return HasStatus(hole, eHoleStatusGroup);
    }));
}

long CMxPeilaib::GetPairHole(long index, CHoleCode code, double spacing) {
    if (m_holes.isEmpty())
        return -1;
    const CHoleAddlInfo hole = m_holes[index];
    // Once only: a candidate may be measured with the tolerance that IsEqual of the one before
    // left.
    CMxGeom::SetTol(eTolX);
    const auto isPair = [&](const CHoleAddlInfo& other) {
        const double distance = std::abs(other.GetXPos() - hole.GetXPos());
        return CanBecomePair(other) && &other != &m_holes[index] &&
               other.GetHoleCode().contains(code.GetPairCode()) &&
               CMxGeom::IsEqual_Mx(distance, spacing) && other.IsEqual(hole);
    };
    const auto pair = std::find_if(m_holes.begin(), m_holes.end(), isPair);
    if (pair == m_holes.end())
        return -1;
    pair->SetHoleStatus(eHoleStatusIsPair);
    return static_cast<long>(pair - m_holes.begin());
}
