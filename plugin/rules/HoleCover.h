#pragma once

#include "camdata/holes/CHoleAddlInfo.h"

/// \file
/// What a hole has to have so that another one at its place need not be made.

namespace plugin {

inline bool IsThrough(const CHoleAddlInfo& hole) {
    return !(hole.GetHoleData().depth > 0.0);
}

/// Whether a hole has the thread of another one, if that has any.
inline bool HasThreadOf(const CHoleAddlInfo& hole, const CHoleAddlInfo& other) {
    const int kind = other.GetHoleData().kind;
    return kind == ZetNCHoleData::eKindPlain || kind == hole.GetHoleData().kind;
}

}  // namespace plugin
