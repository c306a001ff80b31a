#pragma once

#include "camdata/nesting/CMxNestParts.h"
#include "camdata/nesting/CMxParts.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"

#include <functional>

namespace camdata::detail {

/// Takes a nest as it is made: those of very many parts need not be there at a time.
using NestTaker = std::function<void(CMxNestParts)>;

/// Makes the nests of some parts, as CMxPeilaib::Nesting says, in their order.
CAMDATA_API void MakeNests(ZetArray<CMxParts> parts, double reserveLength, const NestTaker& take);

}  // namespace camdata::detail
