#pragma once

#include "job/Utf8Path.h"

#include <string>

namespace camjob {

using job::PathFromUtf8;
using job::Utf8FromPath;

/// A file in a folder, whose name stays as the user wrote it.
std::string NameIn(const std::string& folder, const std::string& file);

}  // namespace camjob
