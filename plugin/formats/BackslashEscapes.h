#pragma once

#include <optional>
#include <string>

namespace plugin {

/// Appends a character of a text in quotes: with a backslash before it, or as its escape, where it
/// cannot stand there as it is.
void AppendBackslashed(std::wstring& text, wchar_t c);

/// The character that a letter behind a backslash stands for; nothing for another letter.
std::optional<wchar_t> CharacterOfEscape(wchar_t letter);

}  // namespace plugin
