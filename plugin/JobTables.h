#pragma once

#include "plugin/JobDocument.h"
#include "plugin/Toml.h"

namespace plugin {

/// Reads all tables of a job file; what is faulty is told and keeps its default.
JobDocument ReadTables(const toml::table& file, JobFaults& faults);

}  // namespace plugin
