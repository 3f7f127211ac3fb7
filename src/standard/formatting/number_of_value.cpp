#include "standard/formatting/number_of_value.h"

#include "standard/ado/exact_number.h"
#include "standard/run_time_errors.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace krv::standard {

using platform::Currency;
using platform::ValueKind;
using platform::ValueView;

namespace {

constexpr double currency_unit = 10'000;

double half_to_even(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction == 0.5) {
        return std::fmod(below, 2) == 0 ? below : below + 1;
    }
    return fraction < 0.5 ? below : below + 1;
}

/// A number without decimals; nothing when it needs more than 64 bits.
std::optional<std::int64_t> to_int64(const DecimalText& number) {
    if (number.is_zero()) {
        return 0;
    }
    constexpr int longest = 19;
    if (number.point > longest) {
        return std::nullopt;
    }
    char text[longest + 1];
    char* out = text;
    if (number.negative) {
        *out++ = '-';
    }
    for (int place = number.point - 1; place >= 0; --place) {
        *out++ = number.digit_at(place);
    }
    std::int64_t value = 0;
    return std::from_chars(text, out, value).ec == std::errc() ? std::optional(value)
                                                               : std::nullopt;
}

Currency currency_of_decimal(DecimalText number) {
    round_half_even(number, 4);
    number.point += number.is_zero() ? 0 : 4;
    const auto ten_thousandths = to_int64(number);
    return ten_thousandths ? Currency{*ten_thousandths} : (fail_overflow(), Currency{});
}

Currency currency_of_double(double value) {
    // Below that, halves are told by the decimal digits: 1.00005 is one, although its bits are not.
    constexpr double four_decimals_within_15_digits = 1e11;
    if (std::abs(value) < four_decimals_within_15_digits) {
        return currency_of_decimal(decimal_text(value));
    }
    constexpr double limit = 9223372036854775808.0;
    const double rounded = half_to_even(value * currency_unit);
    if (!(rounded >= -limit && rounded < limit)) {
        fail_overflow();
    }
    return Currency{static_cast<std::int64_t>(rounded)};
}

void refuse_other_kinds(const ValueView& value) {
    if (value.is_null()) {
        fail_invalid_use_of_null();
    }
    if (value.kind() == ValueKind::bytes || value.kind() == ValueKind::object) {
        fail_type_mismatch();
    }
}

NumberInText number_in(std::string_view text, const RegionalSettings& region) {
    const auto number = read_number(text, region, PercentSign::refused);
    if (!number) {
        fail_type_mismatch();
    }
    if (std::isinf(number->value)) {
        fail_overflow();
    }
    return *number;
}

double rounded_decimal(DecimalText number) {
    round_half_even(number, 0);
    return to_double(number);
}

double rounded_number(const ValueView& value) {
    switch (value.kind()) {
    case ValueKind::empty:
        return 0;
    case ValueKind::currency:
        return rounded_decimal(decimal_text(value.as_currency()));
    case ValueKind::decimal:
        return rounded_decimal(decimal_text(value.as_decimal()));
    default:
        return half_to_even(double_of(value));
    }
}

/// All digits of a number, also of one that a Double would round. Not for bytes, objects and Null.
DecimalText digits_of(const ValueView& value, const RegionalSettings& region) {
    if (value.kind() == ValueKind::empty) {
        return {};
    }
    if (value.kind() == ValueKind::text) {
        const NumberInText number = number_in(value.as_text(), region);
        return number.radix ? decimal_text(number.value) : number.decimal;
    }
    if (!is_finite(value)) {
        fail_overflow();
    }
    return decimal_of(value);
}

/// The sign bit of a hexadecimal or octal number is the highest of the type that is asked for.
double with_sign_bit(double value, double greatest) {
    const double beyond = 2 * (greatest + 1);
    return value > greatest && value < beyond ? value - beyond : value;
}

double rounded_text(std::string_view text, const RegionalSettings& region, double greatest) {
    const NumberInText number = number_in(text, region);
    return number.radix ? with_sign_bit(number.value, greatest) : rounded_decimal(number.decimal);
}

} // namespace

bool is_finite(const ValueView& value) {
    switch (value.kind()) {
    case ValueKind::single:
        return std::isfinite(value.as_single());
    case ValueKind::double_float:
        return std::isfinite(value.as_double());
    case ValueKind::date:
        return std::isfinite(value.as_date().serial);
    default:
        return true;
    }
}

DecimalText decimal_of(const ValueView& value) {
    switch (value.kind()) {
    case ValueKind::single:
        return decimal_text(value.as_single(), single_digits);
    case ValueKind::double_float:
        return decimal_text(value.as_double());
    case ValueKind::date:
        return decimal_text(value.as_date().serial);
    case ValueKind::currency:
        return decimal_text(value.as_currency());
    case ValueKind::decimal:
        return decimal_text(value.as_decimal());
    default:
        return decimal_text(value.as_whole());
    }
}

double double_of(const ValueView& value) {
    switch (value.kind()) {
    case ValueKind::single:
        return value.as_single();
    case ValueKind::double_float:
        return value.as_double();
    case ValueKind::date:
        return value.as_date().serial;
    case ValueKind::currency:
        return static_cast<double>(value.as_currency().ten_thousandths) / currency_unit;
    case ValueKind::decimal:
        return to_double(decimal_text(value.as_decimal()));
    default:
        return static_cast<double>(value.as_whole());
    }
}

double converted_to_double(const ValueView& value, const RegionalSettings& region) {
    refuse_other_kinds(value);
    if (value.kind() == ValueKind::empty) {
        return 0;
    }
    return value.kind() == ValueKind::text ? number_in(value.as_text(), region).value
                                           : double_of(value);
}

Currency converted_to_currency(const ValueView& value, const RegionalSettings& region) {
    refuse_other_kinds(value);
    switch (value.kind()) {
    case ValueKind::empty:
        return {};
    case ValueKind::text: {
        const NumberInText number = number_in(value.as_text(), region);
        return number.radix ? currency_of_double(number.value)
                            : currency_of_decimal(number.decimal);
    }
    case ValueKind::single:
    case ValueKind::double_float:
    case ValueKind::date:
        return currency_of_double(double_of(value));
    default:
        return currency_of_decimal(decimal_of(value));
    }
}

platform::Decimal converted_to_decimal(const ValueView& value, const RegionalSettings& region) {
    refuse_other_kinds(value);
    if (value.kind() == ValueKind::decimal) {
        return value.as_decimal();
    }
    constexpr int most_digits = 28;
    DecimalText number = digits_of(value, region);
    round_half_even(number, number.point > 0 ? most_digits - number.point : most_digits);
    const auto decimal = decimal_from_digits(number);
    return decimal ? *decimal : (fail_overflow(), platform::Decimal{});
}

std::int64_t converted_to_int64(const ValueView& value, const RegionalSettings& region) {
    refuse_other_kinds(value);
    if (value.is_whole()) {
        return value.as_whole();
    }
    DecimalText number = digits_of(value, region);
    round_half_even(number, 0);
    const auto whole = to_int64(number);
    return whole ? *whole : (fail_overflow(), std::int64_t{0});
}

std::int32_t converted_to_integer(const ValueView& value,
                                  const RegionalSettings& region,
                                  std::int32_t least,
                                  std::int32_t greatest) {
    refuse_other_kinds(value);
    const double rounded = value.kind() == ValueKind::text
                               ? rounded_text(value.as_text(), region, greatest)
                               : rounded_number(value);
    if (!(rounded >= least && rounded <= greatest)) {
        fail_overflow();
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace krv::standard
