#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetFormat.h"

#include <compare>
#include <string>
#include <string_view>
#include <utility>

/// The wide-character text of the library: a value type, copied by value, positions counted from 0.
///
/// No operation depends on the process locale, and none fails on a position outside the text:
/// a part that does not exist reads as "".
class CAMDATA_API ZetString {
  public:
    ZetString() = default;
    /// Implicit, so that literals can be passed everywhere. Null counts as "".
    ZetString(const wchar_t* text) : m_text(text == nullptr ? L"" : text) {}
    explicit ZetString(std::wstring text) : m_text(std::move(text)) {}
    explicit ZetString(std::wstring_view text) : m_text(text) {}
    /// `count` copies of `character`; "" when count is below 1.
    ZetString(wchar_t character, long count);

    /// Text from UTF-8 bytes; each byte that is no part of valid UTF-8 becomes U+FFFD.
    static ZetString fromUtf8(std::string_view bytes);
    /// The text as UTF-8; a half surrogate becomes U+FFFD.
    std::string toUtf8() const;
    /// The text as the platform's narrow characters: the ANSI code page on Windows, else UTF-8.
    std::string toNarrow() const;

    const wchar_t* c_str() const { return m_text.c_str(); }
    std::wstring_view view() const { return m_text; }
    operator std::wstring_view() const { return m_text; }
    long length() const { return static_cast<long>(m_text.size()); }
    bool isEmpty() const { return m_text.empty(); }
    /// The character at `index`; the null character outside the text.
    wchar_t operator[](long index) const;

    /// -1, 0 or 1 by the values of the characters; case counts.
    int compare(const ZetString& other) const;
    /// As compare, with A-Z equal to a-z; other letters count as they stand.
    int compareNoCase(const ZetString& other) const;

    /// Position of the first occurrence of `part` at or after `start`, -1 when there is none.
    /// "" occurs everywhere: the result is then `start` while that lies in the text or at its end.
    long find(const ZetString& part, long start = 0) const;
    bool contains(const ZetString& part) const { return find(part) >= 0; }

    /// The part of at most `count` characters that begins at `start`. Only what exists comes back:
    /// "" when start or count is negative or start lies past the end.
    ZetString mid(long start, long count) const;
    /// The text from `start` to its end; "" when start is negative or past the end.
    ZetString mid(long start) const { return mid(start, length()); }
    ZetString left(long count) const { return mid(0, count); }
    /// The text without the blanks (U+0020) at its beginning.
    ZetString trimmedLeft() const;

    /// The number at the beginning of the text: blanks, then the longest run of a sign, digits and
    /// a point, or a sign and "nan" or "inf" (case does not count). No exponent, no hexadecimal.
    /// 0.0 when there is no number; with `wholeText` also when anything but blanks follows it.
    double toDouble(bool wholeText = false) const;

    ZetString& operator+=(const ZetString& other);
    ZetString& operator+=(wchar_t character);
    friend ZetString operator+(ZetString a, const ZetString& b) { return std::move(a += b); }

    friend bool operator==(const ZetString& a, const ZetString& b) { return a.m_text == b.m_text; }
    friend std::strong_ordering operator<=>(const ZetString& a, const ZetString& b) {
        return a.m_text.compare(b.m_text) <=> 0;
    }
    friend bool operator==(const ZetString& a, const wchar_t* b) { return a == ZetString(b); }

    /// A text from a fixed format: the C `printf` conversions, checked against the types of the
    /// arguments when the call is compiled (ZetFormat.h).
    template <typename... Args>
    static ZetString format(ZetFormatString<std::type_identity_t<Args>...> format,
                            const Args&... args) {
        return ZetString(camdata::detail::Format(format.view(), {ZetFormatArg(args)...}));
    }
    /// A text from a format that is known only at run time. A conversion that is unknown, or whose
    /// argument is missing or of another type, stays in the text as it stands; nothing else
    /// happens.
    template <typename... Args>
    static ZetString formatRuntime(const ZetString& format, const Args&... args) {
        return ZetString(camdata::detail::Format(format.view(), {ZetFormatArg(args)...}));
    }

  private:
    std::wstring m_text;
};
