#include "standard/ado/date_text.h"

#include "standard/ascii.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace krv::standard {

namespace {

constexpr std::int64_t seconds_a_day = 86400;
constexpr double milliseconds_a_day = 86400000;
constexpr std::int64_t day_of_1970 = 25569;
constexpr double julian_day_of_1970 = 2440587.5;
constexpr std::int64_t first_day = -657434;   // 1 January 100
constexpr std::int64_t beyond_days = 2958466; // 1 January 10000

/// \param day       days since 1899-12-30
/// \param fraction  of the day, 0 to less than 1
std::optional<platform::Date> date_of(std::int64_t day, double fraction) {
    if (day < first_day || day >= beyond_days) {
        return std::nullopt;
    }
    const auto whole = static_cast<double>(day);
    const double serial = day < 0 ? whole - fraction : whole + fraction;
    if (std::trunc(serial) == whole) {
        return platform::Date{serial};
    }
    // The last instant of a day may round up to the next one, which is not always there.
    return platform::Date{day + 1 < beyond_days
                              ? static_cast<double>(day + 1)
                              : std::nextafter(static_cast<double>(beyond_days), 0.0)};
}

std::optional<platform::Date> date_of_seconds(std::int64_t seconds, double fraction) {
    std::int64_t day = seconds / seconds_a_day;
    std::int64_t rest = seconds % seconds_a_day;
    if (rest < 0) {
        rest += seconds_a_day;
        --day;
    }
    return date_of(day,
                   (static_cast<double>(rest) + fraction) / static_cast<double>(seconds_a_day));
}

class DateReader {
public:
    explicit DateReader(std::string_view text)
        : rest_(text) {}

    bool at_end() const { return rest_.empty(); }

    bool take(char c) {
        if (rest_.empty() || rest_.front() != c) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    /// Exactly `count` digits with a value up to `most`; -1 when they are not there.
    int number(std::size_t count, int most) {
        if (rest_.size() < count) {
            return -1;
        }
        int value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (!is_ascii_digit(rest_[i])) {
                return -1;
            }
            value = value * 10 + (rest_[i] - '0');
        }
        rest_.remove_prefix(count);
        return value <= most ? value : -1;
    }

    /// Days since 1899-12-30.
    bool date(std::int64_t& day) {
        using namespace std::chrono;
        const int y = number(4, 9999);
        if (y < 0 || !take('-')) {
            return false;
        }
        const int m = number(2, 12);
        if (m < 0 || !take('-')) {
            return false;
        }
        const int d = number(2, 31);
        const year_month_day calendar{year{y},
                                      month{static_cast<unsigned>(m)},
                                      std::chrono::day{static_cast<unsigned>(d < 0 ? 0 : d)}};
        day = sys_days{calendar}.time_since_epoch().count() + day_of_1970;
        return calendar.ok();
    }

    bool time(std::int64_t& seconds, double& fraction) {
        const int hour = number(2, 23);
        if (hour < 0 || !take(':')) {
            return false;
        }
        const int minute = number(2, 59);
        if (minute < 0) {
            return false;
        }
        int second = 0;
        if (take(':')) {
            second = number(2, 59);
            if (second < 0 || (take('.') && !read_fraction(fraction))) {
                return false;
            }
        }
        seconds = hour * 3600 + minute * 60 + second;
        return offset(seconds);
    }

private:
    bool read_fraction(double& fraction) {
        double unit = 1;
        std::size_t digits = 0;
        for (; digits < rest_.size() && is_ascii_digit(rest_[digits]); ++digits) {
            if (digits < 15) {
                fraction = fraction * 10 + (rest_[digits] - '0');
                unit *= 10;
            }
        }
        rest_.remove_prefix(digits);
        fraction /= unit;
        return digits > 0;
    }

    /// Takes what may stand behind a time: nothing, blanks, a zone.
    bool offset(std::int64_t& seconds) {
        while (take(' ')) {
        }
        if (take('Z') || take('z')) {
            return true;
        }
        const bool east = take('+');
        if (!east && !take('-')) {
            return true;
        }
        const int hours = number(2, 14);
        if (hours < 0 || !take(':')) {
            return false;
        }
        const int minutes = number(2, 59);
        const int distance = hours * 3600 + minutes * 60;
        seconds += east ? -distance : distance;
        return minutes >= 0;
    }

    std::string_view rest_;
};

} // namespace

std::optional<platform::Date> date_from_text(std::string_view text, TimeAlone time_alone) {
    std::int64_t day = 0;
    std::int64_t seconds = 0;
    double fraction = 0;
    const bool has_date = text.size() < 3 || text[2] != ':' || time_alone == TimeAlone::refused;
    DateReader reader(text);
    if (has_date) {
        if (!reader.date(day)) {
            return std::nullopt;
        }
        if (reader.at_end()) {
            return date_of(day, 0);
        }
        if (!reader.take(' ') && !reader.take('T')) {
            return std::nullopt;
        }
    }
    if (!reader.time(seconds, fraction) || !reader.at_end()) {
        return std::nullopt;
    }
    return date_of_seconds(day * seconds_a_day + seconds, fraction);
}

std::optional<platform::Date> date_from_unix_seconds(double seconds) {
    constexpr double beyond_every_date = 1e12;
    if (!(std::fabs(seconds) < beyond_every_date)) {
        return std::nullopt;
    }
    const double whole = std::floor(seconds);
    return date_of_seconds(static_cast<std::int64_t>(whole) + day_of_1970 * seconds_a_day,
                           seconds - whole);
}

std::optional<platform::Date> date_from_julian_day(double julian_day) {
    constexpr double beyond_every_date = 1e8;
    if (!(std::fabs(julian_day) < beyond_every_date)) {
        return std::nullopt;
    }
    const double milliseconds =
        std::nearbyint((julian_day - julian_day_of_1970) * milliseconds_a_day);
    return date_from_unix_seconds(milliseconds / 1000);
}

std::optional<std::string> text_from_date(platform::Date date) {
    if (!(date.serial > static_cast<double>(first_day) - 1 &&
          date.serial < static_cast<double>(beyond_days))) {
        return std::nullopt;
    }
    const double whole = std::trunc(date.serial);
    auto day = static_cast<std::int64_t>(whole);
    auto rest = static_cast<std::int64_t>(
        std::nearbyint(std::fabs(date.serial - whole) * milliseconds_a_day));
    if (rest == seconds_a_day * 1000) {
        const bool is_last_day = day + 1 == beyond_days;
        rest = is_last_day ? rest - 1 : 0;
        day += is_last_day ? 0 : 1;
    }
    using namespace std::chrono;
    const year_month_day calendar{sys_days{days{day - day_of_1970}}};
    char text[40];
    int size = std::snprintf(text,
                             sizeof text,
                             "%04d-%02u-%02u",
                             static_cast<int>(calendar.year()),
                             static_cast<unsigned>(calendar.month()),
                             static_cast<unsigned>(calendar.day()));
    if (rest != 0) {
        const auto at = static_cast<std::size_t>(size);
        const int milliseconds = static_cast<int>(rest % 1000);
        const int second = static_cast<int>(rest / 1000);
        size += std::snprintf(text + at,
                              sizeof text - at,
                              milliseconds == 0 ? " %02d:%02d:%02d" : " %02d:%02d:%02d.%03d",
                              second / 3600,
                              second / 60 % 60,
                              second % 60,
                              milliseconds);
    }
    return std::string(text, static_cast<std::size_t>(size));
}

} // namespace krv::standard
