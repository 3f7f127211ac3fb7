#pragma once

#include "krv/standard/regional_settings.h"
#include "standard/formatting/decimal_text.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace krv::standard {

enum class PercentSign : std::uint8_t { refused, divides };

/// A number that a text holds, and how it was written.
struct NumberInText {
    DecimalText decimal;           ///< means nothing for a hexadecimal or octal number
    double value = 0;              ///< infinite when it is too large for a Double
    bool radix = false;            ///< hexadecimal or octal
    bool leading_zeros = false;    ///< a 0 before another digit of the integer part: "007"
    bool grouped_by_three = false; ///< has thousands separators, all of them where they belong
    std::int64_t kept_digits = 0;  ///< significant digits, zeros at the end of decimals left out
};

/// Reads a whole text as a number of the region; nothing when it is none.
std::optional<NumberInText>
read_number(std::string_view text, const RegionalSettings& region, PercentSign percent);

} // namespace krv::standard
