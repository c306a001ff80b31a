#pragma once

#include "job/JobFile.h"

#include <string>
#include <variant>
#include <vector>

/// @file
/// The table of remnants that a job takes bars from, and the same of what a run leaves.

namespace job {

/// Those that the job's table tells, none without a table; else what is wrong with it, all faulty
/// rows by line.
std::variant<std::vector<Remnant>, std::vector<JobError>> ReadRemnants(const Job& job);

/// A table with these rows, UTF-8.
std::string MakeRemnantTable(const std::vector<Remnant>& remnants);

/// The table that the job names; empty when it names none.
std::filesystem::path GetRemnantFile(const Job& job);

}  // namespace job
