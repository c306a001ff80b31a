#include "camdata/platform/text/ZetFormat.h"

#include "camdata/platform/text/FixedPoint.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace camdata::detail {
namespace {

using Kind = ZetFormatArg::Kind;

/// Room for the longest number: 309 digits before the point, the most after it, sign and exponent.
using NumberBuffer = std::array<char, kZetFormatMaxField + 330>;

/// The text of a number before it is padded.
struct NumberText {
    NumberBuffer buffer;
    std::size_t length = 0;
    bool isNegative = false;
    bool zeroPadded = false;  ///< fill the width with zeros after sign and prefix
    bool hasPrefix = false;   ///< begins with "0x", which counts for the width

    void Append(char c) { buffer[length++] = c; }
    void Insert(std::size_t at, char c) {
        for (std::size_t i = length++; i > at; --i)
            buffer[i] = buffer[i - 1];
        buffer[at] = c;
    }
    std::string_view View() const { return {buffer.data(), length}; }
    void Print(auto... toCharsArguments) {
        const auto end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), toCharsArguments...);
        length = static_cast<std::size_t>(end.ptr - buffer.data());
    }
};

void PadTo(std::wstring& text, std::size_t start, const FormatConversion& conversion) {
    const std::size_t length = text.size() - start;
    const auto width = static_cast<std::size_t>(conversion.width);
    if (length < width)
        text.insert(conversion.leftAligned ? text.size() : start, width - length, L' ');
}

void AppendSign(std::wstring& text, bool isNegative, const FormatConversion& conversion) {
    if (isNegative)
        text.push_back(L'-');
    else if (conversion.plusSign)
        text.push_back(L'+');
    else if (conversion.blankSign)
        text.push_back(L' ');
}

wchar_t CapitalLetter(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

wchar_t SmallLetter(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

void AppendNumber(std::wstring& text,
                  const NumberText& number,
                  const FormatConversion& conversion) {
    const std::size_t start = text.size();
    AppendSign(text, number.isNegative, conversion);
    if (number.hasPrefix)
        text.append(L"0x");
    const std::size_t used = text.size() - start + number.length;
    const auto width = static_cast<std::size_t>(conversion.width);
    if (number.zeroPadded && !conversion.leftAligned && used < width)
        text.append(width - used, L'0');
    // Appending by iterators of another type would make a text of its own first.
    const std::size_t end = text.size();
    text.resize(end + number.length);
    std::copy_n(number.buffer.begin(), number.length, text.data() + end);
    if (conversion.letter >= L'A' && conversion.letter <= L'Z')
        std::transform(text.begin() + static_cast<std::ptrdiff_t>(start),
                       text.end(),
                       text.begin() + static_cast<std::ptrdiff_t>(start),
                       CapitalLetter);
    PadTo(text, start, conversion);
}

/// The value that `%u` and its like print: a negative number as the bits of 32-bit integer where it
/// fits one.
std::uint64_t AsUnsigned(const ZetFormatArg& arg) {
    const std::int64_t value = arg.GetInteger();
    const bool is32Bit = !arg.IsUnsigned() && value < 0 && value >= INT32_MIN;
    return is32Bit ? static_cast<std::uint32_t>(value) : static_cast<std::uint64_t>(value);
}

int BaseOf(wchar_t letter) {
    if (SmallLetter(letter) == L'x')
        return 16;
    return letter == L'o' ? 8 : 10;
}

void AppendInteger(std::wstring& text,
                   const ZetFormatArg& arg,
                   const FormatConversion& conversion) {
    NumberText number;
    const bool printsUnsigned = conversion.letter != L'd' && conversion.letter != L'i';
    const int base = BaseOf(conversion.letter);
    number.isNegative = !printsUnsigned && !arg.IsUnsigned() && arg.GetInteger() < 0;
    const std::uint64_t bits =
        printsUnsigned ? AsUnsigned(arg) : static_cast<std::uint64_t>(arg.GetInteger());
    const std::uint64_t magnitude = number.isNegative ? 0 - bits : bits;
    if (magnitude != 0 || conversion.precision != 0)
        number.Print(magnitude, base);
    while (number.length < static_cast<std::size_t>(std::max(conversion.precision, 0)))
        number.Insert(0, '0');
    // The alternate form tells the base by its beginning.
    if (conversion.alternate && base == 8 && !number.View().starts_with('0'))
        number.Insert(0, '0');
    number.hasPrefix = conversion.alternate && base == 16 && magnitude != 0;
    number.zeroPadded = conversion.zeroPadded && conversion.precision < 0;
    FormatConversion signs = conversion;
    if (printsUnsigned)
        signs.plusSign = signs.blankSign = false;
    AppendNumber(text, number, signs);
}

/// Prints the fixed form of a value whose scaled form is a whole number below 2^53.
void PrintScaled(NumberText& number, double whole, int decimals) {
    number.Print(static_cast<std::uint64_t>(std::abs(whole)));
    while (number.length <= static_cast<std::size_t>(decimals))
        number.Insert(0, '0');
    if (decimals > 0)
        number.Insert(number.length - static_cast<std::size_t>(decimals), '.');
}

void PrintFixed(NumberText& number, double value, int precision) {
    if (const auto whole = ScaledToWhole(value, precision))
        PrintScaled(number, *whole, precision);
    else
        number.Print(std::abs(value), std::chars_format::fixed, precision);
}

/// The decimal exponent of the scientific form with that precision.
int ExponentOf(double magnitude, int precision) {
    NumberText number;
    number.Print(magnitude, std::chars_format::scientific, precision);
    number.buffer[number.length] = '\0';
    const std::string_view text = number.View();
    return static_cast<int>(std::strtol(text.data() + text.find('e') + 1, nullptr, 10));
}

/// `%g`: the shorter of both forms, without trailing zeros unless the alternate form asks for them.
void PrintGeneral(NumberText& number, double magnitude, int precision, bool keepsZeros) {
    if (precision == 0)
        precision = 1;
    if (!keepsZeros) {
        number.Print(magnitude, std::chars_format::general, precision);
        return;
    }
    const int exponent = magnitude == 0.0 ? 0 : ExponentOf(magnitude, precision - 1);
    if (exponent >= -4 && exponent < precision)
        number.Print(magnitude, std::chars_format::fixed, precision - 1 - exponent);
    else
        number.Print(magnitude, std::chars_format::scientific, precision - 1);
}

/// Without its last bits, rounded half to even.
std::uint64_t WithoutBits(std::uint64_t value, int count) {
    const std::uint64_t step = std::uint64_t{1} << count;
    const std::uint64_t rest = value % step;
    const std::uint64_t kept = value / step;
    return 2 * rest > step || (2 * rest == step && kept % 2 == 1) ? kept + 1 : kept;
}

/// `%a`: the leading bit, a fraction and a power of two, as the value is stored; below 0 the
/// precision is that of all digits up to the last that is not 0.
void PrintHexadecimal(NumberText& number, double magnitude, int precision) {
    constexpr int kFractionBits = 52;
    constexpr int kFractionDigits = kFractionBits / 4;
    constexpr int kBias = 1023;
    constexpr std::uint64_t kLeadingBit = std::uint64_t{1} << kFractionBits;
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const int biased = static_cast<int>(bits >> kFractionBits);
    const std::uint64_t fraction = bits % kLeadingBit;
    const int needed = fraction == 0 ? 0 : kFractionDigits - std::countr_zero(fraction) / 4;
    const int digits = std::min(precision < 0 ? needed : precision, kFractionDigits);
    number.Print(WithoutBits(biased == 0 ? fraction : fraction + kLeadingBit,
                             4 * (kFractionDigits - digits)),
                 16);
    while (number.length <= static_cast<std::size_t>(digits))
        number.Insert(0, '0');
    while (number.length <= static_cast<std::size_t>(std::max(precision, 0)))
        number.Append('0');
    if (number.length > 1)
        number.Insert(1, '.');
    const int exponent = magnitude == 0.0 ? 0 : std::max(biased, 1) - kBias;
    NumberText power;
    power.Print(std::abs(exponent));
    number.Append('p');
    number.Append(exponent < 0 ? '-' : '+');
    for (const char c : power.View())
        number.Append(c);
    number.hasPrefix = true;
}

/// The alternate form always has a point.
void EnsurePoint(NumberText& number) {
    if (number.View().find('.') != std::string_view::npos)
        return;
    const std::size_t exponent = number.View().find_first_of("ep");
    number.Insert(exponent == std::string_view::npos ? number.length : exponent, '.');
}

void PrintFinite(NumberText& number, double value, const FormatConversion& conversion) {
    const int precision = conversion.precision < 0 ? 6 : conversion.precision;
    const wchar_t letter = SmallLetter(conversion.letter);
    if (letter == L'f')
        PrintFixed(number, value, precision);
    else if (letter == L'e')
        number.Print(std::abs(value), std::chars_format::scientific, precision);
    else if (letter == L'a')
        PrintHexadecimal(number, std::abs(value), conversion.precision);
    else
        PrintGeneral(number, std::abs(value), precision, conversion.alternate);
    if (conversion.alternate)
        EnsurePoint(number);
}

void AppendDouble(std::wstring& text, double value, const FormatConversion& conversion) {
    NumberText number;
    number.isNegative = std::signbit(value);
    if (std::isfinite(value)) {
        number.zeroPadded = conversion.zeroPadded;
        PrintFinite(number, value, conversion);
    } else {
        for (const char c : std::string_view(std::isnan(value) ? "nan" : "inf"))
            number.Append(c);
    }
    AppendNumber(text, number, conversion);
}

void AppendText(std::wstring& text, std::wstring_view part, const FormatConversion& conversion) {
    const std::size_t start = text.size();
    // Below 0, without a precision, that is more characters than any text has.
    text.append(part.substr(0, static_cast<std::size_t>(conversion.precision)));
    PadTo(text, start, conversion);
}

void AppendArgument(std::wstring& text,
                    const ZetFormatArg& arg,
                    const FormatConversion& conversion) {
    switch (arg.GetKind()) {
        case Kind::kInteger:
            return AppendInteger(text, arg, conversion);
        case Kind::kDouble:
            return AppendDouble(text, arg.GetDouble(), conversion);
        case Kind::kText:
            return AppendText(text, arg.GetText(), conversion);
        case Kind::kCharacter: {
            const wchar_t character = arg.GetCharacter();
            FormatConversion whole = conversion;
            whole.precision = -1;
            return AppendText(text, {&character, 1}, whole);
        }
    }
}

}  // namespace

std::wstring Format(std::wstring_view format, std::initializer_list<ZetFormatArg> args) {
    constexpr std::size_t kUsualArgument = 8;
    std::wstring text;
    text.reserve(format.size() + kUsualArgument * args.size());
    auto next = args.begin();
    while (true) {
        const std::size_t percent = format.find(L'%');
        text.append(format.substr(0, percent));
        if (percent == std::wstring_view::npos)
            return text;
        format.remove_prefix(percent);
        const FormatConversion conversion = ParseFormatConversion(format);
        const bool takesArgument = conversion.letter != 0 && conversion.letter != L'%';
        const ZetFormatArg* arg = takesArgument && next != args.end() ? next++ : nullptr;
        if (arg != nullptr && Fits(conversion.letter, arg->GetKind()))
            AppendArgument(text, *arg, conversion);
        else
            text.append(conversion.letter == L'%' ? L"%" : format.substr(0, conversion.length));
        format.remove_prefix(conversion.length);
    }
}

}  // namespace camdata::detail
