#pragma once

#include "camdata/platform/text/ZetString.h"

#include <set>

namespace camjob {

/// What can be done about findings of these types (eValidationTypes and job::ValidationType): lines
/// of a report.
ZetString RemedyLines(const std::set<int>& types);

}  // namespace camjob
