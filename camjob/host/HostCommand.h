#pragma once

#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

namespace camjob {

/// The command line of `camjob host`. All names in UTF-8.
struct HostOptions {
    std::string plugin;              ///< the plug-in's module
    std::vector<std::string> files;  ///< NC files, or folders of them; none: those of the job
    std::string job;                 ///< how the files are read and what is fixed to what; "": none
    std::string folder;  ///< of the plug-in's output; "": one beside, named after the plug-in
};

/// Runs a plug-in on the parts of NC files, as a host would. Every file must be readable. Returns
/// the exit code.
int RunHost(const HostOptions& options, OutputStream& out, OutputStream& err);

}  // namespace camjob
