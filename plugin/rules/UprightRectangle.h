#pragma once

#include "camdata/notches/CNotchAddInfo.h"

namespace plugin {

/// The library takes four corners with equal diagonals for a rectangle, so a symmetric trapezoid
/// too. Here it is none when its length times its width is more than 1 mm2 off its area: these
/// numbers are not what it cuts.
bool IsRectangle(const CNotchAddInfo& notch);

/// A rectangle along the axes that length and width tell wholly.
bool IsUprightRectangle(const CNotchAddInfo& notch);

}  // namespace plugin
