#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/run/RunCommand.h"

#include <string>
#include <vector>

namespace camjob {

/// The command line of `camjob run` for any number of jobs.
struct JobsOptions {
    std::vector<std::string> jobs;  ///< names of the job files, UTF-8
    bool asLines = false;           ///< JSON, a document on a line for each job
    RunOptions each = {};           ///< without its job
};

/// Runs jobs one after the other, each as RunJob does, and goes on after one that fails; behind
/// several jobs a summary is reported. Two jobs of one call cannot have one output folder. Returns
/// the highest of their exit codes.
int RunJobs(const JobsOptions& options,
            const RunSystem& system,
            OutputStream& out,
            OutputStream& err);

}  // namespace camjob
