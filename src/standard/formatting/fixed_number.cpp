#include "standard/formatting/fixed_number.h"

#include "standard/formatting/digit_pairs.h"
#include "standard/formatting/powers_of_ten.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace krv::standard {

namespace {

constexpr double greatest_units = 1e13;
constexpr std::size_t buffer_size = 192;
constexpr std::size_t greatest_digits = 20;
constexpr int greatest_power = greatest_exact_power - 4;

/// Puts text in front of what the buffer already holds.
char* prepend(std::string_view piece, char* front) {
    front -= piece.size();
    if (piece.size() == 1) {
        *front = piece.front();
    } else if (!piece.empty()) {
        std::memcpy(front, piece.data(), piece.size());
    }
    return front;
}

char* prepend_digit(std::uint64_t digit, char* front) {
    *--front = static_cast<char>('0' + digit);
    return front;
}

char* prepend_pair(std::uint64_t pair, char* front) {
    front -= 2;
    write_pair(static_cast<std::uint32_t>(pair), front);
    return front;
}

/// So many digits of the units, the last ones; takes them off the units.
char* prepend_digits(std::uint64_t& units, int count, char* front) {
    for (; count >= 2; count -= 2) {
        front = prepend_pair(units % 100, front);
        units /= 100;
    }
    if (count > 0) {
        front = prepend_digit(units % 10, front);
        units /= 10;
    }
    return front;
}

/// All digits of a number; none of 0.
char* prepend_all_digits(std::uint64_t number, char* front) {
    while (number >= 100) {
        front = prepend_pair(number % 100, front);
        number /= 100;
    }
    if (number >= 10) {
        return prepend_pair(number, front);
    }
    return number > 0 ? prepend_digit(number, front) : front;
}

/// Cuts zeros at the end down to the least number of decimals.
void cut_decimals(std::uint64_t& units, int& decimals, int least) {
    while (decimals > least && units % 10 == 0) {
        units /= 10;
        --decimals;
    }
}

char* prepend_groups(std::uint64_t number, std::string_view separator, char* front) {
    while (number >= 1000) {
        const std::uint64_t group = number % 1000;
        number /= 1000;
        front = prepend_pair(group % 100, front);
        front = prepend_digit(group / 100, front);
        front = prepend(separator, front);
    }
    return prepend_all_digits(number, front);
}

/// Zeros in front of a number that has fewer digits than must print.
char* prepend_missing_zeros(std::uint64_t number,
                            int least,
                            std::string_view separator,
                            char* front) {
    int digits = 0;
    for (; number > 0; number /= 10) {
        ++digits;
    }
    for (; digits < least; ++digits) {
        if (digits % 3 == 0 && digits > 0) {
            front = prepend(separator, front);
        }
        front = prepend_digit(0, front);
    }
    return front;
}

} // namespace

std::optional<std::uint64_t> rounded_units(double magnitude, int power) {
    const double product = times_power_of_ten(magnitude, power);
    if (!(product < greatest_units)) {
        return std::nullopt;
    }
    const auto whole = static_cast<std::int64_t>(product);
    const double over_half = product - static_cast<double>(whole) - 0.5;
    // Half a unit of the 15th digit is 5E-15 of the number at most, the error of the product 1E-16.
    if (std::abs(over_half) <= product * 1e-14) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(whole + (over_half > 0 ? 1 : 0));
}

std::optional<FixedNumber> short_number(double magnitude) {
    constexpr int decimals = 4;
    const double product = times_power_of_ten(magnitude, decimals);
    if (!(product < greatest_units)) {
        return std::nullopt;
    }
    const auto whole = static_cast<std::int64_t>(product + 0.5);
    // Half a unit of the 15th digit is 5E-16 of the number at least.
    if (std::abs(product - static_cast<double>(whole)) > product * 3e-16) {
        return std::nullopt;
    }
    return FixedNumber{static_cast<std::uint64_t>(whole), decimals};
}

bool FixedNumberForm::fits() const {
    const auto integers = greatest_digits + static_cast<std::size_t>(least_integers);
    return std::abs(power) <= greatest_power && decimals <= static_cast<int>(greatest_digits) &&
           prefix.size() + point.size() + suffix.size() + 1 + greatest_digits +
                   integers * (1 + thousands_separator.size()) <=
               buffer_size;
}

void FixedNumberForm::write(std::uint64_t units, bool minus, std::string& text) const {
    char buffer[buffer_size];
    char* front = prepend(suffix, buffer + buffer_size);
    int shown = decimals;
    if (least_decimals < decimals) {
        cut_decimals(units, shown, least_decimals);
    }
    front = prepend_digits(units, shown, front);
    front = prepend(point, front);
    front = thousands_separator.empty() ? prepend_all_digits(units, front)
                                        : prepend_groups(units, thousands_separator, front);
    if (units == 0 || least_integers > 1) {
        front = prepend_missing_zeros(units, least_integers, thousands_separator, front);
    }
    front = prepend(prefix, front);
    if (minus) {
        *--front = '-';
    }
    text.assign(front, static_cast<std::size_t>(buffer + buffer_size - front));
}

void write_short_number(const FixedNumber& number,
                        bool minus,
                        std::string_view decimal_separator,
                        std::string& text) {
    std::uint64_t units = number.units;
    int decimals = number.decimals;
    cut_decimals(units, decimals, 0);
    char buffer[2 * greatest_digits];
    char* front = buffer + sizeof buffer;
    if (decimals > 0) {
        front = prepend_digits(units, decimals, front);
        front = prepend(decimal_separator, front);
    }
    front = units == 0 ? prepend_digit(0, front) : prepend_all_digits(units, front);
    if (minus) {
        *--front = '-';
    }
    text.assign(front, static_cast<std::size_t>(buffer + sizeof buffer - front));
}

} // namespace krv::standard
