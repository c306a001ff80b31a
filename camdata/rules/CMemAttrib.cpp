#include "camdata/rules/CMemAttrib.h"

CMemAttrib::~CMemAttrib() = default;

void CMemAttrib::SetValues(double profileHeight,
                           double bottomFlangeWidth,
                           double topFlangeWidth,
                           double profileThick) {
    m_profileHeight = profileHeight;
    m_topFlangeWidth = topFlangeWidth;
    m_bottomFlangeWidth = bottomFlangeWidth;
    m_profileThick = profileThick;
}
