#include "standard/numeric_section.h"

#include "standard/bounded_text.h"
#include "standard/numeric_section_compiler.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace krv::standard {

NumericSection::NumericSection(std::string_view section, const RegionalSettings& region)
    : is_empty_(section.empty()) {
    NumericSectionCompiler(*this, region).compile(section);
}

DecimalText NumericSection::shown(DecimalText number) const {
    if (number.is_zero() || !shows_digits_) {
        return number;
    }
    number.point += shift_;
    if (exponent_letter_ == '\0') {
        round_half_away(number, decimal_places_);
    } else if (integer_places_ + decimal_places_ > 0) {
        round_half_away(number, integer_places_ + decimal_places_ - number.point);
    }
    return number;
}

std::size_t NumericSection::longest(const DecimalText& shown) const {
    constexpr std::size_t longest_exponent = 16;
    const auto integers = static_cast<std::size_t>(std::max(shown.point, integer_places_));
    return literals_.size() + integers * (1 + thousands_separator_.size()) +
           static_cast<std::size_t>(decimal_places_ + least_exponent_digits_) + longest_exponent;
}

char* NumericSection::write(DecimalText shown, char* out) const {
    int exponent = 0;
    if (exponent_letter_ != '\0' && !shown.is_zero()) {
        exponent = shown.point - integer_places_;
        shown.point = integer_places_;
    }
    for (const Part& part : parts_) {
        switch (part.kind) {
        case PartKind::literal:
            out = append_to(out, {literals_.data() + part.first, literals_.data() + part.last});
            break;
        case PartKind::integer_places:
            out = write_integer_places(part, shown, out);
            break;
        case PartKind::decimal_places:
            out = write_decimal_places(part, shown, out);
            break;
        case PartKind::exponent:
            out = write_exponent(exponent, out);
            break;
        }
    }
    return out;
}

char* NumericSection::write_integer_places(const Part& part,
                                           const DecimalText& number,
                                           char* out) const {
    const int highest = std::max(number.point, least_integers_) - 1;
    // Digits that have no place of their own stand before the first place.
    const bool leads = part.first == integer_places_ - 1;
    int place = leads ? highest : std::min(part.first, highest);
    for (; place >= part.last; --place) {
        *out++ = number.digit_at(place);
        if (place % 3 == 0 && place > 0) {
            out = append_to(out, thousands_separator_);
        }
    }
    return out;
}

char* NumericSection::write_decimal_places(const Part& part,
                                           const DecimalText& number,
                                           char* out) const {
    const int end = std::max(number.decimals(), least_decimals_);
    for (int place = part.first; place <= part.last && place < end; ++place) {
        *out++ = number.digit_at(-1 - place);
    }
    return out;
}

char* NumericSection::write_exponent(int exponent, char* out) const {
    *out++ = exponent_letter_;
    if (exponent < 0 || exponent_plus_) {
        *out++ = exponent < 0 ? '-' : '+';
    }
    char digits[12];
    const auto end = std::to_chars(digits, digits + sizeof digits, std::abs(exponent));
    const auto count = static_cast<int>(end.ptr - digits);
    for (int missing = least_exponent_digits_ - count; missing > 0; --missing) {
        *out++ = '0';
    }
    return append_to(out, {digits, end.ptr});
}

} // namespace krv::standard
