#include "standard/formatter_support.h"

#include <gtest/gtest.h>

namespace krv::standard {
namespace {

using namespace testing_support;

/// The text as a date, in a form that no region changes; "-" when it is no date.
std::string read(std::string_view region, std::string_view text) {
    const ValueFormatter& formatter = formatter_of(region);
    try {
        // CDate takes numbers as well, and German dates look like some.
        if (region != "de-DE" && formatter.is_number(text)) {
            return "-";
        }
        const platform::Date date = formatter.CDate(platform::ValueView::text(text));
        return formatter_of("C").Format(
            platform::ValueView::date(date),
            date.serial == static_cast<int>(date.serial) ? "yyyy-mm-dd" : "yyyy-mm-dd hh:nn:ss");
    } catch (const platform::RuntimeError&) {
        return "-";
    }
}

std::string us_read(std::string_view text) {
    return read("en-US", text);
}

std::string it_read(std::string_view text) {
    return read("it-IT", text);
}

TEST(DateReading, three_numbers_go_by_the_order_of_the_region) {
    EXPECT_EQ(us_read("3/5/2024"), "2024-03-05");
    EXPECT_EQ(it_read("3/5/2024"), "2024-05-03");
    EXPECT_EQ(read("C", "2024-3-5"), "2024-03-05");
    EXPECT_EQ(read("C", "24-3-5"), "2024-03-05");
    EXPECT_EQ(read("de-DE", "3.5.2024"), "2024-05-03");
    EXPECT_EQ(it_read("01/02/03"), "2003-02-01");
    EXPECT_EQ(us_read("01/02/03"), "2003-01-02");
    EXPECT_EQ(read("C", "01/02/03"), "2001-02-03");
}

TEST(DateReading, three_numbers_try_other_orders) {
    EXPECT_EQ(us_read("13/2/2020"), "2020-02-13");
    EXPECT_EQ(it_read("12/25/2024"), "2024-12-25");
    EXPECT_EQ(read("C", "12/25/2024"), "2024-12-25");
    EXPECT_EQ(it_read("31/04/2024"), "-");
    EXPECT_EQ(it_read("31/04/24"), "1931-04-24");
    EXPECT_EQ(us_read("2/30/2020"), "-");
    EXPECT_EQ(us_read("32/1/45"), "-");
    EXPECT_EQ(us_read("45/1/32"), "-");
    EXPECT_EQ(us_read("99/13/5"), "1999-05-13");
    EXPECT_EQ(read("C", "45/13/5"), "1945-05-13");
    EXPECT_EQ(read("C", "31/12/99"), "1999-12-31");
}

TEST(DateReading, year_month_day_is_read_everywhere) {
    for (const char* region : {"it-IT", "en-US", "en-GB", "de-DE", "fr-FR", "C"}) {
        EXPECT_EQ(read(region, "2024-03-05"), "2024-03-05") << region;
        EXPECT_EQ(read(region, "2024/3/5"), "2024-03-05") << region;
    }
}

TEST(DateReading, separators_between_date_parts) {
    EXPECT_EQ(it_read("5-3-2024"), "2024-03-05");
    EXPECT_EQ(it_read("5 3 2024"), "2024-03-05");
    EXPECT_EQ(it_read("5,3,2024"), "2024-03-05");
    EXPECT_EQ(it_read("5 / 3 / 2024"), "2024-03-05");
    EXPECT_EQ(it_read(" 5/3/2024 "), "2024-03-05");
    EXPECT_EQ(read("de-DE", "5.3.2024"), "2024-03-05");
    EXPECT_EQ(us_read("1.2.2020"), "-");
    EXPECT_EQ(it_read("1.2.2020"), "-");
    EXPECT_EQ(it_read("5//3/2024"), "-");
    EXPECT_EQ(it_read("/5/3/2024"), "-");
    EXPECT_EQ(it_read("5/3/2024/"), "-");
    EXPECT_EQ(it_read("5/3/2024,"), "-");
    EXPECT_EQ(it_read("5/3/2024/1"), "-");
    EXPECT_EQ(it_read("5;3;2024"), "-");
}

TEST(DateReading, times) {
    EXPECT_EQ(us_read("14:07"), "1899-12-30 14:07:00");
    EXPECT_EQ(us_read("14:07:09"), "1899-12-30 14:07:09");
    EXPECT_EQ(us_read("2:07:09 PM"), "1899-12-30 14:07:09");
    EXPECT_EQ(us_read("2:07pm"), "1899-12-30 14:07:00");
    EXPECT_EQ(us_read("5 PM"), "1899-12-30 17:00:00");
    EXPECT_EQ(us_read("5a"), "1899-12-30 05:00:00");
    EXPECT_EQ(us_read("5P"), "1899-12-30 17:00:00");
    EXPECT_EQ(us_read("12:30 AM"), "1899-12-30 00:30:00");
    EXPECT_EQ(us_read("12 PM"), "1899-12-30 12:00:00");
    EXPECT_EQ(us_read("14:07 AM"), "1899-12-30 14:07:00");
    EXPECT_EQ(us_read("12 AM"), "1899-12-30");
    EXPECT_EQ(us_read("23:59:59"), "1899-12-30 23:59:59");
    EXPECT_EQ(it_read("2:07 PM"), "1899-12-30 14:07:00");
}

TEST(DateReading, what_is_no_time) {
    for (const char* text :
         {"24:00", "0:60", "0:0:60", "1:2:3:4", "14:", ":14", "25 PM", "PM", "1:123"}) {
        EXPECT_EQ(us_read(text), "-") << text;
    }
}

TEST(DateReading, points_separate_times_but_not_in_German) {
    EXPECT_EQ(it("1.5", "hh:nn"), "01:05");
    EXPECT_EQ(it("14.07.09", "hh:nn:ss"), "14:07:09");
    EXPECT_EQ(us("14.07", "hh:nn"), "14:07");
    EXPECT_EQ(format_in("de-DE", "1.5", "d mmmm yyyy"), "1 Mai 2024");
    EXPECT_EQ(format_in("de-DE", "5.3.2024 14:07", "d mmmm yyyy hh:nn"), "5 März 2024 14:07");
}

TEST(DateReading, a_time_stands_before_or_behind_the_date) {
    EXPECT_EQ(it_read("5/3/2024 14:07"), "2024-03-05 14:07:00");
    EXPECT_EQ(it_read("14:07 5/3/2024"), "2024-03-05 14:07:00");
    EXPECT_EQ(us_read("3/5/2024 2 PM"), "2024-03-05 14:00:00");
    EXPECT_EQ(us_read("March 5, 2024, 14:07"), "2024-03-05 14:07:00");
    EXPECT_EQ(it_read("14:07 5/3/2024 15:00"), "-");
    EXPECT_EQ(it_read("5/3/2024-14:07"), "-");
    EXPECT_EQ(it_read("5/14:07/2024"), "-");
}

TEST(DateReading, a_month_name_counts_as_the_month) {
    EXPECT_EQ(us_read("March 5, 2024"), "2024-03-05");
    EXPECT_EQ(us_read("Mar 5 24"), "2024-03-05");
    EXPECT_EQ(us_read("5 March 2024"), "2024-03-05");
    EXPECT_EQ(us_read("5-Mar-2024"), "2024-03-05");
    EXPECT_EQ(us_read("5mar2024"), "2024-03-05");
    EXPECT_EQ(us_read("2024 March 5"), "2024-03-05");
    EXPECT_EQ(us_read("2024 5 March"), "2024-03-05");
    EXPECT_EQ(us_read("29 FEB 01"), "2029-02-01");
    EXPECT_EQ(us_read("5 2024 March"), "-");
    EXPECT_EQ(us_read("March 2024 5"), "-");
    EXPECT_EQ(us_read("March April 5"), "-");
    EXPECT_EQ(us_read("Marzo 5 2024"), "-");
}

TEST(DateReading, a_month_name_and_one_number) {
    EXPECT_EQ(us_read("March 5"), "2024-03-05");
    EXPECT_EQ(us_read("5 March"), "2024-03-05");
    EXPECT_EQ(us_read("March 2023"), "2023-03-01");
    EXPECT_EQ(us_read("2023 March"), "2023-03-01");
    EXPECT_EQ(us_read("Feb 30"), "1930-02-01");
    EXPECT_EQ(us_read("March"), "-");
}

TEST(DateReading, knows_regional_and_English_names) {
    EXPECT_EQ(it_read("5 marzo 2024"), "2024-03-05");
    EXPECT_EQ(it_read("5 MARZO 2024"), "2024-03-05");
    EXPECT_EQ(it_read("5 ott 2024"), "2024-10-05");
    EXPECT_EQ(it_read("5 October 2024"), "2024-10-05");
    EXPECT_EQ(read("de-DE", "5. März 2024"), "2024-03-05");
    EXPECT_EQ(read("de-DE", "5.mrz.2024"), "2024-03-05");
    EXPECT_EQ(read("de-DE", "5. MÄRZ 2024"), "2024-03-05");
    EXPECT_EQ(read("fr-FR", "5 févr. 2024"), "2024-02-05");
    EXPECT_EQ(read("fr-FR", "5 fevr 2024"), "-");
    EXPECT_EQ(read("fr-FR", "5 août 2024"), "2024-08-05");
    EXPECT_EQ(read("fr-FR", "5 AOÛT 2024"), "2024-08-05");
}

TEST(DateReading, ignores_weekdays) {
    EXPECT_EQ(us_read("Tuesday, March 5, 2024"), "2024-03-05");
    EXPECT_EQ(us_read("Monday 3/5/2024"), "2024-03-05");
    EXPECT_EQ(it_read("martedì 5 marzo 2024"), "2024-03-05");
    EXPECT_EQ(it_read("mer 5 mar 2024"), "2024-03-05");
    EXPECT_EQ(read("de-DE", "Di, 5.3.2024 14:07"), "2024-03-05 14:07:00");
    EXPECT_EQ(us_read("Tuesday"), "-");
}

TEST(DateReading, mar_is_Tuesday_or_March_in_Italian) {
    EXPECT_EQ(it_read("mar 5 mar 2024"), "2024-03-05");
    EXPECT_EQ(it_read("mar 5 marzo 2024"), "2024-03-05");
    EXPECT_EQ(it_read("mar 5/4/2024"), "2024-04-05");
    EXPECT_EQ(it_read("5 mar 2024"), "2024-03-05");
    EXPECT_EQ(it_read("mar 5"), "2024-03-05");
    EXPECT_EQ(read("fr-FR", "mar. 5 mars 2024"), "2024-03-05");
}

TEST(DateReading, two_numbers_are_day_and_month_of_the_current_year) {
    EXPECT_EQ(it_read("5/3"), "2024-03-05");
    EXPECT_EQ(us_read("5/3"), "2024-05-03");
    EXPECT_EQ(read("C", "5/3"), "2024-05-03");
    EXPECT_EQ(it_read("3/25"), "2024-03-25");
    EXPECT_EQ(us_read("25/3"), "2024-03-25");
    EXPECT_EQ(it_read("3/45"), "1945-03-01");
    EXPECT_EQ(it_read("3/2023"), "2023-03-01");
    EXPECT_EQ(it_read("2023/3"), "2023-03-01");
    EXPECT_EQ(it_read("29/2"), "2024-02-29");
    EXPECT_EQ(it_read("45/46"), "-");
    EXPECT_EQ(it_read("5/3 14:07"), "2024-03-05 14:07:00");
}

TEST(DateReading, one_number_is_no_date) {
    EXPECT_EQ(it("5", "dd/mm/yyyy"), "04/01/1900");
    EXPECT_EQ(it("14:07 5", "dd/mm/yyyy"), "14:07 5");
}

TEST(DateReading, two_digit_years_run_from_1930_to_2029) {
    EXPECT_EQ(it_read("1/1/0"), "2000-01-01");
    EXPECT_EQ(it_read("1/1/29"), "2029-01-01");
    EXPECT_EQ(it_read("1/1/30"), "1930-01-01");
    EXPECT_EQ(it_read("1/1/99"), "1999-01-01");
    EXPECT_EQ(it_read("1/1/100"), "0100-01-01");
    EXPECT_EQ(it_read("1/1/9999"), "9999-01-01");
    EXPECT_EQ(it_read("1/1/0099"), "-");
    EXPECT_EQ(it_read("1/1/10000"), "-");
}

TEST(DateReading, before_1899_the_time_counts_away_from_zero) {
    EXPECT_EQ(formatter_of("it-IT").CDate(view("29/12/1899 18:00")).serial, -1.75);
    EXPECT_EQ(it("29/12/1899 18:00", "dd/mm/yyyy hh:nn"), "29/12/1899 18:00");
}

TEST(DateReading, other_texts_are_no_dates) {
    for (const char* text : {"abc", "5 abc 2024", "5/3/x", "T5/3/2024", "", " ", "5/3/2024 uhr"}) {
        EXPECT_EQ(us_read(text), "-") << text;
    }
    EXPECT_EQ(us_read("1/2/2024" + std::string(300, ' ')), "-");
}

TEST(DateReading, under_a_pattern_of_digits_follows_the_pattern_in_every_region) {
    for (const char* region : {"it-IT", "en-US", "en-GB", "fr-FR"}) {
        EXPECT_EQ(format_in(region, "05/03/2024", "dd/mm/yyyy"), "05/03/2024") << region;
        EXPECT_EQ(format_in(region, "05.03.2024", "dd/mm/yyyy"), "05/03/2024") << region;
        EXPECT_EQ(format_in(region, "05-03-24", "dd/mm/yyyy"), "05/03/2024") << region;
        EXPECT_EQ(format_in(region, "05/03/2024", "mm/dd/yyyy"), "05/03/2024") << region;
        EXPECT_EQ(format_in(region, "24/05/03", "yy/dd/mm"), "24/05/03") << region;
        EXPECT_EQ(format_in(region, "5/3/2024", "d/m/yyyy"), "5/3/2024") << region;
        EXPECT_EQ(format_in(region, "05/3/24", "d/m/yyyy"), "5/3/2024") << region;
        EXPECT_EQ(format_in(region, "05.03.24 14:07", "dd/mm/yyyy hh:nn"), "05/03/2024 14:07")
            << region;
        EXPECT_EQ(format_in(region, "05/03/2024", "dd/mm/yyyy hh:nn"), "05/03/2024 00:00")
            << region;
    }
    EXPECT_EQ(us("05.03.24 14:07", "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(us("05/03/2024", "dd/mm/yyyy mmmm"), "05/03/2024 March");
}

TEST(DateReading, under_a_pattern_of_two_digits_one_digit_follows_the_region) {
    EXPECT_EQ(us("5/3/2024", "dd/mm/yyyy"), "03/05/2024");
    EXPECT_EQ(it("5/3/2024", "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(us("05/03/202", "dd/mm/yyyy"), "03/05/0202");
    EXPECT_EQ(us("05/03/2024x", "dd/mm/yyyy"), "05/03/2024x");
}

TEST(DateReading, under_a_pattern_dates_that_do_not_exist_follow_the_region) {
    EXPECT_EQ(it("12/25/2024", "dd/mm/yyyy"), "25/12/2024");
    EXPECT_EQ(us("12/25/2024", "dd/mm/yyyy"), "25/12/2024");
    EXPECT_EQ(it("31/04/2024", "dd/mm/yyyy"), "31/04/2024");
}

TEST(DateReading, what_a_digit_pattern_writes_is_read_back_in_every_region) {
    const char* patterns[] = {"dd/mm/yyyy",
                              "mm/dd/yyyy",
                              "yyyy/mm/dd",
                              "d/m/yyyy",
                              "m-d-yyyy",
                              "dd mm yyyy",
                              "dd.mm.yyyy",
                              "ddmmyyyy",
                              "yyyymmdd",
                              "dd\\_mm\\_yyyy",
                              "dd/mm/yyyy hh:nn:ss",
                              "hh:nn:ss dd/mm/yyyy",
                              "ddd dd/mm/yyyy",
                              "dddd, mm/dd/yyyy hh:nn:ss AM/PM",
                              "dd/mm/yyyy dddd"};
    const double serials[] = {45356, 45415, 36526, 2, 73050, -20000, -600000, 45356.25, 45415.75};
    for (const char* region : {"it-IT", "en-US", "en-GB", "de-DE", "fr-FR", "C"}) {
        for (const char* pattern : patterns) {
            for (const double serial : serials) {
                const std::string written = format_in(region, date(serial), pattern);
                EXPECT_EQ(format_in(region, std::string_view(written), pattern), written)
                    << region << ' ' << pattern;
            }
        }
    }
}

TEST(DateReading, what_CStr_writes_is_read_back_in_every_region) {
    for (const char* region : {"it-IT", "en-US", "en-GB", "de-DE", "fr-FR", "C"}) {
        for (const double serial : {45356.0, 45356.25, 0.0, 0.75, 2.5, -1.75, -600000.0}) {
            const std::string written = cstr_in(region, date(serial));
            EXPECT_EQ(formatter_of(region).CDate(view(std::string_view(written))).serial, serial)
                << region << ' ' << written;
            const std::string full = format_in(region, date(serial), "dddddd ttttt");
            EXPECT_EQ(formatter_of(region).CDate(view(std::string_view(full))).serial, serial)
                << region << ' ' << full;
        }
    }
}

} // namespace
} // namespace krv::standard
