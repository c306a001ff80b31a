#pragma once

#include "dstv/NcPart.h"

#include <vector>

namespace dstv {

/// Something in a file that somebody wants to have made: nothing of it may vanish.
struct NcEntry {
    const wchar_t* kind = L"";  ///< in words: "hole", "outline" and so on
    long line = 0;              ///< where its notes and the host's tag point
    bool isNoted = false;       ///< the NC data do not have it: a note or warning tells it
};

/// All entries of a part, in the order of its lines; also those that the NC data have no place for.
std::vector<NcEntry> EntriesOf(const NcPart& part);

}  // namespace dstv
