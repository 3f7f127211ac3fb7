#include "standard/formatting/date_pattern_compiler.h"

#include "standard/formatting/pattern_text.h"

#include <algorithm>

namespace krv::standard {

namespace {

bool is_hour(DateField field) {
    return field == DateField::hour || field == DateField::two_digit_hour;
}

bool refers_to_form(DateField field) {
    return field == DateField::short_date || field == DateField::long_date ||
           field == DateField::long_time || field == DateField::general;
}

bool prints_name(DateField field) {
    return field == DateField::short_weekday || field == DateField::weekday ||
           field == DateField::short_month_name || field == DateField::month_name ||
           field == DateField::regional_half_day;
}

DateField as_minute(DateField month) {
    return month == DateField::month ? DateField::minute : DateField::two_digit_minute;
}

DigitOrder::Field digit_field(DateField field) {
    switch (field) {
    case DateField::day:
        return {'d', true};
    case DateField::two_digit_day:
        return {'d', false};
    case DateField::month:
        return {'m', true};
    case DateField::two_digit_month:
        return {'m', false};
    case DateField::two_digit_year:
    case DateField::year:
        return {'y', false};
    default:
        return {};
    }
}

/// Collects the order of day, month and year; a second one of a kind, or anything but text between
/// them, spoils it.
struct OrderFinder {
    DigitOrder order;
    std::size_t found = 0;
    bool spoiled = false;

    void see_token(DateField token) {
        const DigitOrder::Field field = digit_field(token);
        if (field.part == '\0') {
            spoiled = spoiled || (found > 0 && found < 3);
            return;
        }
        spoiled = spoiled || found == 3 ||
                  std::ranges::any_of(order.fields, [&](const DigitOrder::Field& other) {
                      return other.part == field.part;
                  });
        if (!spoiled) {
            order.fields[found++] = field;
        }
    }

    void see_literal(std::string_view text) {
        if (found > 0 && found < 3) {
            order.separators[found - 1] += text;
        }
    }
};

} // namespace

void DatePatternCompiler::compile(std::string_view text) {
    PatternScanner scanner(text);
    while (!scanner.at_end()) {
        if (const auto literal = scanner.take_literal()) {
            add_literal(*literal);
        } else if (scanner.front() == ';') {
            break;
        } else {
            compile_next(scanner);
        }
    }
    if (half_days_) {
        use_half_days();
    }
    OrderFinder finder;
    for (const DatePattern::Part& part : pattern_.parts_) {
        if (part.field == DateField::literal) {
            finder.see_literal(pattern_.literal(part.begin, part.end));
        } else {
            finder.see_token(part.field);
        }
    }
    if (finder.found == 3 && !finder.spoiled) {
        pattern_.digit_order_ = finder.order;
    }
}

void DatePatternCompiler::compile_next(PatternScanner& scanner) {
    if (const DateToken token = date_token_at(scanner.rest()); token.length > 0) {
        const std::string_view text = scanner.take(token.length);
        const bool refused = level_ == DatePattern::Level::part && refers_to_form(token.field);
        return refused ? add_literal(text) : add_token(token.field, text);
    }
    const std::string_view character = scanner.take(1);
    if (character == "/") {
        add_literal(region_.date_separator);
    } else if (character == ":") {
        add_literal(region_.time_separator);
    } else if (character == "[") {
        const auto closing = scanner.rest().find(']');
        scanner.take(closing == std::string_view::npos ? scanner.rest().size() : closing + 1);
    } else {
        add_literal(character);
    }
}

void DatePatternCompiler::add_token(DateField field, std::string_view text) {
    const bool month = field == DateField::month || field == DateField::two_digit_month;
    // Deliberate: m looks back to h and never ahead to s, so "mm:ss" shows the month.
    if (month && is_hour(last_token_)) {
        field = as_minute(field);
    }
    last_token_ = field;
    if (field == DateField::half_day) {
        return add_half_day(text);
    }
    half_days_ = half_days_ || field == DateField::regional_half_day;
    pattern_.forms_ += refers_to_form(field) ? 1U : 0U;
    pattern_.names_ += prints_name(field) ? 1U : 0U;
    pattern_.parts_.push_back({field});
}

void DatePatternCompiler::add_half_day(std::string_view text) {
    half_days_ = true;
    const auto slash = text.find('/');
    DatePattern::Part part{DateField::half_day};
    part.begin = static_cast<std::uint32_t>(pattern_.literals_.size());
    part.end = part.begin + static_cast<std::uint32_t>(slash);
    pattern_.literals_ += text.substr(0, slash);
    pattern_.literals_ += text.substr(slash + 1);
    part.afternoon_end = static_cast<std::uint32_t>(pattern_.literals_.size());
    pattern_.parts_.push_back(part);
}

void DatePatternCompiler::add_literal(std::string_view text) {
    if (text.empty()) {
        return;
    }
    const auto begin = static_cast<std::uint32_t>(pattern_.literals_.size());
    pattern_.literals_ += text;
    const auto end = static_cast<std::uint32_t>(pattern_.literals_.size());
    auto& parts = pattern_.parts_;
    if (!parts.empty() && parts.back().field == DateField::literal) {
        parts.back().end = end;
    } else {
        parts.push_back({DateField::literal, begin, end});
    }
}

void DatePatternCompiler::use_half_days() {
    for (DatePattern::Part& part : pattern_.parts_) {
        if (part.field == DateField::hour) {
            part.field = DateField::hour_of_half_day;
        } else if (part.field == DateField::two_digit_hour) {
            part.field = DateField::two_digit_hour_of_half_day;
        }
    }
}

} // namespace krv::standard
