#pragma once

#include "krv/platform/value.h"
#include "standard/formatting/decimal_text.h"
#include "standard/formatting/number_reader.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace krv::standard {

// Numbers out of values. The first three serve Booleans (-1 and 0), numbers and dates (their serial
// number); they do not fail.

/// False for an infinite or undefined Single, Double or date.
bool is_finite(const platform::ValueView& value);

/// The digits that the value's text shows. The value must be finite.
DecimalText decimal_of(const platform::ValueView& value);

double double_of(const platform::ValueView& value);

// The same for every value, by the rules of conversions. \throws RuntimeError 6, 13, 94

double converted_to_double(const platform::ValueView& value, const RegionalSettings& region);
platform::Currency converted_to_currency(const platform::ValueView& value,
                                         const RegionalSettings& region);

platform::Decimal converted_to_decimal(const platform::ValueView& value,
                                       const RegionalSettings& region);

/// Rounded half to even, exactly.
std::int64_t converted_to_int64(const platform::ValueView& value, const RegionalSettings& region);

/// Rounded half to even. \throws RuntimeError 6 outside `least` to `greatest`
std::int32_t converted_to_integer(const platform::ValueView& value,
                                  const RegionalSettings& region,
                                  std::int32_t least,
                                  std::int32_t greatest);

} // namespace krv::standard
