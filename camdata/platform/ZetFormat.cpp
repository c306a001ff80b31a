#include "camdata/platform/ZetFormat.h"

#include "camdata/platform/FixedPoint.h"

#include <array>
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
    bool zeroPadded = false;  ///< fill the width with zeros after the sign

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

void PadTo(std::wstring& text, std::size_t start, const FormatSpec& spec) {
    const std::size_t length = text.size() - start;
    const auto width = static_cast<std::size_t>(spec.width);
    if (length < width)
        text.insert(spec.leftAligned ? text.size() : start, width - length, L' ');
}

void AppendSign(std::wstring& text, bool isNegative, const FormatSpec& spec) {
    if (isNegative)
        text.push_back(L'-');
    else if (spec.plusSign)
        text.push_back(L'+');
    else if (spec.blankSign)
        text.push_back(L' ');
}

void AppendNumber(std::wstring& text, const NumberText& number, const FormatSpec& spec) {
    const std::size_t start = text.size();
    AppendSign(text, number.isNegative, spec);
    const std::size_t used = text.size() - start + number.length;
    const auto width = static_cast<std::size_t>(spec.width);
    if (number.zeroPadded && !spec.leftAligned && used < width)
        text.append(width - used, L'0');
    text.append(number.View().begin(), number.View().end());
    PadTo(text, start, spec);
}

/// The value that `%u` prints: a negative number as the bits of 32-bit integer where it fits one.
std::uint64_t AsUnsigned(const ZetFormatArg& arg) {
    const std::int64_t value = arg.GetInteger();
    const bool is32Bit = !arg.IsUnsigned() && value < 0 && value >= INT32_MIN;
    return is32Bit ? static_cast<std::uint32_t>(value) : static_cast<std::uint64_t>(value);
}

void AppendInteger(std::wstring& text, const ZetFormatArg& arg, const FormatSpec& spec) {
    NumberText number;
    const bool printsUnsigned = spec.conversion == L'u';
    number.isNegative = !printsUnsigned && !arg.IsUnsigned() && arg.GetInteger() < 0;
    const std::uint64_t bits =
        printsUnsigned ? AsUnsigned(arg) : static_cast<std::uint64_t>(arg.GetInteger());
    const std::uint64_t magnitude = number.isNegative ? 0 - bits : bits;
    if (magnitude != 0 || spec.precision != 0)
        number.Print(magnitude);
    while (number.length < static_cast<std::size_t>(std::max(spec.precision, 0)))
        number.Insert(0, '0');
    number.zeroPadded = spec.zeroPadded && spec.precision < 0;
    FormatSpec signs = spec;
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
    return std::atoi(text.data() + text.find('e') + 1);
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

/// The alternate form always has a point.
void EnsurePoint(NumberText& number) {
    if (number.View().find('.') != std::string_view::npos)
        return;
    const std::size_t exponent = number.View().find('e');
    number.Insert(exponent == std::string_view::npos ? number.length : exponent, '.');
}

void PrintFinite(NumberText& number, double value, const FormatSpec& spec) {
    const int precision = spec.precision < 0 ? 6 : spec.precision;
    if (spec.conversion == L'f')
        PrintFixed(number, value, precision);
    else if (spec.conversion == L'e')
        number.Print(std::abs(value), std::chars_format::scientific, precision);
    else
        PrintGeneral(number, std::abs(value), precision, spec.alternate);
    if (spec.alternate)
        EnsurePoint(number);
}

void AppendDouble(std::wstring& text, double value, const FormatSpec& spec) {
    NumberText number;
    number.isNegative = std::signbit(value);
    if (std::isfinite(value)) {
        number.zeroPadded = spec.zeroPadded;
        PrintFinite(number, value, spec);
    } else {
        for (const char c : std::string_view(std::isnan(value) ? "nan" : "inf"))
            number.Append(c);
    }
    AppendNumber(text, number, spec);
}

void AppendText(std::wstring& text, std::wstring_view part, const FormatSpec& spec) {
    const std::size_t start = text.size();
    text.append(spec.precision < 0 ? part
                                   : part.substr(0, static_cast<std::size_t>(spec.precision)));
    PadTo(text, start, spec);
}

void AppendArgument(std::wstring& text, const ZetFormatArg& arg, const FormatSpec& spec) {
    switch (arg.GetKind()) {
        case Kind::kInteger:
            return AppendInteger(text, arg, spec);
        case Kind::kDouble:
            return AppendDouble(text, arg.GetDouble(), spec);
        case Kind::kText:
            return AppendText(text, arg.GetText(), spec);
        case Kind::kCharacter: {
            const wchar_t character = arg.GetCharacter();
            FormatSpec whole = spec;
            whole.precision = -1;
            return AppendText(text, {&character, 1}, whole);
        }
    }
}

}  // namespace

std::wstring Format(std::wstring_view format, std::initializer_list<ZetFormatArg> args) {
    std::wstring text;
    auto next = args.begin();
    while (true) {
        const std::size_t percent = format.find(L'%');
        text.append(format.substr(0, percent));
        if (percent == std::wstring_view::npos)
            return text;
        format.remove_prefix(percent);
        const FormatSpec spec = ParseFormatSpec(format);
        const bool takesArgument = spec.conversion != 0 && spec.conversion != L'%';
        const ZetFormatArg* arg = takesArgument && next != args.end() ? next++ : nullptr;
        if (arg != nullptr && Fits(spec.conversion, arg->GetKind()))
            AppendArgument(text, *arg, spec);
        else
            text.append(spec.conversion == L'%' ? L"%" : format.substr(0, spec.length));
        format.remove_prefix(spec.length);
    }
}

}  // namespace camdata::detail
