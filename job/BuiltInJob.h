#pragma once

#include "job/Job.h"

namespace job {

/// A job with what every job has: four files and two groups, and no member types or rules.
Job MakeEmptyJob();

/// A job that judges members without rules of any machine: all dimensions from the NC header, no
/// limits, one group "members", every hole and notch accepted. Distances to edges and ends are
/// checked against the usual limits. Findings of the plug-in are warnings; those of distances and
/// of what was set aside give no lines, the records of holes and notches tell them.
Job BuiltInJob();

}  // namespace job
