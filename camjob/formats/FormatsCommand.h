#pragma once

#include "camjob/console/OutputStream.h"

#include <string>

namespace camjob {

/// The command line of `camjob formats`.
struct FormatsOptions {
    std::string name;  ///< "": list them
};

/// Lists the built-in formats, or prints one as a format file to start from. Returns the exit code.
int RunFormats(const FormatsOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
