#include "standard/formatting/plain_text.h"

#include <cmath>

namespace krv::standard {

namespace {

bool could_give_back(const NumberInText& number) {
    const bool vanished = number.value == 0 && !number.radix && !number.decimal.is_zero();
    return std::isfinite(number.value) && !vanished && !number.leading_zeros &&
           number.kept_digits <= double_digits;
}

/// "15.03.2024" where the point separates both thousands and dates; "1.234" is a number there.
bool is_meant_as_date(std::string_view text,
                      const NumberInText& number,
                      const RegionalSettings& region,
                      const DateReader& dates) {
    const std::string& separator = region.date_separator;
    return !separator.empty() && separator == region.thousands_separator &&
           !number.grouped_by_three && text.find(separator) != std::string_view::npos &&
           dates.read(text);
}

} // namespace

std::optional<double> number_of_plain_text(std::string_view text,
                                           const RegionalSettings& region,
                                           const DateReader& dates) {
    const auto number = read_number(text, region, PercentSign::divides);
    if (!number || !could_give_back(*number) || is_meant_as_date(text, *number, region, dates)) {
        return std::nullopt;
    }
    return number->value;
}

} // namespace krv::standard
