#pragma once

#include "camjob/console/ExitCode.h"
#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// The whole program: `arguments` (UTF-8, without the program's name), report and messages.
/// Returns the exit code.
int RunCamjob(std::vector<std::string> arguments, OutputStream& out, OutputStream& err);

/// What is left to do of a call that the memory was not enough for: says so, in the JSON document
/// that was asked for, too, of which something may be out (`hasReported`). Returns the exit code.
int EndWithoutMemory(const std::vector<std::string>& arguments,
                     bool hasReported,
                     OutputStream& out,
                     OutputStream& err);

}  // namespace camjob
