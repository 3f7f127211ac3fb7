#include "standard/formatting/ordered_date.h"

#include "standard/formatting/calendar.h"
#include "standard/formatting/date_interpreter.h"
#include "standard/formatting/digit_collector.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace krv::standard {

namespace {

constexpr std::string_view blanks_and_comma = " \t\r\n,";

bool is_blank(char character) {
    return blanks_and_comma.find(character) != std::string_view::npos;
}

std::string_view without_blanks_around(std::string_view text) {
    const auto first = text.find_first_not_of(blanks_and_comma);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(blanks_and_comma) - first + 1);
}

std::size_t digits_at_front(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, is_digit) - text.begin());
}

/// Digits that a field takes of those at the front; 0 when it cannot.
std::size_t field_width(const DigitOrder::Field& field, std::size_t available) {
    if (field.part == 'y') {
        // Six digits in a row are a date without a century.
        const std::size_t width = available == 2 || available == 6 ? 2 : 4;
        return available >= width ? width : 0;
    }
    return available >= 2 ? 2 : field.one_digit_too ? available : 0;
}

class OrderedDateParser {
public:
    OrderedDateParser(std::string_view text,
                      const DigitOrder& order,
                      const RegionalSettings& region)
        : rest_(text)
        , order_(order)
        , region_(region) {}

    /// The day at the front of the text; `rest` is what follows it.
    std::optional<int> parse() {
        for (std::size_t index = 0; index < order_.fields.size(); ++index) {
            if ((index > 0 && !take_separator(order_.separators[index - 1])) ||
                !take_field(order_.fields[index])) {
                return std::nullopt;
            }
        }
        if (!rest_.empty() && !is_blank(rest_.front())) {
            return std::nullopt;
        }
        return serial_day(year_, month_, day_);
    }

    std::string_view rest() const { return rest_; }

private:
    bool take(std::string_view piece) {
        if (piece.empty() || !rest_.starts_with(piece)) {
            return false;
        }
        rest_.remove_prefix(piece.size());
        return true;
    }

    bool take_separator(std::string_view of_pattern) {
        return take(of_pattern) || take(region_.date_separator) || take("/") || take("-") ||
               take(".") || of_pattern.empty();
    }

    bool take_field(const DigitOrder::Field& field) {
        const std::size_t width = field_width(field, digits_at_front(rest_));
        int number = 0;
        for (const char digit : rest_.substr(0, width)) {
            number = number * 10 + (digit - '0');
        }
        rest_.remove_prefix(width);
        if (field.part == 'y') {
            year_ = year_of_digits(number, static_cast<int>(width));
        } else {
            (field.part == 'm' ? month_ : day_) = number;
        }
        return width > 0;
    }

    std::string_view rest_;
    const DigitOrder& order_;
    const RegionalSettings& region_;
    int year_ = 0;
    int month_ = 0;
    int day_ = 0;
};

} // namespace

std::vector<OrderedDate>
ordered_dates(std::string_view text, const DigitOrder& order, const RegionalSettings& region) {
    std::vector<OrderedDate> dates;
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        if (!is_digit(text[begin]) || (begin > 0 && !is_blank(text[begin - 1]))) {
            continue;
        }
        OrderedDateParser parser(text.substr(begin), order, region);
        if (const auto day = parser.parse()) {
            std::string beside(without_blanks_around(text.substr(0, begin)));
            beside += ' ';
            beside += without_blanks_around(parser.rest());
            dates.push_back({*day, std::move(beside)});
        }
    }
    return dates;
}

} // namespace krv::standard
