#include "plugin/rules/UprightRectangle.h"

#include "plugin/rules/FaceOutline.h"

#include <cmath>

namespace plugin {

bool IsRectangle(const CNotchAddInfo& notch) {
    if (!notch.GetIsRect())
        return false;
    // The closing repeat adds nothing.
    return std::abs(AreaOf({notch.GetOutline().begin(), notch.GetOutline().end()}) -
                    notch.GetLength() * notch.GetWidth()) <= kAreaTolerance;
}

bool IsUprightRectangle(const CNotchAddInfo& notch) {
    return notch.GetIsParallelToAxis() && IsRectangle(notch);
}

}  // namespace plugin
