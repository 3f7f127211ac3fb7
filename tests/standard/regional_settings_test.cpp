#include "krv/standard/regional_settings.h"

#include "krv/platform/error.h"
#include "standard/formatting/locale_settings.h"
#include "standard/letter_case.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <locale>
#include <map>
#include <optional>

namespace krv::standard {
namespace {

using testing::ElementsAre;

TEST(RegionalSettings, the_built_in_regions_go_by_their_names) {
    for (const char* name : {"it-IT", "en-US", "en-GB", "de-DE", "fr-FR", "C"}) {
        EXPECT_EQ(regional_settings(name).name, name);
    }
}

TEST(RegionalSettings, numbers_and_dates_of_the_regions) {
    struct Row {
        const char* name;
        const char* decimal;
        const char* thousands;
        const char* date;
        DateOrder order;
        const char* short_date;
        const char* long_date;
        const char* long_time;
        const char* am;
    };

    using enum DateOrder;
    const Row rows[] = {
        {"it-IT", ",", ".", "/", day_month_year, "dd/mm/yyyy", "dddd d mmmm yyyy", "hh:nn:ss", ""},
        {"en-US",
         ".",
         ",",
         "/",
         month_day_year,
         "m/d/yyyy",
         "dddd, mmmm d, yyyy",
         "h:nn:ss AMPM",
         "AM"},
        {"en-GB", ".", ",", "/", day_month_year, "dd/mm/yyyy", "dd mmmm yyyy", "hh:nn:ss", "AM"},
        {"de-DE",
         ",",
         ".",
         ".",
         day_month_year,
         "dd.mm.yyyy",
         "dddd, d. mmmm yyyy",
         "hh:nn:ss",
         ""},
        {"fr-FR",
         ",",
         "\u00A0",
         "/",
         day_month_year,
         "dd/mm/yyyy",
         "dddd d mmmm yyyy",
         "hh:nn:ss",
         ""},
        {"C", ".", ",", "-", year_month_day, "yyyy-mm-dd", "yyyy-mm-dd", "hh:nn:ss", "AM"}};
    for (const Row& row : rows) {
        const RegionalSettings settings = regional_settings(row.name);
        EXPECT_EQ(settings.decimal_separator, row.decimal) << row.name;
        EXPECT_EQ(settings.thousands_separator, row.thousands) << row.name;
        EXPECT_EQ(settings.date_separator, row.date) << row.name;
        EXPECT_EQ(settings.date_order, row.order) << row.name;
        EXPECT_EQ(settings.short_date, row.short_date) << row.name;
        EXPECT_EQ(settings.long_date, row.long_date) << row.name;
        EXPECT_EQ(settings.long_time, row.long_time) << row.name;
        EXPECT_EQ(settings.am, row.am) << row.name;
        EXPECT_EQ(settings.time_separator, ":") << row.name;
    }
}

TEST(RegionalSettings, names_of_italian_months_and_weekdays) {
    const RegionalSettings italian = regional_settings("it-IT");
    EXPECT_THAT(italian.months,
                ElementsAre("gennaio",
                            "febbraio",
                            "marzo",
                            "aprile",
                            "maggio",
                            "giugno",
                            "luglio",
                            "agosto",
                            "settembre",
                            "ottobre",
                            "novembre",
                            "dicembre"));
    EXPECT_THAT(italian.short_weekdays,
                ElementsAre("dom", "lun", "mar", "mer", "gio", "ven", "sab"));
}

TEST(RegionalSettings, short_names_of_german_and_french_months) {
    EXPECT_THAT(
        regional_settings("de-DE").short_months,
        ElementsAre(
            "Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"));
    EXPECT_THAT(regional_settings("fr-FR").short_months,
                ElementsAre("janv.",
                            "févr.",
                            "mars",
                            "avr.",
                            "mai",
                            "juin",
                            "juil.",
                            "août",
                            "sept.",
                            "oct.",
                            "nov.",
                            "déc."));
}

TEST(RegionalSettings, names_of_system_locales_find_the_built_in_regions) {
    EXPECT_EQ(regional_settings("it_IT.UTF-8").name, "it-IT");
    EXPECT_EQ(regional_settings("it_IT").name, "it-IT");
    EXPECT_EQ(regional_settings("IT-it").name, "it-IT");
    EXPECT_EQ(regional_settings("de_DE.UTF-8@euro").name, "de-DE");
    EXPECT_EQ(regional_settings("fr").name, "fr-FR");
    EXPECT_EQ(regional_settings("en").name, "en-US");
    EXPECT_EQ(regional_settings("POSIX").name, "C");
    EXPECT_EQ(regional_settings("C.UTF-8").name, "C");
}

TEST(RegionalSettings, an_unknown_name_is_error_5) {
    for (const std::string& name : {std::string("xx-YY"), std::string(), std::string("it\0", 3)}) {
        try {
            regional_settings(name);
            FAIL() << name;
        } catch (const platform::RuntimeError& error) {
            EXPECT_EQ(error.number(), 5);
        }
    }
}

TEST(RegionalSettings, are_plain_values_that_compare_and_copy) {
    RegionalSettings own = regional_settings("it-IT");
    EXPECT_EQ(own, regional_settings("it-IT"));
    own.currency_symbol = "CHF";
    EXPECT_NE(own, regional_settings("it-IT"));
}

struct SwissNumbers : std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }

    wchar_t do_thousands_sep() const override { return L'\x2019'; }

    std::string do_grouping() const override { return "\3"; }
};

struct SwissMoney : std::moneypunct<wchar_t> {
    std::wstring do_curr_symbol() const override { return L"CHF"; }

    std::wstring do_negative_sign() const override { return L"()"; }

    pattern do_pos_format() const override { return {{symbol, space, sign, value}}; }

    pattern do_neg_format() const override { return {{sign, symbol, space, value}}; }
};

struct DottedDates : std::time_put<wchar_t> {
    iter_type do_put(iter_type out,
                     std::ios_base& stream,
                     char_type fill,
                     const std::tm* time,
                     char conversion,
                     char modifier) const override {
        if (conversion == 'x') {
            return std::ranges::copy(std::wstring(L"22.11.33"), out).out;
        }
        if (conversion == 'B' && time->tm_mon == 2) {
            return std::ranges::copy(std::wstring(L"M\x00E4rz"), out).out;
        }
        return std::time_put<wchar_t>::do_put(out, stream, fill, time, conversion, modifier);
    }
};

std::locale swiss_locale() {
    std::locale locale(std::locale::classic(), new SwissNumbers);
    locale = std::locale(locale, new SwissMoney);
    return std::locale(locale, new DottedDates);
}

TEST(SettingsOfLocale, take_separators_money_names_and_dates_from_the_facets) {
    const RegionalSettings settings = settings_of_locale(swiss_locale(), "swiss");
    EXPECT_EQ(settings.name, "swiss");
    EXPECT_EQ(settings.decimal_separator, ",");
    EXPECT_EQ(settings.thousands_separator, "\u2019");
    EXPECT_EQ(settings.currency_symbol, "CHF");
    EXPECT_EQ(settings.currency_format, R"x("CHF" #,##0.00;"(""CHF" #,##0.00")")x");
    EXPECT_EQ(settings.date_order, DateOrder::day_month_year);
    EXPECT_EQ(settings.date_separator, ".");
    EXPECT_EQ(settings.short_date, "dd/mm/yyyy");
    EXPECT_EQ(settings.months[2], "März");
    EXPECT_EQ(settings.weekdays[0], "Sunday");
}

TEST(SettingsOfLocale, the_classic_locale_has_no_grouping_and_american_dates) {
    const RegionalSettings settings = settings_of_locale(std::locale::classic(), "classic");
    EXPECT_EQ(settings.thousands_separator, "");
    EXPECT_EQ(settings.currency_format, "#,##0.00;\"-\"#,##0.00");
    EXPECT_EQ(settings.date_order, DateOrder::month_day_year);
    EXPECT_EQ(settings.date_separator, "/");
    EXPECT_EQ(settings.time_separator, ":");
    EXPECT_EQ(settings.long_time, "hh:nn:ss");
    EXPECT_EQ(settings.pm, "PM");
}

/// Sets locale variables for one test and gives them back.
class LocaleVariables {
public:
    explicit LocaleVariables(const std::map<std::string, std::string>& values) {
        for (const char* name : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
            const char* old = std::getenv(name);
            saved_[name] = old != nullptr ? std::optional<std::string>(old) : std::nullopt;
            unsetenv(name);
        }
        for (const auto& [name, value] : values) {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }

    ~LocaleVariables() {
        for (const auto& [name, value] : saved_) {
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        }
    }

    LocaleVariables(const LocaleVariables&) = delete;
    LocaleVariables& operator=(const LocaleVariables&) = delete;

private:
    std::map<std::string, std::optional<std::string>> saved_;
};

std::string system_region(const std::map<std::string, std::string>& values) {
    const LocaleVariables variables(values);
    return system_regional_settings().name;
}

TEST(SystemRegionalSettings, follow_the_environment) {
    EXPECT_EQ(system_region({{"LANG", "it_IT.UTF-8"}}), "it-IT");
    EXPECT_EQ(system_region({{"LANG", "it_IT.UTF-8"}, {"LC_NUMERIC", "de_DE.UTF-8"}}), "de-DE");
    EXPECT_EQ(system_region({{"LC_ALL", "fr_FR.UTF-8"}, {"LC_NUMERIC", "de_DE.UTF-8"}}), "fr-FR");
    EXPECT_EQ(system_region({{"LC_ALL", ""}, {"LANG", "en_GB.UTF-8"}}), "en-GB");
}

TEST(SystemRegionalSettings, are_C_when_nothing_or_nonsense_is_set) {
    EXPECT_EQ(system_region({}), "C");
    EXPECT_EQ(system_region({{"LANG", "C.UTF-8"}}), "C");
    EXPECT_EQ(system_region({{"LANG", "xx_YY.UTF-8"}}), "C");
}

TEST(LetterCase, of_the_european_alphabets) {
    EXPECT_EQ(upper_case("straße àéîõü ñ ç ÿ œ žś ψύ жё"), "STRAßE ÀÉÎÕÜ Ñ Ç Ÿ Œ ŽŚ ΨΎ ЖЁ");
    EXPECT_EQ(lower_case("ÀÉÎÕÜ Ñ Ç Ÿ Œ ŽŚ ΨΎ ЖЁ × 123"), "àéîõü ñ ç ÿ œ žś ψύ жё × 123");
}

TEST(LetterCase, leaves_broken_bytes_alone) {
    EXPECT_EQ(upper_case("a\xC3z\xFF"), "A\xC3Z\xFF");
    EXPECT_EQ(lower_case(std::string("A\0B", 3)), std::string("a\0b", 3));
}

TEST(LetterCase, counts_characters_not_bytes) {
    EXPECT_EQ(character_count("àb\xFF€😀"), 5U);
    EXPECT_EQ(first_characters("àb€😀", 3), "àb€");
    EXPECT_EQ(first_characters("ab", 3), "ab");
}

} // namespace
} // namespace krv::standard
