#include "numbers/FixedDecimals.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

/// What the standard library prints, without the sign of a zero.
std::string Printed(double value, int decimals) {
    std::array<char, 400> buffer;
    const auto end = std::to_chars(
        buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    const std::string text(buffer.data(), end.ptr);
    const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
    return isZero && text.front() == '-' ? text.substr(1) : text;
}

std::string Fixed(double value, int decimals) {
    std::string text;
    numbers::AppendFixed(text, value, decimals);
    return text;
}

std::string Trimmed(double value, int decimals) {
    std::string text = "x=";
    numbers::AppendTrimmed(text, value, decimals);
    return text;
}

TEST(FixedDecimals, AreThoseOfTheStandardLibrary) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double value :
         {0.0, -0.0, -0.0004, 0.0005, 0.5, 1.5, 2.5, 1e9, 999999999.9995, 1e300, -kInfinity})
        for (int decimals = 0; decimals < 9; ++decimals)
            EXPECT_EQ(Fixed(value, decimals), Printed(value, decimals)) << value;
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-8.0, 13.0);
    for (int i = 0; i < 100000; ++i) {
        const int decimals = i % 8;
        const double any = std::pow(10.0, exponent(random)) * (i % 3 == 0 ? -1.0 : 1.0);
        // Ties, and the doubles beside them.
        const double tie = (std::floor(any) + 0.5) / std::pow(10.0, decimals);
        for (const double value : {any, tie, std::nextafter(tie, 0.0), std::nextafter(tie, any)})
            ASSERT_EQ(Fixed(value, decimals), Printed(value, decimals)) << value;
    }
}

TEST(FixedDecimals, ZerosAtTheEndAreTrimmedOfDecimalsOnly) {
    EXPECT_EQ(Trimmed(100.0, 3), "x=100");
    EXPECT_EQ(Trimmed(100.0, 0), "x=100");
    EXPECT_EQ(Trimmed(-12.50, 3), "x=-12.5");
    EXPECT_EQ(Trimmed(-0.0001, 3), "x=0");
    EXPECT_EQ(Trimmed(-0.0005, 3), "x=-0.001");
    EXPECT_EQ(Trimmed(1e15, 3), "x=1000000000000000");
    EXPECT_EQ(Trimmed(1e15, 0), "x=1000000000000000");
}

}  // namespace
