#pragma once

#include "camjob/check/FindingPlace.h"
#include "camjob/console/JsonText.h"
#include "camjob/console/ReportJson.h"
#include "plugin/ledger/Finding.h"

#include <string>
#include <vector>

namespace camjob {

/// Its kind and line.
Json FeatureJson(const plugin::Feature& feature);
/// The findings on a member of a file, each an object that stands for itself.
Json FindingsJson(const std::vector<plugin::Finding>& findings,
                  const std::string& file,
                  const HeaderPlaces& lines);
/// The same as text.
JsonText FindingsText(const std::vector<plugin::Finding>& findings,
                      const std::string& file,
                      const HeaderPlaces& lines);

}  // namespace camjob
