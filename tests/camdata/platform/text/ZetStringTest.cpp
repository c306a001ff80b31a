#include "camdata/platform/text/ZetString.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

TEST(ZetStringTest, PartsOutsideTheTextAreEmpty) {
    // clang-format off
    struct Case { long start, count; const wchar_t* expected; };
    const Case cases[] = {
        {0, 3, L"Z20"}, {2, 2, L"0-"}, {4, 99, L"15"}, {5, 1, L"5"}, {6, 1, L""}, {99, 1, L""},
        {-1, 3, L""},   {1, 0, L""},   {1, -5, L""},
    };
    // clang-format on
    const ZetString text = L"Z20-15";
    for (const Case& c : cases)
        EXPECT_EQ(text.mid(c.start, c.count), c.expected) << c.start << ", " << c.count;
    EXPECT_EQ(text.mid(3), L"-15");
    EXPECT_EQ(text[-1], L'\0');
    EXPECT_EQ(text[6], L'\0');
    EXPECT_EQ(ZetString(L'-', -3), L"");
    ZetString longer = text;
    longer += L'9';
    EXPECT_EQ(longer += L"!", L"Z20-159!");
}

TEST(ZetStringTest, FindStartsWhereItIsTold) {
    const ZetString text = L"y H18 y";
    EXPECT_EQ(text.find(L"y"), 0);
    EXPECT_EQ(text.find(L"y", 1), 6);
    EXPECT_EQ(text.find(L"x"), -1);
    EXPECT_EQ(text.find(L""), 0);
    EXPECT_EQ(text.find(L"", 7), 7);
    EXPECT_EQ(text.find(L"", 8), -1);
    EXPECT_EQ(text.find(L"y", -1), -1);
    EXPECT_EQ(ZetString().find(L""), 0);
}

TEST(ZetStringTest, ComparesByCharacterAndWithoutCase) {
    EXPECT_EQ(ZetString(L"A").compare(L"a"), -1);
    EXPECT_EQ(ZetString(L"b").compare(L"a"), 1);
    EXPECT_EQ(ZetString(L"slT").compareNoCase(L"SLt"), 0);
    EXPECT_EQ(ZetString(L"ä").compareNoCase(L"Ä"), 1);
    EXPECT_LT(ZetString(L"Z10"), ZetString(L"Z2"));
}

TEST(ZetStringTest, ReadsTheNumberAtItsBeginning) {
    // clang-format off
    struct Case { const wchar_t* text; double expected; };
    const Case cases[] = {
        {L"200", 200.0}, {L"  -12.5mm", -12.5}, {L"+12", 12.0}, {L".5", 0.5}, {L"5.", 5.0},
        {L"1.2.3", 1.2}, {L"1e3", 1.0}, {L"0x10", 0.0}, {L"1,5", 1.0}, {L"", 0.0}, {L"-", 0.0},
        {L".", 0.0}, {L"- 5", 0.0}, {L"--5", 0.0}, {L"\t5", 0.0}, {L"Z200", 0.0}, {L"٣", 0.0},
        {L"xan", 0.0}, {L"xnf", 0.0},
        {L"INFinite", std::numeric_limits<double>::infinity()},
        {L"-inf", -std::numeric_limits<double>::infinity()},
    };
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(ZetString(c.text).toDouble(), c.expected) << ZetString(c.text).toUtf8();
    for (const wchar_t* none : {L"nan", L"NAN"})
        EXPECT_TRUE(std::isnan(ZetString(none).toDouble()));
    EXPECT_TRUE(std::signbit(ZetString(L"-0.0").toDouble()));
    for (const wchar_t* none : {L"-x", L"-."})
        EXPECT_FALSE(std::signbit(ZetString(none).toDouble()));
    EXPECT_EQ(ZetString(L'9', 400).toDouble(), std::numeric_limits<double>::infinity());
    EXPECT_EQ((ZetString(L"0.") + ZetString(L'0', 400) + L"1").toDouble(), 0.0);
    EXPECT_EQ(ZetString(L" 12 ").toDouble(true), 12.0);
    EXPECT_EQ(ZetString(L"12mm").toDouble(true), 0.0);
    EXPECT_EQ(ZetString(L" -Inf ").toDouble(true), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(ZetString(L"NaN").toDouble(true)));
    EXPECT_EQ(ZetString(L"infx").toDouble(true), 0.0);
}

TEST(ZetStringTest, ConvertsFromAndToUtf8) {
    const std::string replaced = "\xEF\xBF\xBD";
    // clang-format off
    struct Case { const char* name; std::string bytes; std::wstring wide; std::string back; };
    const Case cases[] = {
        {"plain", "Z20", L"Z20", "Z20"},
        {"least of two bytes", "\xC2\x80 \xDF\xBF", L"\x80 \x7FF", "\xC2\x80 \xDF\xBF"},
        {"two bytes", "Tr\xC3\xA4ger", L"Träger", "Tr\xC3\xA4ger"},
        {"three bytes", "\xE2\x82\xAC", L"\x20AC", "\xE2\x82\xAC"},
        {"four bytes", "\xF0\x9F\x94\xA9", L"\U0001F529", "\xF0\x9F\x94\xA9"},
        {"single byte 1252", "Tr\xE4ger", L"Tr\xFFFDger", "Tr" + replaced + "ger"},
        {"cut short", "a\xE2\x82", L"a\xFFFD\xFFFD", "a" + replaced + replaced},
        {"overlong", "\xC0\xAF", L"\xFFFD\xFFFD", replaced + replaced},
        {"coded surrogate", "\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD", replaced + replaced + replaced},
        {"beyond the range", "\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD",
         replaced + replaced + replaced + replaced},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ZetString text = ZetString::fromUtf8(c.bytes);
        EXPECT_EQ(text, ZetString(c.wide));
        EXPECT_EQ(text.toUtf8(), c.back);
    }
    EXPECT_EQ(ZetString(std::wstring(1, static_cast<wchar_t>(0xD800))).toUtf8(), replaced);
    EXPECT_EQ(ZetString(L'\x80', 40).toUtf8().size(), 80U);  // read many at a time
}

TEST(ZetStringTest, NarrowCharactersAreThePlatforms) {
    EXPECT_EQ(ZetString(L"Z20").toNarrow(), "Z20");
    EXPECT_EQ(ZetString().toNarrow(), "");
#if defined(_WIN32)
    if (GetACP() != 1252)
        GTEST_SKIP() << "code page " << GetACP();
    EXPECT_EQ(ZetString(L"Träger \x20AC").toNarrow(), "Tr\xE4ger \x80");
#else
    EXPECT_EQ(ZetString(L"Träger \x20AC").toNarrow(), "Tr\xC3\xA4ger \xE2\x82\xAC");
#endif
}

}  // namespace
