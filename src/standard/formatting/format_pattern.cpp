#include "standard/formatting/format_pattern.h"

#include "standard/formatting/pattern_text.h"
#include "standard/letter_case.h"

#include <optional>
#include <utility>

namespace krv::standard {

namespace {

enum class PatternKind { numeric, date, text };

/// The kind that the character at the front of a pattern decides for, if it does.
std::optional<PatternKind> kind_by_front(std::string_view rest) {
    constexpr std::string_view numeric = "0#.,%";
    constexpr std::string_view text = "@&<>!";
    const char front = rest.front();
    if (numeric.find(front) != std::string_view::npos) {
        return PatternKind::numeric;
    }
    if (text.find(front) != std::string_view::npos) {
        return PatternKind::text;
    }
    const bool date = front == '/' || front == ':' || date_token_at(rest).length > 0;
    return date ? std::optional(PatternKind::date) : std::nullopt;
}

PatternKind kind_of(std::string_view pattern) {
    PatternScanner scanner(pattern);
    while (!scanner.at_end()) {
        if (scanner.take_literal()) {
            continue;
        }
        if (const auto kind = kind_by_front(scanner.rest())) {
            return *kind;
        }
        scanner.take(1);
    }
    return PatternKind::numeric;
}

constexpr std::pair<std::string_view, std::string_view> pattern_names[] = {
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
    {"General Date", "c"},
    {"Long Date", "dddddd"},
    {"Medium Date", "dd-mmm-yy"},
    {"Short Date", "ddddd"},
    {"Long Time", "ttttt"},
    {"Medium Time", "hh:nn AMPM"},
    {"Short Time", "hh:nn"}};

// English in every region, as the text of a Boolean is.
constexpr std::pair<std::string_view, WordPair> word_pair_names[] = {
    {"Yes/No", {"Yes", "No"}}, {"True/False", {"True", "False"}}, {"On/Off", {"On", "Off"}}};

template <class Meaning, std::size_t N>
const Meaning* find_named(const std::pair<std::string_view, Meaning> (&names)[N],
                          std::string_view name) {
    for (const auto& [known, meaning] : names) {
        if (equal_in_any_case(known, name)) {
            return &meaning;
        }
    }
    return nullptr;
}

using Form = FormatPattern::Form;

Form numeric_form(std::string_view pattern, const RegionalSettings& region) {
    return Form(std::in_place_type<NumericPattern>, pattern, region);
}

Form compile_form(std::string_view pattern, const RegionalSettings& region) {
    switch (kind_of(pattern)) {
    case PatternKind::date:
        return Form(std::in_place_type<DatePattern>, pattern, region, DatePattern::Level::whole);
    case PatternKind::text:
        return Form(std::in_place_type<StringPattern>, pattern);
    case PatternKind::numeric:
        break;
    }
    return numeric_form(pattern, region);
}

} // namespace

FormatPattern compile_pattern(std::string_view pattern, const RegionalSettings& region) {
    pattern = first_characters(pattern, longest_pattern);
    if (const auto* meaning = find_named(pattern_names, pattern)) {
        return {compile_form(*meaning, region), true};
    }
    if (const auto* words = find_named(word_pair_names, pattern)) {
        return {Form(*words), true};
    }
    if (equal_in_any_case(pattern, "Currency")) {
        return {numeric_form(region.currency_format, region), true};
    }
    if (equal_in_any_case(pattern, "General Number")) {
        return {Form(GeneralNumber()), true};
    }
    return {compile_form(pattern, region), false};
}

} // namespace krv::standard
