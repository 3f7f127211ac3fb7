#include "standard/number_of_value.h"
#include "standard/plain_text.h"
#include "standard/value_formatter_parts.h"

#include <cmath>

namespace krv::standard {

using platform::ValueKind;
using platform::ValueView;

namespace {

bool is_empty_text(ValueView value) {
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

} // namespace

void ValueFormatter::Parts::write_number(ValueView value,
                                         PlainNumberForm form,
                                         std::string& text) const {
    if (!is_finite(value)) {
        text = text_of_unreal(double_of(value));
        return;
    }
    form.fixed_limit = fixed_limit_of(value.kind());
    write_plain_number(decimal_of(value), form, text);
}

void ValueFormatter::Parts::write_plainly(ValueView value, std::string& text) const {
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
    default:
        write_number(value, {.decimal_separator = region.decimal_separator}, text);
        break;
    }
}

void ValueFormatter::Parts::format_plainly(ValueView value, std::string& text) const {
    if (value.kind() == ValueKind::text) {
        if (const auto number = number_of_plain_text(value.as_text(), region, date_reader)) {
            return write_plainly(ValueView::double_float(*number), text);
        }
    }
    write_plainly(value, text);
}

std::optional<ValueView> ValueFormatter::Parts::number_behind(ValueView value,
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

void ValueFormatter::Parts::format(ValueView value,
                                   const NumericPattern& pattern,
                                   std::string& text) const {
    if (is_missing(value)) {
        return pattern.write_null(text);
    }
    if (const auto number = number_behind(value, text)) {
        pattern.write(decimal_of(*number), text);
    }
}

void ValueFormatter::Parts::format(ValueView value,
                                   const WordPair& words,
                                   std::string& text) const {
    if (const auto number = number_behind(value, text)) {
        text = decimal_of(*number).is_zero() ? words.zero : words.other;
    }
}

void ValueFormatter::Parts::format(ValueView value,
                                   const GeneralNumber& /*pattern*/,
                                   std::string& text) const {
    if (const auto number = number_behind(value, text)) {
        write_number(*number, {.decimal_separator = region.decimal_separator}, text);
    }
}

void ValueFormatter::Parts::format(ValueView value,
                                   const DatePattern& pattern,
                                   std::string& text) const {
    if (value.is_null()) {
        return text.clear();
    }
    if (const auto serial = serial_behind(value, pattern)) {
        pattern.write(*serial, dates, text);
    } else {
        text.assign(value.as_text());
    }
}

std::optional<double> ValueFormatter::Parts::serial_behind(ValueView value,
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

void ValueFormatter::Parts::format(ValueView value,
                                   const StringPattern& pattern,
                                   std::string& text) const {
    if (is_missing(value) || is_empty_text(value)) {
        return pattern.write_null(text);
    }
    if (value.kind() == ValueKind::text) {
        return pattern.write(value.as_text(), text);
    }
    std::string plain;
    write_plainly(value, plain);
    pattern.write(plain, text);
}

} // namespace krv::standard
