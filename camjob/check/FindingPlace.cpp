#include "camjob/check/FindingPlace.h"

namespace camjob {

HeaderPlaces HeaderPlacesOf(const dstv::NcHeader& header) {
    return {header.lineOf(dstv::NcHeaderValue::kMark),
            header.lineOf(dstv::NcHeaderValue::kQuantity),
            header.lineOf(dstv::NcHeaderValue::kLength)};
}

long LineOf(const plugin::Finding& finding, const HeaderPlaces& lines) {
    if (finding.feature)
        return finding.feature->tag;
    switch (finding.type) {
        case eValidationMinimumLength:
        case eValidationMaximumLength:
        case eValidationFixedLength:
        case job::kLongerThanStock:
            return lines.length;
        case job::kQuantity:
            // Pieces without length have none that would be required.
            return finding.required ? lines.quantity : lines.length;
        case job::kMissingParts:
        case job::kUnusedParts:
        case job::kNoBar:
            return lines.quantity;
        default:
            return lines.mark;
    }
}

}  // namespace camjob
