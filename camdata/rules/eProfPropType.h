#pragma once

/// Where one dimension of a profile comes from. Any other value acts as eProfPropNone.
enum eProfPropType : int {
    eProfPropHeader = 0,  ///< the value of the NC header
    eProfPropName = 1,    ///< a number cut out of the profile name
    eProfPropFixed = 2,   ///< the fixed value of the member type
    eProfPropAttrib = 3,  ///< the explicit section attributes
    eProfPropNone = 4,    ///< not available: the dimension reads as -0.1
};
