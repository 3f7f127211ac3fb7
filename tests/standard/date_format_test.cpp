#include "standard/formatter_support.h"

#include <gtest/gtest.h>

#include <limits>

namespace krv::standard {
namespace {

using namespace testing_support;

constexpr double seconds(double hour, double minute, double second) {
    return (hour * 3600 + minute * 60 + second) / 86400;
}

/// Tuesday, 5 March 2024, 14:07:09.
const platform::Date moment = date(45356 + seconds(14, 7, 9));
const platform::Date morning = date(45356 + seconds(9, 5, 3));

TEST(DateFormat, days_and_weekdays) {
    EXPECT_EQ(us(moment, "d"), "5");
    EXPECT_EQ(us(moment, "dd"), "05");
    EXPECT_EQ(us(moment, "ddd"), "Tue");
    EXPECT_EQ(us(moment, "dddd"), "Tuesday");
    EXPECT_EQ(us(moment, "aaa|aaaa"), "Tue|Tuesday");
    EXPECT_EQ(it(moment, "ddd dddd"), "mar martedì");
    EXPECT_EQ(format_in("de-DE", moment, "ddd dddd"), "Di Dienstag");
    EXPECT_EQ(format_in("fr-FR", moment, "ddd dddd"), "mar. mardi");
}

TEST(DateFormat, regional_dates_and_times) {
    EXPECT_EQ(us(moment, "ddddd"), "3/5/2024");
    EXPECT_EQ(us(moment, "dddddd"), "Tuesday, March 5, 2024");
    EXPECT_EQ(us(moment, "ttttt"), "2:07:09 PM");
    EXPECT_EQ(it(moment, "ddddd"), "05/03/2024");
    EXPECT_EQ(it(moment, "dddddd"), "martedì 5 marzo 2024");
    EXPECT_EQ(it(moment, "ttttt"), "14:07:09");
    EXPECT_EQ(format_in("en-GB", moment, "ddddd|dddddd"), "05/03/2024|05 March 2024");
    EXPECT_EQ(format_in("de-DE", moment, "ddddd|dddddd"), "05.03.2024|Dienstag, 5. März 2024");
    EXPECT_EQ(format_in("fr-FR", moment, "dddddd"), "mardi 5 mars 2024");
    EXPECT_EQ(format_in("C", moment, "ddddd|dddddd|ttttt"), "2024-03-05|2024-03-05|14:07:09");
}

TEST(DateFormat, months) {
    EXPECT_EQ(us(moment, "m mm mmm mmmm"), "3 03 Mar March");
    EXPECT_EQ(it(moment, "mmm mmmm"), "mar marzo");
    EXPECT_EQ(format_in("de-DE", moment, "mmm mmmm"), "Mrz März");
}

TEST(DateFormat, years_and_parts_of_the_year) {
    EXPECT_EQ(us(moment, "y"), "65");
    EXPECT_EQ(us(moment, "yy yyyy"), "24 2024");
    EXPECT_EQ(us(moment, "yyy"), "2465");
    EXPECT_EQ(us(date(-657434), "yyyy yy y"), "0100 00 1");
    EXPECT_EQ(us(date(45657), "y"), "366");
    EXPECT_EQ(us(moment, "q w ww"), "1 3 10");
    EXPECT_EQ(us(date(45657), "q w ww"), "4 3 53");
}

TEST(DateFormat, week_1_holds_1_January_and_weeks_start_on_Sunday) {
    EXPECT_EQ(us(date(45292), "ww"), "1");  // Monday, 1 January 2024
    EXPECT_EQ(us(date(45297), "ww"), "1");  // Saturday
    EXPECT_EQ(us(date(45298), "ww"), "2");  // Sunday
    EXPECT_EQ(us(date(36891), "ww"), "54"); // 31 December 2000, a Sunday of a leap year
    EXPECT_EQ(us(date(45298), "w"), "1");
    EXPECT_EQ(us(date(45297), "w"), "7");
}

TEST(DateFormat, hours_minutes_seconds) {
    EXPECT_EQ(us(moment, "h hh n nn s ss"), "14 14 7 07 9 09");
    EXPECT_EQ(us(morning, "h hh n nn s ss"), "9 09 5 05 3 03");
    EXPECT_EQ(us(moment, "hh:nn:ss"), "14:07:09");
}

TEST(DateFormat, half_days) {
    EXPECT_EQ(us(moment, "h AM/PM"), "2 PM");
    EXPECT_EQ(us(moment, "h am/pm"), "2 pm");
    EXPECT_EQ(us(moment, "h A/P"), "2 P");
    EXPECT_EQ(us(moment, "h a/p"), "2 p");
    EXPECT_EQ(us(morning, "hh Am/pM"), "09 Am");
    EXPECT_EQ(us(moment, "AM/PM hh"), "PM 02");
    EXPECT_EQ(us(moment, "hh:nn ampm"), "02:07 PM");
    EXPECT_EQ(it(moment, "hh:nn AM/PM"), "02:07 PM");
    EXPECT_EQ(it(moment, "hh:nn AMPM"), "02:07 ");
    EXPECT_EQ(us(date(0), "h AM/PM"), "12 AM");
    EXPECT_EQ(us(date(0.5), "hh AM/PM"), "12 PM");
}

TEST(DateFormat, general_date_leaves_out_what_is_zero) {
    EXPECT_EQ(us(moment, "c"), "3/5/2024 2:07:09 PM");
    EXPECT_EQ(us(date(45356), "c"), "3/5/2024");
    EXPECT_EQ(us(date(0.25), "c"), "6:00:00 AM");
    EXPECT_EQ(us(date(0), "c"), "12:00:00 AM");
    EXPECT_EQ(us(5, "abc"), "ab1/4/1900");
}

TEST(DateFormat, named_dates) {
    EXPECT_EQ(us(moment, "General Date"), "3/5/2024 2:07:09 PM");
    EXPECT_EQ(it(moment, "long date"), "martedì 5 marzo 2024");
    EXPECT_EQ(it(moment, "Medium Date"), "05-mar-24");
    EXPECT_EQ(us(moment, "Medium Date"), "05-Mar-24");
    EXPECT_EQ(us(moment, "Short Date"), "3/5/2024");
    EXPECT_EQ(us(moment, "Long Time"), "2:07:09 PM");
    EXPECT_EQ(us(moment, "Medium Time"), "02:07 PM");
    EXPECT_EQ(us(moment, "Short Time"), "14:07");
}

TEST(DateFormat, takes_the_longest_token) {
    EXPECT_EQ(us(date(38264), "yyy"), "04278"); // 4 October 2004
    EXPECT_EQ(us(date(40428), "yyy"), "10250"); // 7 September 2010
    EXPECT_EQ(us(moment, "nnnn"), "0707");
    EXPECT_EQ(us(moment, "mmmmm"), "March3");
    EXPECT_EQ(us(moment, "ddddddd"), "Tuesday, March 5, 20245");
    EXPECT_EQ(us(moment, "ttt d"), "ttt 5");
    EXPECT_EQ(us(moment, "DD/MM/YYYY"), "05/03/2024");
}

TEST(DateFormat, m_means_minutes_exactly_behind_h) {
    EXPECT_EQ(us(moment, "hh:mm:ss"), "14:07:09");
    EXPECT_EQ(us(moment, "h:m"), "14:7");
    EXPECT_EQ(us(moment, "mm:ss"), "03:09");
    EXPECT_EQ(us(moment, "hh:mm :ss:mm"), "14:07 :09:03");
    EXPECT_EQ(us(moment, "hh \"at\" mm"), "14 at 07");
    EXPECT_EQ(us(moment, "hh mmm"), "14 Mar");
    EXPECT_EQ(us(moment, "hh AM/PM mm"), "02 PM 03");
    EXPECT_EQ(us(moment, "hhmm dd mm"), "1407 05 03");
}

TEST(DateFormat, slash_and_colon_are_the_regional_separators) {
    EXPECT_EQ(format_in("de-DE", moment, "dd/mm/yyyy"), "05.03.2024");
    EXPECT_EQ(format_in("C", moment, "dd/mm/yyyy"), "05-03-2024");
    EXPECT_EQ(it(moment, "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(format_in("de-DE", moment, "dd\\/mm"), "05/03");
}

TEST(DateFormat, other_kinds_characters_are_plain_text) {
    EXPECT_EQ(us(date(40086), "mm/##/yy"), "09/##/09");
    EXPECT_EQ(us(moment, "d0.0#,%@&<>!"), "50.0#,%@&<>!");
    EXPECT_EQ(us(moment, "d x z - + $ ( )"), "5 x z - + $ ( )");
    EXPECT_EQ(us(moment, "\\d d \"mm\" m"), "d 5 mm 3");
}

TEST(DateFormat, brackets_print_nothing_and_a_semicolon_ends) {
    EXPECT_EQ(us(moment, "[h]d[mm]m"), "53");
    EXPECT_EQ(us(moment, "d[mm"), "5");
    EXPECT_EQ(us(moment, "d;m"), "5");
    EXPECT_EQ(us(moment, "d\";\"m"), "5;3");
}

TEST(DateFormat, negative_serials_count_days_back_and_time_forward) {
    EXPECT_EQ(us(date(-1.5), "d mmmm yyyy hh:nn"), "29 December 1899 12:00");
    EXPECT_EQ(us(date(-1.75), "d mmmm yyyy hh:nn"), "29 December 1899 18:00");
    EXPECT_EQ(us(date(-0.25), "d mmmm yyyy hh:nn"), "30 December 1899 06:00");
    EXPECT_EQ(us(date(-1), "dddd"), "Friday");
}

TEST(DateFormat, times_round_to_the_nearest_second) {
    EXPECT_EQ(us(date(1 + 59.4 / 86400), "hh:nn:ss"), "00:00:59");
    EXPECT_EQ(us(date(1 + 59.6 / 86400), "hh:nn:ss"), "00:01:00");
    EXPECT_EQ(us(date(1 + 86399.6 / 86400), "d hh:nn:ss"), "1 00:00:00");
    EXPECT_EQ(us(date(-1 - 86399.6 / 86400), "d hh:nn:ss"), "30 00:00:00");
    EXPECT_EQ(us(date(2958465 + 86399.6 / 86400), "d m yyyy hh:nn:ss"), "31 12 9999 23:59:59");
}

TEST(DateFormat, outside_the_years_100_to_9999_is_error_6) {
    EXPECT_EQ(us(date(-657434), "dd/mm/yyyy"), "01/01/0100");
    EXPECT_EQ(us(date(-657434.9), "dd/mm/yyyy"), "01/01/0100");
    EXPECT_EQ(us(date(2958465), "dd/mm/yyyy"), "31/12/9999");
    for (const double serial : {-657435.0, 2958466.0, 1e300, -1e300}) {
        EXPECT_EQ(error_of([&] { us(date(serial), "dd/mm/yyyy"); }), 6) << serial;
        EXPECT_EQ(error_of([&] { us(serial, "c"); }), 6) << serial;
    }
    EXPECT_EQ(error_of([] { us(std::numeric_limits<double>::quiet_NaN(), "d"); }), 6);
}

TEST(DateFormat, of_numbers_takes_them_as_serials) {
    EXPECT_EQ(it(5, "dd/mm/yyyy"), "04/01/1900");
    EXPECT_EQ(it(true, "dd/mm/yyyy"), "29/12/1899");
    EXPECT_EQ(it(platform::Currency{455000}, "dd hh"), "13 12");
    EXPECT_EQ(it(empty(), "dd/mm/yyyy"), "30/12/1899");
    EXPECT_EQ(it(null(), "dd/mm/yyyy"), "");
    EXPECT_EQ(it("", "dd/mm/yyyy"), "");
}

TEST(DateFormat, every_day_of_the_range_has_the_calendar_date_after_the_day_before) {
    int day = 1;
    int month = 1;
    int year = 100;
    const auto days_in = [](int y, int m) {
        const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
        return m == 2 ? (leap ? 29 : 28) : m == 4 || m == 6 || m == 9 || m == 11 ? 30 : 31;
    };
    std::string text;
    for (int serial = -657434; serial <= 2958465; ++serial) {
        if (serial % 97 == 0 || day == 1) {
            formatter_of("it-IT").Format(view(date(serial)), "d m yyyy", text);
            char wanted[32];
            std::snprintf(wanted, sizeof wanted, "%d %d %04d", day, month, year);
            ASSERT_EQ(text, wanted);
        }
        if (++day > days_in(year, month)) {
            day = 1;
            month = month % 12 + 1;
            year += month == 1 ? 1 : 0;
        }
    }
    EXPECT_EQ(year, 10000);
}

} // namespace
} // namespace krv::standard
