#pragma once

#include "dstv/NcTokens.h"

#include <cstddef>
#include <vector>

namespace dstv {

/// What to tell beside a header value that is wrong: that a line before it seems to be missing, or
/// to be too many; "" when neither does. `lines` are those behind ST without comments, at least up
/// to the value and best all of the header; `value` counts from 0.
ZetString HintOfShiftedHeader(const std::vector<NcLine>& lines, std::size_t value);

}  // namespace dstv
