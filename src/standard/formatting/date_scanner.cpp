#include "standard/formatting/date_scanner.h"

#include "standard/formatting/built_in_regions.h"
#include "standard/formatting/digit_collector.h"
#include "standard/letter_case.h"

#include <algorithm>

namespace krv::standard {

namespace {

constexpr std::string_view no_break_spaces[] = {"\u00A0", "\u202F"};

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::size_t blank_length(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    if (text[0] == ' ' || text[0] == '\t' || text[0] == '\n' || text[0] == '\r') {
        return 1;
    }
    for (const std::string_view blank : no_break_spaces) {
        if (text.starts_with(blank)) {
            return blank.size();
        }
    }
    return 0;
}

bool skip_blanks(std::string_view& text) {
    const std::size_t before = text.size();
    while (const std::size_t length = blank_length(text)) {
        text.remove_prefix(length);
    }
    return text.size() != before;
}

bool is_letter_byte(char byte) {
    const char small = lower_ascii(byte);
    return (small >= 'a' && small <= 'z') || static_cast<signed char>(byte) < 0;
}

std::size_t word_length(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && is_letter_byte(text[length]) &&
           blank_length(text.substr(length)) == 0) {
        ++length;
    }
    return length;
}

/// Abbreviations are the same with and without their period.
bool is_name(std::string_view word, std::string_view name) {
    if (name.ends_with('.')) {
        name.remove_suffix(1);
    }
    return !name.empty() && equal_in_any_case(word, name);
}

template <std::size_t N>
std::size_t index_among(std::string_view word, const std::array<std::string, N>& names) {
    const auto found =
        std::ranges::find_if(names, [&](const std::string& name) { return is_name(word, name); });
    return static_cast<std::size_t>(found - names.begin());
}

int month_named(std::string_view word, const RegionalSettings& region) {
    const std::size_t index =
        std::min(index_among(word, region.months), index_among(word, region.short_months));
    return index < region.months.size() ? static_cast<int>(index) + 1 : 0;
}

bool is_weekday(std::string_view word, const RegionalSettings& region) {
    return index_among(word, region.weekdays) < region.weekdays.size() ||
           index_among(word, region.short_weekdays) < region.short_weekdays.size();
}

} // namespace

DateScanner::DateScanner(const RegionalSettings& region)
    : region_(region)
    , date_separator_(trimmed(region.date_separator))
    , time_separator_(trimmed(region.time_separator)) {}

bool DateScanner::scan(std::string_view text) {
    rest_ = text;
    count_ = 0;
    skip_blanks(rest_);
    while (!rest_.empty()) {
        if (!scan_item()) {
            return false;
        }
    }
    return true;
}

bool DateScanner::scan_item() {
    DateItem item;
    if (count_ == items_.size() || (count_ > 0 && !scan_gap(item.gap))) {
        return false;
    }
    if (rest_.empty()) {
        return item.gap == DateGap::blank;
    }
    if (!(is_digit(rest_.front()) ? scan_number(item) : scan_word(item))) {
        return false;
    }
    items_[count_++] = item;
    return true;
}

bool DateScanner::scan_gap(DateGap& gap) {
    gap = skip_blanks(rest_) ? DateGap::blank : DateGap::none;
    const DateGap separator = separator_at_front();
    if (separator == DateGap::none) {
        return true;
    }
    gap = separator;
    const bool regional = separator == DateGap::date_separator && !date_separator_.empty() &&
                          rest_.starts_with(date_separator_);
    rest_.remove_prefix(regional ? date_separator_.size() : 1);
    skip_blanks(rest_);
    return true;
}

DateGap DateScanner::separator_at_front() const {
    if (rest_.empty()) {
        return DateGap::none;
    }
    if (!date_separator_.empty() && rest_.starts_with(date_separator_)) {
        return DateGap::date_separator;
    }
    const char front = rest_.front();
    if (front == '/' || front == '-') {
        return DateGap::date_separator;
    }
    const bool regional = time_separator_.size() == 1 && front == time_separator_.front();
    if (front == ':' || front == '.' || regional) {
        return DateGap::time_separator;
    }
    return front == ',' ? DateGap::comma : DateGap::none;
}

bool DateScanner::scan_number(DateItem& item) {
    while (!rest_.empty() && is_digit(rest_.front())) {
        item.number = item.number * 10 + (rest_.front() - '0');
        ++item.digits;
        rest_.remove_prefix(1);
        if (item.digits > 4) {
            return false;
        }
    }
    return true;
}

bool DateScanner::scan_word(DateItem& item) {
    const std::string_view word = rest_.substr(0, word_length(rest_));
    if (word.empty()) {
        return false;
    }
    rest_.remove_prefix(word.size());
    const RegionalSettings& english = invariant_region();
    item.month = month_named(word, region_);
    item.month = item.month == 0 ? month_named(word, english) : item.month;
    item.weekday = is_weekday(word, region_) || is_weekday(word, english);
    item.morning = is_name(word, "AM") || is_name(word, "A") || is_name(word, region_.am);
    item.afternoon = is_name(word, "PM") || is_name(word, "P") || is_name(word, region_.pm);
    const bool known = item.month > 0 || item.weekday || item.is_half_day();
    if (known && !item.is_half_day() && rest_.starts_with('.')) {
        rest_.remove_prefix(1);
    }
    return known;
}

} // namespace krv::standard
