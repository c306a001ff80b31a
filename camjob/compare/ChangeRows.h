#pragma once

#include "camjob/compare/OutputChanges.h"

#include <string>
#include <vector>

namespace camjob {

/// One change as people read it. UTF-8.
struct ChangeRow {
    std::string name;  ///< mark of the member, or the bars
    std::string what;
    std::string before;
    std::string after;
};

/// "3 members changed, 1 added, 2 removed, 40 as they were".
std::string DescribeChanges(const OutputChanges& changes);

std::vector<ChangeRow> RowsOf(const MemberChange& change);
ChangeRow RowOf(const BarChange& change);
/// Of all members, then of the bars.
std::vector<ChangeRow> RowsOf(const OutputChanges& changes);

}  // namespace camjob
