#pragma once

#include "camdata/platform/text/ZetString.h"

/// One text marked on a view, in the view's 2-D coordinates, mm and degrees.
struct ZetNCNumeration {
    double x = 0.0;
    double y = 0.0;
    double angle = 0.0;
    double textHeight = 0.0;
    ZetString text;
};
