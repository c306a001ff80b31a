#pragma once

#include "camdata/platform/text/ZetString.h"

/// One text marked on a view, in the view's 2-D coordinates, mm and degrees.
struct ZetNCNumeration {
    double x = 0.0;
    double y = 0.0;
    double angle = 0.0;
    double textHeight = 0.0;
    ZetString text;
    /// The host's own mark of where it comes from, for example a line of a file; only carried.
    long hostTag = 0;
};
