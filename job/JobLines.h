#pragma once

#include "job/JobDocument.h"

#include <string_view>

namespace job {

/// Tells the first line that the parser would not tell well, or not survive. The rest is for the
/// parser.
void CheckLines(std::string_view bytes, JobFaults& faults);

}  // namespace job
