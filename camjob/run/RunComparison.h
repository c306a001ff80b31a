#pragma once

#include "camjob/compare/OutputFile.h"
#include "camjob/run/MemberJson.h"
#include "camjob/run/RunReport.h"

namespace camjob {

/// The output of a run, to hold an older one against; report and list must outlive it. Of the
/// members whose lines are the same, up to some memory, the list gets the text.
NewerOutput ToCompare(const RunReport& report, MadeMembers& made);

}  // namespace camjob
