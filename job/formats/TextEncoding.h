#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace codepages {
struct CodePage;
}

namespace job {

/// Of a character that is two where wide ones have 16 bits.
constexpr bool IsSecondHalf(wchar_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// A text in the bytes of an encoding; null: UTF-8. Nothing when it has a character that the
/// encoding has not.
std::optional<std::string> InEncoding(std::wstring_view text, const codepages::CodePage* page);

}  // namespace job
