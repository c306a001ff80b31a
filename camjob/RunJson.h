#pragma once

#include "camjob/OutputStream.h"
#include "camjob/RunReport.h"

namespace camjob {

/// The report for programs: one JSON document. Its fields are told in docs/run-json.md.
void WriteRunJson(const RunReport& report, OutputStream& out);

}  // namespace camjob
