#pragma once

#include "camjob/compare/OutputChanges.h"
#include "camjob/console/ReportJson.h"

namespace camjob {

/// The changes as `changes` of docs/run-json.md; `against` as given here.
Json ChangesJson(const OutputChanges& changes, const std::string& against);
/// A feature of a member, or of a change. Throws Json::exception for what is something else.
OutputFeature FeatureFrom(const Json& json);
/// The changes that were written so. Throws Json::exception for what is something else.
OutputChanges ChangesFrom(const Json& json);

}  // namespace camjob
