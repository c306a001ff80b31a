#pragma once

#include "camdata/platform/base/Export.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

/// @file
/// Type-safe `printf` formatting of wide text.
///
/// A conversion is `%`, flags (`-`, `+`, blank, `0`, `#`), width, `.` and precision, an `l` or `h`
/// without meaning, and one of
///
/// | conversion          | argument            |
/// |---------------------|---------------------|
/// | `s`                 | wide text           |
/// | `d`, `i`            | an integer          |
/// | `u`, `x`, `X`, `o`  | an integer          |
/// | `f`, `e`, `g`, `a`  | a double            |
/// | `F`, `E`, `G`, `A`  | a double            |
/// | `c`                 | a wide character    |
/// | `%`                 | none                |
///
/// Every conversion but `%%` takes the next argument, whether it fits or not. Digits are those of
/// the C library in the "C" locale. `u`, `x`, `X` and `o` print a negative integer as its 32-bit
/// two's complement where that holds it. Widths and precisions above kZetFormatMaxField are no
/// conversions, and neither are `x`, `X`, `o`, `a` and `A` behind the flag blank, which means
/// nothing there: "50% of" and "10% above" are texts.

/// The largest width or precision of a conversion.
inline constexpr int kZetFormatMaxField = 4096;

/// One argument of a format: refers to the text it was made from, copies nothing.
class ZetFormatArg {
  public:
    enum class Kind {
        kInteger,    ///< any integer type
        kDouble,     ///< float or double
        kText,       ///< wide text
        kCharacter,  ///< one wide character
    };

    template <std::integral T>
    requires(!std::same_as<T, wchar_t>) constexpr ZetFormatArg(T value)
        : m_kind(Kind::kInteger),
          m_integer(static_cast<std::int64_t>(value)),
          m_isUnsigned(std::is_unsigned_v<T>) {}
    template <typename T>
    requires std::is_enum_v<T>
    constexpr ZetFormatArg(T value) : ZetFormatArg(static_cast<std::underlying_type_t<T>>(value)) {}
    constexpr ZetFormatArg(wchar_t value) : m_kind(Kind::kCharacter), m_integer(value) {}
    constexpr ZetFormatArg(double value) : m_kind(Kind::kDouble), m_double(value) {}
    constexpr ZetFormatArg(const wchar_t* text)
        : m_kind(Kind::kText), m_text(text == nullptr ? std::wstring_view() : text) {}
    template <typename T>
    requires(std::convertible_to<const T&, std::wstring_view> && !std::is_pointer_v<T> &&
             !std::is_array_v<T>) constexpr ZetFormatArg(const T& text)
        : m_kind(Kind::kText), m_text(text) {}

    constexpr Kind GetKind() const { return m_kind; }
    /// The integer; unsigned values above the signed range keep their bits.
    constexpr std::int64_t GetInteger() const { return m_integer; }
    constexpr bool IsUnsigned() const { return m_isUnsigned; }
    constexpr double GetDouble() const { return m_double; }
    constexpr std::wstring_view GetText() const { return m_text; }
    constexpr wchar_t GetCharacter() const { return static_cast<wchar_t>(m_integer); }

    /// The kind of argument that a value of type T becomes.
    template <typename T>
    static constexpr Kind KindOf() {
        if constexpr (std::is_same_v<std::remove_cv_t<T>, wchar_t>)
            return Kind::kCharacter;
        else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>)
            return Kind::kInteger;
        else if constexpr (std::is_floating_point_v<T>)
            return Kind::kDouble;
        else
            return Kind::kText;
    }

  private:
    Kind m_kind;
    std::int64_t m_integer = 0;
    bool m_isUnsigned = false;
    double m_double = 0.0;
    std::wstring_view m_text;
};

namespace camdata::detail {

/// One conversion of a format, taken apart.
struct FormatConversion {
    bool leftAligned = false;
    bool plusSign = false;
    bool blankSign = false;
    bool zeroPadded = false;
    bool alternate = false;
    int width = 0;
    int precision = -1;      ///< -1: none given
    wchar_t letter = 0;      ///< 0: no conversion that this formatter knows
    std::size_t length = 0;  ///< characters from "%" to the conversion's letter
};

constexpr bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Reads digits at `at`; more than kZetFormatMaxField gives a value above it, whatever the length.
constexpr int ReadField(std::wstring_view text, std::size_t& at) {
    int value = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        value = value > kZetFormatMaxField ? value : value * 10 + (text[at] - L'0');
    return value;
}

constexpr bool ReadFlag(wchar_t c, FormatConversion& conversion) {
    switch (c) {
        case L'-':
            return conversion.leftAligned = true;
        case L'+':
            return conversion.plusSign = true;
        case L' ':
            return conversion.blankSign = true;
        case L'0':
            return conversion.zeroPadded = true;
        case L'#':
            return conversion.alternate = true;
        default:
            return false;
    }
}

/// Takes apart the conversion that `text` begins with ("%" included).
constexpr FormatConversion ParseFormatConversion(std::wstring_view text) {
    constexpr std::wstring_view kConversions = L"sdiuxXofFeEgGaAc%";
    constexpr std::wstring_view kNoBlank = L"xXoaA";
    FormatConversion conversion;
    std::size_t at = 1;
    while (at < text.size() && ReadFlag(text[at], conversion))
        ++at;
    conversion.width = ReadField(text, at);
    if (at < text.size() && text[at] == L'.')
        conversion.precision = ReadField(text, ++at);
    while (at < text.size() && (text[at] == L'l' || text[at] == L'h'))
        ++at;
    const bool fields =
        conversion.width <= kZetFormatMaxField && conversion.precision <= kZetFormatMaxField;
    const bool isText =
        conversion.blankSign && kNoBlank.find(text.substr(at, 1)) != std::wstring_view::npos;
    if (at < text.size() && fields && !isText &&
        kConversions.find(text[at]) != std::wstring_view::npos)
        conversion.letter = text[at];
    conversion.length = at < text.size() ? at + 1 : at;
    return conversion;
}

/// The conversions that take one kind of argument.
constexpr std::wstring_view LettersOf(ZetFormatArg::Kind kind) {
    switch (kind) {
        case ZetFormatArg::Kind::kText:
            return L"s";
        case ZetFormatArg::Kind::kInteger:
            return L"diuxXo";
        case ZetFormatArg::Kind::kDouble:
            return L"fFeEgGaA";
        case ZetFormatArg::Kind::kCharacter:
            return L"c";
    }
    return {};
}

constexpr bool Fits(wchar_t letter, ZetFormatArg::Kind kind) {
    return LettersOf(kind).find(letter) != std::wstring_view::npos;
}

/// True when every conversion of `format` is known, and they take all of `kinds` in order.
constexpr bool FormatTakes(std::wstring_view format,
                           std::initializer_list<ZetFormatArg::Kind> kinds) {
    auto next = kinds.begin();
    for (std::size_t at = format.find(L'%'); at != std::wstring_view::npos;
         at = format.find(L'%', at)) {
        const FormatConversion conversion = ParseFormatConversion(format.substr(at));
        at += conversion.length;
        if (conversion.letter == L'%')
            continue;
        if (next == kinds.end() || !Fits(conversion.letter, *next))
            return false;
        ++next;
    }
    return next == kinds.end();
}

/// The text of a format; see the file comment.
CAMDATA_API std::wstring Format(std::wstring_view format, std::initializer_list<ZetFormatArg> args);

}  // namespace camdata::detail

/// A literal format whose conversions were checked against the argument types by the compiler.
template <typename... Args>
class ZetFormatString {
  public:
    consteval ZetFormatString(const wchar_t* format) : m_format(format) {
        if (!camdata::detail::FormatTakes(m_format,
                                          {ZetFormatArg::KindOf<std::decay_t<Args>>()...}))
            FormatDoesNotFitItsArguments();
    }
    constexpr std::wstring_view view() const { return m_format; }

  private:
    /// Not constexpr: calling it stops the compilation with its name in the message.
    static void FormatDoesNotFitItsArguments() {}

    std::wstring_view m_format;
};
