#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/run/RunReport.h"

namespace camjob {

/// The report for people: tables of what was made on one stream, what went wrong on the other.
void WriteRunText(const RunReport& report, bool showsNotes, OutputStream& out, OutputStream& err);

}  // namespace camjob
