#include "camdata/platform/text/Unicode.h"

#include <algorithm>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace camdata::detail {
namespace {

constexpr bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

constexpr bool IsCodePoint(char32_t c) {
    return c <= 0x10FFFF && !IsHighSurrogate(c) && !IsLowSurrogate(c);
}

/// The forms of UTF-8 by their first byte; `least` is the first code point that needs the form.
struct Utf8Form {
    unsigned char mask;
    unsigned char lead;
    std::size_t bytes;
    char32_t least;
};

constexpr Utf8Form kUtf8Forms[] = {
    {0x80, 0x00, 1, 0x0    },
    {0xE0, 0xC0, 2, 0x80   },
    {0xF0, 0xE0, 3, 0x800  },
    {0xF8, 0xF0, 4, 0x10000},
};

const Utf8Form* FindForm(unsigned char lead) {
    for (const Utf8Form& form : kUtf8Forms) {
        if ((lead & form.mask) == form.lead)
            return &form;
    }
    return nullptr;
}

void AppendUtf8(std::string& bytes, char32_t codePoint) {
    std::size_t count = 1;
    while (count < std::size(kUtf8Forms) && codePoint >= kUtf8Forms[count].least)
        ++count;
    for (std::size_t i = 0; i < count; ++i) {
        const char32_t part = codePoint >> (6 * (count - 1 - i));
        const char32_t lead = i == 0 ? kUtf8Forms[count - 1].lead | part : 0x80 | (part & 0x3F);
        bytes.push_back(static_cast<char>(static_cast<unsigned char>(lead)));
    }
}

/// How many characters `text` begins with that are the same number in every form; most texts hold
/// nothing else.
template <typename Character>
std::size_t AsciiRun(std::basic_string_view<Character> text) {
    constexpr std::size_t kBlock = 16;
    std::size_t count = 0;
    while (count + kBlock <= text.size()) {
        char32_t all = 0;
        for (std::size_t i = 0; i < kBlock; ++i)
            all |= static_cast<char32_t>(text[count + i]);
        if (all >= 0x80)
            break;
        count += kBlock;
    }
    while (count < text.size() && static_cast<char32_t>(text[count]) < 0x80)
        ++count;
    return count;
}

void AppendAscii(std::string& bytes, std::wstring_view text) {
    const std::size_t before = bytes.size();
    bytes.resize(before + text.size());
    std::transform(text.begin(), text.end(), bytes.data() + before, [](wchar_t c) {
        return static_cast<char>(c);
    });
}

/// Appending by iterators of another type would make a text of its own first.
void AppendAscii(std::wstring& text, std::string_view bytes) {
    const std::size_t before = text.size();
    text.resize(before + bytes.size());
    std::copy(bytes.begin(), bytes.end(), text.data() + before);
}

/// Reads one code point of wide text at `at` and moves past it.
char32_t NextCodePoint(std::wstring_view text, std::size_t& at) {
    const char32_t first = static_cast<char32_t>(text[at++]);
#if defined(_WIN32)  // wide text is UTF-16
    static_assert(sizeof(wchar_t) == 2);
    if (IsHighSurrogate(first) && at < text.size()) {
        const char32_t second = static_cast<char32_t>(text[at]);
        if (IsLowSurrogate(second)) {
            ++at;
            return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
        }
    }
#else
    static_assert(sizeof(wchar_t) == 4);
#endif
    return IsCodePoint(first) ? first : kReplacementCharacter;
}

}  // namespace

DecodedCharacter DecodeUtf8(std::string_view bytes) {
    constexpr DecodedCharacter kInvalid = {kReplacementCharacter, 1};
    const auto lead = static_cast<unsigned char>(bytes.front());
    const Utf8Form* form = FindForm(lead);
    if (form == nullptr || bytes.size() < form->bytes)
        return kInvalid;
    char32_t codePoint = lead & static_cast<unsigned char>(~form->mask);
    for (std::size_t i = 1; i < form->bytes; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0) != 0x80)
            return kInvalid;
        codePoint = (codePoint << 6) | (next & 0x3F);
    }
    if (codePoint < form->least || !IsCodePoint(codePoint))
        return kInvalid;
    return {codePoint, form->bytes};
}

void AppendWide(std::wstring& text, char32_t codePoint) {
#if defined(_WIN32)
    if (codePoint > 0xFFFF) {
        text.push_back(static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10)));
        text.push_back(static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF)));
        return;
    }
#endif
    text.push_back(static_cast<wchar_t>(codePoint));
}

std::wstring WideFromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t plain = AsciiRun(bytes);
        AppendAscii(text, bytes.substr(0, plain));
        bytes.remove_prefix(plain);
        if (bytes.empty())
            break;
        const DecodedCharacter next = DecodeUtf8(bytes);
        AppendWide(text, next.codePoint);
        bytes.remove_prefix(next.bytes);
    }
    return text;
}

std::string Utf8FromWide(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t plain = AsciiRun(text);
        AppendAscii(bytes, text.substr(0, plain));
        std::size_t at = plain;
        if (at < text.size())
            AppendUtf8(bytes, NextCodePoint(text, at));
        text.remove_prefix(at);
    }
    return bytes;
}

#if defined(_WIN32)
std::string NarrowFromWide(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}
#else
std::string NarrowFromWide(std::wstring_view text) {
    return Utf8FromWide(text);
}
#endif

}  // namespace camdata::detail
