#include "dstv/NcTokens.h"

#include "dstv/NcReader.h"
#include "dstv/NcText.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>

namespace dstv {
namespace {

constexpr std::string_view kBlanks = " \t";

/// So many digits, and powers of ten up to that, are exact as doubles.
constexpr std::ptrdiff_t kExactDigits = 15;
constexpr double kPowersOfTen[kExactDigits + 1] = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The number that a text begins with: sign, digits, point, digits.
struct LeadingNumber {
    std::size_t length = 0;  ///< 0: the text begins with none
    double value = 0.0;

    bool IsTooLarge() const { return !(std::abs(value) <= kMaxNumber); }
};

double LongValueOf(std::string_view number) {
    const std::string_view digits = number.front() == '+' ? number.substr(1) : number;
    double value = kMaxNumber * 2.0;  // stays when it is out of range
    std::from_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return value;
}

/// In one pass. Digits and power of ten of nearly all numbers are exact as doubles, so that their
/// quotient is the nearest double.
LeadingNumber NumberAt(std::string_view text) {
    const char* const end = text.data() + text.size();
    const char* at = text.data();
    const bool isNegative = at != end && *at == '-';
    if (isNegative || (at != end && *at == '+'))
        ++at;
    std::uint64_t digits = 0;
    const auto takeDigits = [&digits, end](const char* from) {
        for (; from != end && IsDigit(*from); ++from)
            digits = digits * 10 + static_cast<std::uint64_t>(*from - '0');
        return from;
    };
    const char* const first = at;
    at = takeDigits(first);
    std::ptrdiff_t count = at - first;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.') {
        const char* const point = at;
        at = takeDigits(point + 1);
        decimals = at - point - 1;
        count += decimals;
    }
    if (count == 0)
        return {};
    const auto length = static_cast<std::size_t>(at - text.data());
    if (count > kExactDigits)
        return {length, LongValueOf(text.substr(0, length))};
    const double magnitude = static_cast<double>(digits) / kPowersOfTen[decimals];
    return {length, isNegative ? -magnitude : magnitude};
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
    if (text.view().size() > kMaxTextLength)
        FailAt(line, L"text", bytes, L"a text of at most 1000 characters");
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
    const std::string_view text = m_line.text;
    std::size_t at = m_at;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
        ++at;
    m_at = at;
}

bool NcTokens::IsAtNumber() const {
    return !IsAtEnd() &&
           (IsDigit(m_line.text[m_at]) || NumberAt(m_line.text.substr(m_at)).length > 0);
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
    const std::size_t before = m_at;
    const char letter = TakeLetter();
    if (letter != 0 && letters.find(letter) == std::string_view::npos)
        FailFrom(before, what, expected);
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

std::optional<double> NcTokens::TakeIfNumber(const wchar_t* what) {
    const LeadingNumber number = NumberAt(m_line.text.substr(m_at));
    if (number.length == 0)
        return std::nullopt;
    const std::size_t end = m_at + number.length;
    if (number.IsTooLarge())
        FailAt(m_line, what, m_line.text.substr(m_at, number.length), L"a number up to 1000000000");
    // "12.5.0" and "1,5" are typing faults, not two numbers.
    const char next = end < m_line.text.size() ? m_line.text[end] : ' ';
    if (next == '.')
        Fail(what, L"a number with at most one point");
    if (next == ',')
        Fail(what, L"a number with a decimal point, not a comma");
    m_tokenEnd = m_at = end;
    SkipBlanks();
    return number.value;
}

double NcTokens::TakeNumber(const wchar_t* what, const wchar_t* expected) {
    const std::optional<double> value = TakeIfNumber(what);
    if (!value)
        Fail(what, expected);
    return *value;
}

double NcTokens::TakeSize(const wchar_t* what, const wchar_t* expected) {
    const std::size_t before = m_at;
    const double value = TakeNumber(what, expected);
    if (value < 0.0)
        FailFrom(before, what, expected);
    return value;
}

double NcTokens::TakeNumberOr(double missing) {
    return TakeIfNumber(L"number").value_or(missing);
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
    FailFrom(m_at, what, expected);
}

void NcTokens::FailFrom(std::size_t at, const wchar_t* what, const wchar_t* expected) const {
    const std::string_view rest = m_line.text.substr(at);
    const std::string_view token = rest.substr(0, rest.find_first_of(kBlanks));
    // At the end of a line the whole line shows what is missing.
    FailAt(m_line, what, token.empty() ? Trimmed(m_line.text) : token, expected);
}

std::optional<double> ParseNumber(std::string_view text, bool allowComma) {
    if (allowComma && text.find(',') != std::string_view::npos) {
        std::string number(text);
        std::replace(number.begin(), number.end(), ',', '.');
        return ParseNumber(number, false);
    }
    const LeadingNumber number = NumberAt(text);
    const bool isNumber = number.length == text.size() && number.length > 0;
    return isNumber && !number.IsTooLarge() ? std::optional(number.value) : std::nullopt;
}

}  // namespace dstv
