#include "standard/formatting/locale_settings.h"

#include "standard/formatting/built_in_regions.h"
#include "standard/letter_case.h"

#include <algorithm>
#include <ctime>
#include <sstream>
#include <string>

namespace krv::standard {

namespace {

std::string utf8(std::wstring_view text) {
    std::string result;
    for (const wchar_t character : text) {
        append_utf8(static_cast<char32_t>(character), result);
    }
    return result;
}

std::string utf8(wchar_t character) {
    return utf8(std::wstring_view(&character, 1));
}

/// What `time_put` prints of a point in time, without the blanks around it.
std::string printed(const std::locale& locale, const std::tm& time, char conversion) {
    std::wostringstream stream;
    stream.imbue(locale);
    const auto& facet = std::use_facet<std::time_put<wchar_t>>(locale);
    facet.put(stream, stream, L' ', &time, conversion);
    const std::string text = utf8(stream.str());
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A day whose day, month and two-digit year are three different numbers: 22 November 2033,
/// 14:07:09.
std::tm telling_time() {
    std::tm time{};
    time.tm_year = 133;
    time.tm_mon = 10;
    time.tm_mday = 22;
    time.tm_wday = 2;
    time.tm_yday = 325;
    time.tm_hour = 14;
    time.tm_min = 7;
    time.tm_sec = 9;
    return time;
}

std::string quoted(std::string_view text) {
    return text.empty() ? std::string() : '"' + std::string(text) + '"';
}

template <class Money>
std::string money_section(const Money& money, std::money_base::pattern order, std::wstring sign) {
    std::string section;
    for (const char part : order.field) {
        if (part == std::money_base::symbol) {
            section += quoted(utf8(money.curr_symbol()));
        } else if (part == std::money_base::sign && !sign.empty()) {
            section += quoted(utf8(sign.front()));
        } else if (part == std::money_base::value) {
            section += "#,##0.00";
        } else if (part == std::money_base::space) {
            section += ' ';
        }
    }
    // What a sign has beyond its first character stands at the end: the closing parenthesis.
    return section + (sign.size() > 1 ? quoted(utf8(sign.substr(1))) : std::string());
}

void take_numbers(const std::locale& locale, RegionalSettings& settings) {
    const auto& numbers = std::use_facet<std::numpunct<wchar_t>>(locale);
    settings.decimal_separator = utf8(numbers.decimal_point());
    settings.thousands_separator =
        numbers.grouping().empty() ? std::string() : utf8(numbers.thousands_sep());
}

void take_money(const std::locale& locale, RegionalSettings& settings) {
    const auto& money = std::use_facet<std::moneypunct<wchar_t>>(locale);
    const std::wstring minus = money.negative_sign().empty() ? L"-" : money.negative_sign();
    settings.currency_symbol = utf8(money.curr_symbol());
    settings.currency_format = money_section(money, money.pos_format(), money.positive_sign()) +
                               ';' + money_section(money, money.neg_format(), minus);
}

void take_names(const std::locale& locale, RegionalSettings& settings) {
    std::tm time = telling_time();
    for (int month = 0; month < 12; ++month) {
        time.tm_mon = month;
        const auto index = static_cast<std::size_t>(month);
        settings.months[index] = printed(locale, time, 'B');
        settings.short_months[index] = printed(locale, time, 'b');
    }
    for (int weekday = 0; weekday < 7; ++weekday) {
        time.tm_wday = weekday;
        const auto index = static_cast<std::size_t>(weekday);
        settings.weekdays[index] = printed(locale, time, 'A');
        settings.short_weekdays[index] = printed(locale, time, 'a');
    }
}

/// The text between the first two numbers of a printed date or time.
std::string separator_in(const std::string& text, const std::string& otherwise) {
    constexpr auto digits = "0123456789";
    const auto begin = text.find_first_not_of(digits, text.find_first_of(digits));
    const auto end = text.find_first_of(digits, begin);
    return begin == std::string::npos || end == std::string::npos ? otherwise
                                                                  : text.substr(begin, end - begin);
}

DateOrder order_in(const std::string& date) {
    const auto day = date.find("22");
    const auto month = date.find("11");
    const auto year = date.find("33");
    if (year < std::min(day, month)) {
        return DateOrder::year_month_day;
    }
    return month < day ? DateOrder::month_day_year : DateOrder::day_month_year;
}

void take_dates(const std::locale& locale, RegionalSettings& settings) {
    const std::string date = printed(locale, telling_time(), 'x');
    settings.date_order = order_in(date);
    settings.date_separator = separator_in(date, "/");
    switch (settings.date_order) {
    case DateOrder::day_month_year:
        settings.short_date = "dd/mm/yyyy";
        settings.long_date = "dddd d mmmm yyyy";
        break;
    case DateOrder::month_day_year:
        settings.short_date = "mm/dd/yyyy";
        settings.long_date = "dddd, mmmm d, yyyy";
        break;
    case DateOrder::year_month_day:
        settings.short_date = "yyyy/mm/dd";
        settings.long_date = "yyyy/mm/dd";
        break;
    }
}

void take_times(const std::locale& locale, RegionalSettings& settings) {
    std::tm time = telling_time();
    const std::string afternoon = printed(locale, time, 'X');
    settings.time_separator = separator_in(afternoon, ":");
    settings.pm = printed(locale, time, 'p');
    time.tm_hour = 2;
    settings.am = printed(locale, time, 'p');
    const bool half_days = afternoon.find("14") == std::string::npos && !settings.pm.empty();
    settings.long_time = half_days ? "hh:nn:ss AMPM" : "hh:nn:ss";
}

} // namespace

RegionalSettings settings_of_locale(const std::locale& locale, std::string_view name) {
    RegionalSettings settings = invariant_region();
    settings.name = name;
    take_numbers(locale, settings);
    take_money(locale, settings);
    take_names(locale, settings);
    take_dates(locale, settings);
    take_times(locale, settings);
    return settings;
}

} // namespace krv::standard
