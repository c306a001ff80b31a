#pragma once

#include "dstv/NcAssemblies.h"
#include "dstv/NcReader.h"
#include "job/Job.h"

#include <string>
#include <vector>

namespace camjob {

/// How the NC files of a job are read, in the words of the reader.
dstv::NcReading ReadingOf(const job::Job& job);

/// Reads an NC file of a job. Errors say what the job can change about them.
dstv::NcResult ReadFileOfJob(const std::string& file, const dstv::NcReading& reading);

/// What is fixed to what, as the job says it.
std::vector<dstv::NcAssembly> AssembliesOf(const job::Job& job);

}  // namespace camjob
