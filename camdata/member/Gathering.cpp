#include "camdata/member/CMxPeilaib.h"
#include "camdata/member/HoleAndNotchSorting.h"
#include "camdata/member/ViewFaces.h"
#include "camdata/member/ViewHoles.h"
#include "camdata/tolerance/CMxGeom.h"

#include <utility>

namespace {

bool HasContours(const ZetNCView& view) {
    return !view.getExternalContours().isEmpty() || !view.getInternalContours().isEmpty();
}

/// The limits allow no notch of this kind at all.
bool IsForbidden(const CNotchAddInfo& notch, const CMemberValidations& limits) {
    const long limit =
        notch.GetIsInternal() ? limits.GetNoOfInternalContours() : limits.GetNoOfExternalContours();
    return limit == 0;
}

/// From the notch at `first` on.
void RejectForbidden(ZetArray<CNotchAddInfo>& notches,
                     long first,
                     const CMemberValidations& limits) {
    for (long i = first; i < notches.length(); ++i) {
        if (notches[i].GetNotchStatus() != eNotchNone && IsForbidden(notches[i], limits))
            notches[i].SetNotchStatus(eNotchNotAllowed);
    }
}

/// Where the records of a view's holes go.
struct HoleLists {
    ZetArray<CHoleAddlInfo>& kept;
    ZetArray<CHoleAddlInfo>& countersinks;
    ZetArray<CHoleAddlInfo>& duplicates;
};

void AppendHoles(const ZetArray<ZetNCHoleData>& holes, const CViewData& view, HoleLists lists) {
    const camdata::detail::ViewHoles gathered = camdata::detail::GatherHoles(holes, view);
    // As the first comparison of two holes does, also when none are near enough to compare.
    if (gathered.kept.size() + gathered.duplicates.size() > 1)
        CMxGeom::SetTol(eTolEPS);
    camdata::detail::AppendRecords(gathered.setAside, view, lists.duplicates);
    camdata::detail::AppendRecords(gathered.countersinks, view, lists.countersinks);
    camdata::detail::AppendRecords(gathered.duplicates, view, lists.duplicates);
    camdata::detail::AppendRecords(gathered.kept, view, lists.kept);
}

void AppendNotches(const ZetArray<ZetNCContour>& contours,
                   const CViewData& view,
                   const CMemberValidations& limits,
                   ZetArray<CNotchAddInfo>& notches) {
    if (contours.isEmpty())
        return;
    CNotchAddInfo notch;
    for (long i = 0; i < contours.length(); ++i) {
        const long first = notches.length();
        notch.InitValues();
        notch.SetNotchData(contours[i], view, notches);
        // The further pieces are corrected already.
        notch.CorrectData();
        // Nobody needs the last one again.
        notches.append(i + 1 < contours.length() ? notch : std::move(notch));
        RejectForbidden(notches, first, limits);
    }
}

}  // namespace

void CMxPeilaib::GetAndSortHolesNotches() {
    camdata::detail::ViewFaces faces(m_memType);
    for (const ZetNCView& view : m_structure.getViews()) {
        const bool hasHoles = !view.getHoles().isEmpty();
        // Marks and numerations alone are nothing to gather.
        if (!hasHoles && !HasContours(view))
            continue;
        CMxGeom::SetTol(eTolEPS);
        const CViewData viewData = faces.ViewDataOf(view);
        if (hasHoles)
            AppendHoles(view.getHoles(), viewData, {m_holes, m_cskHoles, m_duplicateHoles});
        AppendNotches(view.getExternalContours(), viewData, m_validations, m_notches);
        AppendNotches(view.getInternalContours(), viewData, m_validations, m_notches);
    }
    MakeDupHoleArrForHolesInsideSlot();
    MakeDupNotchArr();
}

void CMxPeilaib::SetHoleDataArr(ZetArray<ZetNCHoleData> holes, CViewData view) {
    AppendHoles(holes, view, {m_holes, m_cskHoles, m_duplicateHoles});
}

void CMxPeilaib::SetNotchDataArr(ZetArray<ZetNCContour> contours, CViewData view) {
    AppendNotches(contours, view, m_validations, m_notches);
}

void CMxPeilaib::OrderHoles(ZetArray<CHoleAddlInfo>& holes) {
    camdata::detail::OrderByPosition(holes);
}

void CMxPeilaib::OrderNotches(ZetArray<CNotchAddInfo>& notches) {
    camdata::detail::OrderByPosition(notches);
}
