#include "job/ControlCharacters.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace job {

namespace {

constexpr std::size_t kDigits = 4;
constexpr int kBitsOfDigit = 4;
constexpr std::wstring_view kHexDigits = L"0123456789ABCDEF";

}  // namespace

void AppendEscape(std::wstring& text, wchar_t c) {
    text += {L'\\', kEscapeLetter};
    for (int shift = kBitsOfDigit * (kDigits - 1); shift >= 0; shift -= kBitsOfDigit)
        text += kHexDigits[(static_cast<unsigned long>(c) >> shift) & 0xF];
}

std::optional<wchar_t> TakeEscaped(std::wstring_view& text) {
    const std::wstring_view digits = text.substr(0, kDigits);
    text.remove_prefix(digits.size());
    unsigned value = 0;
    for (const wchar_t digit : digits) {
        const std::size_t at = kHexDigits.find(digit);
        if (at == std::wstring_view::npos)
            return std::nullopt;
        value = (value << kBitsOfDigit) | static_cast<unsigned>(at);
    }
    return digits.size() == kDigits ? std::optional(static_cast<wchar_t>(value)) : std::nullopt;
}

ZetString EscapeControls(const ZetString& text) {
    constexpr std::wstring_view kKept = L"\t\r\n";
    const auto isEscaped = [&](wchar_t c) {
        return camdata::detail::IsControl(c) && kKept.find(c) == std::wstring_view::npos;
    };
    if (std::none_of(text.view().begin(), text.view().end(), isEscaped))
        return text;
    std::wstring escaped;
    for (const wchar_t c : text.view()) {
        if (isEscaped(c))
            AppendEscape(escaped, c);
        else
            escaped += c;
    }
    return ZetString(std::move(escaped));
}

}  // namespace job
