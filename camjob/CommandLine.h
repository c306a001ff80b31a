#pragma once

#include "camjob/console/ExitCode.h"
#include "camjob/console/OutputStream.h"

#include <memory>
#include <string>
#include <vector>

namespace camjob {

/// The whole program: `arguments` (UTF-8, without the program's name), report and messages.
/// Returns the exit code. `leftover` takes what a run leaves behind where the process ends, which
/// lets go of it quicker; it is not to be destroyed.
int RunCamjob(std::vector<std::string> arguments,
              OutputStream& out,
              OutputStream& err,
              std::shared_ptr<const void>* leftover = nullptr);

/// What is left to do of a call that the memory was not enough for: says so, in the JSON document
/// that was asked for, too, of which something may be out (`hasReported`). Returns the exit code.
int EndWithoutMemory(const std::vector<std::string>& arguments,
                     bool hasReported,
                     OutputStream& out,
                     OutputStream& err);

}  // namespace camjob
