#pragma once

#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// The command line of `camjob show`.
struct ShowOptions {
    std::vector<std::string> files;  ///< names of files and folders in UTF-8
    std::string out;  ///< file or folder, UTF-8; "": the standard output, one file only
    std::string job;  ///< as for `camjob check`
    bool asDxf = false;
};

/// Draws each file in turn, and goes on after one that cannot be read. Writes nothing when the
/// names of the drawings clash. Returns the exit code.
int RunShow(const ShowOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
