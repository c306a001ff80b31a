#include "dstv/NcTokens.h"

#include "dstv/NcReader.h"
#include "dstv/NcText.h"

#include "camdata/platform/text/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <string>

namespace dstv {
namespace {

constexpr std::string_view kBlanks = " \t";

/// So many digits, and powers of ten up to that, are exact as doubles.
constexpr std::ptrdiff_t kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kPowersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The number that a text begins with: sign, digits, point, digits.
struct LeadingNumber {
    std::size_t length = 0;  ///< 0: the text begins with none
    double value = 0.0;      ///< not a number: there are too many digits, see LongValueOf
};

/// What most numbers of an outline are, which has neither radius nor bevel.
constexpr std::string_view kPlainZero = "0.00";

bool BeginsWithPlainZero(std::string_view text) {
    return text.starts_with(kPlainZero) &&
           (text.size() == kPlainZero.size() || text[kPlainZero.size()] == ' ');
}

/// Not what is no number either.
bool IsInRange(double value) {
    return std::abs(value) <= kMaxNumber;
}

/// Of any number of digits.
double LongValueOf(std::string_view number) {
    const std::string_view digits = number.front() == '+' ? number.substr(1) : number;
    double value = kMaxNumber * 2.0;  // stays when it is out of range
    std::from_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return value;
}

/// Takes digits; gives where they end.
const char* TakeDigits(const char* at, const char* end, std::uint64_t& digits) {
    for (; at != end; ++at) {
        const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
        if (digit > 9)
            break;
        digits = digits * 10 + digit;
    }
    return at;
}

/// In one pass. Digits and power of ten of nearly all numbers are exact as doubles, so that their
/// quotient is the nearest double.
inline LeadingNumber NumberAt(const char* const begin, const char* const end) {
    if (begin == end)
        return {};
    if (BeginsWithPlainZero({begin, static_cast<std::size_t>(end - begin)}))
        return {kPlainZero.size(), 0.0};
    const bool isNegative = *begin == '-';
    const char* const first = isNegative || *begin == '+' ? begin + 1 : begin;
    std::uint64_t digits = 0;
    const char* at = TakeDigits(first, end, digits);
    std::ptrdiff_t count = at - first;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.') {
        const char* const point = at;
        at = TakeDigits(point + 1, end, digits);
        decimals = at - point - 1;
        count += decimals;
    }
    if (count == 0)
        return {};
    const auto length = static_cast<std::size_t>(at - begin);
    if (count > kExactDigits)
        return {length, std::numeric_limits<double>::quiet_NaN()};
    const double magnitude = static_cast<double>(static_cast<std::int64_t>(digits)) /
                             kPowersOfTen[static_cast<std::size_t>(decimals)];
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
    const auto isPlain = [](char c) { return c >= ' ' && c <= '~'; };
    if (bytes.size() <= kMaxTextLength && std::all_of(bytes.begin(), bytes.end(), isPlain))
        return ZetString(std::wstring(bytes.begin(), bytes.end()));
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
    : m_at(bytes.data()),
      m_end(bytes.data() + bytes.size()),
      m_lineEnd(bytes.find('\n') == std::string_view::npos ? '\r' : '\n') {}

bool NcLines::Next(NcLine& line) {
    if (m_at == m_end)
        return false;
    const char* const begin = m_at;
    const void* const found =
        std::memchr(begin, m_lineEnd, static_cast<std::size_t>(m_end - begin));
    const char* end = found == nullptr ? m_end : static_cast<const char*>(found);
    m_at = found == nullptr ? m_end : end + 1;
    while (end != begin && end[-1] == '\r')
        --end;
    line = {
        ++m_number, {begin, static_cast<std::size_t>(end - begin)}
    };
    if (line.number > kMaxLines)
        FailAt(line, L"line", Trimmed(line.text), L"at most 1000000 lines in one file");
    return true;
}

NcTokens::NcTokens(const NcLine& line)
    : m_line(line),
      m_at(line.text.data()),
      m_end(line.text.data() + line.text.size()),
      m_tokenEnd(m_at) {
    MoveTo(m_at);
}

bool NcTokens::IsAtNumber() const {
    // Of each hole: mostly the first character tells, and the number is read only once.
    const bool isAtDigit = !IsAtEnd() && *m_at >= '0' && *m_at <= '9';
    return isAtDigit || NumberAt(m_at, m_end).length > 0;
}

char NcTokens::TakeSign() {
    if (IsAtEnd() || (*m_at != '+' && *m_at != '-'))
        return 0;
    const char sign = *m_at;
    MoveTo(m_at + 1);
    return sign;
}

bool NcTokens::TakeIfNumber(const wchar_t* what, double& value) {
    const LeadingNumber number = NumberAt(m_at, m_end);
    if (number.length == 0)
        return false;
    const char* const end = m_at + number.length;
    if (!IsInRange(number.value) || (end != m_end && (*end == '.' || *end == ',')))
        return TakeUnusualNumber(end, what, value);
    value = number.value;
    MoveTo(end);
    return true;
}

bool NcTokens::TakeUnusualNumber(const char* end, const wchar_t* what, double& value) {
    const std::string_view number(m_at, static_cast<std::size_t>(end - m_at));
    value = LongValueOf(number);
    if (!IsInRange(value))
        FailAt(m_line, what, number, L"a number up to 1000000000");
    // "12.5.0" and "1,5" are typing faults, not two numbers.
    if (end != m_end && *end == '.')
        Fail(what, L"a number with at most one point");
    if (end != m_end && *end == ',')
        Fail(what, L"a number with a decimal point, not a comma");
    MoveTo(end);
    return true;
}

double NcTokens::TakeNumber(const wchar_t* what, const wchar_t* expected) {
    double value = 0.0;
    if (!TakeIfNumber(what, value))
        Fail(what, expected);
    return value;
}

double NcTokens::TakeSize(const wchar_t* what, const wchar_t* expected) {
    const char* const before = m_at;
    const double value = TakeNumber(what, expected);
    if (value < 0.0)
        FailFrom(before, what, expected);
    return value;
}

double NcTokens::TakeNumberOr(double missing) {
    double value = missing;
    TakeIfNumber(L"number", value);
    return value;
}

char NcTokens::TakeGlued(NcLetters letters) {
    return IsAtLetter() && m_at == m_tokenEnd && letters.Has(*m_at) ? TakeThisLetter() : '\0';
}

std::string_view NcTokens::GetRest() const {
    return Trimmed({m_at, static_cast<std::size_t>(m_end - m_at)});
}

void NcTokens::ExpectEnd() const {
    if (!IsAtEnd())
        Fail(L"text", L"the end of the line");
}

void NcTokens::Fail(const wchar_t* what, const wchar_t* expected) const {
    FailFrom(m_at, what, expected);
}

void NcTokens::FailFrom(const char* at, const wchar_t* what, const wchar_t* expected) const {
    const std::string_view rest(at, static_cast<std::size_t>(m_end - at));
    const std::string_view token = rest.substr(0, rest.find_first_of(kBlanks));
    // At the end of a line the whole line shows what is missing.
    FailAt(m_line, what, token.empty() ? Trimmed(m_line.text) : token, expected);
}

std::optional<double> ParseNumber(std::string_view text, bool allowComma) {
    const LeadingNumber number = NumberAt(text.data(), text.data() + text.size());
    if (number.length != text.size() && allowComma) {
        std::string withPoint(text);
        std::replace(withPoint.begin(), withPoint.end(), ',', '.');
        return ParseNumber(withPoint, false);
    }
    if (number.length != text.size() || number.length == 0)
        return std::nullopt;
    const double value = IsInRange(number.value) ? number.value : LongValueOf(text);
    return IsInRange(value) ? std::optional(value) : std::nullopt;
}

}  // namespace dstv
