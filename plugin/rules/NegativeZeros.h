#pragma once

#include "camdata/platform/text/ZetString.h"

namespace plugin {

/// A text without the sign of a number that is zero as it is printed.
ZetString WithoutNegativeZeros(const ZetString& text);

}  // namespace plugin
