#pragma once

#include "camdata/platform/Export.h"
#include "camdata/platform/ZetString.h"

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

/// Replaces the clock behind Today(); null puts the system's clock back.
CAMDATA_API void SetClock(CalendarDate (*clock)());
