#include "camdata/member/CMxPeilaib.h"
#include "camdata/tolerance/CMxGeom.h"
#include "camdata/util/CMxUtil.h"
#include "camdata/util/ReportIndent.h"

#include <cmath>

namespace {

/// Formats of an excess and a limit.
using CountFormat = ZetFormatString<ZetString, long, long>;
constexpr CountFormat kHolesFormat = L"%s%d No of holes exceeded the maximum limit of %d";
constexpr CountFormat kExternalFormat =
    L"%s%d No of external contours exceeded the maximum limit of %d";
constexpr CountFormat kInternalFormat =
    L"%s%d No of Internal contours exceeded the maximum limit of %d";

/// Formats of the member's length and a limit.
using LengthFormat = ZetFormatString<ZetString, double, double>;
constexpr LengthFormat kMaximumFormat = L"%sMember length (%.1f) should not be greater than %.0f";
constexpr LengthFormat kMinimumFormat = L"%sMember length (%.1f) is less than %.0f";
constexpr LengthFormat kFixedFormat = L"%sMember length (%-5.1f) should be %-5.0f";

/// One kind of feature whose number is limited.
struct CountCheck {
    long (CMemberValidations::*limit)() const;
    long (CMxPeilaib::*count)() const;
    CountFormat format;
    eValidationTypes type;
};

constexpr CountCheck kCountChecks[] = {
    {&CMemberValidations::GetNoOfHoles,
     &CMxPeilaib::GetNoOfHoles,
     kHolesFormat,    eValidationNoOfHoles           },
    {&CMemberValidations::GetNoOfExternalContours,
     &CMxPeilaib::GetNoOfExternalContours,
     kExternalFormat, eValidationNoOfExternalContours},
    {&CMemberValidations::GetNoOfInternalContours,
     &CMxPeilaib::GetNoOfInternalContours,
     kInternalFormat, eValidationNoOfInternalContours},
};

}  // namespace

void CMxPeilaib::ValidateMember() {
    CheckCounts();
    CheckLength();
}

template <typename T>
void CMxPeilaib::FileFinding(eValidationTypes type,
                             ZetFormatString<ZetString, T, T> format,
                             T found,
                             T limit) {
    m_message = ZetString::format(format, MemberLineIndent(), found, limit);
    AppendMsg(type, m_message);
}

void CMxPeilaib::CheckCounts() {
    for (const CountCheck& check : kCountChecks) {
        const long limit = (m_validations.*check.limit)();
        const long count = (this->*check.count)();
        if (limit > CMxUtil::m_NOT_LIMITED && limit < count)
            FileFinding(check.type, check.format, count - limit, limit);
    }
}

void CMxPeilaib::CheckLength() {
    CMxGeom::SetTol(eTolX);
    const double length = m_memType.GetLength();
    const double fixedLength = m_singleMemValid.GetFixedLength();
    // Not IsEqual_Mx: what is no number must count as no fixed length, and as no difference.
    if (!CMxGeom::IsGreater_Mx(std::abs(fixedLength), 0.0))
        CheckLengthRange(length);
    else if (CMxGeom::IsGreater_Mx(std::abs(fixedLength - length), 0.0))
        FileFinding(eValidationFixedLength, kFixedFormat, length, fixedLength);
}

// Limits that exclude each other give both lines, on purpose.
void CMxPeilaib::CheckLengthRange(double length) {
    const double maximum = m_validations.GetMaximumLength();
    const double minimum = m_validations.GetMinimumLength();
    if (CMxGeom::IsLess_Mx(maximum, length))
        FileFinding(eValidationMaximumLength, kMaximumFormat, length, maximum);
    if (CMxGeom::IsGreater_Mx(minimum, length))
        FileFinding(eValidationMinimumLength, kMinimumFormat, length, minimum);
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
