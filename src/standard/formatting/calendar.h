#pragma once

#include "standard/run_time_errors.h"

#include <chrono>
#include <cmath>
#include <optional>

namespace krv::standard {

inline constexpr int seconds_per_day = 86400;

/// Least and greatest whole day of a serial number: 1 January 100 and 31 December 9999.
inline constexpr int first_serial_day = -657434;
inline constexpr int last_serial_day = 2958465;

inline constexpr int serial_of_unix_epoch = 25569;

/// A serial number taken apart; the time is rounded to the second.
struct CalendarTime {
    int serial_day = 0; ///< days since 30 December 1899
    int year = 0;
    int month = 0; ///< 1 to 12
    int day = 0;   ///< 1 to 31
    int second_of_day = 0;

    int hour() const { return second_of_day / 3600; }

    int minute() const { return second_of_day / 60 % 60; }

    int second() const { return second_of_day % 60; }
};

/// True for the serial numbers of the years 100 to 9999.
constexpr bool is_date_serial(double serial) {
    return serial > first_serial_day - 1.0 && serial < last_serial_day + 1.0;
}

/// Sets the time by the fraction of a day, 0 to 1; rounding may begin the next day.
void round_to_second(double fraction, CalendarTime& time);

/// Inline for the sake of lists with a million dates.
/// \throws RuntimeError 6 when `is_date_serial` is false
inline CalendarTime calendar_time(double serial) {
    if (!is_date_serial(serial)) {
        fail_overflow();
    }
    CalendarTime time;
    time.serial_day = static_cast<int>(serial);
    if (const double fraction = std::abs(serial - time.serial_day); fraction != 0) {
        round_to_second(fraction, time);
    }
    const std::chrono::days since_1970(time.serial_day - serial_of_unix_epoch);
    const std::chrono::year_month_day date{std::chrono::sys_days(since_1970)};
    time.year = static_cast<int>(date.year());
    time.month = static_cast<int>(static_cast<unsigned>(date.month()));
    time.day = static_cast<int>(static_cast<unsigned>(date.day()));
    return time;
}

/// The serial number of a day; nothing when there is no such day in the years 100 to 9999.
std::optional<int> serial_day(int year, int month, int day);

/// The serial number of a time on a day. Before 30 December 1899 the fraction counts away from 0.
double serial_of(int serial_day, int second_of_day);

/// 0 for Sunday to 6 for Saturday.
int weekday_of(int serial_day);

/// 1 to 366.
int day_of_year(const CalendarTime& time);

/// 1 to 54; week 1 holds 1 January, weeks begin on Sunday.
int week_of_year(const CalendarTime& time);

/// Today in the local time zone.
int serial_day_of_today();

} // namespace krv::standard
