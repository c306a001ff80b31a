#pragma once

#include "camjob/compare/OutputFile.h"
#include "camjob/run/RunReport.h"

namespace camjob {

/// The output of a run, to hold an older one against; the report must outlive it.
NewerOutput ToCompare(const RunReport& report);

}  // namespace camjob
