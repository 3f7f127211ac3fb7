#include "standard/formatting/fixed_number.h"

#include "standard/formatter_support.h"
#include "standard/formatting/built_in_regions.h"
#include "standard/formatting/number_writer.h"
#include "standard/formatting/numeric_pattern.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace krv::standard {
namespace {

/// Formats each value by the fast way and by the digits, and counts how often the fast one served.
class TwoWays {
public:
    void expect_same(double value) {
        for (const NumericPattern& pattern : patterns_) {
            ++asked_;
            if (!pattern.write_fast(value, 0, fast_)) {
                continue;
            }
            ++served_;
            DecimalText digits = general_decimal_text(value, double_digits);
            pattern.write(digits, general_);
            if (fast_ != general_) {
                FAIL() << std::hexfloat << value << ' ' << fast_ << " for " << general_;
            }
        }
        expect_same_plain_text(value);
    }

    void expect_same_around(double value) {
        for (const double near :
             {std::nextafter(value, -1e300), value, std::nextafter(value, 1e300)}) {
            ASSERT_NO_FATAL_FAILURE(expect_same(near));
            ASSERT_NO_FATAL_FAILURE(expect_same(-near));
        }
    }

    double served_part() const { return static_cast<double>(served_) / asked_; }

private:
    void expect_same_plain_text(double value) {
        const auto number = short_number(std::abs(value));
        if (!number || value == 0) {
            return;
        }
        write_short_number(*number, value < 0, ".", fast_);
        write_plain_number(
            general_decimal_text(value, double_digits), {".", double_digits}, general_);
        if (fast_ != general_) {
            FAIL() << std::hexfloat << value << ' ' << fast_ << " for " << general_;
        }
    }

    std::vector<NumericPattern> patterns_ = make_patterns();
    std::string fast_;
    std::string general_;
    int asked_ = 0;
    int served_ = 0;

    static std::vector<NumericPattern> make_patterns() {
        std::vector<NumericPattern> patterns;
        for (const char* pattern :
             {"#,##0.00", "0", "#.###;(#.0##);\"zero\"", "0.0%", "000,000,"}) {
            patterns.emplace_back(pattern, invariant_region());
        }
        return patterns;
    }
};

TEST(FixedNumber, formats_everyday_numbers_like_their_digits) {
    TwoWays ways;
    std::mt19937_64 random(42);
    std::uniform_int_distribution<std::int64_t> whole(0, 99'999'999'999);
    std::uniform_int_distribution<int> decimals(0, 6);
    for (int turn = 0; turn < 25'000; ++turn) {
        const double number = static_cast<double>(whole(random)) / std::pow(10.0, decimals(random));
        ASSERT_NO_FATAL_FAILURE(ways.expect_same_around(number));
    }
    EXPECT_GT(ways.served_part(), 0.8);
}

TEST(FixedNumber, formats_halves_like_their_digits) {
    TwoWays ways;
    std::mt19937_64 random(1005);
    std::uniform_int_distribution<std::int64_t> hundredths(0, 9'999'999'999);
    for (const double half : {1.005, 2.675, 0.285, 0.5, 1.5, 2.5, 0.05, 0.005, 0.0005, 500.0}) {
        ASSERT_NO_FATAL_FAILURE(ways.expect_same_around(half));
    }
    for (int turn = 0; turn < 12'000; ++turn) {
        const auto number = static_cast<double>(hundredths(random) >> turn % 30);
        ASSERT_NO_FATAL_FAILURE(ways.expect_same_around((number * 10 + 5) / 1000));
        ASSERT_NO_FATAL_FAILURE(ways.expect_same_around(number + 0.5));
        // Halves that 15 digits make of numbers on either side of them.
        ASSERT_NO_FATAL_FAILURE(ways.expect_same_around((number + 0.5) * (1 + 4e-16) / 100));
        ASSERT_NO_FATAL_FAILURE(ways.expect_same_around((number + 0.5) * (1 - 4e-15) / 100));
    }
}

TEST(FixedNumber, formats_any_bits_like_their_digits) {
    TwoWays ways;
    std::mt19937_64 random(7);
    std::uniform_int_distribution<std::uint64_t> exponent(1023 - 60, 1023 + 60);
    for (int turn = 0; turn < 25'000; ++turn) {
        const std::uint64_t bits = random();
        ASSERT_NO_FATAL_FAILURE(ways.expect_same(
            std::bit_cast<double>((bits & 0x800F'FFFF'FFFF'FFFFU) | exponent(random) << 52)));
    }
}

TEST(FixedNumber, formats_currencies_like_their_digits) {
    std::mt19937_64 random(11);
    for (const char* text : {"#,##0.00", "0", "0.0000", "0.00000#", "0.0%", "#,##0,"}) {
        const NumericPattern pattern(text, invariant_region());
        std::string fast;
        std::string general;
        for (int turn = 0; turn < 50'000; ++turn) {
            const platform::Currency value{std::bit_cast<std::int64_t>(random()) >> turn % 60};
            const auto ten_thousandths = static_cast<double>(value.ten_thousandths);
            if (pattern.write_fast(ten_thousandths, -4, fast)) {
                DecimalText digits = decimal_text(value);
                pattern.write(digits, general);
                ASSERT_EQ(fast, general) << value.ten_thousandths;
            }
        }
    }
}

TEST(FixedNumber, refuses_what_its_buffer_could_not_hold) {
    FixedNumberForm form;
    EXPECT_TRUE(form.fits());
    form.prefix = std::string(500, 'x');
    EXPECT_FALSE(form.fits());
    form.prefix.clear();
    form.least_integers = 200;
    EXPECT_FALSE(form.fits());
    form.least_integers = 1;
    form.decimals = 30;
    EXPECT_FALSE(form.fits());
    form.decimals = 0;
    form.power = -30;
    EXPECT_FALSE(form.fits());
}

TEST(FixedNumber, refuses_great_numbers_and_what_is_none) {
    EXPECT_FALSE(rounded_units(1e13, 0));
    EXPECT_FALSE(rounded_units(1e11, 2));
    EXPECT_FALSE(rounded_units(INFINITY, 0));
    EXPECT_FALSE(rounded_units(NAN, 0));
    EXPECT_FALSE(short_number(NAN));
    EXPECT_FALSE(short_number(0.12345));
    EXPECT_EQ(rounded_units(0, 0), 0U);
    EXPECT_EQ(rounded_units(12.34, 1), 123U);
    EXPECT_EQ(short_number(12.34)->units, 123400U);
}

} // namespace
} // namespace krv::standard
