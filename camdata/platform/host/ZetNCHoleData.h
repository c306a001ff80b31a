#pragma once

#include <tuple>

/// One hole of a view as the host's NC data gives it. A plain value; mm and degrees, in the view's
/// 2-D coordinates.
struct ZetNCHoleData {
    /// What the hole's tool does.
    enum Kind {
        eKindPlain = 0,        ///< bore, drilled or punched
        eKindThreadRight = 1,  ///< right-hand thread
        eKindThreadLeft = 2,   ///< left-hand thread
        eKindCountersunk = 4,  ///< countersink, the companion of a hole at the same place
    };

    int commented = 0;  ///< 1: set aside in the NC data
    double x = 0.0;     ///< for a slot as given by the host: the centre of one end circle
    double y = 0.0;
    int kind = eKindPlain;
    double size = 0.0;        ///< diameter, or width across a slot
    int slot = 0;             ///< 0: no slot
    double slotLength = 0.0;  ///< between the centres of the slot's ends
    double slotAngle = 0.0;   ///< from the view's X axis, counter-clockwise
    double depth = 0.0;       ///< 0: through
    /// The host's own mark of where the hole comes from, for example a line of a file; only
    /// carried.
    long hostTag = 0;

    /// All but the tag.
    friend bool operator==(const ZetNCHoleData& a, const ZetNCHoleData& b) {
        const auto valuesOf = [](const ZetNCHoleData& hole) {
            return std::tie(hole.commented,
                            hole.x,
                            hole.y,
                            hole.kind,
                            hole.size,
                            hole.slot,
                            hole.slotLength,
                            hole.slotAngle,
                            hole.depth);
        };
        return valuesOf(a) == valuesOf(b);
    }
};
