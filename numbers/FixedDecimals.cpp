#include "numbers/FixedDecimals.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace numbers {

namespace {

constexpr std::array kPowersOfTen = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};

/// A magnitude times a power of ten, rounded. Nothing for a large one, for NaN, and where the
/// product, which is rounded itself, is too near a tie to tell.
std::optional<std::uint64_t> ScaledWhole(double magnitude, int decimals) {
    constexpr double kExactBelow = 1e12;
    constexpr double kTieMargin = 1e-3;  // far more than what products below that are off
    if (decimals >= static_cast<int>(kPowersOfTen.size()))
        return std::nullopt;
    const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
    if (!(scaled < kExactBelow))
        return std::nullopt;
    const auto whole = static_cast<std::uint64_t>(scaled);
    const double rest = scaled - static_cast<double>(whole);
    if (std::abs(rest - 0.5) < kTieMargin)
        return std::nullopt;
    return whole + (rest > 0.5 ? 1 : 0);
}

/// Digits with a point before the last `decimals` of them, at least one before it.
void AppendScaled(std::string& text, bool isNegative, std::uint64_t whole, int decimals) {
    if (isNegative && whole > 0)
        text += '-';
    std::array<char, 24> digits;
    char* at = digits.data() + digits.size();
    const auto prependDigit = [&] {
        *--at = static_cast<char>('0' + whole % 10);
        whole /= 10;
    };
    for (int i = 0; i < decimals; ++i)
        prependDigit();
    if (decimals > 0)
        *--at = '.';
    do
        prependDigit();
    while (whole > 0);
    text.append(at, digits.data() + digits.size());
}

void AppendPrinted(std::string& text, double value, int decimals) {
    // The longest double has 309 digits before its point.
    constexpr std::size_t kMostWhole = 320;
    std::string digits(kMostWhole + static_cast<std::size_t>(decimals), '\0');
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

void AppendFixed(std::string& text, double value, int decimals) {
    const std::optional<std::uint64_t> whole = ScaledWhole(std::abs(value), decimals);
    if (!whole) {
        AppendPrinted(text, value, decimals);
        return;
    }
    AppendScaled(text, value < 0.0, *whole, decimals);
}

void AppendTrimmed(std::string& text, double value, int decimals) {
    std::optional<std::uint64_t> whole = ScaledWhole(std::abs(value), decimals);
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
