#pragma once

#include "camdata/rules/eValidationTypes.h"

namespace job {

/// The checks of holes, notches and members that the plug-in adds to the library's six.
enum ValidationType : int {
    kUncoveredHole = 6,     ///< no hole rule covers a hole
    kHoleDistance = 7,      ///< a hole is too near an edge, an end or a face
    kHoleInsideSlot = 8,    ///< a hole lies inside a slot and is left out
    kExcludedHole = 9,      ///< the rule of a hole excludes the member and names no other
    kMissingPair = 10,      ///< a hole has no second hole
    kMissingGroup = 11,     ///< a hole belongs to no group
    kDuplicateHole = 12,    ///< a hole repeats another and is left out
    kDuplicateNotch = 13,   ///< a notch repeats another and is left out
    kUncoveredNotch = 14,   ///< no corner notch describes a notch
    kFixedPattern = 15,     ///< a hole of the fixed pattern is missing
    kQuantity = 16,         ///< more pieces than a member may have, or none
    kLongerThanStock = 17,  ///< a member to be nested is longer than the stock
    kUncoveredTrim = 18,    ///< no trim covers what an outline leaves away at a whole side
    kUnclearCut = 19,       ///< no operations tell an outline, or a cut, as it is
    kHoleOutside = 20,      ///< a hole lies outside of its face or of the member
    kLoneCountersink = 21,  ///< a countersink has no hole of its own
    kUnclearPlane = 22,     ///< a plane shows neither the web nor a flange for certain
    kMissingParts = 23,     ///< a main part, or all, have fewer single parts than they need
    kUnusedParts = 24,      ///< single parts that no assembly takes
    kUnwritable = 25,       ///< the format of a file cannot express a value
    kNoBar = 26,            ///< no bar is long enough or left for pieces of a member
};

inline constexpr int kValidationTypes = kNoBar + 1;

static_assert(kUncoveredHole == static_cast<int>(eValidationFirstFeature));
static_assert(kLongerThanStock == static_cast<int>(eValidationLastFeature));

}  // namespace job
