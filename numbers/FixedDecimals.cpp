#include "numbers/FixedDecimals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

namespace numbers {

namespace {

constexpr std::array kPowersOfTen = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr double kExactBelow = 1e12;

/// A magnitude times a power of ten, rounded. Nothing for a large one, for NaN, and where the
/// product, which is rounded itself, is too near a tie to tell.
std::optional<std::uint64_t> ScaledWhole(double magnitude, int decimals) {
    constexpr double kTieMargin = 1e-3;  // far more than what products below that are off
    if (decimals >= static_cast<int>(kPowersOfTen.size()))
        return std::nullopt;
    const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
    if (!(scaled < kExactBelow))
        return std::nullopt;
    const auto whole = static_cast<std::int64_t>(scaled);
    const double rest = scaled - static_cast<double>(whole);
    if (std::abs(rest - 0.5) < kTieMargin)
        return std::nullopt;
    return static_cast<std::uint64_t>(whole) + (rest > 0.5 ? 1 : 0);
}

/// "00", "01" and so on up to "99".
constexpr std::array kPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    return pairs;
}();

/// Puts the digits of a number before `end`. Where they begin.
char* PutDigitsBefore(char* end, std::uint64_t whole) {
    const auto putPair = [&](auto& number) {
        end -= 2;
        std::memcpy(end, &kPairs[number % 100 * 2], 2);
        number /= 100;
    };
    while (whole > std::numeric_limits<std::uint32_t>::max())
        putPair(whole);
    auto rest = static_cast<std::uint32_t>(whole);
    while (rest >= 100)
        putPair(rest);
    if (rest >= 10)
        putPair(rest);
    else
        *--end = static_cast<char>('0' + rest);
    return end;
}

/// Digits with a point before the last `decimals` of them, at least one before it. A number below
/// kExactBelow. The end of what is printed.
///
/// Whole and decimals are copied as blocks of one size, which takes less than a look at how many
/// there are.
char* PrintScaled(char* at, bool isNegative, std::uint64_t whole, int decimals) {
    constexpr std::size_t kMaxWhole = 16;
    constexpr std::size_t kMaxDecimals = 8;
    static_assert(kPowersOfTen.size() <= kMaxDecimals);
    static_assert(1 + kMaxWhole + 1 + kMaxDecimals <= kRoomOfShort);
    std::array<char, 2 * kMaxWhole> digits;
    digits.fill('0');
    char* const end = digits.data() + kMaxWhole;
    if (isNegative && whole > 0)
        *at++ = '-';
    const char* const begin = std::min(PutDigitsBefore(end, whole), end - decimals - 1);
    std::memcpy(at, begin, kMaxWhole);
    at += end - decimals - begin;
    if (decimals == 0)
        return at;
    *at++ = '.';
    std::memcpy(at, end - decimals, kMaxDecimals);
    return at + decimals;
}

void AppendScaled(std::string& text, bool isNegative, std::uint64_t whole, int decimals) {
    std::array<char, kRoomOfShort> printed;
    text.append(printed.data(), PrintScaled(printed.data(), isNegative, whole, decimals));
}

void AppendPrinted(std::string& text, double value, int decimals) {
    // The longest double has 309 digits before its point.
    constexpr std::size_t kMaxWhole = 320;
    std::string digits(kMaxWhole + static_cast<std::size_t>(decimals), '\0');
    const auto end = std::to_chars(digits.data(),
                                   digits.data() + digits.size(),
                                   std::abs(value),
                                   std::chars_format::fixed,
                                   decimals);
    digits.resize(static_cast<std::size_t>(end.ptr - digits.data()));
    if (std::signbit(value) && digits.find_first_not_of("0.") != std::string::npos)
        text += '-';
    text += digits;
}

}  // namespace

char* PrintShort(char* at, double value, int decimals) {
    const std::optional<std::uint64_t> whole = ScaledWhole(std::abs(value), decimals);
    return whole ? PrintScaled(at, value < 0.0, *whole, decimals) : nullptr;
}

char* PrintShortUnits(char* at, std::int64_t value, int decimals) {
    const auto bits = static_cast<std::uint64_t>(value);
    const std::uint64_t magnitude = value < 0 ? 0 - bits : bits;
    constexpr auto kMost = static_cast<std::uint64_t>(kExactBelow);
    return magnitude < kMost ? PrintScaled(at, value < 0, magnitude, decimals) : nullptr;
}

void AppendFixed(std::string& text, double value, int decimals) {
    std::array<char, kRoomOfShort> printed;
    if (char* const end = PrintShort(printed.data(), value, decimals))
        text.append(printed.data(), end);
    else
        AppendPrinted(text, value, decimals);
}

void AppendTrimmed(std::string& text, double value, int decimals) {
    const double magnitude = std::abs(value);
    if (magnitude < kExactBelow)
        if (const auto units = static_cast<std::uint64_t>(magnitude);
            static_cast<double>(units) == magnitude)
            return AppendScaled(text, value < 0.0, units, 0);
    std::optional<std::uint64_t> whole = ScaledWhole(magnitude, decimals);
    if (!whole) {
        std::string digits;
        AppendPrinted(digits, value, decimals);
        if (digits.find('.') != std::string::npos)
            digits.erase(digits.find_last_not_of('0') + 1);
        text.append(digits, 0, digits.size() - (digits.ends_with('.') ? 1 : 0));
        return;
    }
    for (; decimals > 0 && *whole % 10 == 0; *whole /= 10)
        --decimals;
    AppendScaled(text, value < 0.0, *whole, decimals);
}

}  // namespace numbers
