#include "standard/formatting/built_in_regions.h"

namespace krv::standard {

namespace {

constexpr auto no_break_space = "\u00A0";

void give_english_names(RegionalSettings& region) {
    region.months = {"January",
                     "February",
                     "March",
                     "April",
                     "May",
                     "June",
                     "July",
                     "August",
                     "September",
                     "October",
                     "November",
                     "December"};
    region.short_months = {
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    region.weekdays = {
        "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    region.short_weekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    region.am = "AM";
    region.pm = "PM";
}

RegionalSettings make_invariant() {
    RegionalSettings region;
    region.name = "C";
    region.decimal_separator = ".";
    region.thousands_separator = ",";
    region.currency_format = "#,##0.00;-#,##0.00";
    region.date_order = DateOrder::year_month_day;
    region.date_separator = "-";
    region.time_separator = ":";
    region.short_date = "yyyy-mm-dd";
    region.long_date = "yyyy-mm-dd";
    region.long_time = "hh:nn:ss";
    give_english_names(region);
    return region;
}

RegionalSettings make_us_english() {
    RegionalSettings region = make_invariant();
    region.name = "en-US";
    region.currency_symbol = "$";
    region.currency_format = R"("$"#,##0.00;("$"#,##0.00))";
    region.date_order = DateOrder::month_day_year;
    region.date_separator = "/";
    region.short_date = "m/d/yyyy";
    region.long_date = "dddd, mmmm d, yyyy";
    region.long_time = "h:nn:ss AMPM";
    return region;
}

RegionalSettings make_british_english() {
    RegionalSettings region = make_invariant();
    region.name = "en-GB";
    region.currency_symbol = "£";
    region.currency_format = R"("£"#,##0.00;-"£"#,##0.00)";
    region.date_order = DateOrder::day_month_year;
    region.date_separator = "/";
    region.short_date = "dd/mm/yyyy";
    region.long_date = "dd mmmm yyyy";
    return region;
}

/// What the regions of the continent have in common.
RegionalSettings make_continental(const char* name) {
    RegionalSettings region;
    region.name = name;
    region.decimal_separator = ",";
    region.thousands_separator = ".";
    region.currency_symbol = "€";
    region.currency_format = R"(#,##0.00 "€";-#,##0.00 "€")";
    region.date_order = DateOrder::day_month_year;
    region.date_separator = "/";
    region.time_separator = ":";
    region.short_date = "dd/mm/yyyy";
    region.long_date = "dddd d mmmm yyyy";
    region.long_time = "hh:nn:ss";
    return region;
}

RegionalSettings make_italian() {
    RegionalSettings region = make_continental("it-IT");
    region.months = {"gennaio",
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
                     "dicembre"};
    region.short_months = {
        "gen", "feb", "mar", "apr", "mag", "giu", "lug", "ago", "set", "ott", "nov", "dic"};
    region.weekdays = {
        "domenica", "lunedì", "martedì", "mercoledì", "giovedì", "venerdì", "sabato"};
    region.short_weekdays = {"dom", "lun", "mar", "mer", "gio", "ven", "sab"};
    return region;
}

RegionalSettings make_german() {
    RegionalSettings region = make_continental("de-DE");
    region.date_separator = ".";
    region.short_date = "dd.mm.yyyy";
    region.long_date = "dddd, d. mmmm yyyy";
    region.months = {"Januar",
                     "Februar",
                     "März",
                     "April",
                     "Mai",
                     "Juni",
                     "Juli",
                     "August",
                     "September",
                     "Oktober",
                     "November",
                     "Dezember"};
    region.short_months = {
        "Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
    region.weekdays = {
        "Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"};
    region.short_weekdays = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};
    return region;
}

RegionalSettings make_french() {
    RegionalSettings region = make_continental("fr-FR");
    region.thousands_separator = no_break_space;
    region.months = {"janvier",
                     "février",
                     "mars",
                     "avril",
                     "mai",
                     "juin",
                     "juillet",
                     "août",
                     "septembre",
                     "octobre",
                     "novembre",
                     "décembre"};
    region.short_months = {"janv.",
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
                           "déc."};
    region.weekdays = {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"};
    region.short_weekdays = {"dim.", "lun.", "mar.", "mer.", "jeu.", "ven.", "sam."};
    return region;
}

} // namespace

std::span<const RegionalSettings> built_in_regions() {
    static const RegionalSettings regions[] = {make_invariant(),
                                               make_italian(),
                                               make_us_english(),
                                               make_british_english(),
                                               make_german(),
                                               make_french()};
    return regions;
}

const RegionalSettings& invariant_region() {
    return built_in_regions().front();
}

} // namespace krv::standard
