#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/CViewData.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"
#include "camdata/platform/host/ZetNCHoleData.h"

namespace camdata::detail {

/// Where a hole is and how wide: what decides its order and whether it is a duplicate. A tenth of a
/// hole's record. mm.
struct HolePlace {
    double x;  ///< current position
    double y;
    double ncX;  ///< NC position, of a slot its centre
    double ncY;
    double size;
};

/// The centre of an NC hole; that of a slot lies half a slot length away from what the host gives.
ZetGeomPoint2d CentreOf(const ZetNCHoleData& hole);

/// Maps Y from view to output coordinates: first the offset, then the change of sign, then
/// measuring from the other edge.
double OutputY(double y, const CViewData& view);

HolePlace PlaceOf(const CHoleAddlInfo& hole);
/// The place that the record of an NC hole has once it is gathered.
HolePlace PlaceOf(const ZetNCHoleData& hole, const CViewData& view);

/// CHoleAddlInfo::operator== of holes at these places.
bool AreDuplicates(const HolePlace& a, const HolePlace& b);

}  // namespace camdata::detail
