#include "camdata/holes/CHoleRule.h"

CHoleRule::~CHoleRule() = default;

void CHoleRule::SetValues(eHoleShapeType holeShapeType,
                          ZetArray<CHoleCode> holeCodes,
                          ZetArray<ZetArray<CHoleCode>> holeCodeTable,
                          long memNameLength,
                          ZetArray<ZetString> notAppMem,
                          ZetArray<double> backMarks,
                          ZetArray<double> otherFaceDistances,
                          ZetArray<double> diameters,
                          ZetArray<double> secondSizes,
                          bool firstOption,
                          bool secondOption,
                          CHoleCode groupCode,
                          bool lookInAnotherRule,
                          ZetString lookInAnotherSuffix,
                          bool thirdOption) {
    m_holeShapeType = holeShapeType;
    m_holeCodes = std::move(holeCodes);
    m_holeCodeTable = std::move(holeCodeTable);
    m_memNameLength = memNameLength;
    m_notAppMem = std::move(notAppMem);
    m_backMarks = std::move(backMarks);
    m_diameters = std::move(diameters);
    m_secondSizes = std::move(secondSizes);
    m_firstOption = firstOption;
    m_secondOption = secondOption;
    m_groupCode = std::move(groupCode);
    m_lookInAnotherRule = lookInAnotherRule;
    m_lookInAnotherSuffix = std::move(lookInAnotherSuffix);
    m_otherFaceDistances = std::move(otherFaceDistances);
    m_thirdOption = thirdOption;
}

bool CHoleRule::LookInAnotherRule(ZetString memberName, ZetString& suffix) const {
    suffix = ZetString();
    const bool isExcluded = !m_notAppMem.isEmpty() && m_notAppMem.find(KeyOf(memberName)) >= 0;
    if (isExcluded && m_lookInAnotherRule)
        suffix = m_lookInAnotherSuffix;
    return !isExcluded;
}

ZetString CHoleRule::KeyOf(const ZetString& memberName) const {
    return memberName.left(m_memNameLength > 0 ? m_memNameLength
                                               : memberName.length() + m_memNameLength);
}
