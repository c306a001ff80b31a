#pragma once

#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint2d.h"

/// One mark on a view: a single point or an open polyline, in the view's 2-D coordinates, mm.
struct ZetNCMark {
    enum Kind {
        eKindPowder = 0,  ///< drawn with powder
        eKindPunch = 1,   ///< punched or scribed
    };

    int kind = eKindPunch;
    ZetArray<ZetGeomPoint2d> points;
    /// The host's own mark of where it comes from, for example a line of a file; only carried.
    long hostTag = 0;
};
