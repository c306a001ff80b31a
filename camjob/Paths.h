#pragma once

#include <filesystem>
#include <string>

namespace camjob {

/// Names of files are UTF-8 in the tool, whatever the system calls its own.
std::filesystem::path PathFromUtf8(const std::string& name);
std::string Utf8FromPath(const std::filesystem::path& path);
/// A file in a folder, whose name stays as the user wrote it.
std::string NameIn(const std::string& folder, const std::string& file);

}  // namespace camjob
