#include "plugin/formats/ValueText.h"

#include "job/CsvTable.h"
#include "job/formats/TextEncoding.h"
#include "plugin/formats/BackslashEscapes.h"
#include "plugin/formats/CapitalLetters.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace plugin {

namespace {

/// Room for the largest double with all its digits.
constexpr std::size_t kMaxDigits = 400;
constexpr int kUsualPrecision = 6;

constexpr double kUnits[] = {1.0, 0.1, 25.4};  ///< by job::NumberUnit, mm

constexpr std::wstring_view kNeedQuotes = L",;\"\t\r\n";

using DigitBuffer = std::array<char, kMaxDigits>;

/// The digits of a number that is not negative; fixed unless the type says otherwise.
std::string_view DigitsOf(double value, char type, int decimals, DigitBuffer& buffer) {
    const bool isCapital = type >= 'A' && type <= 'Z';
    const char form = isCapital ? static_cast<char>(type - 'A' + 'a') : type;
    const std::chars_format format = form == 'e'   ? std::chars_format::scientific
                                     : form == 'g' ? std::chars_format::general
                                                   : std::chars_format::fixed;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, decimals).ptr;
    if (isCapital)
        std::replace(buffer.data(), end, 'e', 'E');
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

/// The zeros that the format goes without.
std::string_view WithoutZeros(std::string_view digits, job::Zeros zeros) {
    const bool dropsTrailing = zeros == job::Zeros::kTrailing || zeros == job::Zeros::kBoth;
    const bool dropsLeading = zeros == job::Zeros::kLeading || zeros == job::Zeros::kBoth;
    const bool isFraction = digits.find('.') != std::string_view::npos &&
                            digits.find_first_of("eE") == std::string_view::npos;
    if (dropsTrailing && isFraction) {
        digits = digits.substr(0, digits.find_last_not_of('0') + 1);
        digits = digits.substr(0, digits.size() - (digits.ends_with('.') ? 1 : 0));
    }
    if (dropsLeading && digits.starts_with("0."))
        digits.remove_prefix(1);
    return digits;
}

/// Repeats a fill character, in the encoding of the format.
ValueFault AppendFill(std::string& out,
                      std::size_t count,
                      const job::FieldSpec& spec,
                      const job::MachineFormat& format) {
    if (count == 0)
        return {};
    const auto bytes = job::InEncoding(spec.fill, format.texts.page);
    if (!bytes)
        return {L"the encoding has not the fill character"};
    for (std::size_t i = 0; i < count; ++i)
        out += *bytes;
    return {};
}

/// Pads what has `length` characters to the width of its field.
ValueFault AppendPadded(std::string& out,
                        std::string_view bytes,
                        std::size_t length,
                        char alignment,
                        const job::FieldSpec& spec,
                        const job::MachineFormat& format) {
    const auto width = static_cast<std::size_t>(spec.width);
    if (format.areColumnsFixed && width > 0 && length > width)
        return {ZetString::format(L"it has %d characters and its column %d", length, width),
                static_cast<double>(width),
                static_cast<double>(length)};
    const std::size_t fill = width > length ? width - length : 0;
    const char side = spec.alignment != 0 ? spec.alignment : alignment;
    const std::size_t before = side == '>' ? fill : side == '^' ? fill / 2 : 0;
    ValueFault fault = AppendFill(out, before, spec, format);
    out += bytes;
    return fault.IsEmpty() ? AppendFill(out, fill - before, spec, format) : fault;
}

/// Sign and digits of a number, padded.
ValueFault AppendSigned(std::string& out,
                        bool isNegative,
                        bool hasPlus,
                        std::string_view digits,
                        const job::FieldSpec& spec,
                        const job::MachineFormat& format,
                        bool isInList = false) {
    std::string number;
    if (isNegative)
        number = "-";
    else if (spec.sign != '-' || hasPlus)
        number = spec.sign == ' ' ? " " : "+";
    const auto width = static_cast<std::size_t>(spec.width);
    const std::size_t length = number.size() + digits.size();
    if (spec.isZeroFilled && spec.alignment == 0 && width > length)
        number.append(width - length, '0');
    number += digits;
    if (format.numbers.hasComma)
        std::replace(number.begin(), number.end(), '.', ',');
    if (!isInList && format.texts.quotes != job::Quotes::kNone &&
        number.find(',') != std::string::npos)
        number = '"' + number + '"';
    return AppendPadded(out, number, number.size(), '>', spec, format);
}

int DecimalsOf(job::FieldType type, const job::FieldSpec& spec, const job::MachineFormat& format) {
    if (spec.precision >= 0)
        return spec.precision;
    if (spec.type != 0 && spec.type != 'f' && spec.type != 'F')
        return kUsualPrecision;
    const job::NumberSettings& numbers = format.numbers;
    const bool isAngle = type == job::FieldType::kAngle;
    return static_cast<int>(isAngle ? numbers.angleDecimals.value_or(numbers.decimals)
                                    : numbers.decimals);
}

// ---- texts --------------------------------------------------------------------------------------

std::size_t CountCharacters(std::wstring_view text) {
    return text.size() -
           static_cast<std::size_t>(std::count_if(text.begin(), text.end(), job::IsSecondHalf));
}

std::wstring_view FirstCharacters(std::wstring_view text, std::size_t count) {
    std::size_t end = 0;
    for (std::size_t taken = 0; end < text.size(); ++end) {
        taken += job::IsSecondHalf(text[end]) ? 0 : 1;
        if (taken > count)
            break;
    }
    return text.substr(0, end);
}

/// Line ends can stand in quotes as they are.
bool MayHaveLineEnds(const job::TextSettings& texts) {
    return texts.escapes == job::Escapes::kDoubled && texts.quotes != job::Quotes::kNone;
}

ValueFault FaultOfText(std::wstring_view text, const job::TextSettings& texts) {
    if (text.find_first_of(texts.forbidden.view()) != std::wstring_view::npos)
        return {L"it has a character that the format forbids"};
    if (texts.escapes == job::Escapes::kBackslash)
        return {};
    const bool mayHaveQuotes =
        texts.quotes == job::Quotes::kNone || texts.escapes != job::Escapes::kNone;
    for (const wchar_t c : text) {
        const bool isLineEnd = c == L'\n' || c == L'\r';
        if (camdata::detail::IsControl(c) && !(isLineEnd && MayHaveLineEnds(texts)))
            return {L"it has a control character"};
        if (c == L'"' && !mayHaveQuotes)
            return {L"it has a quote, and the format no escape for it"};
    }
    return {};
}

bool NeedsQuotes(std::wstring_view text, job::Quotes quotes) {
    if (quotes != job::Quotes::kNeeded)
        return quotes == job::Quotes::kAlways;
    return text.find_first_of(kNeedQuotes) != std::wstring_view::npos || text.starts_with(L' ') ||
           text.ends_with(L' ');
}

std::wstring Escaped(std::wstring_view text, job::Escapes escapes) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (escapes == job::Escapes::kBackslash) {
            AppendBackslashed(result, c);
            continue;
        }
        if (escapes == job::Escapes::kDoubled && c == L'"')
            result += L'"';
        result += c;
    }
    return result;
}

/// Cut or refused beyond the longest; the fault.
ValueFault Shorten(std::wstring& text, const job::TextSettings& texts) {
    const auto longest = static_cast<std::size_t>(texts.longest);
    if (longest == 0 || CountCharacters(text) <= longest)
        return {};
    if (texts.tooLong == job::TooLong::kRefuse)
        return {ZetString::format(L"it is longer than %d characters", texts.longest),
                static_cast<double>(longest),
                static_cast<double>(CountCharacters(text))};
    text.resize(FirstCharacters(text, longest).size());
    return {};
}

}  // namespace

double StepsOf(double value, int decimals) {
    DigitBuffer buffer;
    std::string digits(DigitsOf(std::abs(value), 'f', decimals, buffer));
    digits.erase(std::remove(digits.begin(), digits.end(), '.'), digits.end());
    double steps = 0.0;
    std::from_chars(digits.data(), digits.data() + digits.size(), steps);
    return value < 0.0 ? -steps : steps;
}

double InUnit(double millimetres, job::NumberUnit unit) {
    return unit == job::NumberUnit::kMillimetre ? millimetres
                                                : millimetres / kUnits[static_cast<int>(unit)];
}

ValueFault AppendNumber(std::string& out,
                        double value,
                        job::FieldType type,
                        const job::FieldSpec& spec,
                        const job::MachineFormat& format,
                        bool isInList) {
    if (!std::isfinite(value))
        return {L"it is no number"};
    if (type == job::FieldType::kLength)
        value = InUnit(value, format.numbers.unit);
    DigitBuffer buffer;
    const std::string_view digits =
        DigitsOf(std::abs(value), spec.type, DecimalsOf(type, spec, format), buffer);
    const bool isZero = digits.find_first_of("123456789") == std::string_view::npos;
    return AppendSigned(out,
                        value < 0.0 && !isZero,
                        format.numbers.hasPlus,
                        WithoutZeros(digits, format.numbers.zeros),
                        spec,
                        format,
                        isInList);
}

ValueFault AppendWhole(std::string& out,
                       long value,
                       const job::FieldSpec& spec,
                       const job::MachineFormat& format) {
    std::string digits = std::to_string(value);
    if (value < 0)
        digits.erase(0, 1);
    return AppendSigned(out, value < 0, false, digits, spec, format);
}

ValueFault AppendText(std::string& out,
                      std::wstring_view text,
                      const job::FieldSpec& spec,
                      const job::MachineFormat& format) {
    const job::TextSettings& texts = format.texts;
    std::wstring changed = texts.isUpperCase ? InPlainCapitals(text) : std::wstring(text);
    if (texts.guardsFormulas && job::IsFormula(changed))
        changed.insert(changed.begin(), job::kFormulaGuard);
    if (spec.precision >= 0)
        changed.resize(FirstCharacters(changed, static_cast<std::size_t>(spec.precision)).size());
    ValueFault fault = Shorten(changed, texts);
    if (fault.IsEmpty())
        fault = FaultOfText(changed, texts);
    if (!fault.IsEmpty())
        return fault;
    const bool isQuoted = NeedsQuotes(changed, texts.quotes);
    if (texts.escapes == job::Escapes::kBackslash || isQuoted)
        changed = Escaped(changed, texts.escapes);
    if (isQuoted)
        changed = L'"' + changed + L'"';
    job::FieldSpec padded = spec;
    padded.precision = -1;
    return AppendWord(out, changed, padded, format);
}

ValueFault AppendWord(std::string& out,
                      std::wstring_view word,
                      const job::FieldSpec& spec,
                      const job::MachineFormat& format) {
    if (spec.precision >= 0)
        word = FirstCharacters(word, static_cast<std::size_t>(spec.precision));
    const auto bytes = job::InEncoding(word, format.texts.page);
    if (!bytes)
        return {L"the encoding of the format has not all its characters"};
    return AppendPadded(out, *bytes, CountCharacters(word), '<', spec, format);
}

}  // namespace plugin
