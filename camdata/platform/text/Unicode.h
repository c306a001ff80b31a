#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// Conversions between wide text (UTF-16 where wchar_t has two bytes, else UTF-32) and bytes.

namespace camdata::detail {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// A character that steers whoever shows or reads it instead of standing for something.
constexpr bool IsControl(wchar_t c) {
    const auto codeUnit = static_cast<char32_t>(c);  // signed on some systems
    return codeUnit < 0x20 || (codeUnit >= 0x7F && codeUnit < 0xA0);
}

/// A character that turns the direction of a text or ends its line, though it is none of the above.
constexpr bool IsLayoutControl(wchar_t c) {
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

/// One code point and the bytes that it was read from.
struct DecodedCharacter {
    char32_t codePoint;
    std::size_t bytes;
};

/// Reads the first code point of `bytes`, which must not be empty. What is not UTF-8 (overlong
/// forms and surrogates included) gives U+FFFD and one byte.
DecodedCharacter DecodeUtf8(std::string_view bytes);

/// Appends a code point; beyond U+FFFF as two halves where wchar_t has two bytes.
void AppendWide(std::wstring& text, char32_t codePoint);

std::wstring WideFromUtf8(std::string_view bytes);
/// Half surrogates become U+FFFD.
std::string Utf8FromWide(std::wstring_view text);
/// The platform's narrow characters: the ANSI code page on Windows, UTF-8 elsewhere.
std::string NarrowFromWide(std::wstring_view text);

}  // namespace camdata::detail
