#pragma once

#include "camdata/platform/base/ZetArray.h"

/// One contour of a view, in the view's 2-D coordinates, mm. A plain value.
///
/// A closed contour repeats its first point at the end.
struct ZetNCContour {
    enum Type {
        eTypeExternal = 0,  ///< outline of the part on this view
        eTypeInternal = 1,  ///< cut-out
    };

    int type = eTypeExternal;
    ZetArray<double> xValues;
    ZetArray<double> yValues;  ///< as long as xValues
    ZetArray<double> bulges;   ///< one per point, of the edge that starts there; 0: straight
    /// The host's own mark of where the contour comes from, for example a line of a file; only
    /// carried.
    long hostTag = 0;

    long getPointCount() const { return xValues.length(); }
};
