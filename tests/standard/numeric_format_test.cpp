#include "standard/formatter_support.h"

#include <gtest/gtest.h>

#include <limits>

namespace krv::standard {
namespace {

using namespace testing_support;
using platform::Currency;
using platform::Decimal;
using platform::ValueView;

TEST(NumericFormat, rounds_the_decimal_text_half_away_from_zero) {
    EXPECT_EQ(us(1.005, "0.00"), "1.01");
    EXPECT_EQ(us(2.675, "0.00"), "2.68");
    EXPECT_EQ(us(0.285, "0.00"), "0.29");
    EXPECT_EQ(us(2.5, "0"), "3");
    EXPECT_EQ(us(-2.5, "0"), "-3");
    EXPECT_EQ(us(0.5, "0"), "1");
    EXPECT_EQ(us(9.995, "0.00"), "10.00");
    EXPECT_EQ(us(1.00499999999999, "0.00"), "1.00");
    EXPECT_EQ(us(1.0049999999999999, "0.00"), "1.01");
}

TEST(NumericFormat, of_a_double_has_15_digits_of_a_single_7) {
    EXPECT_EQ(us(1.0 / 3, "0.00000000000000000000"), "0.33333333333333300000");
    EXPECT_EQ(us(123456789012345678.0, "0"), "123456789012346000");
    EXPECT_EQ(us(0.1F, "0.0000000000"), "0.1000000000");
    EXPECT_EQ(us(16777216.0F, "0"), "16777220");
    EXPECT_EQ(us(1e20, "#,##0"), "100,000,000,000,000,000,000");
}

TEST(NumericFormat, of_integers_currencies_and_decimals_is_exact) {
    EXPECT_EQ(us(ValueView::long_long(std::numeric_limits<std::int64_t>::min()), "0.0"),
              "-9223372036854775808.0");
    EXPECT_EQ(us(Currency{std::numeric_limits<std::int64_t>::max()}, "#,##0.0000"),
              "922,337,203,685,477.5807");
    EXPECT_EQ(us(Currency{10050}, "0.00"), "1.01");
    EXPECT_EQ(us(Decimal{~std::uint64_t{0}, ~std::uint32_t{0}, 27, false}, "0.0000"), "79.2282");
    EXPECT_EQ(us(Decimal{~std::uint64_t{0}, ~std::uint32_t{0}, 0, true}, "0"),
              "-79228162514264337593543950335");
}

TEST(NumericFormat, zero_prints_a_digit_or_a_zero_number_sign_a_digit_or_nothing) {
    EXPECT_EQ(us(5, "000"), "005");
    EXPECT_EQ(us(5, "###"), "5");
    EXPECT_EQ(us(0, "#"), "");
    EXPECT_EQ(us(0, "0"), "0");
    EXPECT_EQ(us(1, "#00##00#0"), "00000001");
    EXPECT_EQ(us(1.1, "0.0#"), "1.1");
    EXPECT_EQ(us(1.1, "0.#0#"), "1.10");
    EXPECT_EQ(us(1.01, "0.##"), "1.01");
    EXPECT_EQ(us(1.5, "0.#0#0#"), "1.5000");
}

TEST(NumericFormat, digits_beyond_the_places_go_before_the_first_one) {
    EXPECT_EQ(us(12345, "0"), "12345");
    EXPECT_EQ(us(12345, "x0y0"), "x1234y5");
    EXPECT_EQ(us(12345, ".00"), "12345.00");
    EXPECT_EQ(us(12345, "a.b0"), "a12345.b0");
}

TEST(NumericFormat, the_point_always_prints) {
    EXPECT_EQ(us(5, "#.##"), "5.");
    EXPECT_EQ(us(0, "#.#"), ".");
    EXPECT_EQ(us(0.5, "#.##"), ".5");
    EXPECT_EQ(us(0.5, "0.##"), "0.5");
    EXPECT_EQ(us(5, "0."), "5.");
    EXPECT_EQ(it(5, "#.##"), "5,");
    EXPECT_EQ(us(1.25, "0.0.0"), "1.2.5");
}

TEST(NumericFormat, literals_keep_their_place) {
    EXPECT_EQ(us(1234567, "000-0000"), "123-4567");
    EXPECT_EQ(us(5, "000-0000"), "000-0005");
    EXPECT_EQ(us(17, "#3"), "173");
    EXPECT_EQ(us(5, "###-####"), "-5");
    EXPECT_EQ(us(5, "(#) $+ "), "(5) $+ ");
    EXPECT_EQ(us(5, "0 \"kg\""), "5 kg");
    EXPECT_EQ(us(5, "0 \\k\\g"), "5 kg");
    EXPECT_EQ(us(5, "0 \"a\\b"), "5 a\\b");
    EXPECT_EQ(us(5, "0 \\"), "5 \\");
    EXPECT_EQ(us(5, "\\€0\\é"), "€5é");
    EXPECT_EQ(us(5, "\"only text\""), "only text");
}

TEST(NumericFormat, percent_multiplies_each_time) {
    EXPECT_EQ(us(0.125, "0.0%"), "12.5%");
    EXPECT_EQ(us(0.125, "%0"), "%13");
    EXPECT_EQ(us(0.125, "0%%"), "1250%%");
    EXPECT_EQ(it(0.125, "0.0%"), "12,5%");
    EXPECT_EQ(us(0.285, "0%"), "29%");
    EXPECT_EQ(us(0.5, "0\\%"), "1%");
}

TEST(NumericFormat, colon_and_slash_are_the_regional_separators) {
    EXPECT_EQ(us(12, "0:0"), "1:2");
    EXPECT_EQ(format_in("C", 12, "0/0"), "1-2");
    EXPECT_EQ(format_in("de-DE", 12, "0/0"), "1.2");
}

TEST(NumericFormat, commas_among_places_group_by_three) {
    EXPECT_EQ(us(1234567.5, "#,##0.00"), "1,234,567.50");
    EXPECT_EQ(us(1234567, "#,#"), "1,234,567");
    EXPECT_EQ(us(123, "#,#"), "123");
    EXPECT_EQ(us(5, "0,000,000"), "0,000,005");
    EXPECT_EQ(us(1234567, "#,,#"), "1,234,567");
    EXPECT_EQ(us(0, "#,##0"), "0");
    EXPECT_EQ(it(1234567.5, "#,##0.00"), "1.234.567,50");
    EXPECT_EQ(format_in("fr-FR", 1234567.5, "#,##0.00"), "1\u00A0234\u00A0567,50");
    EXPECT_EQ(us(1234567, "# a,b ##0"), "1,234, ab 567");
}

TEST(NumericFormat, commas_behind_the_last_integer_place_divide_by_1000) {
    EXPECT_EQ(us(1234567, "0,,"), "1");
    EXPECT_EQ(us(1234567, "0,"), "1235");
    EXPECT_EQ(us(1234567, "#,##0,.0"), "1,234.6");
    EXPECT_EQ(us(1234567890, "#,##0,"), "1,234,568");
    EXPECT_EQ(us(1234567, "0,.00"), "1234.57");
}

TEST(NumericFormat, other_commas_are_literal) {
    EXPECT_EQ(us(5, ",0"), ",5");
    EXPECT_EQ(us(1234, "0 kg, net"), "1234 kg, net");
    EXPECT_EQ(us(1.25, "0.0,0"), "1.2,5");
    EXPECT_EQ(us(5, ","), ",");
    EXPECT_EQ(us(5, ",.0"), ",5.0");
}

TEST(NumericFormat, exponents) {
    EXPECT_EQ(us(1.7, "0.0000e-1"), "1.7000e01");
    EXPECT_EQ(us(30, "##.0e+#"), "30.0e+0");
    EXPECT_EQ(us(47.11, ".0000E+0"), ".4711E+2");
    EXPECT_EQ(us(12345.678, "0.00E+00"), "1.23E+04");
    EXPECT_EQ(us(0.00012345, "0.00E+00"), "1.23E-04");
    EXPECT_EQ(us(0.00012345, "0.00E-00"), "1.23E-04");
    EXPECT_EQ(us(12345.678, "0.00E-00"), "1.23E04");
    EXPECT_EQ(us(12345, "0.0E+"), "1.2E+4");
    EXPECT_EQ(us(0, "0.00E+00"), "0.00E+00");
    EXPECT_EQ(us(9.996, "0.00E+00"), "1.00E+01");
    EXPECT_EQ(us(-12345, "0.0e+0"), "-1.2e+4");
    EXPECT_EQ(us(123456, "000.0E+000"), "123.5E+003");
    EXPECT_EQ(us(1e300, "0E+0 \"x\""), "1E+300 x");
    EXPECT_EQ(it(12345, "0.0E+0"), "1,2E+4");
    EXPECT_EQ(us(5, "0E"), "5E");
    EXPECT_EQ(us(5, "E0"), "E5");
    EXPECT_EQ(us(1234, "0E+0E+0"), "1E+2E+2");
}

TEST(NumericFormat, one_section_puts_the_minus_in_front_of_everything) {
    EXPECT_EQ(us(-5, "$0"), "-$5");
    EXPECT_EQ(us(-5, "0"), "-5");
    EXPECT_EQ(us(-5, "\"text\""), "-text");
}

TEST(NumericFormat, a_given_negative_section_prints_no_sign) {
    EXPECT_EQ(us(-5, "0;0"), "5");
    EXPECT_EQ(us(-5, "0;(0)"), "(5)");
    EXPECT_EQ(us(5, "0;(0)"), "5");
    EXPECT_EQ(us(0, "0;(0)"), "0");
    EXPECT_EQ(us(-5, "0;\"\""), "");
}

TEST(NumericFormat, an_empty_negative_section_is_the_first_with_the_sign) {
    EXPECT_EQ(us(-5, "$0;;\"zero\""), "-$5");
    EXPECT_EQ(us(-5, "$0;"), "-$5");
    EXPECT_EQ(us(-5, ";;"), "");
}

TEST(NumericFormat, a_missing_or_empty_zero_section_is_the_first) {
    EXPECT_EQ(us(0, "0.0;(0)"), "0.0");
    EXPECT_EQ(us(0, "0.0;(0);"), "0.0");
    EXPECT_EQ(us(0, "0.0;(0);;\"null\""), "0.0");
    EXPECT_EQ(us(0, "0;(0);\"zero\""), "zero");
    EXPECT_EQ(us(0, "0;(0);\\z0.0"), "z0.0");
}

TEST(NumericFormat, null_and_empty_print_the_fourth_section_or_nothing) {
    EXPECT_EQ(us(null(), "0;0;0;\"none\""), "none");
    EXPECT_EQ(us(empty(), "0;0;0;\"none\""), "none");
    EXPECT_EQ(us(null(), "0;0;0;#0"), "0");
    EXPECT_EQ(us(null(), "0;0;0"), "");
    EXPECT_EQ(us(empty(), "0.00"), "");
    EXPECT_EQ(us("", "0;0;0;\"none\""), "");
    EXPECT_EQ(us(null(), "0;0;0;\"none\";\"fifth\""), "none");
    EXPECT_EQ(us(5, "0;0;0;\"none\";\"fifth\""), "5");
}

TEST(NumericFormat, what_rounds_to_zero_counts_as_zero) {
    EXPECT_EQ(us(-0.001, "0.00"), "0.00");
    EXPECT_EQ(us(-0.001, "0.00;(0.00)"), "0.00");
    EXPECT_EQ(us(0.001, "0.00;(0.00);\"zero\""), "zero");
    EXPECT_EQ(us(-0.001, "0.00;(0.00);\"zero\""), "zero");
    EXPECT_EQ(us(-0.001, "0.00;(0.000);\"zero\""), "(0.001)");
    EXPECT_EQ(us(0.001, "\"some\";\"minus\";\"zero\""), "some");
    EXPECT_EQ(us(-0.001, "\"some\";\"minus\";\"zero\""), "minus");
    EXPECT_EQ(us(-0.0, "0"), "0");
}

TEST(NumericFormat, semicolons_in_quotes_and_behind_a_backslash_are_text) {
    EXPECT_EQ(us(-5, "0\";\"0"), "-0;5");
    EXPECT_EQ(us(-5, "0\\;;(0)"), "(5)");
    EXPECT_EQ(us(5, "0\\;;(0)"), "5;");
}

TEST(NamedFormat, of_numbers) {
    EXPECT_EQ(us(1234.5, "Fixed"), "1234.50");
    EXPECT_EQ(us(1234.5, "Standard"), "1,234.50");
    EXPECT_EQ(us(0.1234, "Percent"), "12.34%");
    EXPECT_EQ(us(1234.5, "Scientific"), "1.23E+03");
    EXPECT_EQ(us(1234.5, "General Number"), "1234.5");
    EXPECT_EQ(it(1234.5, "STANDARD"), "1.234,50");
    EXPECT_EQ(it(1234.5, "general number"), "1234,5");
    EXPECT_EQ(us(0.1F, "General Number"), "0.1");
    EXPECT_EQ(us(true, "General Number"), "-1");
    EXPECT_EQ(us(date(45356.5), "General Number"), "45356.5");
    EXPECT_EQ(it("1.234,50", "General Number"), "1234,5");
}

TEST(NamedFormat, currency_is_the_regional_form) {
    EXPECT_EQ(it(1234.5, "Currency"), "1.234,50 €");
    EXPECT_EQ(it(-1234.5, "Currency"), "-1.234,50 €");
    EXPECT_EQ(us(1234.5, "Currency"), "$1,234.50");
    EXPECT_EQ(us(-1234.5, "currency"), "($1,234.50)");
    EXPECT_EQ(format_in("en-GB", 1234.5, "Currency"), "£1,234.50");
    EXPECT_EQ(format_in("en-GB", -1234.5, "Currency"), "-£1,234.50");
    EXPECT_EQ(format_in("de-DE", -1234.5, "Currency"), "-1.234,50 €");
    EXPECT_EQ(format_in("fr-FR", 1234.5, "Currency"), "1\u00A0234,50 €");
    EXPECT_EQ(format_in("C", -1234.5, "Currency"), "-1,234.50");
    EXPECT_EQ(us(-0.001, "Currency"), "$0.00");
}

TEST(NamedFormat, word_pairs_are_english_everywhere) {
    EXPECT_EQ(it(0, "Yes/No"), "No");
    EXPECT_EQ(it(-1, "Yes/No"), "Yes");
    EXPECT_EQ(it(0.001, "True/False"), "True");
    EXPECT_EQ(us(false, "True/False"), "False");
    EXPECT_EQ(us(true, "on/off"), "On");
    EXPECT_EQ(us("0", "On/Off"), "Off");
    EXPECT_EQ(us("abc", "On/Off"), "abc");
    EXPECT_EQ(us("", "On/Off"), "");
}

TEST(NamedFormat, null_and_empty_give_nothing) {
    for (const char* name : {"General Number",
                             "Currency",
                             "Fixed",
                             "Standard",
                             "Percent",
                             "Scientific",
                             "Yes/No",
                             "True/False",
                             "On/Off",
                             "General Date",
                             "Long Date",
                             "Medium Date",
                             "Short Date",
                             "Long Time",
                             "Medium Time",
                             "Short Time"}) {
        EXPECT_EQ(us(null(), name), "") << name;
        EXPECT_EQ(us(empty(), name), "") << name;
    }
}

} // namespace
} // namespace krv::standard
