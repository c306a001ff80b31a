#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace plugin {

/// Ends each line of a finished file with CR and LF instead of LF. The system's word where the file
/// cannot be read or written; it is of no use then.
std::error_code EndLinesWithCrLf(const std::filesystem::path& file);

/// Replaces the bytes of a file. The system's word where it cannot be written.
std::error_code WriteBytes(const std::filesystem::path& file, const std::string& bytes);

}  // namespace plugin
