#pragma once

#include "camjob/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// What the program ends with; of several outcomes the highest.
enum ExitCode : int {
    kExitDone = 0,
    kExitInvalidMembers = 1,  ///< done, but some members have errors
    kExitBadInput = 2,        ///< bad usage, or an input that cannot be read
    kExitNotWritten = 3,      ///< an output could not be written
    kExitCancelled = 130,     ///< stopped by Ctrl-C, as shells tell it
};

/// The whole program: `arguments` (UTF-8, without the program's name), report and messages.
/// Returns the exit code.
int RunCamjob(std::vector<std::string> arguments, OutputStream& out, OutputStream& err);

}  // namespace camjob
