#include "standard/formatter_support.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <limits>

namespace krv::standard {
namespace {

using namespace testing_support;
using platform::Currency;
using platform::Decimal;
using platform::ValueView;

std::string us_text(auto value) {
    return cstr_in("en-US", value);
}

std::string it_text(auto value) {
    return cstr_in("it-IT", value);
}

TEST(CStr, of_integers_has_no_leading_blank) {
    EXPECT_EQ(us_text(0), "0");
    EXPECT_EQ(us_text(1234567), "1234567");
    EXPECT_EQ(us_text(-5), "-5");
    EXPECT_EQ(us_text(ValueView::byte(255)), "255");
    EXPECT_EQ(us_text(ValueView::integer(-32768)), "-32768");
    EXPECT_EQ(us_text(ValueView::long_long(std::numeric_limits<std::int64_t>::min())),
              "-9223372036854775808");
}

TEST(CStr, of_doubles_has_15_digits_and_an_exponent_by_decimals_needed) {
    EXPECT_EQ(us_text(0.1 + 0.2), "0.3");
    EXPECT_EQ(us_text(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(us_text(1234.5), "1234.5");
    EXPECT_EQ(us_text(999999999999999.0), "999999999999999");
    EXPECT_EQ(us_text(1e15), "1E+15");
    EXPECT_EQ(us_text(-1.5e15), "-1.5E+15");
    EXPECT_EQ(us_text(0.000000000000001), "0.000000000000001");
    EXPECT_EQ(us_text(1e-16), "1E-16");
    EXPECT_EQ(us_text(1.23456789012346e-4), "1.23456789012346E-04");
    EXPECT_EQ(us_text(1.7976931348623157e308), "1.79769313486232E+308");
    EXPECT_EQ(us_text(5e-324), "4.94065645841247E-324");
    EXPECT_EQ(us_text(-0.0), "0");
}

TEST(CStr, of_singles_has_7_digits) {
    EXPECT_EQ(us_text(0.1F), "0.1");
    EXPECT_EQ(us_text(12345678.0F), "1.234568E+07");
    EXPECT_EQ(us_text(9999999.0F), "9999999");
    EXPECT_EQ(us_text(0.000001F), "0.000001");
    EXPECT_EQ(us_text(1.5e-8F), "1.5E-08");
}

TEST(CStr, of_currencies_and_decimals_is_exact) {
    EXPECT_EQ(us_text(Currency{12345000}), "1234.5");
    EXPECT_EQ(us_text(Currency{1}), "0.0001");
    EXPECT_EQ(us_text(Currency{std::numeric_limits<std::int64_t>::min()}), "-922337203685477.5808");
    EXPECT_EQ(us_text(Currency{std::numeric_limits<std::int64_t>::max()}), "922337203685477.5807");
    EXPECT_EQ(us_text(Decimal{~std::uint64_t{0}, ~std::uint32_t{0}, 0, true}),
              "-79228162514264337593543950335");
    EXPECT_EQ(us_text(Decimal{1, 0, 28, false}), "0.0000000000000000000000000001");
    EXPECT_EQ(us_text(Decimal{1500, 0, 3, false}), "1.5");
    EXPECT_EQ(us_text(Decimal{0, 0, 3, true}), "0");
    EXPECT_EQ(it_text(Currency{12345000}), "1234,5");
}

TEST(CStr, has_the_regional_decimal_separator_and_no_groups) {
    EXPECT_EQ(it_text(1234567.25), "1234567,25");
    EXPECT_EQ(cstr_in("de-DE", 1e-16 * 1.5), "1,5E-16");
    EXPECT_EQ(cstr_in("C", 1234.5), "1234.5");
}

TEST(CStr, of_booleans_is_english_everywhere) {
    EXPECT_EQ(it_text(true), "True");
    EXPECT_EQ(cstr_in("fr-FR", false), "False");
}

TEST(CStr, of_dates_is_the_general_date) {
    EXPECT_EQ(us_text(date(45356)), "3/5/2024");
    EXPECT_EQ(us_text(date(45356.588298611)), "3/5/2024 2:07:09 PM");
    EXPECT_EQ(us_text(date(0)), "12:00:00 AM");
    EXPECT_EQ(us_text(date(0.5)), "12:00:00 PM");
    EXPECT_EQ(it_text(date(45356.5)), "05/03/2024 12:00:00");
    EXPECT_EQ(cstr_in("de-DE", date(45356)), "05.03.2024");
    EXPECT_EQ(cstr_in("C", date(45356)), "2024-03-05");
}

TEST(CStr, of_empty_text_null_and_others) {
    EXPECT_EQ(us_text(empty()), "");
    EXPECT_EQ(us_text(" 1,5 "), " 1,5 ");
    EXPECT_EQ(us_text(std::string_view("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(error_of([] { us_text(null()); }), 94);
    EXPECT_EQ(error_of([] { us_text(ValueView::object(nullptr)); }), 13);
    EXPECT_EQ(error_of([] { us_text(ValueView::bytes({})); }), 13);
}

TEST(CStr, of_infinite_and_undefined_numbers) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(us_text(infinity), "1.#INF");
    EXPECT_EQ(us_text(-infinity), "-1.#INF");
    EXPECT_EQ(us_text(std::numeric_limits<double>::quiet_NaN()), "-1.#IND");
    EXPECT_EQ(us_text(std::numeric_limits<float>::infinity()), "1.#INF");
    EXPECT_EQ(us(infinity, "0.00"), "1.#INF");
    EXPECT_EQ(us(infinity, "Yes/No"), "1.#INF");
    EXPECT_EQ(us(infinity, "@@@@@@@@"), "  1.#INF");
    EXPECT_EQ(error_of([&] { us(infinity, "dd/mm/yyyy"); }), 6);
}

std::string str(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).Str(view(value));
}

TEST(Str, has_a_period_in_every_region_and_a_blank_for_plus) {
    EXPECT_EQ(str(0.5), " .5");
    EXPECT_EQ(str(-0.5), "-.5");
    EXPECT_EQ(str(1234.5), " 1234.5");
    EXPECT_EQ(str(7), " 7");
    EXPECT_EQ(str(-7), "-7");
    EXPECT_EQ(str(0), " 0");
    EXPECT_EQ(str(1e15), " 1E+15");
    EXPECT_EQ(str(0.1F), " .1");
    EXPECT_EQ(str(Currency{2500}), " .25");
    EXPECT_EQ(str(empty()), " 0");
    EXPECT_EQ(str("1,5"), " 1.5");
    EXPECT_EQ(str(true), "True");
    EXPECT_EQ(str(date(45356)), "05/03/2024");
}

TEST(Str, refuses_null_and_what_is_no_number) {
    EXPECT_EQ(error_of([] { str(null()); }), 94);
    EXPECT_EQ(error_of([] { str("abc"); }), 13);
    EXPECT_EQ(error_of([] { str(ValueView::object(nullptr)); }), 13);
}

std::int16_t cint(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CInt(view(value));
}

std::int32_t clng(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CLng(view(value));
}

double cdbl(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CDbl(view(value));
}

TEST(CInt, rounds_half_to_even) {
    EXPECT_EQ(cint(2.5), 2);
    EXPECT_EQ(cint(3.5), 4);
    EXPECT_EQ(cint(-2.5), -2);
    EXPECT_EQ(cint(-3.5), -4);
    EXPECT_EQ(cint(2.500001), 3);
    EXPECT_EQ(cint(0.5F), 0);
    EXPECT_EQ(cint(Currency{25000}), 2);
    EXPECT_EQ(cint(Decimal{35, 0, 1, false}), 4);
    EXPECT_EQ(cint("2,5"), 2);
    EXPECT_EQ(cint("3,5"), 4);
}

TEST(CInt, has_16_bits) {
    EXPECT_EQ(cint(32767.4), 32767);
    EXPECT_EQ(error_of([] { cint(32767.5); }), 6);
    EXPECT_EQ(cint(-32768.5), -32768);
    EXPECT_EQ(error_of([] { cint(-32769); }), 6);
    EXPECT_EQ(error_of([] { cint("32768"); }), 6);
    EXPECT_EQ(error_of([] { cint("1e400"); }), 6);
    EXPECT_EQ(error_of([] { cint(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(CLng, has_32_bits) {
    EXPECT_EQ(clng(2147483647.4), 2147483647);
    EXPECT_EQ(error_of([] { clng(2147483647.5); }), 6);
    EXPECT_EQ(clng(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(error_of([] { clng(ValueView::long_long(2147483648)); }), 6);
    EXPECT_EQ(clng(date(45356.5)), 45356);
}

TEST(Conversions, read_texts_by_the_region) {
    EXPECT_EQ(clng("12,6"), 13);
    EXPECT_EQ(clng("12.6"), 126);
    EXPECT_EQ(clng("12.6", "en-US"), 13);
    EXPECT_EQ(cdbl("1.234,5"), 1234.5);
    EXPECT_EQ(cdbl("1.5"), 15);
    EXPECT_EQ(cdbl("(€ 5)"), -5);
    EXPECT_EQ(cint("&HFF"), 255);
    EXPECT_EQ(cint("&HFFFF"), -1);
    EXPECT_EQ(clng("&HFFFFFFFF"), -1);
}

TEST(Conversions, refuse_what_is_no_number) {
    for (const char* text : {"", "  ", "abc", "12,5%", "5/3/2024"}) {
        EXPECT_EQ(error_of([&] { cint(text); }), 13) << text;
        EXPECT_EQ(error_of([&] { clng(text); }), 13) << text;
        EXPECT_EQ(error_of([&] { cdbl(text); }), 13) << text;
    }
    EXPECT_EQ(error_of([] { cdbl("1e309"); }), 6);
    EXPECT_EQ(error_of([] { cdbl(ValueView::object(nullptr)); }), 13);
    const std::array<std::byte, 1> bytes{};
    EXPECT_EQ(error_of([&] { cint(ValueView::bytes(bytes)); }), 13);
}

TEST(Conversions, of_booleans_null_and_empty) {
    EXPECT_EQ(cint(true), -1);
    EXPECT_EQ(cdbl(false), 0);
    EXPECT_EQ(cint(empty()), 0);
    EXPECT_EQ(cdbl(empty()), 0);
    EXPECT_EQ(error_of([] { cint(null()); }), 94);
    EXPECT_EQ(error_of([] { clng(null()); }), 94);
    EXPECT_EQ(error_of([] { cdbl(null()); }), 94);
}

std::int64_t ccur(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CCur(view(value)).ten_thousandths;
}

TEST(CCur, rounds_half_to_even_at_four_decimals) {
    EXPECT_EQ(ccur(1.00005), 10000);
    EXPECT_EQ(ccur(1.00015), 10002);
    EXPECT_EQ(ccur(1234.5), 12345000);
    EXPECT_EQ(ccur("1,00015"), 10002);
    EXPECT_EQ(ccur("1,00025"), 10002);
    EXPECT_EQ(ccur(Decimal{100025, 0, 5, true}), -10002);
    EXPECT_EQ(ccur(0.1F), 1000);
    EXPECT_EQ(ccur(true), -10000);
    EXPECT_EQ(ccur(empty()), 0);
}

TEST(CCur, is_exact_up_to_its_limits) {
    EXPECT_EQ(ccur("922337203685477,5807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(ccur("-922337203685477,5808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(error_of([] { ccur("922337203685477,5808"); }), 6);
    EXPECT_EQ(error_of([] { ccur(1e15); }), 6);
    EXPECT_EQ(error_of([] { ccur(ValueView::long_long(922337203685478)); }), 6);
    EXPECT_EQ(error_of([] { ccur(null()); }), 94);
    EXPECT_EQ(error_of([] { ccur("abc"); }), 13);
}

std::int64_t clnglng(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CLngLng(view(value));
}

TEST(CLngLng, has_64_bits_and_loses_none) {
    EXPECT_EQ(clnglng("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(clnglng("-9.223.372.036.854.775.808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(clnglng("9007199254740993"), 9007199254740993);
    EXPECT_EQ(clnglng(Currency{std::numeric_limits<std::int64_t>::max()}), 922337203685478);
    EXPECT_EQ(clnglng("2,5"), 2);
    EXPECT_EQ(clnglng("&HFFFF"), 65535);
    EXPECT_EQ(clnglng(true), -1);
    EXPECT_EQ(clnglng(empty()), 0);
}

TEST(CLngLng, refuses_what_is_too_large_or_no_number) {
    EXPECT_EQ(error_of([] { clnglng("9223372036854775808"); }), 6);
    EXPECT_EQ(error_of([] { clnglng(1e19); }), 6);
    EXPECT_EQ(error_of([] { clnglng(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(error_of([] { clnglng("abc"); }), 13);
    EXPECT_EQ(error_of([] { clnglng(null()); }), 94);
}

Decimal cdec(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CDec(view(value));
}

TEST(CDec, keeps_every_digit) {
    EXPECT_EQ(cdec("1.234.567.890.123.456.789,12"), (Decimal{0xB14E9F812F366C40, 6, 2, false}));
    EXPECT_EQ(cdec("-0,0000000000000000000000000001"), (Decimal{1, 0, 28, true}));
    EXPECT_EQ(cdec("1,50"), (Decimal{15, 0, 1, false}));
    EXPECT_EQ(cdec("-0"), (Decimal{0, 0, 0, false}));
    EXPECT_EQ(cdec(0.1), (Decimal{1, 0, 1, false}));
    EXPECT_EQ(cdec(Currency{-12345}), (Decimal{12345, 0, 4, true}));
    EXPECT_EQ(cdec(Decimal{1500, 0, 3, false}), (Decimal{1500, 0, 3, false}));
    EXPECT_EQ(cdec(true), (Decimal{1, 0, 0, true}));
}

TEST(CDec, rounds_half_to_even_behind_28_digits) {
    EXPECT_EQ(cdec("1,00000000000000000000000000025"), cdec("1,000000000000000000000000000"));
    EXPECT_EQ(cdec("0,00000000000000000000000000015"), (Decimal{2, 0, 28, false}));
    EXPECT_EQ(cdec("9999999999999999999999999999"),
              (Decimal{0x3E2502610FFFFFFF, 0x204FCE5E, 0, false}));
    EXPECT_EQ(error_of([] { cdec("10000000000000000000000000000"); }), 6);
    EXPECT_EQ(error_of([] { cdec("abc"); }), 13);
    EXPECT_EQ(error_of([] { cdec(null()); }), 94);
}

double cdate(auto value, std::string_view region = "it-IT") {
    return formatter_of(region).CDate(view(value)).serial;
}

TEST(CDate, reads_a_text_as_a_date_then_as_a_number) {
    EXPECT_EQ(cdate("05/03/2024"), 45356);
    EXPECT_EQ(cdate("05/03/2024", "en-US"), 45415);
    EXPECT_EQ(cdate("45356"), 45356);
    EXPECT_EQ(cdate("12:00"), 0.5);
    EXPECT_EQ(cdate(45356.25), 45356.25);
    EXPECT_EQ(cdate(true), -1);
    EXPECT_EQ(cdate(empty()), 0);
}

double cdate_under(std::string_view pattern, std::string_view text, std::string_view region) {
    return formatter_of(region).CDate(ValueView::text(text), pattern).serial;
}

TEST(CDate, reads_what_a_pattern_wrote_in_its_order) {
    EXPECT_EQ(cdate_under("dd/mm/yyyy", "05/03/2024", "en-US"), 45356);
    EXPECT_EQ(cdate_under("mm/dd/yyyy", "03/05/2024", "it-IT"), 45356);
    EXPECT_EQ(cdate_under("dddd", "05/03/2024", "it-IT"), 45356);
    EXPECT_EQ(cdate_under("0.00", "05/03/2024", "en-US"), 45415);
    EXPECT_EQ(cdate_under("", "05/03/2024", "en-US"), 45415);
}

TEST(CDate, refuses_what_is_no_date) {
    for (const char* text : {"abc", "", "2/30/2020", "1.2.2020"}) {
        EXPECT_EQ(error_of([&] { cdate(text, "en-US"); }), 13) << text;
    }
    EXPECT_EQ(error_of([] { cdate(null()); }), 94);
    EXPECT_EQ(error_of([] { cdate(2958466); }), 6);
    EXPECT_EQ(error_of([] { cdate(-657435); }), 6);
    EXPECT_EQ(cdate(-657434), -657434);
    EXPECT_EQ(cdate(2958465.999), 2958465.999);
}

TEST(IsNumber, is_what_Format_reads_as_one) {
    const ValueFormatter& formatter = formatter_of("it-IT");
    for (const char* text : {"5", " -1.234,50 € ", "12,5%", "(5)", "1E5", "&HFF", "00"}) {
        EXPECT_TRUE(formatter.is_number(text)) << text;
    }
    for (const char* text : {"", " ", "abc", "5x", "5/3/2024", "1e400"}) {
        EXPECT_FALSE(formatter.is_number(text)) << text;
    }
}

} // namespace
} // namespace krv::standard
