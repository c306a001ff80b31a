#pragma once

#include "plugin/Job.h"

namespace plugin {

/// A job with what every job has: four files and two groups, and no member types or rules.
Job MakeEmptyJob();

/// A job that judges members without rules of any machine: all dimensions from the NC header, no
/// limits, one group "members", every hole and notch accepted. Distances to edges and ends are
/// checked against the usual limits; that, like every other finding of the plug-in, is a warning.
Job BuiltInJob();

}  // namespace plugin
