#include "camdata/platform/Clock.h"

#include <chrono>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

CalendarDate SystemToday() {
    using namespace std::chrono;
    const year_month_day date = floor<days>(system_clock::now());
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

CalendarDate (*g_clock)() = nullptr;

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
#else
ZetString FormatDate(const CalendarDate& date) {
    return ZetString::format(L"%04d-%02d-%02d", date.year, date.month, date.day);
}
#endif
