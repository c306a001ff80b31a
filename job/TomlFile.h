#pragma once

#include "job/JobDocument.h"
#include "job/Toml.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace job {

/// Reads a file of tables; `what` is what it should be, such as "job file". Nothing, and the first
/// fault told, when it cannot be read or is no TOML.
std::optional<toml::table> ReadTomlFile(const std::filesystem::path& file,
                                        const char* what,
                                        JobFaults& faults);
/// The same for bytes that are there already.
std::optional<toml::table> ReadToml(std::string_view bytes, const char* what, JobFaults& faults);

}  // namespace job
