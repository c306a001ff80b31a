#pragma once

#include "camdata/platform/host/ZetNCHeaderData.h"

/// A header of which a test names what it is about: HeaderOf{.mark = L"P1", .length = 3000}.
struct HeaderOf {
    ZetString drawingNumber = {};
    ZetString mark = {};
    long quantity = 0;
    ZetString profileName = {};
    ZetString profileCode = {};
    double length = 0.0;
    double height = 0.0;
    double width = 0.0;
    double thickness = 0.0;

    operator ZetNCHeaderData() const {
        // clang-format off
        return {drawingNumber, mark, quantity, profileName, profileCode,
                length, 0.0, height, width, thickness, {}, 0.0, 0.0};
        // clang-format on
    }
};
