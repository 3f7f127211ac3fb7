#pragma once

#include "krv/standard/regional_settings.h"
#include "standard/formatting/calendar.h"
#include "standard/formatting/date_layout.h"
#include "standard/formatting/date_tokens.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krv::standard {

struct RegionalDates;

/// How a pattern that writes day, month and year as digits, each once, orders them.
struct DigitOrder {
    struct Field {
        char part = '\0';           ///< 'd', 'm' or 'y'
        bool one_digit_too = false; ///< the pattern has d or m, not dd or mm
    };

    std::array<Field, 3> fields;
    std::array<std::string, 2> separators; ///< as they print; may be empty
};

/// A date pattern, compiled.
class DatePattern {
public:
    enum class Level : std::uint8_t {
        whole, ///< a pattern that a host gives
        part,  ///< one of the regional forms, which refers to no other
    };

    DatePattern() = default;
    DatePattern(std::string_view pattern, const RegionalSettings& region, Level level);

    /// \throws RuntimeError 6 for a serial number outside the years 100 to 9999
    void write(double serial, const RegionalDates& dates, std::string& text) const;

    /// Bytes that `write` to a buffer needs at most.
    std::size_t longest(const RegionalDates& dates) const;

    char* write(const CalendarTime& time, const RegionalDates& dates, char* out) const;

    const std::optional<DigitOrder>& digit_order() const { return digit_order_; }

private:
    /// Literal: bytes `begin` to before `end` of the literals. Half day: the text for the morning
    /// there, the one for the afternoon up to `afternoon_end` behind it.
    struct Part {
        DateField field;
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        std::uint32_t afternoon_end = 0;
    };

    friend class DatePatternCompiler;

    std::optional<DateLayout> make_layout() const;

    char* write_part(const Part& part,
                     const CalendarTime& time,
                     const RegionalDates& dates,
                     char* out) const;

    std::string_view literal(std::size_t begin, std::size_t end) const {
        return {literals_.data() + begin, end - begin};
    }

    std::vector<Part> parts_;
    std::string literals_;
    std::size_t names_ = 0; // parts that print one
    std::size_t forms_ = 0; // parts that print a regional form
    std::optional<DigitOrder> digit_order_;
    std::optional<DateLayout> layout_;
};

/// What date patterns print of a region.
struct RegionalDates {
    explicit RegionalDates(const RegionalSettings& settings);

    const RegionalSettings& region; // outlives this
    DatePattern short_date;
    DatePattern long_date;
    DatePattern long_time;
    std::size_t longest_name; ///< in bytes
    std::size_t longest_form; ///< in bytes, the general date included
};

/// `c`: the date, the time, or both. Midnight of day 0 is a time.
char* write_general_date(const CalendarTime& time, const RegionalDates& dates, char* out);

/// The same as a text. \throws RuntimeError 6
void write_general_date(double serial, const RegionalDates& dates, std::string& text);

} // namespace krv::standard
