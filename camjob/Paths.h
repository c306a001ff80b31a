#pragma once

#include "plugin/Utf8Path.h"

#include <string>

namespace camjob {

using plugin::PathFromUtf8;
using plugin::Utf8FromPath;

/// A file in a folder, whose name stays as the user wrote it.
std::string NameIn(const std::string& folder, const std::string& file);

}  // namespace camjob
