#pragma once

#include "standard/formatting/date_reader.h"
#include "standard/formatting/number_reader.h"

#include <optional>
#include <string_view>

namespace krv::standard {

/// The number that a text stands for when it is formatted without a pattern. Nothing when the text
/// is none, or one that its number could not give back: a code with leading zeros, more digits than
/// a Double keeps, a date written with the thousands separator.
std::optional<double> number_of_plain_text(std::string_view text,
                                           const RegionalSettings& region,
                                           const DateReader& dates);

} // namespace krv::standard
