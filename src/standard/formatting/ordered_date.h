#pragma once

#include "krv/standard/regional_settings.h"
#include "standard/formatting/date_pattern.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv::standard {

/// A date found inside a text, and what the text holds beside it.
struct OrderedDate {
    int serial_day = 0;
    std::string beside;
};

/// The places of a text where day, month and year stand as a pattern writes them: two digits each
/// (one where the pattern has d or m), the year two or four, with the pattern's separators or
/// another usual one between them, blanks or the ends of the text around.
std::vector<OrderedDate>
ordered_dates(std::string_view text, const DigitOrder& order, const RegionalSettings& region);

} // namespace krv::standard
