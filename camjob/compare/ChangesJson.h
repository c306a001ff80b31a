#pragma once

#include "camjob/compare/OutputChanges.h"
#include "camjob/console/ReportJson.h"

namespace camjob {

/// The changes as `changes` of docs/run-json.md; `against` as given here.
Json ChangesJson(const OutputChanges& changes, const std::string& against);

}  // namespace camjob
