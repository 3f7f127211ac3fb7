#pragma once

#include "standard/formatting/numeric_section.h"

#include <string>
#include <vector>

namespace krv::standard {

/// A numeric pattern of one to four sections: positive, negative, zero, Null.
class NumericPattern {
public:
    NumericPattern(std::string_view pattern, const RegionalSettings& region);

    /// Spoils the number.
    void write(DecimalText& number, std::string& text) const;

    /// The same for a number of few digits, in a fraction of the time. Refuses, with the text left
    /// alone, what it cannot round for certain.
    /// \param value     by its 15 significant digits, or exact
    /// \param exponent  the number is the value times ten to this power, -4 to 0
    bool write_fast(double value, int exponent, std::string& text) const;

    /// Writes what stands for Null and Empty: the fourth section, or nothing.
    void write_null(std::string& text) const;

private:
    /// The section that is there and has a text, else null.
    const NumericSection* given_section(std::size_t index) const;
    const NumericSection& section_for(bool zero, bool negative) const;

    std::vector<NumericSection> sections_;
};

} // namespace krv::standard
