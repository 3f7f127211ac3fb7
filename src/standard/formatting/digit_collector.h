#pragma once

#include "standard/formatting/decimal_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace krv::standard {

constexpr bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

/// Puts a number together from the digits of a text, however many there are.
class DigitCollector {
public:
    void add(char digit, bool behind_point) {
        any_ = true;
        if (digit == '0' && number_.count == 0) {
            point_ -= behind_point ? 1 : 0;
            return;
        }
        point_ += behind_point ? 0 : 1;
        if (number_.count < DecimalText::capacity - 1) {
            number_.digits[number_.count++] = digit;
        } else {
            lost_ = lost_ || digit != '0';
        }
    }

    bool any() const { return any_; }

    DecimalText number(std::int64_t exponent, bool negative) const {
        constexpr std::int64_t far_beyond_every_double = 1'000'000;
        DecimalText result = number_;
        if (lost_) {
            // Something more, so that the cut digits are not taken for an exact half.
            result.digits[result.count++] = '1';
        }
        result.point = static_cast<int>(
            std::clamp(point_ + exponent, -far_beyond_every_double, far_beyond_every_double));
        result.negative = negative;
        trim_zeros(result);
        return result;
    }

private:
    DecimalText number_;
    std::int64_t point_ = 0;
    bool any_ = false;
    bool lost_ = false;
};

/// Reads E or D, an optional sign and digits at `position`, and moves it behind them. Without a
/// digit there is no exponent, and `position` stays.
inline std::optional<std::int64_t> read_exponent(std::string_view text, std::size_t& position) {
    constexpr std::int64_t limit = 10'000'000;
    std::size_t at = position;
    if (at == text.size() || std::string_view("eEdD").find(text[at]) == std::string_view::npos) {
        return std::nullopt;
    }
    ++at;
    const bool negative = at < text.size() && text[at] == '-';
    at += at < text.size() && (text[at] == '-' || text[at] == '+') ? 1U : 0U;
    if (at == text.size() || !is_digit(text[at])) {
        return std::nullopt;
    }
    std::int64_t exponent = 0;
    for (; at < text.size() && is_digit(text[at]); ++at) {
        exponent = std::min(limit, exponent * 10 + (text[at] - '0'));
    }
    position = at;
    return negative ? -exponent : exponent;
}

/// The value of digits of base 8 or 16 at `position`, which is moved behind them.
inline double read_radix_digits(std::string_view text, std::size_t& position, int base) {
    double value = 0;
    for (; position < text.size(); ++position) {
        const char letter = text[position];
        const int digit = is_digit(letter)                 ? letter - '0'
                          : letter >= 'a' && letter <= 'f' ? letter - 'a' + 10
                          : letter >= 'A' && letter <= 'F' ? letter - 'A' + 10
                                                           : base;
        if (digit >= base) {
            break;
        }
        value = value * base + digit;
    }
    return value;
}

/// 16 after "&H", 8 after "&O" in any letter case, 0 otherwise.
inline int radix_of(std::string_view text) {
    if (text.size() < 2 || text[0] != '&') {
        return 0;
    }
    return text[1] == 'H' || text[1] == 'h' ? 16 : text[1] == 'O' || text[1] == 'o' ? 8 : 0;
}

} // namespace krv::standard
