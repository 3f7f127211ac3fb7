#include "standard/formatting/decimal_text.h"

#include "standard/formatting/digit_pairs.h"
#include "standard/formatting/powers_of_ten.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace krv::standard {

namespace {

/// A whole number of so many digits times ten to the power of an exponent.
struct Scaled {
    std::uint64_t whole;
    int exponent; // of the first digit
};

/// Floor of the decimal logarithm, by the binary exponent: exact or one too small.
int estimated_exponent(double magnitude) {
    const auto biased = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52);
    return ((biased - 1023) * 1233) >> 12; // 1233 / 4096 is the logarithm of 2
}

/// One multiplication by a power of ten is wrong by less than the distance that decides, unless the
/// scaled number lies all but on a half. Then, and for numbers far from 1, it is refused.
bool scale_fast(double magnitude, int digits, Scaled& scaled) {
    scaled.exponent = estimated_exponent(magnitude);
    if (std::abs(digits - 1 - scaled.exponent) > greatest_exact_power - 1) {
        return false;
    }
    const double limit = powers_of_ten[digits];
    double product = times_power_of_ten(magnitude, digits - 1 - scaled.exponent);
    if (product >= limit) {
        ++scaled.exponent;
        product = times_power_of_ten(magnitude, digits - 1 - scaled.exponent);
    }
    scaled.whole = static_cast<std::uint64_t>(product);
    const double over_half = product - static_cast<double>(scaled.whole) - 0.5;
    // A product is off by half a unit of its last bit, 1.2E-16 of it.
    if (product < limit / 10 || std::abs(over_half) <= product * 2.5e-16) {
        return false;
    }
    scaled.whole += over_half > 0 ? 1U : 0U;
    return true;
}

char* write_four(std::uint32_t value, char* out) {
    return write_pair(value % 100, write_pair(value / 100, out));
}

char* write_seven(std::uint32_t value, char* out) {
    *out = static_cast<char>('0' + value / 1'000'000);
    value %= 1'000'000;
    return write_four(value % 10'000, write_pair(value / 10'000, out + 1));
}

/// The 7 or 15 digits of a whole number, without zeros at the end.
void write_scaled(std::uint64_t whole, int digits, DecimalText& number) {
    constexpr std::uint32_t eight_digits = 100'000'000;
    char* out = number.digits;
    if (digits == single_digits) {
        out = write_seven(static_cast<std::uint32_t>(whole), out);
    } else {
        out = write_seven(static_cast<std::uint32_t>(whole / eight_digits), out);
        const auto low = static_cast<std::uint32_t>(whole % eight_digits);
        out = low == 0 ? out : write_four(low % 10'000, write_four(low / 10'000, out));
    }
    number.count = static_cast<int>(out - number.digits);
    trim_zeros(number);
}

void set_zero(DecimalText& number) {
    number.count = 0;
    number.point = 0;
}

void increment_last(DecimalText& number) {
    int last = number.count - 1;
    while (last >= 0 && number.digits[last] == '9') {
        --last;
    }
    if (last < 0) {
        number.digits[0] = '1';
        number.count = 1;
        ++number.point;
        return;
    }
    ++number.digits[last];
    number.count = last + 1;
}

/// Keeps the first digits only, and adds one to the last of them when asked.
void cut(DecimalText& number, int keep, bool up) {
    if (keep < 0 || (keep == 0 && !up)) {
        set_zero(number);
        return;
    }
    number.count = keep;
    if (up) {
        increment_last(number);
    } else {
        trim_zeros(number);
    }
}

DecimalText digits_of(std::uint64_t magnitude, bool negative) {
    DecimalText number;
    const auto end = std::to_chars(number.digits, number.digits + DecimalText::capacity, magnitude);
    number.count = static_cast<int>(end.ptr - number.digits);
    number.point = number.count;
    number.negative = negative;
    trim_zeros(number);
    return number;
}

std::uint64_t magnitude_of(std::int64_t value) {
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

/// Divides a number of 96 bits by ten to the power of nine; returns the remainder.
std::uint32_t divide_by_billion(std::array<std::uint32_t, 3>& limbs) {
    std::uint64_t remainder = 0;
    for (auto limb = limbs.rbegin(); limb != limbs.rend(); ++limb) {
        const std::uint64_t part = remainder << 32 | *limb;
        *limb = static_cast<std::uint32_t>(part / 1'000'000'000);
        remainder = part % 1'000'000'000;
    }
    return static_cast<std::uint32_t>(remainder);
}

} // namespace

void trim_zeros(DecimalText& number) {
    while (number.count > 0 && number.digits[number.count - 1] == '0') {
        --number.count;
    }
    if (number.count == 0) {
        number.point = 0;
    }
}

DecimalText general_decimal_text(double value, int digits) {
    DecimalText number;
    number.negative = std::signbit(value);
    // Two digits for each one that stays: no Double comes that close to a half without being one.
    char text[48];
    const auto end = std::to_chars(text,
                                   text + sizeof text,
                                   std::abs(value),
                                   std::chars_format::scientific,
                                   2 * double_digits);
    const char* exponent = static_cast<const char*>(std::memchr(text, 'e', sizeof text));
    number.digits[0] = text[0];
    std::memcpy(number.digits + 1, text + 2, static_cast<std::size_t>(exponent - text - 2));
    number.count = static_cast<int>(exponent - text - 1);
    std::from_chars(exponent + (exponent[1] == '+' ? 2 : 1), end.ptr, number.point);
    ++number.point;
    trim_zeros(number);
    round_half_away(number, digits - number.point);
    return number;
}

DecimalText decimal_text(double value, int digits) {
    const double magnitude = std::abs(value);
    if (magnitude == 0) {
        return {};
    }
    Scaled scaled{};
    if (!scale_fast(magnitude, digits, scaled)) {
        return general_decimal_text(value, digits);
    }
    DecimalText number;
    number.negative = value < 0;
    number.point = scaled.exponent + 1;
    if (static_cast<double>(scaled.whole) == powers_of_ten[digits]) {
        scaled.whole = 1;
        ++number.point;
        number.digits[0] = '1';
        number.count = 1;
        return number;
    }
    write_scaled(scaled.whole, digits, number);
    return number;
}

DecimalText decimal_text(std::int64_t value) {
    return digits_of(magnitude_of(value), value < 0);
}

DecimalText decimal_text(platform::Currency value) {
    DecimalText number = decimal_text(value.ten_thousandths);
    number.point -= number.is_zero() ? 0 : 4;
    return number;
}

DecimalText decimal_text(platform::Decimal value) {
    std::array<std::uint32_t, 3> limbs = {static_cast<std::uint32_t>(value.low),
                                          static_cast<std::uint32_t>(value.low >> 32),
                                          value.high};
    std::array<std::uint32_t, 4> groups{};
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        *group = divide_by_billion(limbs);
    }
    char text[36];
    for (std::size_t index = 0; index < groups.size(); ++index) {
        std::uint32_t rest = groups[index];
        for (char* out = text + 9 * index + 8; out >= text + 9 * index; --out, rest /= 10) {
            *out = static_cast<char>('0' + rest % 10);
        }
    }
    DecimalText number;
    number.negative = value.negative;
    int first = 0;
    while (first < 36 && text[first] == '0') {
        ++first;
    }
    number.count = 36 - first;
    number.point = number.count - value.scale;
    std::memcpy(number.digits, text + first, static_cast<std::size_t>(number.count));
    trim_zeros(number);
    return number;
}

void round_half_away(DecimalText& number, int decimals) {
    const int keep = number.point + decimals;
    if (keep < number.count) {
        cut(number, keep, keep >= 0 && number.digits[keep] >= '5');
    }
}

void round_half_even(DecimalText& number, int decimals) {
    const int keep = number.point + decimals;
    if (keep >= number.count) {
        return;
    }
    const bool half = keep >= 0 && number.digits[keep] == '5' && keep + 1 == number.count;
    const bool odd = keep > 0 && (number.digits[keep - 1] - '0') % 2 != 0;
    cut(number, keep, keep >= 0 && (half ? odd : number.digits[keep] >= '5'));
}

double to_double(const DecimalText& number) {
    if (number.is_zero()) {
        return 0;
    }
    char text[DecimalText::capacity + 16];
    std::memcpy(text, number.digits, static_cast<std::size_t>(number.count));
    char* out = text + number.count;
    *out++ = 'e';
    out = std::to_chars(out, text + sizeof text, number.point - number.count).ptr;
    double value = 0;
    if (std::from_chars(text, out, value).ec == std::errc::result_out_of_range) {
        value = number.point > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return number.negative ? -value : value;
}

} // namespace krv::standard
