#include "camdata/platform/system/Clock.h"

#include <ctime>

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

bool IsDateInUtc(const CalendarDate& date, std::time_t time) {
    const std::tm* utc = std::gmtime(&time);
    return date.year == utc->tm_year + 1900 && date.month == utc->tm_mon + 1 &&
           date.day == utc->tm_mday;
}

TEST(ClockTest, TodayIsTheSystemsDateInUtcUnlessReplaced) {
    SetClock([] { return CalendarDate{2024, 2, 29}; });
    EXPECT_TRUE(IsDateInUtc(Today(), 1709164800));
    SetClock(nullptr);
    // Midnight may pass meanwhile.
    const std::time_t before = std::time(nullptr);
    const CalendarDate today = Today();
    EXPECT_TRUE(IsDateInUtc(today, before) || IsDateInUtc(today, std::time(nullptr)));
}

#if defined(_WIN32)
TEST(ClockTest, DatesAreWrittenAsTheSystemsShortDate) {
    SYSTEMTIME time = {};
    time.wYear = 2024;
    time.wMonth = 3;
    time.wDay = 5;
    wchar_t locale[LOCALE_NAME_MAX_LENGTH] = {};
    wchar_t text[80] = {};
    ASSERT_NE(GetSystemDefaultLocaleName(locale, LOCALE_NAME_MAX_LENGTH), 0);
    ASSERT_NE(GetDateFormatEx(locale, DATE_SHORTDATE, &time, nullptr, text, 80, nullptr), 0);
    EXPECT_EQ(FormatDate({2024, 3, 5}), text);
}
#else
TEST(ClockTest, DatesAreWrittenYearFirst) {
    EXPECT_EQ(FormatDate({2024, 3, 5}), L"2024-03-05");
    EXPECT_EQ(FormatDate({987, 12, 31}), L"0987-12-31");
    EXPECT_TRUE(ParseDate(L"1601-01-01"));
    EXPECT_FALSE(ParseDate(L"1600-12-31") || ParseDate(L"2023-02-29") || ParseDate(L"2023-2-3"));
}
#endif

}  // namespace
