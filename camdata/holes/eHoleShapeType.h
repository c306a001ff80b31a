#pragma once

/// The shape of a hole. Not the kind of the host's hole data: that one's 4 is a countersink.
enum eHoleShapeType : int {
    eHoleShapeUnknown = 0,      ///< none of the others, a thread for example
    eHoleShapeRound = 1,        ///< plain round hole
    eHoleShapeCountersunk = 2,  ///< round hole with a countersink
    eHoleShapeSlot = 3,         ///< slot with round ends
    eHoleShapeSquare = 4,       ///< square cut-out
    eHoleShapeRectangular = 5,  ///< rectangular cut-out
};
