#include "krv/platform/error.h"
#include "krv/standard/regional_settings.h"
#include "standard/formatting/number_reader.h"
#include "standard/formatting/val.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace krv::standard {
namespace {

std::int32_t error_of_val(std::string_view text) {
    try {
        val(text);
    } catch (const platform::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(Val, drops_blanks_tabs_and_line_ends_everywhere) {
    EXPECT_EQ(val(" 2 45 7"), 2457);
    EXPECT_EQ(val(" - 5"), -5);
    EXPECT_EQ(val("1\t2\r\n3"), 123);
    EXPECT_EQ(val("1 615 198th Street"), 1615198);
    EXPECT_EQ(val("& H F F"), 255);
}

TEST(Val, reads_sign_digits_point_and_exponent) {
    EXPECT_EQ(val("-12.50"), -12.5);
    EXPECT_EQ(val("+7"), 7);
    EXPECT_EQ(val(".5"), 0.5);
    EXPECT_EQ(val("5."), 5);
    EXPECT_EQ(val("1e3"), 1000);
    EXPECT_EQ(val("1D-2"), 0.01);
    EXPECT_EQ(val("1E+2"), 100);
    EXPECT_EQ(val("1e"), 1);
    EXPECT_EQ(val("1e+"), 1);
    EXPECT_EQ(val("0.1"), 0.1);
}

TEST(Val, stops_at_the_first_other_character) {
    EXPECT_EQ(val("1,5"), 1);
    EXPECT_EQ(val("1.2.3"), 1.2);
    EXPECT_EQ(val("L13.5"), 0);
    EXPECT_EQ(val("12abc"), 12);
    EXPECT_EQ(val("5-3"), 5);
    EXPECT_EQ(val(""), 0);
    EXPECT_EQ(val("."), 0);
    EXPECT_EQ(val("-"), 0);
    EXPECT_EQ(val("--5"), 0);
    EXPECT_EQ(val("$5"), 0);
    EXPECT_EQ(val(std::string("1\0002", 3)), 1);
}

TEST(Val, reads_hexadecimal_and_octal_digits_with_their_sign_bit) {
    EXPECT_EQ(val("&HFF"), 255);
    EXPECT_EQ(val("&hFFFF"), -1);
    EXPECT_EQ(val("&H8000"), -32768);
    EXPECT_EQ(val("&H7FFF"), 32767);
    EXPECT_EQ(val("&HFFFF&"), 65535);
    EXPECT_EQ(val("&H10000"), 65536);
    EXPECT_EQ(val("&HFFFFFFFF"), -1);
    EXPECT_EQ(val("&H80000000&"), -2147483648.0);
    EXPECT_EQ(val("&H100000000"), 4294967296.0);
    EXPECT_EQ(val("&O17"), 15);
    EXPECT_EQ(val("&o177777"), -1);
    EXPECT_EQ(val("&O8"), 0);
    EXPECT_EQ(val("&H"), 0);
    EXPECT_EQ(val("&HG"), 0);
    EXPECT_EQ(val("&"), 0);
}

TEST(Val, tolerates_a_type_mark_but_no_percent_sign_behind_a_fraction) {
    EXPECT_EQ(val("50%"), 50);
    EXPECT_EQ(val("50.5!"), 50.5);
    EXPECT_EQ(val("50.5#"), 50.5);
    EXPECT_EQ(val("50@"), 50);
    EXPECT_EQ(val("50&"), 50);
    EXPECT_EQ(error_of_val("50.5%"), 13);
    EXPECT_EQ(error_of_val("5e1%"), 13);
    EXPECT_EQ(error_of_val("5.%"), 13);
    EXPECT_EQ(val("50.5x%"), 50.5);
}

TEST(Val, fails_with_6_when_too_large) {
    EXPECT_EQ(error_of_val("1e309"), 6);
    EXPECT_EQ(error_of_val("1" + std::string(400, '0')), 6);
    EXPECT_EQ(error_of_val("&H" + std::string(400, 'F')), 6);
    EXPECT_EQ(error_of_val("1e99999999999999999999"), 6);
    EXPECT_EQ(val("1e-400"), 0);
    EXPECT_EQ(val("0e99999"), 0);
    EXPECT_EQ(val("0." + std::string(400, '0') + "1e401"), 1);
}

std::optional<double>
number(std::string_view region, std::string_view text, PercentSign percent = PercentSign::refused) {
    const auto read = read_number(text, regional_settings(region), percent);
    return read ? std::optional(read->value) : std::nullopt;
}

TEST(NumberReader, ignores_blanks_tabs_and_line_ends_around) {
    EXPECT_EQ(number("en-US", " \t5\r\n"), 5);
    EXPECT_EQ(number("en-US", "1 2"), std::nullopt);
}

TEST(NumberReader, takes_one_sign_on_either_side_or_parentheses) {
    EXPECT_EQ(number("en-US", "-5"), -5);
    EXPECT_EQ(number("en-US", "+5"), 5);
    EXPECT_EQ(number("en-US", "5-"), -5);
    EXPECT_EQ(number("en-US", "5+"), 5);
    EXPECT_EQ(number("en-US", "(5)"), -5);
    EXPECT_EQ(number("en-US", "- 5"), -5);
    for (const char* text : {"-5-", "--5", "-(5)", "(-5)", "(5", "5)", "(5)-", "((5))"}) {
        EXPECT_EQ(number("en-US", text), std::nullopt) << text;
    }
}

TEST(NumberReader, takes_the_regional_currency_symbol_once) {
    EXPECT_EQ(number("en-US", "$5"), 5);
    EXPECT_EQ(number("en-US", "5$"), 5);
    EXPECT_EQ(number("en-US", "-$5"), -5);
    EXPECT_EQ(number("en-US", "$-5"), -5);
    EXPECT_EQ(number("en-US", "($1,234.50)"), -1234.5);
    EXPECT_EQ(number("it-IT", "-1.234,50 €"), -1234.5);
    EXPECT_EQ(number("it-IT", "€ 1.234,50"), 1234.5);
    EXPECT_EQ(number("en-US", "$5$"), std::nullopt);
    EXPECT_EQ(number("en-US", "€5"), std::nullopt);
    EXPECT_EQ(number("C", "$5"), std::nullopt);
}

TEST(NumberReader, takes_thousands_separators_anywhere_among_the_integer_digits) {
    EXPECT_EQ(number("en-US", "12,34.5"), 1234.5);
    EXPECT_EQ(number("en-US", "1,,2,"), 12);
    EXPECT_EQ(number("it-IT", "1.5"), 15);
    EXPECT_EQ(number("de-DE", "1.5"), 15);
    EXPECT_EQ(number("it-IT", "1.234,5"), 1234.5);
    EXPECT_EQ(number("en-US", ",5"), std::nullopt);
    EXPECT_EQ(number("en-US", "1.2,3"), std::nullopt);
    EXPECT_EQ(number("en-US", "1.2.3"), std::nullopt);
}

TEST(NumberReader, takes_any_kind_of_blank_as_the_french_thousands_separator) {
    EXPECT_EQ(number("fr-FR", "1 234,5"), 1234.5);
    EXPECT_EQ(number("fr-FR", "1\u00A0234,5"), 1234.5);
    EXPECT_EQ(number("fr-FR", "1\u202F234,5 €"), 1234.5);
}

TEST(NumberReader, takes_decimals_and_exponents) {
    EXPECT_EQ(number("en-US", ".5"), 0.5);
    EXPECT_EQ(number("en-US", "5."), 5);
    EXPECT_EQ(number("it-IT", "1,5E3"), 1500);
    EXPECT_EQ(number("en-US", "1d-2"), 0.01);
    EXPECT_EQ(number("en-US", "1e"), std::nullopt);
    EXPECT_EQ(number("en-US", "e5"), std::nullopt);
    EXPECT_EQ(number("en-US", "."), std::nullopt);
    EXPECT_EQ(number("en-US", "1e400"), std::numeric_limits<double>::infinity());
}

TEST(NumberReader, takes_hexadecimal_and_octal_numbers_without_a_closing_mark) {
    EXPECT_EQ(number("en-US", "&HFF"), 255);
    EXPECT_EQ(number("en-US", " &o17 "), 15);
    EXPECT_EQ(number("en-US", "&HFF&"), std::nullopt);
    EXPECT_EQ(number("en-US", "&H"), std::nullopt);
    EXPECT_EQ(number("en-US", "&HXY"), std::nullopt);
}

TEST(NumberReader, divides_by_100_for_a_percent_sign_where_it_is_taken) {
    EXPECT_EQ(number("it-IT", "12,5%", PercentSign::divides), 0.125);
    EXPECT_EQ(number("it-IT", "12,5 %", PercentSign::divides), 0.125);
    EXPECT_EQ(number("it-IT", "(5%)", PercentSign::divides), -0.05);
    EXPECT_EQ(number("it-IT", "5%%", PercentSign::divides), std::nullopt);
    EXPECT_EQ(number("it-IT", "%5", PercentSign::divides), std::nullopt);
    EXPECT_EQ(number("it-IT", "12,5%"), std::nullopt);
}

TEST(NumberReader, refuses_everything_else) {
    for (const char* text : {"", " ", "abc", "5x", "1/2", "12:30", "-", "$", "True"}) {
        EXPECT_EQ(number("en-US", text, PercentSign::divides), std::nullopt) << text;
    }
    EXPECT_EQ(number("en-US", std::string("5\0", 2)), std::nullopt);
}

TEST(NumberReader, tells_how_the_number_was_written) {
    const RegionalSettings german = regional_settings("de-DE");
    const auto read = [&](std::string_view text) {
        return read_number(text, german, PercentSign::divides).value();
    };
    EXPECT_TRUE(read("007").leading_zeros);
    EXPECT_TRUE(read("0.5").leading_zeros);
    EXPECT_FALSE(read("00").leading_zeros);
    EXPECT_FALSE(read("0,05").leading_zeros);
    EXPECT_TRUE(read("1.234").grouped_by_three);
    EXPECT_TRUE(read("12.345.678,9").grouped_by_three);
    EXPECT_FALSE(read("1234").grouped_by_three);
    EXPECT_FALSE(read("15.03.2024").grouped_by_three);
    EXPECT_FALSE(read("1234.567").grouped_by_three);
    EXPECT_EQ(read("0.012,340").kept_digits, 4);
    EXPECT_EQ(read("0,0010").kept_digits, 1);
    EXPECT_EQ(read("12000").kept_digits, 5);
    EXPECT_EQ(read("12345678901234567890").kept_digits, 20);
}

} // namespace
} // namespace krv::standard
