#include "standard/decimal_text.h"

#include "standard/digit_pairs.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace krv::standard {

namespace {

/// The powers of ten that a Double holds exactly.
constexpr double powers_of_ten[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int greatest_power = 22;

/// A whole number of so many digits times ten to the power of an exponent.
struct Scaled {
    std::uint64_t whole;
    int exponent; // of the first digit
};

double scaled_by_ten(double value, int power) {
    return power >= 0 ? value * powers_of_ten[power] : value / powers_of_ten[-power];
}

/// Floor of the decimal logarithm, by the binary exponent: exact or one too small.
int estimated_exponent(double magnitude) {
    const auto biased = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52);
    return ((biased - 1023) * 1233) >> 12; // 1233 / 4096 is the logarithm of 2
}

/// One multiplication by a power of ten is wrong by less than the distance that decides, unless the
/// scaled number lies all but on a half. Then, and for numbers far from 1, it is refused.
bool scale_fast(double magnitude, int digits, Scaled& scaled) {
    scaled.exponent = estimated_exponent(magnitude);
    if (std::abs(digits - 1 - scaled.exponent) >= greatest_power) {
        return false;
    }
    const double limit = powers_of_ten[digits];
    double product = scaled_by_ten(magnitude, digits - 1 - scaled.exponent);
    if (product >= limit) {
        ++scaled.exponent;
        product = scaled_by_ten(magnitude, digits - 1 - scaled.exponent);
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

/// Exactly eight digits.
void write_eight(std::uint32_t value, char* out) {
    const std::uint32_t high = value / 10000;
    const std::uint32_t low = value % 10000;
    write_pair(high / 100, out);
    write_pair(high % 100, out + 2);
    write_pair(low / 100, out + 4);
    write_pair(low % 100, out + 6);
}

/// The digits of a whole number below ten to the power of 16; the first is not 0 where the number
/// has as many. Leaves out zeros at the end.
void write_scaled(std::uint64_t whole, int digits, DecimalText& number) {
    constexpr std::uint32_t eight_digits = 100'000'000;
    char text[16];
    const auto low = static_cast<std::uint32_t>(whole % eight_digits);
    write_eight(static_cast<std::uint32_t>(whole / eight_digits), text);
    int end = 8;
    if (low != 0 || digits <= 8) {
        write_eight(low, text + 8);
        end = 16;
    }
    const int begin = 16 - digits;
    std::memcpy(number.digits, text + begin, static_cast<std::size_t>(end - begin));
    number.count = end - begin;
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
