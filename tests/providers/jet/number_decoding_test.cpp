#include "number_decoding.h"

#include "providers/shown.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace krv::jet_reader {
namespace {

using namespace std::string_literals;
using providers::shown;

const unsigned char* bytes_of(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

std::string numeric(const std::string& bytes, int scale) {
    std::string storage;
    return shown(decode_numeric(bytes_of(bytes), scale, storage));
}

std::string date(double serial) {
    std::string storage;
    return shown(date_value(serial, storage));
}

TEST(NumberDecoding, a_numeric_has_its_highest_word_first) {
    EXPECT_EQ(numeric("\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0"s, 0), "Decimal 0:1e-0");
    EXPECT_EQ(numeric("\x80\0\0\0\0\0\0\0\0\0\0\0\0\x7D\0\0\0"s, 4), "Decimal -0:125e-4");
    EXPECT_EQ(numeric("\0\0\0\0\0\x01\0\0\0\x02\0\0\0\x03\0\0\0"s, 28), "Decimal 1:8589934595e-28");
}

TEST(NumberDecoding, nought_has_no_sign) {
    EXPECT_EQ(numeric("\x80"s + std::string(16, '\0'), 2), "Decimal 0:0e-2");
}

TEST(NumberDecoding, a_numeric_beyond_a_Decimal_is_text) {
    EXPECT_EQ(numeric("\x80\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s, 0),
              "'-79228162514264337593543950336'");
    EXPECT_EQ(numeric("\0\0\0\0\0\0\0\0\0\0\0\0\0\x05\0\0\0"s, 30),
              "'0." + std::string(29, '0') + "5'");
}

TEST(NumberDecoding, a_calculated_decimal_has_scale_and_sign_of_its_own) {
    std::string storage;
    const std::string bytes = "\0\0\x02\x80\x01\0\0\0\x7B\0\0\0\0\0\0\0"s;
    EXPECT_EQ(shown(decode_ole_decimal(bytes_of(bytes), storage)), "Decimal -1:123e-2");
}

TEST(NumberDecoding, dates_outside_the_years_100_to_9999_are_text) {
    EXPECT_EQ(date(-657434), "Date -657434");
    EXPECT_EQ(date(-657435), "'-657435'");
    EXPECT_EQ(date(2958465.5), "Date 2958465.5");
    EXPECT_EQ(date(2958466), "'2958466'");
    EXPECT_EQ(date(std::numeric_limits<double>::infinity()), "'inf'");
    EXPECT_EQ(date(std::nan("")), "'nan'");
}

TEST(NumberDecoding, an_extended_date_counts_days_and_ticks) {
    EXPECT_EQ(decode_extended_date("0000000000000693593:0000000000000000000:7"), 0.0);
    EXPECT_EQ(decode_extended_date("693592:648000000000:7"), -1.75);
    EXPECT_EQ(decode_extended_date("693595:216000000000:7"), 2.25);
    for (const char* wrong : {"", "x", "1:2", "1:-2:7", "1:864000000000:7", "1;2;7"}) {
        EXPECT_EQ(decode_extended_date(wrong), std::nullopt) << wrong;
    }
}

TEST(NumberDecoding, a_GUID_has_its_first_parts_turned_round) {
    std::string storage;
    const std::string bytes = "\x78\x56\x34\x12\xBC\x9A\xF0\xDE\x12\x34\x56\x78\x9A\xBC\xDE\xF0"s;
    EXPECT_EQ(decode_guid(bytes_of(bytes), storage), "{12345678-9ABC-DEF0-1234-56789ABCDEF0}");
}

} // namespace
} // namespace krv::jet_reader
