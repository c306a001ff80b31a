#pragma once

#include "camjob/console/ExitCode.h"
#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// The whole program: `arguments` (UTF-8, without the program's name), report and messages.
/// Returns the exit code.
int RunCamjob(std::vector<std::string> arguments, OutputStream& out, OutputStream& err);

}  // namespace camjob
