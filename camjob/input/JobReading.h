#pragma once

#include "dstv/NcReader.h"
#include "job/Job.h"

namespace camjob {

/// How the NC files of a job are read, in the words of the reader.
dstv::NcReading ReadingOf(const job::NcInput& input);

}  // namespace camjob
