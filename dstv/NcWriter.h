#pragma once

#include "dstv/NcEncoding.h"
#include "dstv/NcPart.h"

#include <functional>
#include <string>
#include <variant>

namespace dstv {

/// How a part is written.
struct NcWriting {
    std::string encoding{kAutomaticEncoding};  ///< of texts, see NcEncoding.h; "auto": UTF-8
    std::string lineEnd = "\n";
    /// Whether the feature of a line is written; null: all.
    std::function<bool(long line)> isKept;
};

/// The bytes of an NC file that reads back as the part does: what has no place in the NC data
/// (tolerances, camber, bends, sections, orders, comments) included. Numbers keep up to nine
/// decimals. Else the first text that the encoding has no bytes for.
std::variant<std::string, ZetString> WriteNc(const NcPart& part, const NcWriting& writing = {});

}  // namespace dstv
