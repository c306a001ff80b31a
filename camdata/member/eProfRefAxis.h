#pragma once

/// A line along a straight beam. Left and right, top and bottom are those of the box around the
/// profile, seen from the beam's start towards its end.
enum eProfRefAxis : int {
    eProfRefAxisModel = 0,         ///< the line along which the beam was modelled
    eProfRefAxisCentroid = 1,      ///< through the centroid of the profile
    eProfRefAxisTopLeft = 2,       ///< through the upper left corner of the box
    eProfRefAxisTopCentre = 3,     ///< through the middle of its upper side
    eProfRefAxisTopRight = 4,      ///< through the upper right corner
    eProfRefAxisMiddleLeft = 5,    ///< through the middle of its left side
    eProfRefAxisMiddleCentre = 6,  ///< through its middle
    eProfRefAxisMiddleRight = 7,   ///< through the middle of its right side
    eProfRefAxisBottomLeft = 8,    ///< through the lower left corner
    eProfRefAxisBottomCentre = 9,  ///< through the middle of its lower side
    eProfRefAxisBottomRight = 10,  ///< through the lower right corner
};
