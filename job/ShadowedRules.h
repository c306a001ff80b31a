#pragma once

#include "job/JobDocument.h"

namespace job {

/// Tells each member type, hole rule, corner notch and trim that can never be reached, because an
/// earlier one takes all that it could take. Rules that another one names for excluded members are
/// reached that way.
void CheckShadowed(const JobDocument& document, JobFaults& faults);

}  // namespace job
