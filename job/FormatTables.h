#pragma once

#include "job/FormatDocument.h"
#include "job/JobKeys.h"
#include "job/Toml.h"

#include <vector>

namespace job {

/// Reads all tables of a format file; what is faulty is told and keeps its default.
FormatDocument ReadFormatTables(const toml::table& file, JobFaults& faults);

/// Every table of a format file with its keys, like ListJobKeys.
std::vector<JobKeyTable> ListFormatKeys();

/// As a format file names it.
const char* NameOf(FormatPart part);

}  // namespace job
