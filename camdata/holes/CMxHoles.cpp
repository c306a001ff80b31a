#include "camdata/holes/CMxHoles.h"

#include "camdata/tolerance/CMxGeom.h"

CMxHoles::~CMxHoles() = default;

void CMxHoles::SetValues(double holeDia,
                         ZetString holeCode,
                         double holeXPos,
                         ZetString msgFormat,
                         bool isMirrApplicable,
                         bool found) {
    m_holeDia = holeDia;
    m_holeCode = std::move(holeCode);
    m_holeXPos = holeXPos;
    m_msgFormat = std::move(msgFormat);
    m_isMirrApplicable = isMirrApplicable;
    m_found = found;
}

void CMxHoles::SetValues(double holeDia,
                         ZetString holeCode,
                         ZetArray<double> holeXPosArr,
                         ZetString msgFormat,
                         bool isMirrApplicable,
                         bool found) {
    SetValues(holeDia,
              std::move(holeCode),
              holeXPosArr[0],
              std::move(msgFormat),
              isMirrApplicable,
              found);
    m_holeXPosArr = std::move(holeXPosArr);
}

ZetString CMxHoles::GetHoleMsg() const {
    return ZetString();
}

ZetString CMxHoles::GetErrMsg(double memberLength) const {
    CMxGeom::SetTol(eTolEPS);
    const bool isFromFarEnd = CMxGeom::IsLess_Mx(m_holeXPos, 0.0);
    const double x = isFromFarEnd ? m_holeXPos + memberLength : m_holeXPos;
    ZetString text = ZetString::formatRuntime(m_msgFormat, m_holeDia, x);
    for (long i = 1; i < m_holeXPosArr.length(); ++i)
        text += ZetString::format(L" or %-0.1f", m_holeXPosArr[i]);
    return text;
}
