#include "standard/ado/exact_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace krv::standard {
namespace {

using platform::Currency;
using platform::Decimal;

TEST(ExactNumber, a_decimal_keeps_every_digit_of_its_text) {
    EXPECT_EQ(decimal_from_text("0"), (Decimal{0, 0, 0, false}));
    EXPECT_EQ(decimal_from_text("-0.0"), (Decimal{0, 0, 0, false}));
    EXPECT_EQ(decimal_from_text("+12.50"), (Decimal{125, 0, 1, false}));
    EXPECT_EQ(decimal_from_text("-.5"), (Decimal{5, 0, 1, true}));
    EXPECT_EQ(decimal_from_text("1.5E-3"), (Decimal{15, 0, 4, false}));
    EXPECT_EQ(decimal_from_text("12e3"), (Decimal{12000, 0, 0, false}));
    EXPECT_EQ(decimal_from_text("18446744073709551616"), (Decimal{0, 1, 0, false}));
}

TEST(ExactNumber, a_decimal_has_up_to_28_digits) {
    const Decimal nines{0x3E2502610FFFFFFFU, 0x204FCE5EU, 0, false};
    EXPECT_EQ(decimal_from_text("9999999999999999999999999999"), nines);
    EXPECT_EQ(decimal_from_text("0.0000000000000000000000000001"), (Decimal{1, 0, 28, false}));
    EXPECT_EQ(decimal_from_text("10000000000000000000000000000"), std::nullopt);
    EXPECT_EQ(decimal_from_text("0.00000000000000000000000000001"), std::nullopt);
    EXPECT_EQ(decimal_from_text("1234567890123456789.0123456789"), std::nullopt);
    EXPECT_EQ(decimal_from_text("1e28"), std::nullopt);
    EXPECT_EQ(decimal_from_text("1e999999999999"), std::nullopt);
}

TEST(ExactNumber, other_texts_are_no_numbers) {
    for (const char* text : {"",
                             "-",
                             ".",
                             "1,5",
                             " 1",
                             "1 ",
                             "1.2.3",
                             "1e",
                             "NaN",
                             "Infinity",
                             "0x10",
                             "1d3",
                             "--1"}) {
        EXPECT_EQ(decimal_from_text(text), std::nullopt) << text;
        EXPECT_EQ(currency_from_text(text), std::nullopt) << text;
    }
}

TEST(ExactNumber, the_least_and_the_greatest_amount_are_legal) {
    EXPECT_EQ(currency_from_text("-922337203685477.5808"), Currency{INT64_MIN});
    EXPECT_EQ(currency_from_text("922337203685477.5807"), Currency{INT64_MAX});
    EXPECT_EQ(currency_from_text("922337203685477.5808"), std::nullopt);
    EXPECT_EQ(currency_from_text("-922337203685477.5809"), std::nullopt);
    EXPECT_EQ(currency_from_text("1e30"), std::nullopt);
}

TEST(ExactNumber, amounts_are_rounded_half_to_even_at_four_decimals) {
    EXPECT_EQ(currency_from_text("1.00005"), Currency{10000});
    EXPECT_EQ(currency_from_text("1.00015"), Currency{10002});
    EXPECT_EQ(currency_from_text("-0.00005"), Currency{0});
    EXPECT_EQ(currency_from_text("0.000051"), Currency{1});
    EXPECT_EQ(currency_from_text("9.99995"), Currency{100000});
}

TEST(ExactNumber, a_Double_means_its_shortest_text) {
    EXPECT_EQ(decimal_from_double(0.1), (Decimal{1, 0, 1, false}));
    EXPECT_EQ(decimal_from_double(-1234.5678), (Decimal{12345678, 0, 4, true}));
    EXPECT_EQ(decimal_from_double(0.00001), (Decimal{1, 0, 5, false}));
    EXPECT_EQ(decimal_from_double(0.1 + 0.2), (Decimal{30000000000000004, 0, 17, false}));
    EXPECT_EQ(decimal_from_double(1e22), decimal_from_text("10000000000000000000000"));
    EXPECT_EQ(decimal_from_double(1e30), std::nullopt);
    EXPECT_EQ(decimal_from_double(-0.0), (Decimal{0, 0, 0, false}));
    EXPECT_EQ(currency_from_double(19.99), Currency{199900});
    EXPECT_EQ(currency_from_double(1e15), std::nullopt);
}

TEST(ExactNumber, what_is_not_finite_is_no_number) {
    for (const double value : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(decimal_from_double(value), std::nullopt);
        EXPECT_EQ(currency_from_double(value), std::nullopt);
    }
}

TEST(ExactNumber, whole_numbers_convert_at_their_limits) {
    EXPECT_EQ(decimal_from_whole(INT64_MIN), (Decimal{0x8000000000000000U, 0, 0, true}));
    EXPECT_EQ(currency_from_whole(922337203685477), Currency{9223372036854770000});
    EXPECT_EQ(currency_from_whole(922337203685478), std::nullopt);
    EXPECT_EQ(currency_from_whole(-922337203685478), std::nullopt);
}

} // namespace
} // namespace krv::standard
