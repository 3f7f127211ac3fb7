#pragma once

#include "krv/platform/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace krv::standard {

/// May a time stand without a date? It is the time of day 0 then.
enum class TimeAlone { refused, taken };

/// `YYYY-MM-DD[ T]HH:MM[:SS[.fff]]` with `Z` or `+HH:MM` behind it (taken to UTC), or
/// `YYYY-MM-DD`. Nothing for other texts, days that the calendar does not have, hours above 23 and
/// years outside 100 to 9999.
std::optional<platform::Date> date_from_text(std::string_view text, TimeAlone time_alone);

/// Seconds since 1970 in UTC; nothing outside the years 100 to 9999.
std::optional<platform::Date> date_from_unix_seconds(double seconds);

/// A Julian day, rounded to the millisecond; nothing outside the years 100 to 9999.
std::optional<platform::Date> date_from_julian_day(double julian_day);

/// `YYYY-MM-DD` at midnight, else `YYYY-MM-DD HH:MM:SS[.fff]`; nothing for a serial out of range.
std::optional<std::string> text_from_date(platform::Date date);

} // namespace krv::standard
