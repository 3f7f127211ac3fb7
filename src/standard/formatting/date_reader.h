#pragma once

#include "krv/standard/regional_settings.h"
#include "standard/formatting/date_pattern.h"

#include <functional>
#include <optional>
#include <string_view>

namespace krv::standard {

/// Reads texts as dates of a region.
class DateReader {
public:
    /// What a text says; none of it for a lone weekday.
    struct Reading {
        std::optional<int> serial_day;
        std::optional<int> second_of_day;
    };

    /// \param region        outlives this
    /// \param current_year  asked when a text gives day and month only
    DateReader(const RegionalSettings& region, std::function<int()> current_year)
        : region_(region)
        , current_year_(std::move(current_year)) {}

    /// The serial number of the date, the time, or both that a text gives; nothing when it is no
    /// date.
    std::optional<double> read(std::string_view text) const;

    /// The same for what a pattern wrote: a text that holds day, month and year in the pattern's
    /// order is read by that, whatever the region.
    std::optional<double> read(std::string_view text, const std::optional<DigitOrder>& order) const;

private:
    std::optional<Reading> parse(std::string_view text) const;
    std::optional<double> read_ordered(std::string_view text, const DigitOrder& order) const;

    const RegionalSettings& region_;
    std::function<int()> current_year_;
};

} // namespace krv::standard
