#include "camdata/holes/CMxGeom.h"
#include "camdata/member/CMxPeilaib.h"
#include "camdata/util/CMxUtil.h"

namespace {

constexpr int kIndentLength = 10;

/// One kind of feature whose number is limited.
struct CountCheck {
    long (CMemberValidations::*limit)() const;
    long (CMxPeilaib::*count)() const;
    /// Of the indent, the excess and the limit.
    ZetFormatString<ZetString, long, long> format;
    eValidationTypes type;
};

constexpr CountCheck kCountChecks[] = {
    {&CMemberValidations::GetNoOfHoles,
     &CMxPeilaib::GetNoOfHoles,
     L"%s%d No of holes exceeded the maximum limit of %d",             eValidationNoOfHoles           },
    {&CMemberValidations::GetNoOfExternalContours,
     &CMxPeilaib::GetNoOfExternalContours,
     L"%s%d No of external contours exceeded the maximum limit of %d", eValidationNoOfExternalContours},
    {&CMemberValidations::GetNoOfInternalContours,
     &CMxPeilaib::GetNoOfInternalContours,
     L"%s%d No of Internal contours exceeded the maximum limit of %d", eValidationNoOfInternalContours},
};

ZetString Indent() {
    return CMxUtil::GetSpaces(kIndentLength, false);
}

}  // namespace

void CMxPeilaib::ValidateMember() {
    CheckCounts();
    CheckLength();
}

void CMxPeilaib::CheckCounts() {
    for (const CountCheck& check : kCountChecks) {
        const long limit = (m_validations.*check.limit)();
        const long count = (this->*check.count)();
        if (limit <= CMxUtil::m_NOT_LIMITED || limit >= count)
            continue;
        m_message = ZetString::format(check.format, Indent(), count - limit, limit);
        AppendMsg(check.type, m_message);
    }
}

void CMxPeilaib::CheckLength() {
    CMxGeom::SetTol(eTolX);
    const double length = m_memType.GetLength();
    const double fixedLength = m_singleMemValid.GetFixedLength();
    if (CMxGeom::IsEqual_Mx(fixedLength, 0.0))
        CheckLengthRange(length);
    else
        CheckFixedLength(length, fixedLength);
}

// Both tests on purpose: limits that exclude each other give both lines.
void CMxPeilaib::CheckLengthRange(double length) {
    const double maximum = m_validations.GetMaximumLength();
    const double minimum = m_validations.GetMinimumLength();
    if (CMxGeom::IsLess_Mx(maximum, length)) {
        m_message = ZetString::format(
            L"%sMember length (%.1f) should not be greater than %.0f", Indent(), length, maximum);
        AppendMsg(eValidationMaximumLength, m_message);
    }
    if (CMxGeom::IsGreater_Mx(minimum, length)) {
        m_message = ZetString::format(
            L"%sMember length (%.1f) is less than %.0f", Indent(), length, minimum);
        AppendMsg(eValidationMinimumLength, m_message);
    }
}

void CMxPeilaib::CheckFixedLength(double length, double fixedLength) {
    if (CMxGeom::IsEqual_Mx(fixedLength, length))
        return;
    m_message = ZetString::format(
        L"%sMember length (%-5.1f) should be %-5.0f", Indent(), length, fixedLength);
    AppendMsg(eValidationFixedLength, m_message);
}

void CMxPeilaib::ChangeHolesStatus(eHoleStatus from, eHoleStatus to) {
    for (long i = 0; i < m_holes.length(); ++i) {
        CHoleAddlInfo hole = m_holes[i];
        if (hole.GetHoleStatus() != from)
            continue;
        // Always empty, and kept so: callers rely on the statuses staying as they are.
        const ZetString text = L"";
        if (text.isEmpty())
            continue;
        hole.SetHoleStatus(to);
        m_holes[i] = hole;
    }
}
