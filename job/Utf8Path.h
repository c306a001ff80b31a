#pragma once

#include <filesystem>
#include <string>

namespace job {

/// Names of files are UTF-8 in job and tool, whatever the system calls its own.
std::filesystem::path PathFromUtf8(const std::string& name);
std::string Utf8FromPath(const std::filesystem::path& path);

}  // namespace job
