#pragma once

#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// What an example job is for.
enum class InitKind {
    kMixed,    ///< one member of each kind
    kPurlins,  ///< with every key of a job, and comments
    kFrames,
    kPlates,
};

/// The command line of `camjob init`.
struct InitOptions {
    std::string folder;             ///< UTF-8; made when missing
    std::vector<std::string> from;  ///< NC files and folders of them, UTF-8; none: an example
    InitKind kind = InitKind::kMixed;
};

/// Writes a commented job to start from: for the NC files, which stay where they are, or for
/// examples that it writes too. Replaces no file that is there, and leaves none behind when one
/// cannot be written. Returns the exit code.
int RunInit(const InitOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
