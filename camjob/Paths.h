#pragma once

#include "camdata/platform/ZetString.h"

#include <filesystem>
#include <string>

namespace camjob {

/// Names of files are UTF-8 in the tool, whatever the system calls its own.
std::filesystem::path PathFromUtf8(const std::string& name);
std::string Utf8FromPath(const std::filesystem::path& path);
ZetString TextFromPath(const std::filesystem::path& path);

}  // namespace camjob
