#pragma once

#include "standard/numeric_section.h"

#include <string>
#include <vector>

namespace krv::standard {

/// A numeric pattern of one to four sections: positive, negative, zero, Null.
class NumericPattern {
public:
    NumericPattern(std::string_view pattern, const RegionalSettings& region);

    void write(const DecimalText& number, std::string& text) const;

    /// Writes what stands for Null and Empty: the fourth section, or nothing.
    void write_null(std::string& text) const;

private:
    /// The section that is there and has a text, else null.
    const NumericSection* given_section(std::size_t index) const;
    const NumericSection& section_for(const DecimalText& number) const;

    std::vector<NumericSection> sections_;
};

} // namespace krv::standard
