#pragma once

#include "job/JobDocument.h"

#include <string_view>

namespace job {

/// Checks what no single key can show, and makes the job: ids become positions, positions below
/// FileRole and GroupRole are filled. With faults the job is of no use. `stem` is the job file's
/// name without its ending, what the output files' names begin with unless the job says so.
Job ResolveJob(const JobDocument& document, std::string_view stem, JobFaults& faults);

}  // namespace job
