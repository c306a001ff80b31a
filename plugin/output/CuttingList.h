#pragma once

#include "plugin/output/ProfilePlan.h"

#include <string>
#include <vector>

namespace plugin {

/// The cutting list of one profile for people: its bars, those that are cut alike together, and
/// what they come to. `group` is the group's name.
ZetArray<ZetString> MakeCuttingLines(const ProfilePlan& plan, const ZetString& group);

/// The same for programs: CSV as RFC 4180 has it, UTF-8, one row per piece of every bar.
class CuttingTable {
  public:
    /// The column names, and their line end.
    static std::string MakeHead();
    /// The rows of one profile.
    static std::string MakeRows(const ProfilePlan& plan, const ZetString& group);
};

}  // namespace plugin
