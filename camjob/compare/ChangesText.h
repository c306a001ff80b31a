#pragma once

#include "camjob/compare/OutputChanges.h"
#include "camjob/console/OutputStream.h"

#include "camdata/platform/text/ZetString.h"

namespace camjob {

/// A line that sums the changes up and a table of them; of more than `mostRows` rows the first.
ZetString ChangesText(const OutputChanges& changes, long mostRows, const Terminal& terminal);

}  // namespace camjob
