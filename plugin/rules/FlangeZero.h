#pragma once

#include "job/Job.h"

#include "camdata/platform/host/ZetNCStructure.h"

namespace plugin {

/// Moves what lies on the top and the bottom flange of a member (views at 0 and 2) to where the
/// member type's zero lines say: Y less the zero line, or the zero line less Y, with all angles and
/// bulges mirrored.
void ApplyFlangeZeros(ZetNCStructure& structure, const job::MemberType& type);

/// The Y where a flange of this width begins that began at Y = 0 of the file.
double LowerEdgeOf(double width, const job::FlangeZero& zero);

/// The Y of the file that a zero line moved to `y`.
double FileYOf(double y, const job::FlangeZero& zero);

}  // namespace plugin
