#include "standard/formatting/date_interpreter.h"

#include "standard/formatting/calendar.h"

#include <algorithm>

namespace krv::standard {

namespace {

using Orders = std::span<const std::string_view>;

Orders orders_of_three_numbers(DateOrder region) {
    static constexpr std::string_view month_first[] = {"mdy", "ymd", "ydm", "dmy"};
    static constexpr std::string_view day_first[] = {"dmy", "ymd", "mdy", "ydm"};
    static constexpr std::string_view year_first[] = {"ymd", "mdy", "ydm", "dmy"};
    switch (region) {
    case DateOrder::month_day_year:
        return month_first;
    case DateOrder::day_month_year:
        return day_first;
    case DateOrder::year_month_day:
        break;
    }
    return year_first;
}

Orders orders_of_two_numbers(DateOrder region) {
    static constexpr std::string_view day_first[] = {"dm", "md", "my", "ym"};
    static constexpr std::string_view month_first[] = {"md", "dm", "my", "ym"};
    return region == DateOrder::day_month_year ? Orders(day_first) : Orders(month_first);
}

/// The name stands for the month, so only the numbers may change places.
Orders orders_around_name(std::size_t position, std::size_t parts) {
    static constexpr std::string_view front[] = {"mdy"};
    static constexpr std::string_view middle[] = {"dmy", "ymd"};
    static constexpr std::string_view back[] = {"ydm"};
    static constexpr std::string_view front_of_two[] = {"md", "my"};
    static constexpr std::string_view back_of_two[] = {"dm", "ym"};
    if (parts == 2) {
        return position == 0 ? Orders(front_of_two) : Orders(back_of_two);
    }
    return position == 0 ? Orders(front) : position == 1 ? Orders(middle) : Orders(back);
}

bool stands_apart(DateGap gap) {
    return gap == DateGap::blank || gap == DateGap::comma;
}

} // namespace

int year_of_digits(int number, int digits) {
    if (digits > 2) {
        return number;
    }
    return number < 30 ? 2000 + number : 1900 + number;
}

bool DateInterpreter::interpret(std::span<const DateItem> items) {
    if (!split(items)) {
        return false;
    }
    drop_weekdays();
    return part_count_ == 0 || find_day();
}

bool DateInterpreter::split(std::span<const DateItem> items) {
    bool behind_time = false;
    for (std::size_t index = 0; index < items.size();) {
        const DateItem& item = items[index];
        const std::size_t length = time_length(items.subspan(index));
        const bool apart = index == 0 || stands_apart(item.gap);
        if ((length > 0 || behind_time) && !apart) {
            return false;
        }
        if (!(length > 0 ? take_time(items.subspan(index, length)) : take_date_item(item))) {
            return false;
        }
        behind_time = length > 0;
        index += std::max<std::size_t>(length, 1);
    }
    return true;
}

/// Items at the front that make up a time: numbers with time separators, AM or PM behind.
std::size_t DateInterpreter::time_length(std::span<const DateItem> items) const {
    if (!items[0].is_number()) {
        return 0;
    }
    std::size_t length = 1;
    while (length < items.size() && items[length].is_number() &&
           items[length].gap == DateGap::time_separator) {
        ++length;
    }
    const bool half_day =
        length < items.size() && items[length].is_half_day() && items[length].gap <= DateGap::blank;
    return length > 1 || half_day ? length + (half_day ? 1U : 0U) : 0;
}

bool DateInterpreter::take_time(std::span<const DateItem> items) {
    const DateItem& last = items.back();
    const std::size_t numbers = items.size() - (last.is_number() ? 0U : 1U);
    if (second_of_day_ || numbers > 3) {
        return false;
    }
    int hour = items[0].number;
    const int minute = numbers > 1 ? items[1].number : 0;
    const int second = numbers > 2 ? items[2].number : 0;
    const bool short_numbers =
        std::ranges::all_of(items, [](const DateItem& item) { return item.digits <= 2; });
    if (!short_numbers || hour > 23 || minute > 59 || second > 59) {
        return false;
    }
    if (last.is_half_day() && hour <= 12) {
        hour = hour % 12 + (last.afternoon ? 12 : 0);
    }
    second_of_day_ = (hour * 60 + minute) * 60 + second;
    return true;
}

bool DateInterpreter::take_date_item(const DateItem& item) {
    const bool date_word = item.month > 0 || item.weekday;
    if (item.gap == DateGap::time_separator || (!item.is_number() && !date_word)) {
        return false;
    }
    parts_[part_count_++] = item;
    return true;
}

/// Weekdays say nothing. A word that may also be a month ("mar" in Italian) is one when the date
/// has a month without it.
void DateInterpreter::drop_weekdays() {
    const auto parts = std::span(parts_).first(part_count_);
    const auto numbers = std::ranges::count_if(parts, &DateItem::is_number);
    const bool has_month = std::ranges::any_of(
        parts, [](const DateItem& part) { return part.month > 0 && !part.weekday; });
    auto doubtful = std::ranges::count_if(
        parts, [](const DateItem& part) { return part.month > 0 && part.weekday; });
    const auto kept = std::remove_if(parts.begin(), parts.end(), [&](const DateItem& part) {
        if (!part.weekday || part.month == 0) {
            return part.weekday;
        }
        return has_month || numbers == 3 || --doubtful > 0;
    });
    part_count_ = static_cast<std::size_t>(kept - parts.begin());
}

bool DateInterpreter::find_day() {
    if (part_count_ != 2 && part_count_ != 3) {
        return false;
    }
    for (const std::string_view order : orders()) {
        serial_day_ = day_by(order);
        if (serial_day_) {
            return true;
        }
    }
    return false;
}

Orders DateInterpreter::orders() const {
    const auto parts = std::span(parts_).first(part_count_);
    const auto name =
        std::ranges::find_if(parts, [](const DateItem& part) { return !part.is_number(); });
    if (name != parts.end()) {
        return orders_around_name(static_cast<std::size_t>(name - parts.begin()), part_count_);
    }
    return part_count_ == 3 ? orders_of_three_numbers(region_.date_order)
                            : orders_of_two_numbers(region_.date_order);
}

std::optional<int> DateInterpreter::day_by(std::string_view order) const {
    int day = 1;
    int month = 0;
    std::optional<int> year;
    for (std::size_t index = 0; index < order.size(); ++index) {
        const DateItem& part = parts_[index];
        if (order[index] == 'y') {
            year = part.is_number() ? year_of_digits(part.number, part.digits) : 0;
        } else if (order[index] == 'm') {
            month = part.is_number() && part.digits <= 2 ? part.number : part.month;
        } else {
            day = part.digits <= 2 ? part.number : 0;
        }
    }
    return standard::serial_day(year ? *year : current_year_(), month, day);
}

} // namespace krv::standard
