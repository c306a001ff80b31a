#include "camdata/member/CMxPeilaib.h"
#include "camdata/member/DuplicateNotchSearch.h"

void CMxPeilaib::MakeDupNotchArr() {
    camdata::detail::MoveRemoved(
        camdata::detail::FindDuplicateNotches(m_notches), m_notches, m_duplicateNotches);
}

long CMxPeilaib::MakeValidNotches() {
    for (CNotchAddInfo& notch : m_notches) {
        const eNotchStatus status = notch.GetNotchStatus();
        if (status == eNotchCornerMatched)
            notch.GetIsInternal() ? NoOfInternalContours_Increment()
                                  : NoOfExternalContours_Increment();
        else if (status != eNotchNone)
            notch.SetNotchStatus(eNotchNotAllowed);
    }
    return GetNoOfInternalContours() + GetNoOfExternalContours();
}
