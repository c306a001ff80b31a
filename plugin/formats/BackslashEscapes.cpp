#include "plugin/formats/BackslashEscapes.h"

#include "job/ControlCharacters.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <iterator>

namespace plugin {

namespace {

struct Escape {
    wchar_t character;
    wchar_t letter;  ///< behind the backslash
};

/// Characters that a text in quotes may not hold as they are, and have a letter of their own.
constexpr Escape kEscapes[] = {
    {L'"',  L'"' },
    {L'\\', L'\\'},
    {L'\n', L'n' },
    {L'\r', L'r' },
};

const Escape* FindEscape(wchar_t Escape::*part, wchar_t c) {
    const auto* const at = std::find_if(
        std::begin(kEscapes), std::end(kEscapes), [&](const Escape& e) { return e.*part == c; });
    return at == std::end(kEscapes) ? nullptr : at;
}

}  // namespace

void AppendBackslashed(std::wstring& text, wchar_t c) {
    if (const Escape* const escape = FindEscape(&Escape::character, c))
        text += {L'\\', escape->letter};
    else if (c != L'\t' && camdata::detail::IsControl(c))
        job::AppendEscape(text, c);
    else
        text += c;
}

std::optional<wchar_t> CharacterOfEscape(wchar_t letter) {
    const Escape* const escape = FindEscape(&Escape::letter, letter);
    return escape != nullptr ? std::optional(escape->character) : std::nullopt;
}

}  // namespace plugin
