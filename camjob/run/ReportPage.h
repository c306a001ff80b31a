#pragma once

#include "camjob/run/RunReport.h"
#include "job/Job.h"

#include "camdata/project/CProjectInformation.h"

#include <string>

namespace camjob {

/// The page of a run as HTML; files without a size in the report are those still to be written.
std::string MakeReportPage(const RunReport& report,
                           const job::Job& job,
                           const CProjectInformation& project);

}  // namespace camjob
