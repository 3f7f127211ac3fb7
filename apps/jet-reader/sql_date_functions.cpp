#include "regional.h"
#include "sql_value.h"
#include "standard/ascii.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace krv::jet_reader {

namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days day_zero = std::chrono::year(1899) / 12 / 30;
constexpr std::int64_t seconds_per_day = 86400;

/// A serial date taken apart: before the first day the time still counts forward.
struct Moment {
    std::int64_t day = 0; ///< since 1899-12-30
    std::int64_t second = 0;

    year_month_day date() const { return year_month_day(day_zero + days(day)); }

    std::int64_t seconds() const { return day * seconds_per_day + second; }

    double serial() const {
        const double time = static_cast<double>(second) / static_cast<double>(seconds_per_day);
        return static_cast<double>(day) + (day < 0 ? -time : time);
    }
};

Moment moment_of_seconds(std::int64_t seconds) {
    Moment moment{seconds / seconds_per_day, seconds % seconds_per_day};
    if (moment.second < 0) {
        moment.second += seconds_per_day;
        --moment.day;
    }
    return moment;
}

Moment moment_of(double serial) {
    const double whole = std::trunc(serial);
    const auto second =
        std::llround(std::abs(serial - whole) * static_cast<double>(seconds_per_day));
    return moment_of_seconds(static_cast<std::int64_t>(whole) * seconds_per_day + second);
}

Moment argument(const SqlArguments& in, std::size_t index) {
    return moment_of(in.date(index));
}

/// The day of a month that is too short for it is its last one.
std::int64_t day_number(year_month_day date) {
    const sys_days day =
        date.ok() ? sys_days(date) : sys_days(date.year() / date.month() / std::chrono::last);
    return (day - day_zero).count();
}

/// The number behind a check, as `CDate` makes it.
void give_date(double serial, SqlResult& out) {
    out.date(region_of_sql().CDate(platform::ValueView::double_float(serial)).serial);
}

Moment now_moment() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const year_month_day date(std::chrono::year(local.tm_year + 1900),
                              std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                              std::chrono::day(static_cast<unsigned>(local.tm_mday)));
    return {day_number(date), local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec};
}

void year(const SqlArguments& in, SqlResult& out) {
    out.whole(static_cast<int>(argument(in, 0).date().year()));
}

void month(const SqlArguments& in, SqlResult& out) {
    out.whole(static_cast<unsigned>(argument(in, 0).date().month()));
}

void day(const SqlArguments& in, SqlResult& out) {
    out.whole(static_cast<unsigned>(argument(in, 0).date().day()));
}

void hour(const SqlArguments& in, SqlResult& out) {
    out.whole(argument(in, 0).second / 3600);
}

void minute(const SqlArguments& in, SqlResult& out) {
    out.whole(argument(in, 0).second / 60 % 60);
}

void second(const SqlArguments& in, SqlResult& out) {
    out.whole(argument(in, 0).second % 60);
}

std::int64_t weekday_from_sunday(std::int64_t day_of_serial) {
    return std::chrono::weekday(day_zero + days(day_of_serial)).c_encoding();
}

/// Sunday is 1, or the day that is given as the first one.
void weekday(const SqlArguments& in, SqlResult& out) {
    const std::int64_t first = in.size() > 1 ? std::max(in.whole(1), 1) - 1 : 0;
    out.whole((weekday_from_sunday(argument(in, 0).day) + 7 - first % 7) % 7 + 1);
}

void today(const SqlArguments&, SqlResult& out) {
    out.date(static_cast<double>(now_moment().day));
}

void time_now(const SqlArguments&, SqlResult& out) {
    out.date(Moment{0, now_moment().second}.serial());
}

void now(const SqlArguments&, SqlResult& out) {
    out.date(now_moment().serial());
}

void to_date(const SqlArguments& in, SqlResult& out) {
    out.date(in.date(0));
}

void date_value(const SqlArguments& in, SqlResult& out) {
    out.date(std::trunc(in.date(0)));
}

void time_value(const SqlArguments& in, SqlResult& out) {
    out.date(std::abs(std::fmod(in.date(0), 1.0)));
}

/// Months and days beyond their range run over into the next year and month.
void date_serial(const SqlArguments& in, SqlResult& out) {
    const std::int32_t year_number = in.whole(0);
    const std::int32_t full_year = year_number >= 0 && year_number < 30     ? year_number + 2000
                                   : year_number >= 30 && year_number < 100 ? year_number + 1900
                                                                            : year_number;
    if (full_year < 100 || full_year > 9999 || std::abs(in.whole(1)) > 120'000 ||
        std::abs(in.whole(2)) > 4'000'000) {
        return out.error("Invalid procedure call or argument");
    }
    const year_month_day first =
        std::chrono::year(full_year) / std::chrono::January / 1 + months(in.whole(1) - 1);
    give_date(static_cast<double>(day_number(first) + in.whole(2) - 1), out);
}

/// Months of an interval that is made of months; 0 for another.
int months_of(std::string_view interval) {
    return standard::same_keyword(interval, "yyyy") ? 12
           : standard::same_keyword(interval, "q")  ? 3
           : standard::same_keyword(interval, "m")  ? 1
                                                    : 0;
}

std::int64_t seconds_of(std::string_view interval) {
    for (const char* name : {"d", "y", "w"}) {
        if (standard::same_keyword(interval, name)) {
            return seconds_per_day;
        }
    }
    const std::int64_t seconds = standard::same_keyword(interval, "ww")  ? 7 * seconds_per_day
                                 : standard::same_keyword(interval, "h") ? 3600
                                 : standard::same_keyword(interval, "n") ? 60
                                 : standard::same_keyword(interval, "s") ? 1
                                                                         : 0;
    if (seconds == 0) {
        throw platform::RuntimeError(5, "Invalid procedure call or argument", "Jet");
    }
    return seconds;
}

void date_add(const SqlArguments& in, SqlResult& out) {
    const std::string interval = in.text(0);
    const std::int64_t count = static_cast<std::int64_t>(std::trunc(in.number(1)));
    Moment moment = argument(in, 2);
    if (std::abs(count) > 400'000'000'000) {
        return out.error("Overflow");
    }
    if (const int factor = months_of(interval); factor != 0) {
        if (std::abs(count) > 120'000) {
            return out.error("Overflow");
        }
        moment.day = day_number(moment.date() + months(static_cast<int>(count) * factor));
    } else {
        moment = moment_of_seconds(moment.seconds() + count * seconds_of(interval));
    }
    give_date(moment.serial(), out);
}

std::int64_t month_number(year_month_day date) {
    return static_cast<int>(date.year()) * 12LL + static_cast<unsigned>(date.month()) - 1;
}

std::int64_t floor_divided(std::int64_t left, std::int64_t right) {
    return left / right - (left % right < 0 ? 1 : 0);
}

/// Counts the borders between two moments: of years, weeks (Sundays), hours and so on.
void date_difference(const SqlArguments& in, SqlResult& out) {
    const std::string interval = in.text(0);
    const Moment from = argument(in, 1);
    const Moment to = argument(in, 2);
    if (const int size = months_of(interval); size != 0) {
        return out.whole(month_number(to.date()) / size - month_number(from.date()) / size);
    }
    if (standard::same_keyword(interval, "w")) {
        return out.whole((to.day - from.day) / 7);
    }
    if (standard::same_keyword(interval, "ww")) {
        const auto sunday = [](const Moment& moment) {
            return moment.day - weekday_from_sunday(moment.day);
        };
        return out.whole((sunday(to) - sunday(from)) / 7);
    }
    const std::int64_t size = seconds_of(interval);
    out.whole(floor_divided(to.seconds(), size) - floor_divided(from.seconds(), size));
}

constexpr FunctionEntry entries[] = {
    {"jet_year", "Year", 1, 1, year},
    {"jet_month", "Month", 1, 1, month},
    {"jet_day", "Day", 1, 1, day},
    {"jet_hour", "Hour", 1, 1, hour},
    {"jet_minute", "Minute", 1, 1, minute},
    {"jet_second", "Second", 1, 1, second},
    {"jet_weekday", "Weekday", 1, 2, weekday},
    {"jet_date", "Date", 0, 0, today},
    {"jet_time", "Time", 0, 0, time_now},
    {"jet_now", "Now", 0, 0, now},
    {"jet_date_literal", "", 1, 1, to_date},
    {"jet_cdate", "CDate", 1, 1, to_date},
    {"jet_date_value", "DateValue", 1, 1, date_value},
    {"jet_time_value", "TimeValue", 1, 1, time_value},
    {"jet_date_serial", "DateSerial", 3, 3, date_serial},
    {"jet_date_add", "DateAdd", 3, 3, date_add},
    {"jet_date_diff", "DateDiff", 3, 3, date_difference},
};

} // namespace

std::span<const FunctionEntry> date_functions() {
    return entries;
}

} // namespace krv::jet_reader
