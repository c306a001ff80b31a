#pragma once

#include "camdata/rules/eReportingTypes.h"

namespace job {

/// As [member_type.report] names it; one of eValidationTypes or ValidationType.
const char* NameOfCheck(int check);
/// As [member_type.report] says it.
const char* NameOfReport(eReportingTypes report);

}  // namespace job
