#include "camdata/nesting/CMxParts.h"

#include "camdata/tolerance/CMxGeom.h"

CMxParts::~CMxParts() = default;

bool CMxParts::SubtractQty(long n) {
    if (m_qty < n)
        return false;
    m_qty -= n;
    return true;
}

int CMxParts::compare(const void* a, const void* b) {
    CMxGeom::SetTol(eTolEPS);
    return CMxGeom::Compare_Mx(static_cast<const CMxParts*>(a)->m_length,
                               static_cast<const CMxParts*>(b)->m_length);
}
