#include "standard/formatting/fixed_number.h"
#include "standard/formatting/number_of_value.h"
#include "standard/formatting/plain_text.h"
#include "standard/formatting/value_formatter_parts.h"

#include <charconv>
#include <cmath>
#include <variant>

namespace krv::standard {

using platform::ValueKind;
using platform::ValueView;

namespace {

bool is_empty_text(const ValueView& value) {
    return value.kind() == ValueKind::text && value.as_text().empty();
}

int fixed_limit_of(ValueKind kind) {
    if (kind == ValueKind::single) {
        return single_digits;
    }
    return kind == ValueKind::double_float || kind == ValueKind::date
               ? double_digits
               : PlainNumberForm().fixed_limit;
}

/// The kinds whose numbers a Double holds in full, as far as there are few digits.
bool write_fast(const ValueView& value, const NumericPattern& pattern, std::string& text) {
    switch (value.kind()) {
    case ValueKind::double_float:
        return pattern.write_fast(value.as_double(), 0, text);
    case ValueKind::date:
        return pattern.write_fast(value.as_date().serial, 0, text);
    case ValueKind::currency:
        return pattern.write_fast(
            static_cast<double>(value.as_currency().ten_thousandths), -4, text);
    default:
        return value.is_whole() &&
               pattern.write_fast(static_cast<double>(value.as_whole()), 0, text);
    }
}

/// The same for plain text.
bool write_fast(double value, std::string_view decimal_separator, std::string& text) {
    constexpr std::size_t longest_separator = 4;
    const auto number = short_number(std::abs(value));
    if (!number || decimal_separator.size() > longest_separator) {
        return false;
    }
    write_short_number(*number, value < 0, decimal_separator, text);
    return true;
}

void write_whole(std::int64_t value, std::string& text) {
    char digits[24];
    text.assign(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

} // namespace

void ValueFormatter::Parts::write_number(const ValueView& value,
                                         PlainNumberForm form,
                                         std::string& text) const {
    if (!is_finite(value)) {
        text = text_of_unreal(double_of(value));
        return;
    }
    form.fixed_limit = fixed_limit_of(value.kind());
    write_plain_number(decimal_of(value), form, text);
}

void ValueFormatter::Parts::write_plainly(const ValueView& value, std::string& text) const {
    switch (value.kind()) {
    case ValueKind::empty:
    case ValueKind::null:
        text.clear();
        break;
    case ValueKind::boolean:
        text = value.as_boolean() ? "True" : "False";
        break;
    case ValueKind::date:
        write_general_date(value.as_date().serial, dates, text);
        break;
    case ValueKind::text:
        text.assign(value.as_text());
        break;
    case ValueKind::double_float:
        if (write_fast(value.as_double(), region.decimal_separator, text)) {
            break;
        }
        [[fallthrough]];
    default:
        if (value.is_whole()) {
            write_whole(value.as_whole(), text);
        } else {
            write_number(value, {.decimal_separator = region.decimal_separator}, text);
        }
        break;
    }
}

void ValueFormatter::Parts::format_plainly(const ValueView& value, std::string& text) const {
    if (value.kind() == ValueKind::text) {
        if (const auto number = number_of_plain_text(value.as_text(), region, date_reader)) {
            return write_plainly(ValueView::double_float(*number), text);
        }
    }
    write_plainly(value, text);
}

std::optional<ValueView> ValueFormatter::Parts::number_behind(const ValueView& value,
                                                              std::string& text) const {
    if (value.kind() == ValueKind::text) {
        const auto number = read_number(value.as_text(), region, PercentSign::divides);
        if (number && std::isfinite(number->value)) {
            return ValueView::double_float(number->value);
        }
        text.assign(value.as_text());
        return std::nullopt;
    }
    if (!is_finite(value)) {
        text = text_of_unreal(double_of(value));
        return std::nullopt;
    }
    return value;
}

void ValueFormatter::Parts::format(const ValueView& value,
                                   const FormatPattern& pattern,
                                   std::string& text) const {
    if (pattern.named && is_missing(value)) {
        return text.clear();
    }
    std::visit([&](const auto& form) { format(value, form, text); }, pattern.form);
}

void ValueFormatter::Parts::format(const ValueView& value,
                                   const NumericPattern& pattern,
                                   std::string& text) const {
    if (is_missing(value)) {
        return pattern.write_null(text);
    }
    if (write_fast(value, pattern, text)) {
        return;
    }
    if (const auto number = number_behind(value, text)) {
        DecimalText decimal = decimal_of(*number);
        pattern.write(decimal, text);
    }
}

void ValueFormatter::Parts::format(const ValueView& value,
                                   const WordPair& words,
                                   std::string& text) const {
    if (const auto number = number_behind(value, text)) {
        text = decimal_of(*number).is_zero() ? words.zero : words.other;
    }
}

void ValueFormatter::Parts::format(const ValueView& value,
                                   const GeneralNumber& /*pattern*/,
                                   std::string& text) const {
    if (const auto number = number_behind(value, text)) {
        write_number(*number, {.decimal_separator = region.decimal_separator}, text);
    }
}

void ValueFormatter::Parts::format(const ValueView& value,
                                   const DatePattern& pattern,
                                   std::string& text) const {
    if (value.kind() == ValueKind::date) {
        return pattern.write(value.as_date().serial, dates, text);
    }
    if (value.is_null()) {
        return text.clear();
    }
    if (const auto serial = serial_behind(value, pattern)) {
        pattern.write(*serial, dates, text);
    } else {
        text.assign(value.as_text());
    }
}

std::optional<double> ValueFormatter::Parts::serial_behind(const ValueView& value,
                                                           const DatePattern& pattern) const {
    if (value.kind() == ValueKind::empty) {
        return 0.0;
    }
    if (value.kind() != ValueKind::text) {
        return double_of(value);
    }
    if (const auto serial = date_reader.read(value.as_text(), pattern.digit_order())) {
        return serial;
    }
    const auto number = read_number(value.as_text(), region, PercentSign::divides);
    return number && is_date_serial(number->value) ? std::optional(number->value) : std::nullopt;
}

std::optional<double> ValueFormatter::Parts::date_in(std::string_view text,
                                                     std::string_view pattern) {
    if (!pattern.empty()) {
        const FormatPattern& compiled = patterns.find(pattern);
        if (const auto* const date = std::get_if<DatePattern>(&compiled.form)) {
            return date_reader.read(text, date->digit_order());
        }
    }
    return date_reader.read(text);
}

void ValueFormatter::Parts::format(const ValueView& value,
                                   const StringPattern& pattern,
                                   std::string& text) const {
    if (is_missing(value) || is_empty_text(value)) {
        return pattern.write_null(text);
    }
    if (value.kind() == ValueKind::text) {
        return pattern.write(value.as_text(), text);
    }
    write_plainly(value, text);
    pattern.write(text, text);
}

} // namespace krv::standard
