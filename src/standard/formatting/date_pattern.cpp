#include "standard/formatting/date_pattern.h"

#include "standard/formatting/bounded_text.h"
#include "standard/formatting/date_pattern_compiler.h"
#include "standard/formatting/digit_pairs.h"

#include <algorithm>

namespace krv::standard {

namespace {

int hour_of_half_day(int hour) {
    return hour % 12 == 0 ? 12 : hour % 12;
}

int number_of(DateField field, const CalendarTime& time) {
    switch (field) {
    case DateField::day:
    case DateField::two_digit_day:
        return time.day;
    case DateField::month:
    case DateField::two_digit_month:
        return time.month;
    case DateField::two_digit_year:
        return time.year % 100;
    case DateField::hour:
    case DateField::two_digit_hour:
        return time.hour();
    case DateField::hour_of_half_day:
    case DateField::two_digit_hour_of_half_day:
        return hour_of_half_day(time.hour());
    case DateField::minute:
    case DateField::two_digit_minute:
        return time.minute();
    case DateField::second:
    case DateField::two_digit_second:
        return time.second();
    case DateField::quarter:
        return (time.month + 2) / 3;
    case DateField::day_of_week:
        return weekday_of(time.serial_day) + 1;
    case DateField::week:
        return week_of_year(time);
    case DateField::day_of_year:
        return day_of_year(time);
    default:
        return 0;
    }
}

bool has_two_digits(DateField field) {
    switch (field) {
    case DateField::two_digit_day:
    case DateField::two_digit_month:
    case DateField::two_digit_year:
    case DateField::two_digit_hour:
    case DateField::two_digit_hour_of_half_day:
    case DateField::two_digit_minute:
    case DateField::two_digit_second:
        return true;
    default:
        return false;
    }
}

/// One to three digits.
char* write_number(int value, char* out) {
    const auto number = static_cast<std::uint32_t>(value);
    return number < 100 ? write_short(number, out)
                        : write_pair(number % 100, write_short(number / 100, out));
}

char* write_year(int year, char* out) {
    const auto number = static_cast<std::uint32_t>(year);
    return write_pair(number % 100, write_pair(number / 100, out));
}

std::string_view
name_of(DateField field, const CalendarTime& time, const RegionalSettings& region) {
    const auto month = static_cast<std::size_t>(time.month - 1);
    const auto weekday = static_cast<std::size_t>(weekday_of(time.serial_day));
    switch (field) {
    case DateField::short_weekday:
        return region.short_weekdays[weekday];
    case DateField::weekday:
        return region.weekdays[weekday];
    case DateField::short_month_name:
        return region.short_months[month];
    default:
        return region.months[month];
    }
}

template <std::size_t N>
std::size_t longest_of(const std::array<std::string, N>& names) {
    return std::ranges::max(names, {}, &std::string::size).size();
}

} // namespace

DatePattern::DatePattern(std::string_view pattern, const RegionalSettings& region, Level level) {
    DatePatternCompiler(*this, region, level).compile(pattern);
    layout_ = make_layout();
}

void DatePattern::write(double serial, const RegionalDates& dates, std::string& text) const {
    const CalendarTime time = calendar_time(serial);
    if (layout_) {
        text.resize(layout_->length());
        return layout_->write(time, text.data());
    }
    write_bounded(longest(dates), text, [&](char* out) { return write(time, dates, out); });
}

std::optional<DateLayout> DatePattern::make_layout() const {
    DateLayout layout;
    for (const Part& part : parts_) {
        const bool fits = part.field == DateField::literal
                              ? layout.add_text(literal(part.begin, part.end))
                              : layout.add_field(part.field);
        if (!fits) {
            return std::nullopt;
        }
    }
    return layout;
}

std::size_t DatePattern::longest(const RegionalDates& dates) const {
    constexpr std::size_t longest_number = 4;
    return literals_.size() + parts_.size() * longest_number + names_ * dates.longest_name +
           forms_ * dates.longest_form;
}

char* DatePattern::write(const CalendarTime& time, const RegionalDates& dates, char* out) const {
    for (const Part& part : parts_) {
        out = write_part(part, time, dates, out);
    }
    return out;
}

char* DatePattern::write_part(const Part& part,
                              const CalendarTime& time,
                              const RegionalDates& dates,
                              char* out) const {
    switch (part.field) {
    case DateField::literal:
        return append_to(out, literal(part.begin, part.end));
    case DateField::year:
        return write_year(time.year, out);
    case DateField::short_weekday:
    case DateField::weekday:
    case DateField::short_month_name:
    case DateField::month_name:
        return append_to(out, name_of(part.field, time, dates.region));
    case DateField::short_date:
        return dates.short_date.write(time, dates, out);
    case DateField::long_date:
        return dates.long_date.write(time, dates, out);
    case DateField::long_time:
        return dates.long_time.write(time, dates, out);
    case DateField::general:
        return write_general_date(time, dates, out);
    case DateField::half_day:
        return append_to(out,
                         time.hour() < 12 ? literal(part.begin, part.end)
                                          : literal(part.end, part.afternoon_end));
    case DateField::regional_half_day:
        return append_to(out, time.hour() < 12 ? dates.region.am : dates.region.pm);
    default: {
        const int number = number_of(part.field, time);
        return has_two_digits(part.field) ? write_pair(static_cast<std::uint32_t>(number), out)
                                          : write_number(number, out);
    }
    }
}

RegionalDates::RegionalDates(const RegionalSettings& settings)
    : region(settings)
    , short_date(settings.short_date, settings, DatePattern::Level::part)
    , long_date(settings.long_date, settings, DatePattern::Level::part)
    , long_time(settings.long_time, settings, DatePattern::Level::part) {
    longest_name = std::max({longest_of(region.months),
                             longest_of(region.short_months),
                             longest_of(region.weekdays),
                             longest_of(region.short_weekdays),
                             region.am.size(),
                             region.pm.size()});
    longest_form = 0;
    const std::size_t general = short_date.longest(*this) + 1 + long_time.longest(*this);
    longest_form = std::max(general, long_date.longest(*this));
}

char* write_general_date(const CalendarTime& time, const RegionalDates& dates, char* out) {
    if (time.serial_day != 0) {
        out = dates.short_date.write(time, dates, out);
        if (time.second_of_day == 0) {
            return out;
        }
        *out++ = ' ';
    }
    return dates.long_time.write(time, dates, out);
}

void write_general_date(double serial, const RegionalDates& dates, std::string& text) {
    const CalendarTime time = calendar_time(serial);
    write_bounded(
        dates.longest_form, text, [&](char* out) { return write_general_date(time, dates, out); });
}

} // namespace krv::standard
