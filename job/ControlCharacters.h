#pragma once

#include "camdata/platform/text/ZetString.h"

#include <optional>
#include <string>
#include <string_view>

namespace job {

/// Behind the backslash of an escape.
inline constexpr wchar_t kEscapeLetter = L'u';

/// Appends what stands for a character that a text must not hold as it is: "\u001B".
void AppendEscape(std::wstring& text, wchar_t c);

/// Takes the digits of an escape from the beginning of a text: "001B". Nothing when they are not
/// there.
std::optional<wchar_t> TakeEscaped(std::wstring_view& text);

/// A text for a file of the output: control characters but tabs and line ends as above.
ZetString EscapeControls(const ZetString& text);

}  // namespace job
