#pragma once

#include "camjob/console/OutputStream.h"
#include "camjob/run/RunReport.h"

namespace camjob {

/// "412 features: 380 made, 14 refused, 10 set aside, 8 noted"
ZetString DescribeAccounts(const plugin::AccountNumbers& accounts);

/// The report for people: tables of what was made on one stream, what went wrong on the other.
void WriteRunText(const RunReport& report, bool showsNotes, OutputStream& out, OutputStream& err);

}  // namespace camjob
