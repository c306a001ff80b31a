#pragma once

#include "camdata/platform/text/ZetString.h"

/// The header of one member's NC data. A plain value; lengths in mm.
struct ZetNCHeaderData {
    ZetString drawingNumber;
    ZetString mark;  ///< part number
    long quantity = 0;
    ZetString profileName;
    ZetString profileCode;  ///< the NC format's code of the profile's kind, for example "SO"
    double length = 0.0;
    double sawLength = 0.0;  ///< length between the theoretical points of the cuts; 0: not given
    double height = 0.0;
    double width = 0.0;
    double thickness = 0.0;
    ZetString material;            ///< grade, for example "S350GD"
    double weightPerMetre = 0.0;   ///< kg; of plates per square metre; 0: not given
    double surfacePerMetre = 0.0;  ///< m2 to be painted; of plates per square metre; 0: not given
};
