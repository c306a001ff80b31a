#pragma once

#include "camdata/rules/eReportingTypes.h"

namespace job {

/// As [member_type.report] says it.
const char* NameOfReport(eReportingTypes report);

}  // namespace job
