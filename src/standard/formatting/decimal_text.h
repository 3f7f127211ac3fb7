#pragma once

#include "krv/platform/value.h"

#include <cstdint>

namespace krv::standard {

/// A number by its decimal digits: 0.d1d2d3... times ten to the power of `point`. Neither the first
/// nor the last digit is a zero; zero itself has no digits, and `point` 0.
struct DecimalText {
    static constexpr int capacity = 40;

    char digits[capacity]; // '0' to '9'; what lies beyond `count` means nothing
    int count = 0;
    int point = 0;
    bool negative = false;

    bool is_zero() const { return count == 0; }

    /// The digit `place` places left of the decimal point, the units having place 0; 0 where the
    /// number has none. Decimals have the places -1, -2 and so on.
    char digit_at(int place) const {
        const int index = point - 1 - place;
        return index >= 0 && index < count ? digits[index] : '0';
    }

    /// Number of digits behind the decimal point, 0 or more.
    int decimals() const { return count > point ? count - point : 0; }
};

/// Significant digits that a number of a kind keeps in its text.
inline constexpr int double_digits = 15;
inline constexpr int single_digits = 7;

/// The first `digits` significant digits (7 or 15) of a finite number, rounded half away from zero.
DecimalText decimal_text(double value, int digits = double_digits);

/// The same by the general way alone, which is exact for every number and slow: `decimal_text`
/// falls back on it.
DecimalText general_decimal_text(double value, int digits);

// Exact.

DecimalText decimal_text(std::int64_t value);
DecimalText decimal_text(platform::Currency value);
DecimalText decimal_text(platform::Decimal value);

/// Rounds to so many decimals, half away from zero; a negative count rounds before the point.
void round_half_away(DecimalText& number, int decimals);

/// Rounds to so many decimals, half to the even digit.
void round_half_even(DecimalText& number, int decimals);

/// Takes away zeros at the end, which digits that were written one by one may have.
void trim_zeros(DecimalText& number);

/// The nearest Double; infinite when the number is too large, 0 when it is too small.
double to_double(const DecimalText& number);

} // namespace krv::standard
