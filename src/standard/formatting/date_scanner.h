#pragma once

#include "krv/standard/regional_settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace krv::standard {

/// What stands in front of a number or word of a date text. Blanks around another separator belong
/// to it.
enum class DateGap : std::uint8_t { none, blank, comma, date_separator, time_separator };

/// A number or a word of a date text.
struct DateItem {
    DateGap gap = DateGap::none;
    int number = 0; ///< 0 to 9999
    int digits = 0; ///< 1 to 4; 0 for a word
    int month = 0;  ///< 1 to 12 for a word that names a month
    bool weekday = false;
    bool morning = false;   ///< AM, A
    bool afternoon = false; ///< PM, P

    bool is_number() const { return digits > 0; }

    bool is_half_day() const { return morning || afternoon; }
};

/// Splits a text into the items of a date.
class DateScanner {
public:
    explicit DateScanner(const RegionalSettings& region);

    /// False when the text holds what no date holds: other words or characters, longer numbers, a
    /// separator at an end or beside another one.
    bool scan(std::string_view text);

    std::span<const DateItem> items() const { return {items_.data(), count_}; }

private:
    bool scan_item();
    bool scan_gap(DateGap& gap);
    DateGap separator_at_front() const;
    bool scan_number(DateItem& item);
    bool scan_word(DateItem& item);

    const RegionalSettings& region_;
    std::string_view date_separator_;
    std::string_view time_separator_;
    std::string_view rest_;
    // Weekday, three numbers, three of a time, AM: no date has more.
    std::array<DateItem, 8> items_;
    std::size_t count_ = 0;
};

} // namespace krv::standard
