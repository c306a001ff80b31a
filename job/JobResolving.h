#pragma once

#include "job/JobDocument.h"

#include <filesystem>

namespace job {

/// Checks what no single key can show, and makes the job: ids become positions, positions below
/// FileRole and GroupRole are filled. Format files are read. With faults the job is of no use. The
/// names of the output files begin with that of the job file, unless the job says so.
Job ResolveJob(const JobDocument& document,
               const std::filesystem::path& jobFile,
               JobFaults& faults);

}  // namespace job
