#pragma once

#include "krv/standard/regional_settings.h"
#include "standard/formatting/decimal_text.h"
#include "standard/formatting/fixed_number.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krv::standard {

/// One section of a numeric pattern, compiled: writes numbers without a sign of its own.
class NumericSection {
public:
    NumericSection(std::string_view section, const RegionalSettings& region);

    /// True when the section has no text at all; `""` is a text.
    bool is_empty() const { return is_empty_; }

    /// False for text alone, which rounds nothing.
    bool shows_digits() const { return shows_digits_; }

    /// Makes the number what the section shows: multiplied, divided and rounded.
    void adapt(DecimalText& number) const;

    /// The same section for numbers of few digits; null when its places are no plain row.
    const FixedNumberForm* fixed_form() const { return fixed_form_ ? &*fixed_form_ : nullptr; }

    /// Bytes that `write` needs at most.
    std::size_t longest(const DecimalText& adapted) const;

    /// Writes what `adapt` gave and spoils it; returns the end.
    char* write(DecimalText& adapted, char* out) const;

private:
    friend class NumericSectionCompiler;

    enum class PartKind : std::uint8_t { literal, integer_places, decimal_places, exponent };

    /// A literal from byte `first` to before `last` of `literals_`; or the integer places from
    /// `first` down to `last`, the units being 0; or the decimal places from `first` to `last`.
    struct Part {
        PartKind kind;
        int first;
        int last;
    };

    char* write_integer_places(const Part& part, const DecimalText& number, char* out) const;
    char* write_decimal_places(const Part& part, const DecimalText& number, char* out) const;
    char* write_exponent(int exponent, char* out) const;
    std::string_view literal(const Part& part) const;
    std::optional<FixedNumberForm> make_fixed_form() const;

    std::vector<Part> parts_;
    std::string literals_;
    std::string thousands_separator_; // empty: no grouping
    int integer_places_ = 0;
    int decimal_places_ = 0;
    int least_integers_ = 0; // digits that print in any case
    int least_decimals_ = 0;
    int shift_ = 0; // power of ten that the number is multiplied by
    int least_exponent_digits_ = 1;
    char exponent_letter_ = '\0'; // NUL: no exponent
    bool exponent_plus_ = false;
    bool shows_digits_ = false;
    bool is_empty_ = true;
    std::optional<FixedNumberForm> fixed_form_;
};

} // namespace krv::standard
