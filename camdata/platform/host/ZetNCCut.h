#pragma once

/// One straight cut through a whole member at one of its ends, as it is seen on the web or on a
/// flange. A plain value; mm and degrees. A cut that is slanted both ways is one on each.
struct ZetNCCut {
    enum End {
        eEndStart = 0,
        eEndEnd = 1,
    };
    enum Face {
        eFaceWeb = 0,
        eFaceFlange = 1,
    };

    int end = eEndStart;
    int face = eFaceWeb;
    /// From the perpendicular that points down to the lower part of the cut, counter-clockwise.
    double angle = 0.0;
    double x = 0.0;  ///< along the member from its start: where the cut leaves it longest
    /// The host's own mark of where it comes from, for example a line of a file; only carried.
    long hostTag = 0;
};
