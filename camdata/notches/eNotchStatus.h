#pragma once

/// What has become of a notch. The values 2 and 3 are not used.
enum eNotchStatus : int {
    eNotchValid = 0,          ///< no fault found so far
    eNotchCornerMatched = 1,  ///< matches a corner definition and carries its output text
    eNotchNone = 4,           ///< the external contour cuts nothing from its bounding rectangle
    eNotchNotAllowed = 5,     ///< the member type does not permit notches of this kind
};
