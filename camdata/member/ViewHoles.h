#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/CViewData.h"
#include "camdata/holes/HolePlace.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/host/ZetNCHoleData.h"

#include <vector>

namespace camdata::detail {

/// An NC hole before its record is made. Records are large: they are made when their lists and
/// their places there are known, each where it stays.
struct ViewHole {
    const ZetNCHoleData* data;
    HolePlace place;
    bool isCountersunk;  ///< a countersink marks it
};

/// The NC holes of a view by what becomes of them, each list in its order.
struct ViewHoles {
    std::vector<ViewHole> setAside;
    std::vector<ViewHole> countersinks;
    std::vector<ViewHole> duplicates;
    std::vector<ViewHole> kept;
};

/// Puts those set aside in the NC data apart, orders the others as PositionOrder does, and takes
/// countersinks and then duplicates out of them. The holes must outlive the result. May leave m_EPS
/// as the current tolerance.
ViewHoles GatherHoles(const ZetArray<ZetNCHoleData>& holes, const CViewData& view);

/// Makes the records of NC holes at the end of a list.
void AppendRecords(const std::vector<ViewHole>& holes,
                   const CViewData& view,
                   ZetArray<CHoleAddlInfo>& records);

}  // namespace camdata::detail
