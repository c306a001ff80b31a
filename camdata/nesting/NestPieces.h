#pragma once

#include "camdata/nesting/CMxNestParts.h"

namespace camdata::detail {

/// The pieces on one bar of a nest, for those who go on with them: the class tells them in a text
/// for people. Lent by the nest.
struct NestPieces {
    explicit NestPieces(const CMxNestParts& nest)
        : marks(nest.m_marks), quantities(nest.m_quantities) {}

    const ZetArray<ZetString>& marks;  ///< the main part first
    const ZetArray<int>& quantities;   ///< by mark
};

}  // namespace camdata::detail
