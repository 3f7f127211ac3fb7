#include "standard/formatting/numeric_section.h"

#include "standard/formatting/bounded_text.h"
#include "standard/formatting/numeric_section_compiler.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace krv::standard {

NumericSection::NumericSection(std::string_view section, const RegionalSettings& region)
    : is_empty_(section.empty()) {
    NumericSectionCompiler(*this, region).compile(section);
    fixed_form_ = make_fixed_form();
}

std::string_view NumericSection::literal(const Part& part) const {
    return {literals_.data() + part.first, literals_.data() + part.last};
}

std::optional<FixedNumberForm> NumericSection::make_fixed_form() const {
    FixedNumberForm form;
    std::size_t index = 0;
    const auto take = [&](PartKind kind) {
        const bool found = index < parts_.size() && parts_[index].kind == kind;
        index += found ? 1U : 0U;
        return found;
    };
    const auto take_literal = [&] {
        return take(PartKind::literal) ? std::string(literal(parts_[index - 1])) : std::string();
    };
    form.prefix = take_literal();
    if (!take(PartKind::integer_places)) {
        return std::nullopt;
    }
    (decimal_places_ > 0 ? form.point : form.suffix) = take_literal();
    if (decimal_places_ > 0 && take(PartKind::decimal_places)) {
        form.suffix = take_literal();
    }
    form.thousands_separator = thousands_separator_;
    form.decimals = decimal_places_;
    form.least_decimals = least_decimals_;
    form.least_integers = least_integers_;
    form.power = decimal_places_ + shift_;
    return index == parts_.size() && form.fits() ? std::optional(form) : std::nullopt;
}

void NumericSection::adapt(DecimalText& number) const {
    if (number.is_zero() || !shows_digits_) {
        return;
    }
    number.point += shift_;
    if (exponent_letter_ == '\0') {
        round_half_away(number, decimal_places_);
    } else if (integer_places_ + decimal_places_ > 0) {
        round_half_away(number, integer_places_ + decimal_places_ - number.point);
    }
}

std::size_t NumericSection::longest(const DecimalText& adapted) const {
    constexpr std::size_t longest_exponent = 16;
    const auto integers = static_cast<std::size_t>(std::max(adapted.point, integer_places_));
    return literals_.size() + integers * (1 + thousands_separator_.size()) +
           static_cast<std::size_t>(decimal_places_ + least_exponent_digits_) + longest_exponent;
}

char* NumericSection::write(DecimalText& adapted, char* out) const {
    int exponent = 0;
    if (exponent_letter_ != '\0' && !adapted.is_zero()) {
        exponent = adapted.point - integer_places_;
        adapted.point = integer_places_;
    }
    for (const Part& part : parts_) {
        switch (part.kind) {
        case PartKind::literal:
            out = append_to(out, literal(part));
            break;
        case PartKind::integer_places:
            out = write_integer_places(part, adapted, out);
            break;
        case PartKind::decimal_places:
            out = write_decimal_places(part, adapted, out);
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
