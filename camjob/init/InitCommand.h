#pragma once

#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// The command line of `camjob init`.
struct InitOptions {
    std::string folder;             ///< UTF-8; made when missing
    std::vector<std::string> from;  ///< NC files and folders of them, UTF-8; none: an example
    std::string kind = "mixed";     ///< what an example job is for
};

/// What is wrong with a kind of example job; "" when there is one.
std::string FaultOfInitKind(const std::string& kind);

/// Writes a commented job to start from: for the NC files, which stay where they are, or for
/// examples that it writes too. Replaces no file that is there, and leaves none behind when one
/// cannot be written. Returns the exit code.
int RunInit(const InitOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
