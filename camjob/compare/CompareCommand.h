#pragma once

#include "camjob/console/OutputStream.h"

#include <string>

namespace camjob {

/// The command line of `camjob compare`. Names of output folders, or of documents in them; UTF-8.
struct CompareOptions {
    std::string older;
    std::string newer;
    bool asJson = false;
};

/// Tells what differs between two outputs. Returns the exit code.
int RunCompare(const CompareOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
