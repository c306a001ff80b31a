#pragma once

#include <algorithm>
#include <string_view>

namespace job {

inline bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// Each byte of it is a character, then.
inline bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return IsAscii(c); });
}

}  // namespace job
