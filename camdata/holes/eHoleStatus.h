#pragma once

/// How far the processing of a hole has come.
enum eHoleStatus : int {
    eHoleStatusNone = 0,          ///< not yet classified; may be taken as the pair of another hole
    eHoleStatusGroup = 1,         ///< valid: the hole belongs to its code group
    eHoleStatusCSK = 2,           ///< countersink of the NC data, companion of another hole
    eHoleStatusWaitsForPair = 3,  ///< waits for its pair hole
    eHoleStatusNotInGroup = 4,    ///< the group check failed
    eHoleStatusIsPair = 6,        ///< found as the pair of another hole
    eHoleStatusInsideSlot = 7,    ///< lies inside a slot
    eHoleStatusNeverPair = 9,     ///< never taken as a pair hole
};
