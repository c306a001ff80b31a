#include "dstv/NcTokens.h"

#include "dstv/NcReader.h"
#include "dstv/NcText.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <string>
#include <system_error>

namespace dstv {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return end - at;
}

/// Length of the number that `text` begins with: sign, digits, point, digits; 0 when there is none.
std::size_t NumberLength(std::string_view text) {
    std::size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    const std::size_t whole = DigitsAt(text, at);
    at += whole;
    if (at == text.size() || text[at] != '.')
        return whole > 0 ? at : 0;
    const std::size_t fraction = DigitsAt(text, at + 1);
    return whole + fraction > 0 ? at + 1 + fraction : 0;
}

/// The same for numbers of so few digits that digits and power of ten are exact as doubles, and
/// their quotient is the nearest double; that is nearly all of them.
std::optional<double> ShortValueOf(std::string_view number) {
    constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    constexpr std::size_t kMostCharacters = 9;
    const bool hasSign = number.front() == '+' || number.front() == '-';
    const std::string_view digits = number.substr(hasSign ? 1 : 0);
    if (digits.size() > kMostCharacters)
        return std::nullopt;
    long long value = 0;
    std::size_t decimals = 0;
    bool isFraction = false;
    for (const char c : digits) {
        isFraction = isFraction || c == '.';
        if (c != '.')
            value = value * 10 + (c - '0');
        decimals += isFraction && c != '.' ? 1 : 0;
    }
    const double magnitude = static_cast<double>(value) / kPowers[decimals];
    return number.front() == '-' ? -magnitude : magnitude;
}

/// The value of a text that is one number of NumberLength's form; nothing when it is too large.
std::optional<double> ValueOf(std::string_view number) {
    if (const std::optional<double> value = ShortValueOf(number))
        return value;
    const std::string_view digits = number.front() == '+' ? number.substr(1) : number;
    double value = 0.0;
    const auto result = std::from_chars(
        digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    if (result.ec != std::errc() || !(std::abs(value) <= kMaxNumber))
        return std::nullopt;
    return value;
}

}  // namespace

void FailAt(const NcLine& line,
            const ZetString& what,
            std::string_view found,
            const ZetString& expected) {
    // Of pointers into different texts only std::less knows an order.
    constexpr std::less_equal<const char*> isUpTo;
    const bool isInLine = !found.empty() && isUpTo(line.text.data(), found.data()) &&
                          isUpTo(found.data(), line.text.data() + line.text.size());
    const long column = isInLine ? static_cast<long>(found.data() - line.text.data()) + 1 : 0;
    throw NcFailure(NcError{{}, line.number, column, what, Quotable(found), expected});
}

ZetString TextAt(const NcLine& line, std::string_view bytes) {
    ZetString text = DecodeText(bytes);
    if (std::any_of(text.view().begin(), text.view().end(), [](wchar_t c) {
            return c != L'\t' && camdata::detail::IsControl(c);
        }))
        FailAt(line, L"text", bytes, L"a text without control characters");
    return text;
}

NcLines::NcLines(std::string_view bytes)
    : m_rest(bytes), m_end(bytes.find('\n') == std::string_view::npos ? '\r' : '\n') {}

std::optional<NcLine> NcLines::Next() {
    if (m_rest.empty())
        return std::nullopt;
    const std::size_t end = std::min(m_rest.find(m_end), m_rest.size());
    std::string_view text = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    while (!text.empty() && text.back() == '\r')
        text.remove_suffix(1);
    const NcLine line = {++m_number, text};
    if (line.number > kMaxLines)
        FailAt(line, L"line", Trimmed(text), L"at most 1000000 lines in one file");
    return line;
}

NcTokens::NcTokens(const NcLine& line) : m_line(line) {
    SkipBlanks();
}

void NcTokens::SkipBlanks() {
    while (m_at < m_line.text.size() && (m_line.text[m_at] == ' ' || m_line.text[m_at] == '\t'))
        ++m_at;
}

bool NcTokens::IsAtNumber() const {
    return NumberLength(m_line.text.substr(m_at)) > 0;
}

char NcTokens::TakeLetter() {
    if (IsAtEnd() || !IsLetter(m_line.text[m_at]))
        return 0;
    const char letter = LowerCase(m_line.text[m_at]);
    m_tokenEnd = ++m_at;
    SkipBlanks();
    return letter;
}

char NcTokens::TakeLetterOf(std::string_view letters,
                            const wchar_t* what,
                            const wchar_t* expected) {
    const NcTokens before = *this;
    const char letter = TakeLetter();
    if (letter != 0 && letters.find(letter) == std::string_view::npos)
        before.Fail(what, expected);
    return letter;
}

char NcTokens::TakeSign() {
    if (IsAtEnd() || (m_line.text[m_at] != '+' && m_line.text[m_at] != '-'))
        return 0;
    const char sign = m_line.text[m_at];
    m_tokenEnd = ++m_at;
    SkipBlanks();
    return sign;
}

double NcTokens::Convert(std::string_view number, const wchar_t* what) const {
    const std::optional<double> value = ValueOf(number);
    const std::size_t end = m_at + number.size();
    if (!value)
        FailAt(m_line, what, number, L"a number up to 1000000000");
    // "12.5.0" and "1,5" are typing faults, not two numbers.
    const char next = end < m_line.text.size() ? m_line.text[end] : ' ';
    if (next == '.')
        Fail(what, L"a number with at most one point");
    if (next == ',')
        Fail(what, L"a number with a decimal point, not a comma");
    return *value;
}

double NcTokens::TakeNumber(const wchar_t* what, const wchar_t* expected) {
    const std::size_t length = NumberLength(m_line.text.substr(m_at));
    if (length == 0)
        Fail(what, expected);
    const double value = Convert(m_line.text.substr(m_at, length), what);
    m_tokenEnd = m_at += length;
    SkipBlanks();
    return value;
}

double NcTokens::TakeSize(const wchar_t* what, const wchar_t* expected) {
    const NcTokens before = *this;
    const double value = TakeNumber(what, expected);
    if (value < 0.0)
        before.Fail(what, expected);
    return value;
}

double NcTokens::TakeNumberOr(double missing) {
    return IsAtNumber() ? TakeNumber(L"number", L"a number") : missing;
}

char NcTokens::TakeGlued(std::string_view letters) {
    if (IsAtEnd() || m_at != m_tokenEnd ||
        letters.find(LowerCase(m_line.text[m_at])) == std::string_view::npos)
        return 0;
    return TakeLetter();
}

std::string_view NcTokens::GetRest() const {
    return Trimmed(m_line.text.substr(m_at));
}

void NcTokens::ExpectEnd() const {
    if (!IsAtEnd())
        Fail(L"text", L"the end of the line");
}

void NcTokens::Fail(const wchar_t* what, const wchar_t* expected) const {
    const std::string_view rest = m_line.text.substr(m_at);
    const std::string_view token = rest.substr(0, rest.find_first_of(kBlanks));
    // At the end of a line the whole line shows what is missing.
    FailAt(m_line, what, token.empty() ? Trimmed(m_line.text) : token, expected);
}

std::optional<double> ParseNumber(std::string_view text, bool allowComma) {
    std::string number(text);
    if (allowComma)
        std::replace(number.begin(), number.end(), ',', '.');
    if (number.empty() || NumberLength(number) != number.size())
        return std::nullopt;
    return ValueOf(number);
}

}  // namespace dstv
