#pragma once

#include "job/JobDocument.h"
#include "job/Toml.h"

namespace job {

/// Reads all tables of a job file; what is faulty is told and keeps its default.
JobDocument ReadTables(const toml::table& file, JobFaults& faults);

}  // namespace job
