#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/HolePlace.h"
#include "camdata/platform/geometry/ZetGeomTol.h"
#include "camdata/tolerance/CMxGeom.h"

bool CHoleAddlInfo::operator==(const CHoleAddlInfo& other) const {
    return camdata::detail::AreDuplicates(camdata::detail::PlaceOf(*this),
                                          camdata::detail::PlaceOf(other));
}

bool CHoleAddlInfo::IsEqual(const CHoleAddlInfo& other) const {
    CMxGeom::SetTol(eTolEPS);
    if (GetHoleShapeType() != other.GetHoleShapeType() ||
        !CMxGeom::IsEqual_Mx(GetSize(), other.GetSize()))
        return false;
    return CheckSlotHole(other);
}

bool CHoleAddlInfo::CheckSlotHole(const CHoleAddlInfo& other) const {
    CMxGeom::SetTol(eTolY);
    if (!GetIsSlot())
        return true;
    return ZetGeomTol().areParallel(m_slotVector, other.m_slotVector) &&
           CMxGeom::IsEqual_Mx(m_holeData.slotLength, other.m_holeData.slotLength);
}

bool CHoleAddlInfo::IsInside(const CHoleAddlInfo& other) const {
    CMxGeom::SetTol(eTolY);
    if (!GetIsSlot() || m_viewData.GetHoleFace() != other.m_viewData.GetHoleFace())
        return false;
    const ZetGeomVector2d offset{other.GetXPos() - GetXPos(), other.GetYPos() - GetYPos()};
    const double distance = offset.length();
    if (!ZetGeomTol().areParallel(offset, m_slotVector) && !CMxGeom::IsEqual_Mx(distance, 0.0))
        return false;
    if (CMxGeom::IsGreater_Mx(distance, m_slotVector.length()))
        return false;
    return CMxGeom::IsLessOrEqual_Mx(other.GetSize(), GetSize());
}
