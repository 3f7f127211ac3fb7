#pragma once

#include "krv/standard/regional_settings.h"
#include "standard/formatting/date_scanner.h"

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace krv::standard {

/// Years 0 to 29 of two digits are 2000 to 2029, 30 to 99 are 1930 to 1999.
int year_of_digits(int number, int digits);

/// Finds out which items of a date text are day, month, year and time.
class DateInterpreter {
public:
    DateInterpreter(const RegionalSettings& region, const std::function<int()>& current_year)
        : region_(region)
        , current_year_(current_year) {}

    /// False when the items make no date and no time.
    bool interpret(std::span<const DateItem> items);

    const std::optional<int>& serial_day() const { return serial_day_; }

    const std::optional<int>& second_of_day() const { return second_of_day_; }

private:
    bool split(std::span<const DateItem> items);
    std::size_t time_length(std::span<const DateItem> items) const;
    bool take_time(std::span<const DateItem> items);
    bool take_date_item(const DateItem& item);
    void drop_weekdays();
    bool find_day();
    std::span<const std::string_view> orders() const;
    std::optional<int> day_by(std::string_view order) const;

    const RegionalSettings& region_;
    const std::function<int()>& current_year_;
    std::array<DateItem, 8> parts_; // numbers and names of the date
    std::size_t part_count_ = 0;
    std::optional<int> serial_day_;
    std::optional<int> second_of_day_;
};

} // namespace krv::standard
