#pragma once

#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// The command line of `camjob check`.
struct CheckOptions {
    std::vector<std::string> files;  ///< files and folders in UTF-8, in the order of the report
    std::string job;  ///< file of the job whose rules count, UTF-8; "": no rules of any machine
    std::string filesFrom = {};  ///< list of more files, UTF-8; "-": the standard input; "": none
    bool asJson = false;
    bool asLines = false;  ///< JSON, a document on a line for each file
};

/// Reports each file in turn, and goes on after one that cannot be read. Holds one file at a time.
/// A faulty job ends it at once. Returns the exit code.
int RunCheck(const CheckOptions& options, OutputStream& out, OutputStream& err);

/// The document of a check that the memory was not enough for: what `isBegun` says is out of it,
/// and the rest.
void WriteCheckWithoutMemory(bool isBegun, OutputStream& out);

}  // namespace camjob
