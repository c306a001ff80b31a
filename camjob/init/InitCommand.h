#pragma once

#include "camjob/console/OutputStream.h"

#include <string>

namespace camjob {

/// The command line of `camjob init`.
struct InitOptions {
    std::string folder;  ///< UTF-8; made when missing
};

/// Writes a commented job with an NC file to start from. Replaces no file that is there, and leaves
/// none behind when one cannot be written. Returns the exit code.
int RunInit(const InitOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
