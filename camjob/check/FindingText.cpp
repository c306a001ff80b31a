#include "camjob/check/FindingText.h"

#include "camjob/console/ReportText.h"
#include "job/FindingTypes.h"

namespace camjob {

ZetString RemedyLines(const std::set<int>& types) {
    ZetString lines;
    for (const int type : types) {
        const job::FindingType& row = job::kFindingTypes[type];
        lines += Line(ZetString::fromUtf8(row.name) + L": " + ZetString::fromUtf8(row.remedy));
    }
    return lines;
}

}  // namespace camjob
