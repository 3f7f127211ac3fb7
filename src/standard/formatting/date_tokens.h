#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace krv::standard {

/// What a part of a date pattern prints.
enum class DateField : std::uint8_t {
    literal,
    day,
    two_digit_day,
    short_weekday,
    weekday,
    short_date,
    long_date,
    month,
    two_digit_month,
    short_month_name,
    month_name,
    day_of_year,
    two_digit_year,
    year,
    hour,
    two_digit_hour,
    hour_of_half_day,
    two_digit_hour_of_half_day,
    minute,
    two_digit_minute,
    second,
    two_digit_second,
    long_time,
    general,
    quarter,
    day_of_week,
    week,
    half_day,          // as the pattern writes it
    regional_half_day, // by the regional designators
};

/// A token of date patterns; `literal` and length 0 where there is none.
struct DateToken {
    DateField field = DateField::literal;
    std::size_t length = 0;
};

/// The longest token at the front of a text, letter case ignored.
DateToken date_token_at(std::string_view text);

} // namespace krv::standard
