#pragma once

#include "support/PlainNesting.h"

#include "camdata/nesting/CMxNestParts.h"
#include "camdata/platform/base/ZetArray.h"

#include <string>
#include <vector>

/// A part to nest.
inline CMxParts PartOf(const PlainPart& plain) {
    CMxParts part;
    part.SetPartNo(plain.mark);
    part.SetQty(plain.qty);
    part.SetLength(plain.length);
    return part;
}

/// All that a nest tells of itself, as PlainNest::Report has it.
inline std::string ReportOf(const CMxNestParts& nest) {
    ZetString wastage;
    nest.GenerateOffCutWastage(wastage);
    return ZetString::format(L"%d\n%s\n%s", nest.GetQty(), wastage, nest.GenerateCombinations())
        .toUtf8();
}

inline std::string ReportOf(const PlainNest& nest) {
    return nest.Report().toUtf8();
}

template <typename Nests>
std::vector<std::string> ReportsOf(const Nests& nests) {
    std::vector<std::string> reports;
    for (const auto& nest : nests)
        reports.push_back(ReportOf(nest));
    return reports;
}
