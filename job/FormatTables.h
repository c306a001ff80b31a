#pragma once

#include "job/FormatDocument.h"
#include "job/Toml.h"

namespace job {

/// Reads all tables of a format file; what is faulty is told and keeps its default.
FormatDocument ReadFormatTables(const toml::table& file, JobFaults& faults);

}  // namespace job
