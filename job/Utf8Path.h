#pragma once

#include <filesystem>
#include <string>

namespace job {

/// Names of files are UTF-8 in job and tool, whatever the system calls its own.
std::filesystem::path PathFromUtf8(const std::string& name);
/// A name as the system has it: what opens a file, without a look at the folders in it.
std::filesystem::path::string_type NativeFromUtf8(const std::string& name);
std::string Utf8FromPath(const std::filesystem::path& path);

}  // namespace job
