#include "standard/formatting/date_layout.h"

namespace krv::standard {

bool DateLayout::add_field(DateField field) {
    switch (field) {
    case DateField::two_digit_day:
        return add_pair(day, date_pairs_, date_count_);
    case DateField::two_digit_month:
        return add_pair(month, date_pairs_, date_count_);
    case DateField::two_digit_year:
        return add_pair(year_of_century, date_pairs_, date_count_);
    case DateField::year:
        return add_pair(century, date_pairs_, date_count_) &&
               add_pair(year_of_century, date_pairs_, date_count_);
    case DateField::two_digit_hour:
        return add_pair(hour, time_pairs_, time_count_);
    case DateField::two_digit_minute:
        return add_pair(minute, time_pairs_, time_count_);
    case DateField::two_digit_second:
        return add_pair(second, time_pairs_, time_count_);
    default:
        return false;
    }
}

bool DateLayout::add_pair(Place place, Pairs& pairs, std::uint8_t& count) {
    const std::uint8_t offset = length_;
    if (!add_text("00")) {
        return false;
    }
    pairs[count++] = {place, offset};
    return true;
}

} // namespace krv::standard
