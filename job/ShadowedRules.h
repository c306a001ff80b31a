#pragma once

#include "job/FormatDocument.h"

namespace job {

/// Tells each member type, hole rule, corner notch and trim that can never be reached, because an
/// earlier one takes all that it could take. Rules that another one names for excluded members are
/// reached that way.
void CheckShadowed(const JobDocument& document, JobFaults& faults);

/// The same for the tools and profiles of a format file.
void CheckShadowed(const FormatDocument& document, JobFaults& faults);

}  // namespace job
