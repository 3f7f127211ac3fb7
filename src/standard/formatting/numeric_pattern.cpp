#include "standard/formatting/numeric_pattern.h"

#include "standard/formatting/bounded_text.h"
#include "standard/formatting/pattern_text.h"

#include <cmath>

namespace krv::standard {

namespace {

constexpr std::size_t negative_section = 1;
constexpr std::size_t zero_section = 2;
constexpr std::size_t null_section = 3;

void write_section(const NumericSection& section,
                   DecimalText& adapted,
                   bool minus,
                   std::string& text) {
    write_bounded(section.longest(adapted) + 1, text, [&](char* out) {
        if (minus) {
            *out++ = '-';
        }
        return section.write(adapted, out);
    });
}

} // namespace

NumericPattern::NumericPattern(std::string_view pattern, const RegionalSettings& region) {
    for (const std::string_view section : pattern_sections(pattern)) {
        if (sections_.size() <= null_section) {
            sections_.emplace_back(section, region);
        }
    }
}

const NumericSection* NumericPattern::given_section(std::size_t index) const {
    return index < sections_.size() && !sections_[index].is_empty() ? &sections_[index] : nullptr;
}

const NumericSection& NumericPattern::section_for(bool zero, bool negative) const {
    const NumericSection* section = zero       ? given_section(zero_section)
                                    : negative ? given_section(negative_section)
                                               : nullptr;
    return section != nullptr ? *section : sections_.front();
}

void NumericPattern::write(DecimalText& number, std::string& text) const {
    const NumericSection* section = &section_for(number.is_zero(), number.negative);
    section->adapt(number);
    if (number.is_zero() && section->shows_digits()) {
        section = &section_for(true, false);
    }
    const bool minus = number.negative && !number.is_zero() && section == &sections_.front();
    write_section(*section, number, minus && !section->is_empty(), text);
}

bool NumericPattern::write_fast(double value, int exponent, std::string& text) const {
    const NumericSection& section = section_for(value == 0, value < 0);
    const FixedNumberForm* form = section.fixed_form();
    if (form == nullptr) {
        return false;
    }
    const auto units = rounded_units(std::abs(value), form->power + exponent);
    if (!units || (*units == 0 && value != 0)) {
        return false;
    }
    form->write(*units, value < 0 && &section == &sections_.front(), text);
    return true;
}

void NumericPattern::write_null(std::string& text) const {
    if (sections_.size() <= null_section) {
        text.clear();
        return;
    }
    DecimalText zero;
    write_section(sections_[null_section], zero, false, text);
}

} // namespace krv::standard
