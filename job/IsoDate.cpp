#include "job/IsoDate.h"

#include <chrono>

namespace job {

namespace {

constexpr int kFirstYear = 1601;

int NumberIn(const ZetString& text, long start, long count) {
    return static_cast<int>(text.mid(start, count).toDouble(true));
}

}  // namespace

ZetString IsoDate(const CalendarDate& date) {
    return ZetString::format(L"%04d-%02d-%02d", date.year, date.month, date.day);
}

std::optional<CalendarDate> ParseIsoDate(const ZetString& text) {
    const CalendarDate date = {NumberIn(text, 0, 4), NumberIn(text, 5, 2), NumberIn(text, 8, 2)};
    using namespace std::chrono;
    const bool exists = (year(date.year) / date.month / date.day).ok();
    // Only a text that is written as dates are comes out the same.
    if (!exists || date.year < kFirstYear || IsoDate(date) != text)
        return std::nullopt;
    return date;
}

}  // namespace job
