#pragma once

#include "dstv/NcHost.h"

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/platform/ZetNCCreator.h"

#include <vector>

namespace camjob {

/// The library's record of one hole, and where it comes from.
struct HoleRecord {
    const dstv::NcHole* source = nullptr;  ///< owned by the entity's part
    int viewPosition = 0;
    CHoleAddlInfo record;
};

/// One record per hole of a part, in the file's order; marks are none. `creator` has run `entity`.
std::vector<HoleRecord> MakeHoleRecords(const dstv::NcFileEntity& entity,
                                        const ZetNCCreator& creator);

/// The library's word for the face at a view position; "plane 5" and so on for planes of their own.
ZetString FaceWord(int viewPosition);

}  // namespace camjob
