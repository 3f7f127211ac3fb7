#include "standard/formatting/decimal_text.h"

#include "standard/formatting/number_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace krv::standard {
namespace {

std::string shown(const DecimalText& number) {
    return (number.negative ? "-0." : "0.") +
           std::string(number.digits, static_cast<std::size_t>(number.count)) + "e" +
           std::to_string(number.point);
}

TEST(DecimalText, of_doubles_has_15_significant_digits) {
    EXPECT_EQ(shown(decimal_text(0.0)), "0.e0");
    EXPECT_EQ(shown(decimal_text(-0.0)), "0.e0");
    EXPECT_EQ(shown(decimal_text(1.0)), "0.1e1");
    EXPECT_EQ(shown(decimal_text(-1234.5)), "-0.12345e4");
    EXPECT_EQ(shown(decimal_text(0.1)), "0.1e0");
    EXPECT_EQ(shown(decimal_text(0.1 + 0.2)), "0.3e0");
    EXPECT_EQ(shown(decimal_text(1.0 / 3)), "0.333333333333333e0");
    EXPECT_EQ(shown(decimal_text(2.0 / 3)), "0.666666666666667e0");
    EXPECT_EQ(shown(decimal_text(1.005)), "0.1005e1");
    EXPECT_EQ(shown(decimal_text(1e15)), "0.1e16");
    EXPECT_EQ(shown(decimal_text(999999999999999.0)), "0.999999999999999e15");
    EXPECT_EQ(shown(decimal_text(999999999999999.9)), "0.1e16");
    EXPECT_EQ(shown(decimal_text(9.9999999999999999e22)), "0.1e24");
    EXPECT_EQ(shown(decimal_text(1.7976931348623157e308)), "0.179769313486232e309");
    EXPECT_EQ(shown(decimal_text(5e-324)), "0.494065645841247e-323");
}

TEST(DecimalText, of_doubles_rounds_an_exact_half_away_from_zero) {
    EXPECT_EQ(shown(decimal_text(1234567890123.125)), "0.123456789012313e13");
    EXPECT_EQ(shown(decimal_text(-1234567890123.125)), "-0.123456789012313e13");
    EXPECT_EQ(shown(decimal_text(100000000000000.5)), "0.100000000000001e15");
}

TEST(DecimalText, of_singles_has_7_significant_digits) {
    EXPECT_EQ(shown(decimal_text(0.1F, single_digits)), "0.1e0");
    EXPECT_EQ(shown(decimal_text(16777216.0F, single_digits)), "0.1677722e8");
    EXPECT_EQ(shown(decimal_text(9999999.5F, single_digits)), "0.1e8");
    EXPECT_EQ(shown(decimal_text(std::numeric_limits<float>::max(), single_digits)),
              "0.3402823e39");
    EXPECT_EQ(shown(decimal_text(std::numeric_limits<float>::denorm_min(), single_digits)),
              "0.1401298e-44");
}

TEST(DecimalText, of_integers_is_exact) {
    EXPECT_EQ(shown(decimal_text(std::int64_t{0})), "0.e0");
    EXPECT_EQ(shown(decimal_text(std::int64_t{-1200})), "-0.12e4");
    EXPECT_EQ(shown(decimal_text(std::numeric_limits<std::int64_t>::max())),
              "0.9223372036854775807e19");
    EXPECT_EQ(shown(decimal_text(std::numeric_limits<std::int64_t>::min())),
              "-0.9223372036854775808e19");
}

TEST(DecimalText, of_currencies_is_exact) {
    EXPECT_EQ(shown(decimal_text(platform::Currency{0})), "0.e0");
    EXPECT_EQ(shown(decimal_text(platform::Currency{1})), "0.1e-3");
    EXPECT_EQ(shown(decimal_text(platform::Currency{std::numeric_limits<std::int64_t>::min()})),
              "-0.9223372036854775808e15");
}

TEST(DecimalText, of_decimals_is_exact) {
    EXPECT_EQ(shown(decimal_text(platform::Decimal{12345, 0, 2, false})), "0.12345e3");
    EXPECT_EQ(shown(decimal_text(platform::Decimal{1000, 0, 5, true})), "-0.1e-1");
    EXPECT_EQ(shown(decimal_text(platform::Decimal{0, 0, 28, true})), "-0.e0");
    EXPECT_EQ(
        shown(decimal_text(platform::Decimal{~std::uint64_t{0}, ~std::uint32_t{0}, 0, false})),
        "0.79228162514264337593543950335e29");
    EXPECT_EQ(
        shown(decimal_text(platform::Decimal{~std::uint64_t{0}, ~std::uint32_t{0}, 28, true})),
        "-0.79228162514264337593543950335e1");
}

std::string rounded(double value, int decimals, void (*round)(DecimalText&, int)) {
    DecimalText number = decimal_text(value);
    round(number, decimals);
    return shown(number);
}

TEST(DecimalText, rounds_half_away_from_zero) {
    EXPECT_EQ(rounded(1.005, 2, round_half_away), "0.101e1");
    EXPECT_EQ(rounded(2.5, 0, round_half_away), "0.3e1");
    EXPECT_EQ(rounded(-2.5, 0, round_half_away), "-0.3e1");
    EXPECT_EQ(rounded(9.995, 2, round_half_away), "0.1e2");
    EXPECT_EQ(rounded(0.5, 0, round_half_away), "0.1e1");
    EXPECT_EQ(rounded(0.4, 0, round_half_away), "0.e0");
    EXPECT_EQ(rounded(0.05, 0, round_half_away), "0.e0");
    EXPECT_EQ(rounded(0.004, 1, round_half_away), "0.e0");
    EXPECT_EQ(rounded(1299, -2, round_half_away), "0.13e4");
    EXPECT_EQ(rounded(1.5, 9, round_half_away), "0.15e1");
    EXPECT_EQ(rounded(100.4, 0, round_half_away), "0.1e3");
}

TEST(DecimalText, rounds_half_to_even) {
    EXPECT_EQ(rounded(2.5, 0, round_half_even), "0.2e1");
    EXPECT_EQ(rounded(3.5, 0, round_half_even), "0.4e1");
    EXPECT_EQ(rounded(0.5, 0, round_half_even), "0.e0");
    EXPECT_EQ(rounded(0.51, 0, round_half_even), "0.1e1");
    EXPECT_EQ(rounded(2.51, 0, round_half_even), "0.3e1");
    EXPECT_EQ(rounded(-9.5, 0, round_half_even), "-0.1e2");
    EXPECT_EQ(rounded(0.04, 0, round_half_even), "0.e0");
}

TEST(DecimalText, becomes_the_nearest_double) {
    EXPECT_EQ(to_double(decimal_text(0.1)), 0.1);
    EXPECT_EQ(to_double(decimal_text(std::int64_t{-12})), -12.0);
    DecimalText number = decimal_text(1.0);
    number.point = 400;
    EXPECT_EQ(to_double(number), std::numeric_limits<double>::infinity());
    number.point = -400;
    EXPECT_EQ(to_double(number), 0.0);
}

bool same_digits(const DecimalText& left, const DecimalText& right) {
    return left.count == right.count && left.point == right.point &&
           left.negative == right.negative &&
           std::equal(left.digits, left.digits + left.count, right.digits);
}

void expect_same_digits(double value, int digits) {
    if (value == 0 || !std::isfinite(value)) {
        return;
    }
    const DecimalText fast = decimal_text(value, digits);
    const DecimalText general = general_decimal_text(value, digits);
    if (!same_digits(fast, general)) {
        FAIL() << std::hexfloat << value << ": " << shown(fast) << " for " << shown(general);
    }
}

/// Neighbours included: a number printed with few decimals is rarely the exact one.
void expect_same_digits_around(double value) {
    for (const double near : {std::nextafter(value, 0.0), value, std::nextafter(value, 1e300)}) {
        ASSERT_NO_FATAL_FAILURE(expect_same_digits(near, double_digits));
    }
}

TEST(DecimalText, the_fast_way_agrees_with_the_general_one_on_any_bits) {
    std::mt19937_64 random(20240305);
    for (int turn = 0; turn < 400'000; ++turn) {
        const auto bits = random();
        ASSERT_NO_FATAL_FAILURE(expect_same_digits(std::bit_cast<double>(bits), double_digits));
        const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        ASSERT_NO_FATAL_FAILURE(expect_same_digits(single, single_digits));
    }
}

TEST(DecimalText, the_fast_way_agrees_with_the_general_one_on_everyday_numbers) {
    std::mt19937_64 random(5031899);
    std::uniform_int_distribution<std::int64_t> whole(1, 9'999'999'999'999'999);
    std::uniform_int_distribution<int> size(0, 15);
    std::uniform_int_distribution<int> decimals(0, 20);
    for (int turn = 0; turn < 400'000; ++turn) {
        const double digits = static_cast<double>(whole(random) >> (3 * size(random)));
        const double value = digits / std::pow(10.0, decimals(random));
        ASSERT_NO_FATAL_FAILURE(expect_same_digits_around(value));
    }
}

TEST(DecimalText, the_fast_way_agrees_with_the_general_one_on_halves) {
    std::mt19937_64 random(1005);
    std::uniform_int_distribution<std::int64_t> whole(0, 99'999'999);
    for (int turn = 0; turn < 300'000; ++turn) {
        const double hundredths = static_cast<double>(whole(random));
        ASSERT_NO_FATAL_FAILURE(expect_same_digits_around((hundredths * 10 + 5) / 1000));
        ASSERT_NO_FATAL_FAILURE(expect_same_digits_around(hundredths * 1e8 + 0.5));
        // Sixteen digits, the last of them a half in the binary number as well.
        ASSERT_NO_FATAL_FAILURE(expect_same_digits_around(1e12 + hundredths + 0.125 * (turn % 8)));
    }
}

TEST(DecimalText, the_fast_way_agrees_with_the_general_one_around_powers) {
    for (int exponent = -320; exponent <= 308; ++exponent) {
        ASSERT_NO_FATAL_FAILURE(expect_same_digits_around(std::pow(10.0, exponent)));
    }
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        ASSERT_NO_FATAL_FAILURE(expect_same_digits_around(std::ldexp(1.0, exponent)));
    }
}

std::string plain(double value, const PlainNumberForm& form) {
    std::string text = "old";
    write_plain_number(decimal_text(value), form, text);
    return text;
}

TEST(PlainNumber, has_an_exponent_beyond_its_limit) {
    const PlainNumberForm form{",", 15};
    EXPECT_EQ(plain(0, form), "0");
    EXPECT_EQ(plain(-1234.5, form), "-1234,5");
    EXPECT_EQ(plain(120, form), "120");
    EXPECT_EQ(plain(0.05, form), "0,05");
    EXPECT_EQ(plain(1e15, form), "1E+15");
    EXPECT_EQ(plain(1.5e-300, form), "1,5E-300");
    EXPECT_EQ(plain(1e-15, form), "0,000000000000001");
    EXPECT_EQ(plain(1e-16, form), "1E-16");
}

TEST(PlainNumber, may_have_a_blank_for_plus_and_no_leading_zero) {
    const PlainNumberForm form{".", 15, false, true};
    EXPECT_EQ(plain(0.5, form), " .5");
    EXPECT_EQ(plain(-0.5, form), "-.5");
    EXPECT_EQ(plain(0, form), " 0");
    EXPECT_EQ(plain(12, form), " 12");
}

} // namespace
} // namespace krv::standard
