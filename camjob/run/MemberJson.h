#pragma once

#include "camjob/console/JsonText.h"
#include "camjob/run/RunReport.h"

#include <cstddef>
#include <string>
#include <vector>

namespace camjob {

Json AccountsJson(const plugin::AccountNumbers& accounts);

/// A member of a report with its features, operations and findings; `file` names its NC file.
JsonText MemberJson(const RunReport& report, std::size_t member, const std::string& file);

/// Members that a comparison has made for the document already; "" for one that is still to be
/// made.
using MadeMembers = std::vector<std::string>;

}  // namespace camjob
