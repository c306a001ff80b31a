#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/disk/StagingDisk.h"
#include "camjob/run/RunReport.h"
#include "cutting/Planner.h"

#include <functional>
#include <memory>
#include <string>

namespace camjob {

/// The command line of `camjob run`.
struct RunOptions {
    std::string job;           ///< name of the job file, UTF-8
    std::string folder;        ///< of the output, UTF-8; "": as the job says
    std::string against = {};  ///< an earlier output to compare with; "": the one that is replaced
    bool asJson = false;
    bool asLine = false;           ///< the JSON on one line
    bool showsNotes = false;       ///< besides the warnings of the reader
    bool showsDialog = false;      ///< for the project information, before anything is read
    bool ignoresSettings = false;  ///< of the project information, whatever the job says of them
    unsigned threads = 1;          ///< that read and judge members
};

/// What a run does not do itself; tests put something else in its place.
struct RunSystem {
    StagingDisk& disk;
    /// Asked before each file is read and each member written, and while a least plan is made, in
    /// the thread that makes it; from the first yes on, yes.
    std::function<bool()> isCancelled;
    cutting::Planner planLeast = &cutting::MakeLeastPlan;
    /// Why the output cannot go to a folder (UTF-8); "": it can. Null: it can go to any.
    std::function<std::string(const std::string& folder)> faultOfFolder = nullptr;
    /// Takes what RunJob leaves behind, which may be much, and is let go of quicker by the end of
    /// the process than piece by piece. It is not to be destroyed. Null: nothing is left.
    std::shared_ptr<const void>* leftover = nullptr;
};

/// Runs a job from NC files to manufacturing files, and reports it. All inputs are read before
/// anything is written; the output in the folder is replaced whole or not at all. Returns the exit
/// code.
int RunJob(const RunOptions& options,
           const RunSystem& system,
           OutputStream& out,
           OutputStream& err);
/// The same; returns what it has reported.
RunReport RunAndReport(const RunOptions& options,
                       const RunSystem& system,
                       OutputStream& out,
                       OutputStream& err);

/// The document of a run that the memory was not enough for, or the rest of one that is begun.
void WriteRunWithoutMemory(bool isBegun, OutputStream& out);

}  // namespace camjob
