#pragma once

/// A face of the profile.
enum eHoleFace : int {
    eHoleFaceWeb = 0,                 ///< web, seen from its front
    eHoleFaceTopFlange = 1,           ///< top flange at a right angle to the web
    eHoleFaceBottomFlange = 2,        ///< bottom flange at a right angle to the web
    eHoleFaceSlopedTopFlange = 3,     ///< sloped top flange; has no output word of its own
    eHoleFaceSlopedBottomFlange = 4,  ///< sloped bottom flange; has no output word of its own
    eHoleFaceWebBack = 5,             ///< web, seen from its back
    eHoleFaceNone = 6,                ///< not known
};
