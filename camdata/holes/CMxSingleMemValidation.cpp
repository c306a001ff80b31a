#include "camdata/holes/CMxSingleMemValidation.h"

#include "camdata/tolerance/CMxGeom.h"

#include <algorithm>

CMxSingleMemValidation::~CMxSingleMemValidation() = default;

void CMxSingleMemValidation::SetValues(double fixedLength,
                                       ZetArray<CMxHoles> mxHoles,
                                       bool mirrorApplicable) {
    m_fixedLength = fixedLength;
    m_mirrorApplicable = mirrorApplicable;
    m_mxHoles = std::move(mxHoles);
    if (!mirrorApplicable)
        return;
    for (CMxHoles& hole : m_mxHoles)
        hole.SetIsMirrApplicable(true);
}

long CMxSingleMemValidation::GetNoOfHolesFound() const {
    return static_cast<long>(std::count_if(
        m_mxHoles.begin(), m_mxHoles.end(), [](const CMxHoles& hole) { return hole.GetFound(); }));
}

void CMxSingleMemValidation::replaceHoleCode(const ZetString& code) {
    for (CMxHoles& hole : m_mxHoles)
        hole.SetHoleCode(code);
}

long CMxSingleMemValidation::setHolesPosition() {
    CMxGeom::SetTol(eTolEPS);
    if (!CMxGeom::IsGreater_Mx(m_fixedLength, 0.0))
        return 0;
    long converted = 0;
    for (CMxHoles& hole : m_mxHoles)
        converted += SetPositionOf(hole) ? 1 : 0;
    return converted;
}

bool CMxSingleMemValidation::SetPositionOf(CMxHoles& hole) const {
    const double x = hole.GetHoleXPos();
    if (CMxGeom::IsGreater_Mx(x, 0.0) && CMxGeom::IsLess_Mx(x, 1.0))
        hole.SetHoleXPos(x * m_fixedLength);
    else if (CMxGeom::IsLess_Mx(x, 0.0))
        hole.SetHoleXPos(x + m_fixedLength);
    else
        return false;
    return true;
}
