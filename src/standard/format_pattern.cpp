#include "standard/format_pattern.h"

#include "standard/letter_case.h"
#include "standard/pattern_text.h"

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

constexpr std::pair<std::string_view, std::string_view> named_numeric_patterns[] = {
    {"Fixed", "0.00"}, {"Standard", "#,##0.00"}, {"Percent", "0.00%"}, {"Scientific", "0.00E+00"}};

constexpr std::pair<std::string_view, std::string_view> named_date_patterns[] = {
    {"General Date", "c"},
    {"Long Date", "dddddd"},
    {"Medium Date", "dd-mmm-yy"},
    {"Short Date", "ddddd"},
    {"Long Time", "ttttt"},
    {"Medium Time", "hh:nn AMPM"},
    {"Short Time", "hh:nn"}};

// English in every region, as the text of a Boolean is.
constexpr std::pair<std::string_view, WordPair> named_word_pairs[] = {
    {"Yes/No", {"Yes", "No"}}, {"True/False", {"True", "False"}}, {"On/Off", {"On", "Off"}}};

template <class Table>
auto find_named(const Table& table, std::string_view name) {
    std::optional<decltype(table[0].second)> found;
    for (const auto& [known, meaning] : table) {
        if (equal_in_any_case(known, name)) {
            found.emplace(meaning);
        }
    }
    return found;
}

DatePattern date_pattern(std::string_view pattern, const RegionalSettings& region) {
    return DatePattern(pattern, region, DatePattern::Level::whole);
}

std::optional<FormatPattern> named_pattern(std::string_view name, const RegionalSettings& region) {
    if (const auto numeric = find_named(named_numeric_patterns, name)) {
        return FormatPattern{NumericPattern(*numeric, region), true};
    }
    if (const auto date = find_named(named_date_patterns, name)) {
        return FormatPattern{date_pattern(*date, region), true};
    }
    if (const auto words = find_named(named_word_pairs, name)) {
        return FormatPattern{WordPair(*words), true};
    }
    if (equal_in_any_case(name, "Currency")) {
        return FormatPattern{NumericPattern(region.currency_format, region), true};
    }
    if (equal_in_any_case(name, "General Number")) {
        return FormatPattern{GeneralNumber(), true};
    }
    return std::nullopt;
}

} // namespace

FormatPattern compile_pattern(std::string_view pattern, const RegionalSettings& region) {
    pattern = first_characters(pattern, longest_pattern);
    if (auto named = named_pattern(pattern, region)) {
        return *std::move(named);
    }
    switch (kind_of(pattern)) {
    case PatternKind::date:
        return {date_pattern(pattern, region)};
    case PatternKind::text:
        return {StringPattern(pattern)};
    case PatternKind::numeric:
        break;
    }
    return {NumericPattern(pattern, region)};
}

} // namespace krv::standard
