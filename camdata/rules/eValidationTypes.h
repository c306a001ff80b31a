#pragma once

/// A check whose findings have a report type of their own in CMemberValidations. 6 to 17 are checks
/// of single holes and notches, which member classes number among themselves.
enum eValidationTypes : int {
    eValidationNoOfHoles = 0,             ///< more holes than allowed
    eValidationNoOfInternalContours = 1,  ///< more internal contours than allowed
    eValidationNoOfExternalContours = 2,  ///< more external contours than allowed
    eValidationMinimumLength = 3,         ///< shorter than the minimum length
    eValidationMaximumLength = 4,         ///< longer than the maximum length
    eValidationFixedLength = 5,           ///< not of the fixed length
    eValidationFirstFeature = 6,          ///< first check of a hole or notch
    eValidationLastFeature = 17,          ///< last check of a hole or notch
};
