#include "dstv/NcText.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace dstv {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;
constexpr std::size_t kMaxQuoted = 60;

/// Windows-1252 from 0x80 to 0x9F; everything else there is as in Latin-1.
constexpr std::array<wchar_t, 32> kWindows1252 = {
    0x20AC,       kReplacement, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kReplacement, 0x017D, kReplacement,
    kReplacement, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kReplacement, 0x017E, 0x0178,
};

/// The legal second bytes of a UTF-8 sequence, by its first byte.
struct Utf8Lead {
    unsigned char first;
    unsigned char last;
    std::size_t length;
    unsigned char secondMin;
    unsigned char secondMax;
};

constexpr std::array<Utf8Lead, 9> kUtf8Leads = {
    {
     {0x00, 0x7F, 1, 0x80, 0xBF},
     {0xC2, 0xDF, 2, 0x80, 0xBF},
     {0xE0, 0xE0, 3, 0xA0, 0xBF},
     {0xE1, 0xEC, 3, 0x80, 0xBF},
     {0xED, 0xED, 3, 0x80, 0x9F},
     {0xEE, 0xEF, 3, 0x80, 0xBF},
     {0xF0, 0xF0, 4, 0x90, 0xBF},
     {0xF1, 0xF3, 4, 0x80, 0xBF},
     {0xF4, 0xF4, 4, 0x80, 0x8F},
     }
};

bool IsWithin(char c, unsigned char low, unsigned char high) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= low && byte <= high;
}

/// Length of the well-formed sequence at the start of `bytes`; 0 when there is none.
std::size_t Utf8Length(std::string_view bytes) {
    const auto* lead = std::find_if(kUtf8Leads.begin(), kUtf8Leads.end(), [&](const Utf8Lead& row) {
        return IsWithin(bytes[0], row.first, row.last);
    });
    if (lead == kUtf8Leads.end() || bytes.size() < lead->length)
        return 0;
    if (lead->length > 1 && !IsWithin(bytes[1], lead->secondMin, lead->secondMax))
        return 0;
    for (std::size_t i = 2; i < lead->length; ++i)
        if (!IsWithin(bytes[i], 0x80, 0xBF))
            return 0;
    return lead->length;
}

wchar_t FromWindows1252(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80u] : static_cast<wchar_t>(byte);
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    bytes.remove_prefix(static_cast<std::size_t>(
        std::find_if_not(bytes.begin(), bytes.end(), isAscii) - bytes.begin()));
    while (!bytes.empty()) {
        const std::size_t length = Utf8Length(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

ZetString DecodeText(std::string_view bytes) {
    if (IsUtf8(bytes))
        return ZetString::fromUtf8(bytes);
    std::wstring text(bytes.size(), L'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), FromWindows1252);
    return ZetString(std::move(text));
}

std::string_view Trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

ZetString DecodeWithoutControls(std::string_view bytes) {
    std::wstring text(DecodeText(bytes).view());
    std::replace_if(text.begin(), text.end(), camdata::detail::IsControl, kReplacement);
    return ZetString(std::move(text));
}

ZetString Quotable(std::string_view bytes) {
    std::wstring text(DecodeWithoutControls(bytes).view());
    if (text.size() > kMaxQuoted)
        text.replace(kMaxQuoted, std::wstring::npos, L"...");
    return ZetString(std::move(text));
}

}  // namespace dstv
