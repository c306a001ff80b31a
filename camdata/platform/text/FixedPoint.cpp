#include "camdata/platform/text/FixedPoint.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace camdata::detail {
namespace {

constexpr std::array kPowersOfTen = {
    1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
/// Numbers of so many digits are exact as doubles, and so are powers of ten up to there.
constexpr std::size_t kExactDigits = 15;
static_assert(kPowersOfTen.size() == kExactDigits + 1);

constexpr int kFastDecimals = 6;
constexpr double kFastLimit = 1e9;

/// No double has more decimals than this.
constexpr int kMaxDecimals = 1100;

/// a * b - product, exactly, for a `b` of at most 26 bits and a product that neither overflows nor
/// underflows (Dekker). Not std::fma: some C libraries compute that with too few bits.
double ProductError(double a, double b, double product) {
    constexpr double kSplit = 134217729.0;  // 2^27 + 1
    const double high = kSplit * a - (kSplit * a - a);
    const double low = a - high;
    return (high * b - product) + low * b;
}

/// The double that a run of digits with at most one point stands for.
double ReadDigits(const std::string& digits) {
    double value = 0.0;
    const auto result = std::from_chars(
        digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    const bool isLarge = digits.find_first_of("123456789") < digits.find('.');
    return isLarge ? std::numeric_limits<double>::infinity() : 0.0;
}

double RoundByText(double value, int decimals) {
    std::string text(static_cast<std::size_t>(decimals) + 330, '\0');
    const auto end = std::to_chars(text.data(),
                                   text.data() + text.size(),
                                   std::abs(value),
                                   std::chars_format::fixed,
                                   decimals);
    text.resize(static_cast<std::size_t>(end.ptr - text.data()));
    return std::copysign(ReadDigits(text), value);
}

wchar_t Lowered(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool BeginsWithWord(std::wstring_view text, std::wstring_view word) {
    if (text.size() < word.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (Lowered(text[i]) != word[i])
            return false;
    }
    return true;
}

/// The digits and the point at the beginning of `text`. Digits and power of ten of nearly all
/// numbers are exact, so that their quotient is the nearest double.
ParsedNumber ReadDecimal(std::wstring_view text) {
    std::uint64_t digits = 0;
    const auto takeDigits = [&](std::size_t at) {
        for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at)
            digits = digits * 10 + static_cast<std::uint64_t>(text[at] - L'0');
        return at;
    };
    std::size_t length = takeDigits(0);
    std::size_t count = length;
    std::size_t decimals = 0;
    if (length < text.size() && text[length] == L'.') {
        const std::size_t behindPoint = length + 1;
        length = takeDigits(behindPoint);
        decimals = length - behindPoint;
        count += decimals;
    }
    if (count == 0)
        return {};
    if (count <= kExactDigits)
        return {static_cast<double>(static_cast<std::int64_t>(digits)) / kPowersOfTen[decimals],
                length};
    std::string narrow(length, '\0');
    std::transform(text.begin(),
                   text.begin() + static_cast<std::ptrdiff_t>(length),
                   narrow.begin(),
                   [](wchar_t c) { return static_cast<char>(c); });
    return {ReadDigits(narrow), length};
}

ParsedNumber ParseUnsigned(std::wstring_view text) {
    if (!text.empty() && text[0] >= L'0' && text[0] <= L'9')
        return ReadDecimal(text);
    if (BeginsWithWord(text, L"nan"))
        return {std::numeric_limits<double>::quiet_NaN(), 3};
    if (BeginsWithWord(text, L"inf"))
        return {std::numeric_limits<double>::infinity(), 3};
    return ReadDecimal(text);
}

/// Nothing but digits, so few that they are exact: nearly all that is read of the name of a profile.
std::optional<double> FewDigits(std::wstring_view text) {
    if (text.empty() || text.size() > kExactDigits)
        return std::nullopt;
    std::int64_t whole = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9')
            return std::nullopt;
        whole = whole * 10 + (c - L'0');
    }
    return static_cast<double>(whole);
}

}  // namespace

std::optional<double> ScaledToWhole(double value, int decimals) {
    if (decimals > kFastDecimals || !(std::abs(value) < kFastLimit))
        return std::nullopt;
    const double scale = kPowersOfTen[static_cast<std::size_t>(decimals)];
    const double product = value * scale;
    const double whole = std::nearbyint(product);
    const double rest = product - whole;
    if (std::abs(rest) != 0.5)
        return whole;
    // The product only looks like a tie: its rounding error tells on which side the exact value
    // lies.
    const double error = ProductError(value, scale, product);
    return error != 0.0 && (error > 0.0) == (rest > 0.0) ? whole + 2.0 * rest : whole;
}

double RoundToDecimals(double value, int decimals) {
    decimals = std::max(decimals, 0);
    if (const auto whole = ScaledToWhole(value, decimals))
        return *whole / kPowersOfTen[static_cast<std::size_t>(decimals)];
    const bool hasFraction = std::abs(value) < 0x1p53;
    return hasFraction && decimals <= kMaxDecimals ? RoundByText(value, decimals) : value;
}

ParsedNumber ParseNumber(std::wstring_view text) {
    if (const std::optional<double> whole = FewDigits(text))
        return {*whole, text.size()};
    const std::size_t start = text.find_first_not_of(L' ');
    if (start == std::wstring_view::npos)
        return {};
    const bool hasSign = text[start] == L'-' || text[start] == L'+';
    ParsedNumber number = ParseUnsigned(text.substr(start + (hasSign ? 1 : 0)));
    if (number.length == 0)
        return {};
    number.length += start + (hasSign ? 1 : 0);
    if (text[start] == L'-')
        number.value = -number.value;
    return number;
}

}  // namespace camdata::detail
