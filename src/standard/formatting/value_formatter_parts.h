#pragma once

#include "krv/standard/value_formatter.h"
#include "standard/formatting/date_reader.h"
#include "standard/formatting/number_writer.h"
#include "standard/formatting/pattern_cache.h"

#include <optional>
#include <string>
#include <string_view>

namespace krv::standard {

/// Of Str: a blank for the plus sign, no 0 before the point.
inline constexpr PlainNumberForm invariant_number_form = {
    .decimal_separator = ".", .zero_before_point = false, .blank_for_plus = true};

constexpr bool is_missing(const platform::ValueView& value) {
    return value.is_null() || value.kind() == platform::ValueKind::empty;
}

struct ValueFormatter::Parts {
    Parts(RegionalSettings settings, Clock today);

    /// The value as by CStr; nothing for Null and Empty. Not for bytes and objects.
    void write_plainly(const platform::ValueView& value, std::string& text) const;

    /// A number, its kind deciding when it gets an exponent.
    void
    write_number(const platform::ValueView& value, PlainNumberForm form, std::string& text) const;

    void format_plainly(const platform::ValueView& value, std::string& text) const;

    void
    format(const platform::ValueView& value, const FormatPattern& pattern, std::string& text) const;

    // A value by each form of a pattern. Not for bytes and objects, nor for Null and Empty by a
    // named format.

    void format(const platform::ValueView& value,
                const NumericPattern& pattern,
                std::string& text) const;
    void
    format(const platform::ValueView& value, const DatePattern& pattern, std::string& text) const;
    void
    format(const platform::ValueView& value, const StringPattern& pattern, std::string& text) const;
    void format(const platform::ValueView& value, const WordPair& words, std::string& text) const;
    void
    format(const platform::ValueView& value, const GeneralNumber& pattern, std::string& text) const;

    /// The serial number of a date that a text says under a pattern, which may be empty or of any
    /// kind.
    std::optional<double> date_in(std::string_view text, std::string_view pattern);

    const RegionalSettings region;
    const RegionalDates dates;
    const DateReader date_reader;
    PatternCache patterns;

private:
    /// The number that a value stands for: of a text the one it holds, of others themselves.
    /// Empty where there is none, and the text then comes out as it is.
    std::optional<platform::ValueView> number_behind(const platform::ValueView& value,
                                                     std::string& text) const;
    std::optional<double> serial_behind(const platform::ValueView& value,
                                        const DatePattern& pattern) const;
};

} // namespace krv::standard
