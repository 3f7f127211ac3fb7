#include "standard/formatting/number_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace krv::standard {

namespace {

void append_fixed(const DecimalText& number, const PlainNumberForm& form, std::string& text) {
    const int whole = std::max(number.point, 0);
    const int shown = std::min(whole, number.count);
    text.append(number.digits, static_cast<std::size_t>(shown));
    text.append(static_cast<std::size_t>(whole - shown), '0');
    if (whole == 0 && (form.zero_before_point || number.is_zero())) {
        text += '0';
    }
    if (number.decimals() > 0) {
        text += form.decimal_separator;
        text.append(static_cast<std::size_t>(std::max(-number.point, 0)), '0');
        text.append(number.digits + shown, static_cast<std::size_t>(number.count - shown));
    }
}

void append_scientific(const DecimalText& number, const PlainNumberForm& form, std::string& text) {
    text += number.digits[0];
    if (number.count > 1) {
        text += form.decimal_separator;
        text.append(number.digits + 1, static_cast<std::size_t>(number.count - 1));
    }
    const int exponent = number.point - 1;
    text += exponent < 0 ? "E-" : "E+";
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, std::abs(exponent));
    if (end.ptr - digits < 2) {
        text += '0';
    }
    text.append(digits, end.ptr);
}

} // namespace

void write_plain_number(const DecimalText& number, const PlainNumberForm& form, std::string& text) {
    text.clear();
    if (number.negative && !number.is_zero()) {
        text += '-';
    } else if (form.blank_for_plus) {
        text += ' ';
    }
    if (number.point <= form.fixed_limit && number.decimals() <= form.fixed_limit) {
        append_fixed(number, form, text);
    } else {
        append_scientific(number, form, text);
    }
}

std::string_view text_of_unreal(double value) {
    if (std::isnan(value)) {
        return "-1.#IND";
    }
    return value < 0 ? "-1.#INF" : "1.#INF";
}

} // namespace krv::standard
