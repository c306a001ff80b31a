#include "camdata/platform/text/FixedPoint.h"
#include "camdata/tolerance/CMxGeom.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

/// The reference: print with the C library, read back.
double PrintedAndRead(double value, int decimals) {
    char text[2000];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return std::strtod(text, nullptr);
}

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void ExpectAsPrinted(double value, int decimals) {
    const double rounded = CMxGeom::Round_CAM(value, decimals);
    ASSERT_TRUE(SameBits(rounded, PrintedAndRead(value, decimals)))
        << std::hexfloat << value << " at " << decimals << " gives " << rounded;
}

TEST(FixedPointTest, RoundingIsPrintingAndReadingBack) {
    constexpr unsigned kSeed = 4711;
    std::mt19937_64 random(kSeed);
    for (int i = 0; i < 100000; ++i) {
        const int decimals = static_cast<int>(random() % 8);
        const double scale = std::pow(10.0, decimals);
        const double tie = (static_cast<double>(random() % 2'000'000) + 0.5) / scale;
        ExpectAsPrinted(tie, decimals);
        ExpectAsPrinted(std::nextafter(tie, 0.0), decimals);
        ExpectAsPrinted(-std::nextafter(tie, 1e300), decimals);
        ExpectAsPrinted(
            std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 90) - 95),
            decimals);
    }
}

TEST(FixedPointTest, ExtremeValuesRoundAsPrinted) {
    // clang-format off
    const double values[] = {
        0.0, -0.0, -0.04, 0.5, 1.5, 2.5, 0.125, 999999999.5, 1e9, 1e15 + 0.5, 1e22, 1e300, 1e-300,
        5e-324, 0x1p52 + 0.5, -2.5, 0x1p53, 0.1, 1.7976931348623157e308,
        std::numeric_limits<double>::infinity()};
    // clang-format on
    for (const double value : values) {
        for (const int decimals : {0, 1, 2, 3, 6, 7, 20, 400, 1000})
            ExpectAsPrinted(value, decimals);
    }
    EXPECT_TRUE(std::isnan(CMxGeom::Round_CAM(std::nan(""), 3)));
    EXPECT_EQ(CMxGeom::Round_CAM(12.7, -1), 13.0);
    EXPECT_EQ(CMxGeom::Round_CAM(12.7, std::numeric_limits<int>::max()), 12.7);
}

}  // namespace
