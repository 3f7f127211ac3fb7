#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace krv::standard {

/// A whole number of units of ten to the power of -`decimals`: the near way of writing numbers that
/// have few digits.
struct FixedNumber {
    std::uint64_t units = 0;
    int decimals = 0;
};

/// Rounds a number, by its 15 significant digits, to so many decimals half away from zero. Refuses
/// numbers of 14 digits and more and those so near to a half that the digits must decide.
/// \param magnitude  0 or more
/// \param power      decimals, plus the power of ten that the number is multiplied by; -22 to 22
std::optional<std::uint64_t> rounded_units(double magnitude, int power);

/// A number that its 15 significant digits show with four decimals at most; refuses others.
std::optional<FixedNumber> short_number(double magnitude);

/// Text in front of the digits, among them and behind them.
struct FixedNumberForm {
    std::string prefix;
    std::string point;
    std::string suffix;
    std::string thousands_separator; ///< empty: no grouping
    int decimals = 0;
    int least_decimals = 0;
    int least_integers = 0;
    int power = 0; ///< as of `rounded_units`

    /// False when the form is too wide for the buffer that `write` works in, or the power too
    /// great.
    bool fits() const;

    /// \param units  of the last decimal
    void write(std::uint64_t units, bool minus, std::string& text) const;
};

/// The shortest text of a number, as many decimals as it needs.
void write_short_number(const FixedNumber& number,
                        bool minus,
                        std::string_view decimal_separator,
                        std::string& text);

} // namespace krv::standard
