#include "standard/formatting/val.h"

#include "standard/formatting/digit_collector.h"
#include "standard/run_time_errors.h"

#include <cmath>
#include <string>

namespace krv::standard {

namespace {

std::string without_blanks(std::string_view text) {
    std::string result(text);
    std::erase_if(result, [](char character) {
        return character == ' ' || character == '\t' || character == '\n' || character == '\r';
    });
    return result;
}

/// Hexadecimal and octal numbers have a sign bit: the 16th, or the 32nd where the value needs it
/// or the text asks for it by a closing `&`.
double radix_number(std::string_view text, int base) {
    std::size_t end = 2;
    const double value = read_radix_digits(text, end, base);
    const bool closed = end < text.size() && text[end] == '&';
    if (value > 0xFFFFFFFF) {
        if (std::isinf(value)) {
            fail_overflow();
        }
        return value;
    }
    const auto bits = static_cast<std::uint32_t>(value);
    return bits <= 0xFFFF && !closed ? static_cast<std::int16_t>(bits)
                                     : static_cast<std::int32_t>(bits);
}

double decimal_number(std::string_view text) {
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    at += !text.empty() && (text[0] == '-' || text[0] == '+') ? 1U : 0U;
    DigitCollector digits;
    bool point = false;
    for (; at < text.size() && (is_digit(text[at]) || (text[at] == '.' && !point)); ++at) {
        if (text[at] == '.') {
            point = true;
        } else {
            digits.add(text[at], point);
        }
    }
    if (!digits.any()) {
        return 0;
    }
    const auto exponent = read_exponent(text, at);
    if ((point || exponent) && at < text.size() && text[at] == '%') {
        fail_type_mismatch();
    }
    const double value = to_double(digits.number(exponent.value_or(0), negative));
    if (std::isinf(value)) {
        fail_overflow();
    }
    return value == 0 ? 0 : value;
}

} // namespace

double val(std::string_view text) {
    const std::string plain = without_blanks(text);
    const int base = radix_of(plain);
    return base != 0 ? radix_number(plain, base) : decimal_number(plain);
}

} // namespace krv::standard
