#include "standard/formatting/date_reader.h"

#include "standard/formatting/date_interpreter.h"
#include "standard/formatting/date_scanner.h"
#include "standard/formatting/ordered_date.h"

#include <utility>

namespace krv::standard {

namespace {

/// No date that a pattern writes comes near it.
constexpr std::size_t longest_date_text = 200;

} // namespace

std::optional<DateReader::Reading> DateReader::parse(std::string_view text) const {
    DateScanner scanner(region_);
    DateInterpreter interpreter(region_, current_year_);
    if (text.size() > longest_date_text || !scanner.scan(text) ||
        !interpreter.interpret(scanner.items())) {
        return std::nullopt;
    }
    return Reading{interpreter.serial_day(), interpreter.second_of_day()};
}

std::optional<double> DateReader::read(std::string_view text) const {
    const auto reading = parse(text);
    if (!reading || (!reading->serial_day && !reading->second_of_day)) {
        return std::nullopt;
    }
    return serial_of(reading->serial_day.value_or(0), reading->second_of_day.value_or(0));
}

std::optional<double> DateReader::read(std::string_view text,
                                       const std::optional<DigitOrder>& order) const {
    if (order && text.size() <= longest_date_text) {
        if (const auto serial = read_ordered(text, *order)) {
            return serial;
        }
    }
    return read(text);
}

std::optional<double> DateReader::read_ordered(std::string_view text,
                                               const DigitOrder& order) const {
    for (const OrderedDate& date : ordered_dates(text, order, region_)) {
        // A time, and a weekday, may stand beside the date.
        const auto beside = parse(date.beside);
        if (beside && !beside->serial_day) {
            return serial_of(date.serial_day, beside->second_of_day.value_or(0));
        }
    }
    return std::nullopt;
}

} // namespace krv::standard
