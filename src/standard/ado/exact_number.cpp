#include "standard/ado/exact_number.h"

#include "standard/formatting/digit_collector.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace krv::standard {

namespace {

constexpr int most_digits = 28;
constexpr std::int64_t ten_thousand = 10000;

std::optional<DecimalText> plain_number(std::string_view text) {
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    at += !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    DigitCollector digits;
    bool behind_point = false;
    for (; at < text.size(); ++at) {
        if (is_digit(text[at])) {
            digits.add(text[at], behind_point);
        } else if (text[at] == '.' && !behind_point) {
            behind_point = true;
        } else {
            break;
        }
    }
    std::int64_t exponent = 0;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        exponent = read_exponent(text, at).value_or(0);
    }
    if (!digits.any() || at != text.size()) {
        return std::nullopt;
    }
    return digits.number(exponent, negative);
}

std::optional<platform::Currency> to_currency(DecimalText number) {
    round_half_even(number, 4);
    if (number.point > 15) {
        return std::nullopt;
    }
    std::uint64_t magnitude = 0;
    for (int place = number.point > 0 ? number.point - 1 : 0; place >= -4; --place) {
        magnitude = magnitude * 10 + static_cast<unsigned>(number.digit_at(place) - '0');
    }
    const std::uint64_t limit =
        std::uint64_t{std::numeric_limits<std::int64_t>::max()} + (number.negative ? 1 : 0);
    if (magnitude > limit) {
        return std::nullopt;
    }
    return platform::Currency{
        static_cast<std::int64_t>(number.negative ? 0 - magnitude : magnitude)};
}

/// Digits enough for every shortest form of a Double in plain or exponential notation.
struct ShortestText {
    explicit ShortestText(double value)
        : size(static_cast<std::size_t>(
              std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr -
              text)) {}

    std::string_view view() const { return {text, size}; }

    char text[40];
    std::size_t size;
};

/// The whole number that divided by `divisor` is this Double and has at most 15 digits, so that no
/// shorter number means the same Double.
std::optional<std::int64_t> as_fraction(double value, double divisor) {
    constexpr double sixteen_digits = 1e15;
    const double scaled = std::nearbyint(value * divisor);
    if (!(std::fabs(scaled) < sixteen_digits) || scaled / divisor != value) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(scaled);
}

} // namespace

std::optional<platform::Decimal> decimal_from_digits(const DecimalText& number) {
    const int decimals = number.decimals();
    const int before_point = number.point > 0 ? number.point : 0;
    if (decimals > most_digits || before_point + decimals > most_digits) {
        return std::nullopt;
    }
    platform::Decimal result;
    result.scale = static_cast<std::uint8_t>(decimals);
    result.negative = number.negative && !number.is_zero();
    for (int place = before_point - 1; place >= -decimals; --place) {
        // 96 bits times ten plus a digit, 32 bits at a time.
        std::uint64_t low =
            (result.low & 0xFFFFFFFFU) * 10 + static_cast<unsigned>(number.digit_at(place) - '0');
        std::uint64_t middle = (result.low >> 32) * 10 + (low >> 32);
        result.high = static_cast<std::uint32_t>(std::uint64_t{result.high} * 10 + (middle >> 32));
        result.low = middle << 32 | (low & 0xFFFFFFFFU);
    }
    return result;
}

std::optional<platform::Decimal> decimal_from_text(std::string_view text) {
    const auto number = plain_number(text);
    return number ? decimal_from_digits(*number) : std::nullopt;
}

std::optional<platform::Currency> currency_from_text(std::string_view text) {
    const auto number = plain_number(text);
    return number ? to_currency(*number) : std::nullopt;
}

std::optional<platform::Decimal> decimal_from_double(double value) {
    constexpr double divisors[] = {1, 10, 100, 1000, 10000};
    for (std::size_t scale = 0; scale < std::size(divisors); ++scale) {
        if (const auto scaled = as_fraction(value, divisors[scale])) {
            platform::Decimal result = decimal_from_whole(*scaled);
            result.scale = static_cast<std::uint8_t>(scale);
            return result;
        }
    }
    return decimal_from_text(ShortestText(value).view());
}

std::optional<platform::Currency> currency_from_double(double value) {
    if (const auto scaled = as_fraction(value, static_cast<double>(ten_thousand))) {
        return platform::Currency{*scaled};
    }
    return currency_from_text(ShortestText(value).view());
}

platform::Decimal decimal_from_whole(std::int64_t value) noexcept {
    platform::Decimal result;
    result.negative = value < 0;
    result.low =
        value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    return result;
}

std::optional<platform::Currency> currency_from_whole(std::int64_t value) noexcept {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / ten_thousand;
    if (value > most || value < -most) {
        return std::nullopt;
    }
    return platform::Currency{value * ten_thousand};
}

std::string exact_text(const DecimalText& number) {
    std::string result = number.negative ? "-" : "";
    for (int place = number.point > 1 ? number.point - 1 : 0; place >= 0; --place) {
        result += number.digit_at(place);
    }
    for (int place = -1; place >= -number.decimals(); --place) {
        result += place == -1 ? "." : "";
        result += number.digit_at(place);
    }
    return result;
}

} // namespace krv::standard
