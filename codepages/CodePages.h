#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace codepages {

/// The characters of a code page from byte 0x80 on; below it each is ASCII.
struct CodePage {
    const char* name;                      ///< "windows-1251", "iso-8859-2", ...
    std::array<char16_t, 128> fromByte80;  ///< kNoCharacter where the page has none
};

inline constexpr char16_t kNoCharacter = 0xFFFD;
inline constexpr unsigned kFirstForeignByte = 0x80;

/// Every page that a job can name, the same on every system: windows-1250 to -1258, iso-8859-1 to
/// -16 without -12, which was never made.
std::span<const CodePage> GetCodePages();
/// The page of that name; null: none.
const CodePage* FindCodePage(std::string_view name);
/// The byte that stands for a character; nothing when the page has none.
std::optional<char> ByteOf(char32_t character, const CodePage& page);

}  // namespace codepages
