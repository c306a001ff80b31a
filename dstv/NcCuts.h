#pragma once

#include "dstv/NcPart.h"

#include <vector>

namespace dstv {

/// A place in terms of the standard faces: a plane that is parallel to one is that face.
NcPlace StandardPlace(const NcPart& part, const NcPlace& place);

/// What a saw cut is on the web and on the flanges; one that is square is a cut of the web alone. A
/// cut along the piece has an angle of 90 degrees.
std::vector<NcCut> CutsOf(const NcSawCut& sawCut, const NcHeader& header);

/// The outlines of all faces that a cut goes through leave away what it takes: those that show its
/// angle end in an edge at it, the others end early enough.
bool IsCutByOutlines(const NcPart& part, const NcCut& cut);

}  // namespace dstv
