#include "standard/formatting/date_tokens.h"

#include "standard/letter_case.h"

#include <algorithm>
#include <utility>

namespace krv::standard {

namespace {

/// A longer token stands before those that it begins with.
constexpr std::pair<std::string_view, DateField> tokens[] = {{"dddddd", DateField::long_date},
                                                             {"ddddd", DateField::short_date},
                                                             {"dddd", DateField::weekday},
                                                             {"ddd", DateField::short_weekday},
                                                             {"dd", DateField::two_digit_day},
                                                             {"d", DateField::day},
                                                             {"mmmm", DateField::month_name},
                                                             {"mmm", DateField::short_month_name},
                                                             {"mm", DateField::two_digit_month},
                                                             {"m", DateField::month},
                                                             {"yyyy", DateField::year},
                                                             {"yy", DateField::two_digit_year},
                                                             {"y", DateField::day_of_year},
                                                             {"hh", DateField::two_digit_hour},
                                                             {"h", DateField::hour},
                                                             {"nn", DateField::two_digit_minute},
                                                             {"n", DateField::minute},
                                                             {"ss", DateField::two_digit_second},
                                                             {"s", DateField::second},
                                                             {"ttttt", DateField::long_time},
                                                             {"am/pm", DateField::half_day},
                                                             {"ampm", DateField::regional_half_day},
                                                             {"a/p", DateField::half_day},
                                                             {"aaaa", DateField::weekday},
                                                             {"aaa", DateField::short_weekday},
                                                             {"c", DateField::general},
                                                             {"q", DateField::quarter},
                                                             {"ww", DateField::week},
                                                             {"w", DateField::day_of_week}};

bool begins_with(std::string_view text, std::string_view token) {
    return text.size() >= token.size() &&
           std::equal(token.begin(), token.end(), text.begin(), [](char wanted, char found) {
               return lower_ascii(found) == wanted;
           });
}

} // namespace

DateToken date_token_at(std::string_view text) {
    for (const auto& [token, field] : tokens) {
        if (begins_with(text, token)) {
            return {field, token.size()};
        }
    }
    return {};
}

} // namespace krv::standard
