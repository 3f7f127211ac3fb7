#pragma once

#include "krv/platform/value.h"
#include "standard/formatting/decimal_text.h"

#include <optional>
#include <string>
#include <string_view>

namespace krv::standard {

// Exact numbers from what databases hold: no region, nothing goes through a Double on its way.

/// `[+-]digits[.digits][E[+-]digits]`, the whole text, as a Decimal of at most 28 digits. Nothing
/// for other texts and longer numbers.
std::optional<platform::Decimal> decimal_from_text(std::string_view text);

/// Nothing for more than 28 digits before and behind the point.
std::optional<platform::Decimal> decimal_from_digits(const DecimalText& number);

/// The same form as an amount, rounded half to even at four decimals. Nothing for other texts and
/// for numbers out of range.
std::optional<platform::Currency> currency_from_text(std::string_view text);

/// The shortest number that means this Double. Nothing when it has more than 28 digits before or
/// behind the point, or is not finite.
std::optional<platform::Decimal> decimal_from_double(double value);

/// The shortest number that means this Double, rounded half to even at four decimals. Nothing when
/// it is out of range or not finite.
std::optional<platform::Currency> currency_from_double(double value);

platform::Decimal decimal_from_whole(std::int64_t value) noexcept;

/// Nothing when it is out of range.
std::optional<platform::Currency> currency_from_whole(std::int64_t value) noexcept;

/// `[-]digits[.digits]`, with a digit before the point.
std::string exact_text(const DecimalText& number);

} // namespace krv::standard
