#pragma once

/// The hand of a run, for machines that are built either way. The library only keeps it.
enum eHanding : int {
    eHandingNone = 0,   ///< not set
    eHandingLeft = 1,   ///< left-handed
    eHandingRight = 2,  ///< right-handed
};
