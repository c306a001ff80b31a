#pragma once

#include "plugin/output/ProfilePlan.h"

#include "camdata/platform/system/ZetFileAccess.h"

#include <string>
#include <vector>

namespace plugin {

/// The cutting list of one profile for people: its bars, those that are cut alike together, and
/// what they come to. `group` is the group's name. Written bar by bar: of a large job it would fill
/// the memory.
void WriteCuttingList(const ProfilePlan& plan, const ZetString& group, ZetFileAccess& file);

/// The same for programs: CSV as RFC 4180 has it, UTF-8, one row per piece of every bar.
class CuttingTable {
  public:
    /// The column names, and their line end.
    static std::string MakeHead();
    /// Writes the rows of one profile, bar by bar.
    static void WriteRows(const ProfilePlan& plan, const ZetString& group, ZetFileAccess& file);
};

}  // namespace plugin
