#include "camdata/platform/system/Clock.h"

#include <chrono>

#if defined(_WIN32)
// The second one needs the first.
// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on
#endif

namespace {

CalendarDate SystemToday() {
    using namespace std::chrono;
    const year_month_day date = floor<days>(system_clock::now());
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

/// Of all threads: set while there is only one.
CalendarDate (*g_clock)() = nullptr;

/// The first year that Windows and its date pickers know.
constexpr int kFirstYear = 1601;

}  // namespace

CalendarDate Today() {
    return g_clock == nullptr ? SystemToday() : g_clock();
}

void SetClock(CalendarDate (*clock)()) {
    g_clock = clock;
}

#if defined(_WIN32)
ZetString FormatDate(const CalendarDate& date) {
    SYSTEMTIME time = {};
    time.wYear = static_cast<WORD>(date.year);
    time.wMonth = static_cast<WORD>(date.month);
    time.wDay = static_cast<WORD>(date.day);
    wchar_t text[256] = {};
    GetDateFormatW(
        LOCALE_SYSTEM_DEFAULT, 0, &time, nullptr, text, static_cast<int>(std::size(text)));
    return text;
}

std::optional<CalendarDate> ParseDate(const ZetString& text) {
    DATE days = 0;
    SYSTEMTIME time = {};
    if (FAILED(VarDateFromStr(
            const_cast<wchar_t*>(text.c_str()), LOCALE_SYSTEM_DEFAULT, VAR_DATEVALUEONLY, &days)) ||
        VariantTimeToSystemTime(days, &time) == FALSE || time.wYear < kFirstYear)
        return std::nullopt;
    return CalendarDate{time.wYear, time.wMonth, time.wDay};
}
#else
ZetString FormatDate(const CalendarDate& date) {
    return ZetString::format(L"%04d-%02d-%02d", date.year, date.month, date.day);
}

std::optional<CalendarDate> ParseDate(const ZetString& text) {
    const auto number = [&text](long start, long count) {
        return static_cast<int>(text.mid(start, count).toDouble(true));
    };
    const CalendarDate date = {number(0, 4), number(5, 2), number(8, 2)};
    using namespace std::chrono;
    const bool exists = (year(date.year) / date.month / date.day).ok();
    // Only a text that is written as dates are comes out the same.
    if (!exists || date.year < kFirstYear || FormatDate(date) != text)
        return std::nullopt;
    return date;
}
#endif
