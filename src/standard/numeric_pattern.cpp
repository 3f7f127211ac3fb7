#include "standard/numeric_pattern.h"

#include "standard/bounded_text.h"
#include "standard/pattern_text.h"

namespace krv::standard {

namespace {

constexpr std::size_t negative_section = 1;
constexpr std::size_t zero_section = 2;
constexpr std::size_t null_section = 3;

void write_section(const NumericSection& section,
                   const DecimalText& shown,
                   bool minus,
                   std::string& text) {
    write_bounded(section.longest(shown) + 1, text, [&](char* out) {
        if (minus) {
            *out++ = '-';
        }
        return section.write(shown, out);
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

const NumericSection& NumericPattern::section_for(const DecimalText& number) const {
    const NumericSection* section = number.is_zero()  ? given_section(zero_section)
                                    : number.negative ? given_section(negative_section)
                                                      : nullptr;
    return section != nullptr ? *section : sections_.front();
}

void NumericPattern::write(const DecimalText& number, std::string& text) const {
    const NumericSection* section = &section_for(number);
    DecimalText shown = section->shown(number);
    if (shown.is_zero() && section->shows_digits()) {
        section = &section_for(shown);
    }
    const bool minus = number.negative && !shown.is_zero() && section == &sections_.front();
    write_section(*section, shown, minus && !section->is_empty(), text);
}

void NumericPattern::write_null(std::string& text) const {
    if (sections_.size() <= null_section) {
        text.clear();
        return;
    }
    write_section(sections_[null_section], DecimalText(), false, text);
}

} // namespace krv::standard
