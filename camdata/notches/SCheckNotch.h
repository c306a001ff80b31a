#pragma once

#include "camdata/holes/eHoleFace.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/text/ZetString.h"

#include <cstdint>

/// One kind of notch that a machine has a code for: its shape, the corner it lies at, and the text
/// it is output with. A plain value; mm, in the frame of the notch's position.
///
/// A corner coordinate around 0 is that of the notch's lower or left side, one above 0 that of its
/// upper or right side; one below 0 fits any notch, whose corner is then on the lower or left side.
/// Each by the current tolerance. A notch that is no rectangle has its corner where its position
/// is.
struct SCheckNotch {
    std::int64_t id = 0;  ///< the caller's own; the library does not read it
    double cornerX = 0.0;
    double cornerY = 0.0;
    ZetString outPutFormat;  ///< text with conversions for as many doubles as there are selectors
    /// What fills the format: for the first two values 4 the length, 5 the width (0.0 unless it is
    /// a rectangle); for the third 0 the X position, 1 the corner's X, 2 the Y position, 3 the
    /// corner's Y; any other gives 0.0. With more than three the format is output as it stands.
    ZetArray<int> valueSelectors;
    eHoleFace face = eHoleFaceNone;
    int vertexCount = 0;  ///< without a closing repeat
    bool mustBeRect = false;
    bool mustBeParallelToAxis = false;
};
