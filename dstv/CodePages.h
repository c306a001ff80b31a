#pragma once

#include <array>
#include <span>

namespace dstv {

/// The characters of a code page from byte 0x80 on; below it each is ASCII.
struct CodePage {
    const char* name;                      ///< "windows-1251", "iso-8859-2", ...
    std::array<char16_t, 128> fromByte80;  ///< kNoCharacter where the page has none
};

inline constexpr char16_t kNoCharacter = 0xFFFD;

/// Every page that a job can name, the same on every system: windows-1250 to -1258, iso-8859-1 to
/// -16 without -12, which was never made.
std::span<const CodePage> GetCodePages();

}  // namespace dstv
