#include "standard/formatting/calendar.h"

#include <ctime>

namespace krv::standard {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

int to_serial(year_month_day date) {
    return static_cast<int>(sys_days(date).time_since_epoch().count()) + serial_of_unix_epoch;
}

year_month_day make_date(int year, int month, int day) {
    return std::chrono::year(year) / static_cast<unsigned>(month) / static_cast<unsigned>(day);
}

} // namespace

void round_to_second(double fraction, CalendarTime& time) {
    time.second_of_day = static_cast<int>(fraction * seconds_per_day + 0.5);
    if (time.second_of_day < seconds_per_day) {
        return;
    }
    if (time.serial_day == last_serial_day) {
        // The last half second has no next day to round to.
        time.second_of_day = seconds_per_day - 1;
        return;
    }
    ++time.serial_day;
    time.second_of_day = 0;
}

std::optional<int> serial_day(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
        return std::nullopt;
    }
    const year_month_day date = make_date(year, month, day);
    return date.ok() ? std::optional(to_serial(date)) : std::nullopt;
}

double serial_of(int serial_day, int second_of_day) {
    const double fraction = static_cast<double>(second_of_day) / seconds_per_day;
    return serial_day < 0 ? serial_day - fraction : serial_day + fraction;
}

int weekday_of(int serial_day) {
    // The first day of the range is a Friday.
    return (serial_day - first_serial_day + 5) % 7;
}

int day_of_year(const CalendarTime& time) {
    return time.serial_day - to_serial(make_date(time.year, 1, 1)) + 1;
}

int week_of_year(const CalendarTime& time) {
    const int before = day_of_year(time) - 1;
    return (before + weekday_of(time.serial_day - before)) / 7 + 1;
}

int serial_day_of_today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return to_serial(make_date(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday));
}

} // namespace krv::standard
