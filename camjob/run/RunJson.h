#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/run/RunReport.h"

namespace camjob {

/// The report for programs: one JSON document. Its fields are told in docs/run-json.md.
void WriteRunJson(const RunReport& report, OutputStream& out);

}  // namespace camjob
