#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <optional>

/// A day of the Gregorian calendar.
struct CalendarDate {
    int year = 1970;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
};

/// Today's date: UTC, from the system's clock unless SetClock replaced it.
CAMDATA_API CalendarDate Today();

/// A date as the platform's short date: on Windows as the system's default locale writes it,
/// elsewhere yyyy-MM-dd.
CAMDATA_API ZetString FormatDate(const CalendarDate& date);

/// The date that a text holds in the form of FormatDate, of the years 1601 to 9999; nothing for any
/// other text. On Windows whatever the system's default locale takes for a date.
CAMDATA_API std::optional<CalendarDate> ParseDate(const ZetString& text);

/// Replaces the clock behind Today(); null puts the system's clock back.
CAMDATA_API void SetClock(CalendarDate (*clock)());
