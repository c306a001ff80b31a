#pragma once

#include "camdata/platform/system/Clock.h"
#include "camdata/platform/text/ZetString.h"

#include <optional>

namespace job {

/// The one form of dates that every system and every locale reads alike: yyyy-MM-dd.
ZetString IsoDate(const CalendarDate& date);

/// The date that is written so, of the years 1601 to 9999, which date pickers know; nothing for any
/// other text and for a day that does not exist.
std::optional<CalendarDate> ParseIsoDate(const ZetString& text);

}  // namespace job
