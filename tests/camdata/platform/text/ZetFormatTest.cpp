#include "camdata/platform/text/ZetFormat.h"
#include "camdata/platform/text/ZetString.h"

#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// What the C library prints; its numbers are the reference ("C" locale).
std::string Printed(const char* format, auto value) {
    char text[2000];
    const std::string locale = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "C");
    std::snprintf(text, sizeof text, format, value);
    std::setlocale(LC_NUMERIC, locale.c_str());
    return text;
}

TEST(ZetFormatTest, NumbersAreThoseOfTheCLibrary) {
    // clang-format off
    const char* const formats[] = {
        "%f", "%.0f", "%.1f", "%.2f", "%.3f", "%3.1f", "%-5.1f|", "%8.3f", "%08.2f", "%+.2f",
        "% .2f", "%#.0f", "%-+8.1f", "%e", "%.0e", "%12.4e", "%g", "%.3g", "%#.3g", "%.0g",
        "%-0.1f", "%0.7f", "%015.6g", "%.20f", "%.9f", "%#.10g", "%+09.1f", "%#e", "%#.0e",
        "%-12g|", "%F", "%.3E", "%G", "%+012.3G", "%#.3G", "%#.15g"};
    const double values[] = {
        0.0, -0.0, 1.0, -1.0, 0.5, 1.5, 2.5, 0.05, 0.15, 2.675, 1.005, 1e-7, 123456.789, 999999.5,
        0.000123, -250.0, 1e15 / 3, 1e9, 999999999, 1e22, 1e300, -5e-324, 99.995, 0.9999995,
        1234567, 6000.05, 0.0000375, 0.0005, 0.0015, 0.125, 1.0625, kInfinity, -kInfinity};
    // clang-format on
    for (const char* format : formats) {
        for (const double value : values) {
            const ZetString wide = ZetString::fromUtf8(format);
            EXPECT_EQ(ZetString::formatRuntime(wide, value).toUtf8(), Printed(format, value))
                << format << " of " << value;
        }
    }
}

TEST(ZetFormatTest, Integers) {
    EXPECT_EQ(ZetString::format(L"%d|%5d|%-5d|%05d|%+d|% d|%.3d|%.0d", 7, -42, 42, -42, 3, 4, 5, 0),
              L"7|  -42|42   |-0042|+3| 4|005|");
    EXPECT_EQ(ZetString::format(L"%i %ld %hd %lld", 1L, 2L, short{3}, 4LL), L"1 2 3 4");
    EXPECT_EQ(ZetString::format(L"%d %d", std::numeric_limits<long long>::min(), ~0ULL),
              L"-9223372036854775808 18446744073709551615");
    EXPECT_EQ(ZetString::format(L"%u %u %+u", -1, -1L, 9U), L"4294967295 4294967295 9");
    EXPECT_EQ(ZetString::format(L"%08.3d|%-08d|%05.0d", 5, 5, 5), L"     005|5       |    5");
}

TEST(ZetFormatTest, IntegersToOtherBases) {
    for (const char* format : {"%x",
                               "%X",
                               "%#x",
                               "%#X",
                               "%08x",
                               "%#08x",
                               "%#.4x",
                               "%-6x|",
                               "%+x",
                               "%o",
                               "%#o",
                               "%05o",
                               "%#.0x",
                               "%.3o",
                               "%#.3o",
                               "%#6o"})
        for (const int value : {0, 1, 8, 255, -1, 123456789})
            EXPECT_EQ(ZetString::formatRuntime(ZetString::fromUtf8(format), value).toUtf8(),
                      Printed(format, value))
                << format << " of " << value;
    EXPECT_EQ(ZetString::formatRuntime(L"%#.0o", 0), L"0");  // not so on every system
    EXPECT_EQ(ZetString::formatRuntime(L"%x %o", -1LL - (1LL << 32), 1LL << 33),
              L"fffffffeffffffff 100000000000");
}

TEST(ZetFormatTest, HexadecimalDoubles) {
    struct Case {
        const wchar_t* format;
        double value;
        const wchar_t* expected;
    };
    // clang-format off
    const Case cases[] = {
        {L"%a", 0.0, L"0x0p+0"},              {L"%a", 1.5, L"0x1.8p+0"},
        {L"%a", 0.1, L"0x1.999999999999ap-4"},{L"%a", -1e300, L"-0x1.7e43c8800759cp+996"},
        {L"%a", 5e-324, L"0x0.0000000000001p-1022"}, {L"%A", 0.1, L"0X1.999999999999AP-4"},
        {L"%.0a", 1.5, L"0x2p+0"},            {L"%.0a", 2.5, L"0x1p+1"},
        {L"%.1a", 1.96875, L"0x2.0p+0"},      {L"%.1a", 1.53125, L"0x1.8p+0"},
        {L"%.1a", 1.09375, L"0x1.2p+0"},      {L"%.1a", 0.1, L"0x1.ap-4"},
        {L"%.1a", 1.03125, L"0x1.0p+0"},
        {L"%.15a", 1.5, L"0x1.800000000000000p+0"}, {L"%#.0a", 1.0, L"0x1.p+0"},
        {L"%020.2a|", 2.5, L"0x000000000001.40p+1|"}, {L"%-12.1A|", 1.5, L"0X1.8P+0    |"},
        {L"%A", kInfinity, L"INF"},           {L"%+10a", kInfinity, L"      +inf"},
    };
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(ZetString::formatRuntime(c.format, c.value), c.expected);
}

TEST(ZetFormatTest, TextsAreWideAndPaddedByCharacters) {
    EXPECT_EQ(
        ZetString::format(
            L"%s|%-6s|%6s|%.2s%.0s|%ls", L"Träger", ZetString(L"öß"), L"öß", L"äöü", L"ä", L"x"),
        L"Träger|öß    |    öß|äö|x");
    EXPECT_EQ(ZetString::format(L"%c%c|%3c|%-3c|", L'ä', L'\x20AC', L'x', L'y'),
              L"ä\x20AC|  x|y  |");
    EXPECT_EQ(ZetString::format(L"100%% of %s", L"%d %s"), L"100% of %d %s");
}

TEST(ZetFormatTest, NonFiniteNumbersAreNeverPaddedWithZeros) {
    EXPECT_EQ(ZetString::format(L"%05.1f|%-6f|%+f|%e", kNaN, kInfinity, kInfinity, -kInfinity),
              L"  nan|inf   |+inf|-inf");
}

TEST(ZetFormatTest, ForeignFormatsPrintWhatDoesNotFitAsItStands) {
    // Every format gets the arguments 18.0, "web" and 3, in this order.
    // clang-format off
    struct Case { const wchar_t *format, *expected; };
    const Case cases[] = {
        {L"%f|%s|%d|", L"18.000000|web|3|"}, {L"%d|%s|%f", L"%d|web|%f"},
        {L"%s%s%s%s", L"%sweb%s%s"},         {L"%n%p%q %.1f", L"%n%p%q 18.0"},
        {L"50% of %.0f", L"50% of 18"},      {L"%.0f %", L"18 %"},
        {L"%.0f %-", L"18 %-"},              {L"%*f %.1f", L"%*f 18.0"},
        {L"%1$s %.0f", L"%1$s 18"},          {L"no conversion", L"no conversion"},
        {L"%99999999999f|%.0f", L"%99999999999f|18"},
        {L"%.99999999999f|%.0f", L"%.99999999999f|18"},
        {L"10% above %.0f % X", L"10% above 18 % X"}, {L"%x %X%X%o", L"%x %X3%o"},
        {L"%.0f %s %d %d %s", L"18 web 3 %d %s"},
    };
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(ZetString::formatRuntime(c.format, 18.0, ZetString(L"web"), 3), c.expected);
}

TEST(ZetFormatTest, NoForeignFormatDoesHarm) {
    constexpr unsigned kSeed = 31;
    std::mt19937_64 random(kSeed);
    const std::wstring alphabet = L"%%%%0123456789-+ #.lhsdiufegcnxXoFEGaAp*$q";
    for (int i = 0; i < 50000; ++i) {
        std::wstring format;
        for (std::size_t length = random() % 24; format.size() < length;)
            format += alphabet[random() % alphabet.size()];
        const ZetString text =
            ZetString::formatRuntime(ZetString(format), 18.0, ZetString(L"web"), -3, L'c');
        ASSERT_LE(text.length(), 5L * (kZetFormatMaxField + 400)) << ZetString(format).toUtf8();
        const bool isPlain = format.find(L'%') == std::wstring::npos;
        ASSERT_TRUE(!isPlain || text == ZetString(format));
    }
}

TEST(ZetFormatTest, FixedFormatsAreCheckedByTheCompiler) {
    using camdata::detail::FormatTakes;
    using Kind = ZetFormatArg::Kind;
    static_assert(FormatTakes(L"%s%5.1f %-4d%% %c",
                              {Kind::kText, Kind::kDouble, Kind::kInteger, Kind::kCharacter}));
    static_assert(!FormatTakes(L"%s", {Kind::kInteger}));
    static_assert(!FormatTakes(L"%s %s", {Kind::kText}));
    static_assert(!FormatTakes(L"%s", {Kind::kText, Kind::kText}));
    static_assert(!FormatTakes(L"%p", {Kind::kInteger}));
}

}  // namespace
