#include "standard/formatter_support.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <ctime>

namespace krv::standard {
namespace {

using namespace testing_support;
using platform::ValueView;

TEST(PatternKind, named_formats_need_the_whole_pattern) {
    EXPECT_EQ(us(0.5, "Percent"), "50.00%");
    EXPECT_EQ(us(0.5, "0 Percent"), "1 Percent");
    EXPECT_EQ(us(5, " Fixed"), " Fixe4");
}

TEST(PatternKind, the_first_decisive_character_decides) {
    EXPECT_EQ(us(12, "0:0"), "1:2");
    EXPECT_EQ(us(5, "d%"), "4%");
    EXPECT_EQ(us(5, "x/#"), "x/#");
    EXPECT_EQ(us(5, "abc"), "ab1/4/1900");
    EXPECT_EQ(us(5, "x:0"), "x:0");
    EXPECT_EQ(us("ab", "x@0"), "xa0b");
    EXPECT_EQ(us(5, "AMPM"), "AM");
    EXPECT_EQ(us(5, "ttttt"), "12:00:00 AM");
    EXPECT_EQ(us(5, "tttt"), "tttt");
    EXPECT_EQ(us(5, "aa"), "aa");
    EXPECT_EQ(us(5, "%d"), "%d");
}

TEST(PatternKind, escaped_characters_do_not_decide) {
    EXPECT_EQ(us(5, "\\d0"), "d5");
    EXPECT_EQ(us(5, "\"day \"0"), "day 5");
    EXPECT_EQ(us(5, "\\0d"), "04");
    EXPECT_EQ(us(5, "\"0"), "0");
    EXPECT_EQ(us(-5, "xz\\y"), "-xzy");
}

TEST(PatternKind, only_literals_are_numeric) {
    EXPECT_EQ(us(5, "xx"), "xx");
    EXPECT_EQ(us(-5, "-$+"), "--$+");
    EXPECT_EQ(us("text", "xx"), "text");
    EXPECT_EQ(us(null(), "xx"), "");
}

TEST(PatternKind, other_kinds_characters_are_plain_text_inside_a_kind) {
    EXPECT_EQ(us(1.5, "0.00 yyyy"), "1.50 yyyy");
    EXPECT_EQ(us(date(40086), "mm/##/yy"), "09/##/09");
    EXPECT_EQ(us(5, "0 @&<>!"), "5 @&<>!");
}

TEST(PatternKind, patterns_are_cut_at_257_characters) {
    const std::string zeros(300, '0');
    EXPECT_EQ(us(1, std::string_view(zeros)), std::string(256, '0') + "1");
    std::string marked;
    for (int count = 0; count < 256; ++count) {
        marked += "é";
    }
    EXPECT_EQ(us(7, marked + "00"), marked + "7");
    EXPECT_EQ(us(7, marked + "€0"), marked + "€");
}

TEST(FormatByKind, without_a_pattern) {
    EXPECT_EQ(us(null(), ""), "");
    EXPECT_EQ(us(empty(), ""), "");
    EXPECT_EQ(it(true, ""), "True");
    EXPECT_EQ(it(1234.5, ""), "1234,5");
    EXPECT_EQ(it(date(45356.5), ""), "05/03/2024 12:00:00");
    EXPECT_EQ(us(date(0), ""), "12:00:00 AM");
    EXPECT_EQ(us("", ""), "");
    EXPECT_EQ(us("abc", ""), "abc");
    EXPECT_EQ(us("2/3/2024", ""), "2/3/2024");
}

TEST(FormatByKind, by_a_numeric_pattern) {
    EXPECT_EQ(us(true, "0"), "-1");
    EXPECT_EQ(us(false, "0"), "0");
    EXPECT_EQ(us(date(45356.5), "0.0"), "45356.5");
    EXPECT_EQ(us("", "0"), "");
    EXPECT_EQ(us("12.5", "0.00"), "12.50");
    EXPECT_EQ(us("12.5%", "0.000"), "0.125");
    EXPECT_EQ(us("($1,234.5)", "0.00"), "-1234.50");
    EXPECT_EQ(us("2/3/2024", "0"), "2/3/2024");
    EXPECT_EQ(us("abc", "0"), "abc");
    EXPECT_EQ(us("True", "0"), "True");
    EXPECT_EQ(it("1.5", "0.00"), "15,00");
    EXPECT_EQ(it("1.234,5", "#,##0.00"), "1.234,50");
}

TEST(FormatByKind, by_a_date_pattern) {
    EXPECT_EQ(it("5", "dd/mm/yyyy"), "04/01/1900");
    EXPECT_EQ(it("1.5", "hh:nn dd/mm/yyyy"), "01:05 30/12/1899");
    EXPECT_EQ(it("5/3/2024", "dddd"), "martedì");
    EXPECT_EQ(us("5/3/2024", "mmmm"), "May");
    EXPECT_EQ(it("abc", "dd/mm/yyyy"), "abc");
    EXPECT_EQ(it("  ", "dd/mm/yyyy"), "  ");
    EXPECT_EQ(us("-1.5", "d/m/yyyy hh:nn"), "29/12/1899 12:00");
    EXPECT_EQ(us("45356", "dd/mm/yyyy"), "05/03/2024");
}

TEST(FormatByKind, texts_that_no_pattern_can_take_stay) {
    EXPECT_EQ(us("1e400", "0.00"), "1e400");
    EXPECT_EQ(us("1e400", "Yes/No"), "1e400");
    EXPECT_EQ(us("99999999", "dd/mm/yyyy"), "99999999");
    EXPECT_EQ(us("-700000", "dd/mm/yyyy"), "-700000");
    EXPECT_EQ(us("2/30/2020", "dd/mm/yyyy"), "2/30/2020");
}

TEST(FormatByKind, bytes_and_objects_are_error_13) {
    const std::array<std::byte, 2> bytes{};
    for (const char* pattern : {"", "0", "dd/mm/yyyy", "@", "Yes/No"}) {
        EXPECT_EQ(error_of([&] { us(ValueView::bytes(bytes), pattern); }), 13) << pattern;
        EXPECT_EQ(error_of([&] { us(ValueView::object(nullptr), pattern); }), 13) << pattern;
    }
}

TEST(PlainFormat, numeric_text_becomes_the_plain_text_of_its_number) {
    EXPECT_EQ(it("1.234,50", ""), "1234,5");
    EXPECT_EQ(us("1,234.50", ""), "1234.5");
    EXPECT_EQ(it(" 00 ", ""), "0");
    EXPECT_EQ(it("00,00", ""), "0");
    EXPECT_EQ(it("12,5%", ""), "0,125");
    EXPECT_EQ(it("-1.234,50 €", ""), "-1234,5");
    EXPECT_EQ(us("($1,234.50)", ""), "-1234.5");
    EXPECT_EQ(it("1.5", ""), "15");
    EXPECT_EQ(it("0,50", ""), "0,5");
    EXPECT_EQ(us(".5", ""), "0.5");
    EXPECT_EQ(us("5-", ""), "-5");
    EXPECT_EQ(us("1E3", ""), "1000");
    EXPECT_EQ(format_in("fr-FR", "1 234,50 €", ""), "1234,5");
    EXPECT_EQ(us("123456789012345", ""), "123456789012345");
    EXPECT_EQ(us("1.50000000000000000000", ""), "1.5");
}

TEST(PlainFormat, text_that_its_number_could_not_give_back_stays) {
    EXPECT_EQ(it("007", ""), "007");
    EXPECT_EQ(it("0039 06 1234", ""), "0039 06 1234");
    EXPECT_EQ(format_in("fr-FR", "0039 06 1234", ""), "0039 06 1234");
    EXPECT_EQ(it("0.5", ""), "0.5");
    EXPECT_EQ(us("05", ""), "05");
    EXPECT_EQ(us("12345678901234567890", ""), "12345678901234567890");
    EXPECT_EQ(us("1234567890123456", ""), "1234567890123456");
    EXPECT_EQ(us("0.1234567890123456", ""), "0.1234567890123456");
    EXPECT_EQ(us("1e400", ""), "1e400");
    EXPECT_EQ(us("1e-400", ""), "1e-400");
}

TEST(PlainFormat, text_of_blanks_and_other_text_stays) {
    EXPECT_EQ(us("  ", ""), "  ");
    EXPECT_EQ(us("\t", ""), "\t");
    EXPECT_EQ(us(" abc ", ""), " abc ");
}

TEST(PlainFormat, dates_stay_where_thousands_and_dates_have_the_same_separator) {
    EXPECT_EQ(format_in("de-DE", "15.03.2024", ""), "15.03.2024");
    EXPECT_EQ(format_in("de-DE", "12.05", ""), "12.05");
    EXPECT_EQ(format_in("de-DE", "1.234", ""), "1234");
    EXPECT_EQ(format_in("de-DE", "1.234,50", ""), "1234,5");
    EXPECT_EQ(format_in("de-DE", "99.99", ""), "9999");
    EXPECT_EQ(it("15.03.2024", ""), "15032024");
}

TEST(PlainFormat, gives_back_what_numeric_patterns_write) {
    const double values[] = {0, 1, -1, 0.5, -0.25, 1234.5, -1234567.75, 99999999.99};
    const char* patterns[] = {"0.00", "#,##0.00", "Currency", "0.0000%", "0.00;(0.00)", "0.00-"};
    for (const char* region : {"it-IT", "en-US", "en-GB", "de-DE", "fr-FR", "C"}) {
        for (const double value : values) {
            for (const char* pattern : patterns) {
                if (value < 0 && std::string_view(pattern) == "0.00-") {
                    continue; // both signs
                }
                const double wanted = std::string_view(pattern) == "0.00-" ? -value : value;
                const std::string text = format_in(region, value, pattern);
                EXPECT_EQ(format_in(region, std::string_view(text), ""), cstr_in(region, wanted))
                    << region << ' ' << pattern << ' ' << text;
            }
        }
    }
}

TEST(Formatter, may_write_over_the_text_that_it_formats) {
    const ValueFormatter& formatter = formatter_of("it-IT");
    for (const char* pattern : {"", "0.00", "dd/mm/yyyy", "@-@", ">", "Yes/No", "c"}) {
        for (const char* original :
             {"abc", "1.234,50", "05/03/2024", "", "a rather long text, longer than a short one"}) {
            std::string text = original;
            formatter.Format(ValueView::text(text), pattern, text);
            EXPECT_EQ(text, formatter.Format(ValueView::text(original), pattern));
        }
    }
    std::string text = "1,5";
    formatter.CStr(ValueView::text(text), text);
    EXPECT_EQ(text, "1,5");
}

TEST(Formatter, keeps_embedded_NULs_and_broken_bytes) {
    const std::string_view text("a\0b\xFF", 4);
    EXPECT_EQ(us(text, ""), text);
    EXPECT_EQ(us(text, "0.00"), text);
    EXPECT_EQ(us(text, "dd/mm/yyyy"), text);
    EXPECT_EQ(us(5, std::string_view("0\0\xFF", 3)), std::string("5\0\xFF", 3));
    EXPECT_EQ(us(5, std::string_view("d\0\xFF", 3)), std::string("4\0\xFF", 3));
}

TEST(Formatter, works_with_more_patterns_than_it_keeps) {
    const ValueFormatter formatter(regional_settings("en-US"));
    for (int round = 0; round < 2; ++round) {
        for (int width = 1; width <= 1000; ++width) {
            const std::string pattern = "0\"" + std::to_string(width) + "\"";
            ASSERT_EQ(formatter.Format(ValueView::integer(7), pattern),
                      "7" + std::to_string(width));
        }
    }
}

TEST(Formatter, settings_of_a_host) {
    RegionalSettings own = regional_settings("it-IT");
    own.thousands_separator = "";
    own.decimal_separator = "··";
    own.short_date = "ddddd c d.m.yy";
    own.time_separator = "h";
    own.pm = "di pomeriggio";
    const ValueFormatter formatter(own);
    EXPECT_EQ(formatter.settings(), own);
    EXPECT_EQ(formatter.Format(view(1234.5), "#,##0.00"), "1234··50");
    EXPECT_EQ(formatter.CDbl(view("1··5")), 1.5);
    EXPECT_EQ(formatter.Format(view(date(45356)), "ddddd"), "ddddd c 5.3.24");
    EXPECT_EQ(formatter.Format(view(date(0.75)), "hh:nn AMPM"), "06h00 di pomeriggio");
    EXPECT_EQ(formatter.CDate(view("18:30")).serial, 18.5 / 24);
}

TEST(Formatter, default_clock_gives_the_current_year) {
    const ValueFormatter formatter(regional_settings("it-IT"));
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const std::string year = formatter.Format(view("5/3"), "yyyy");
    EXPECT_NEAR(std::stoi(year), local.tm_year + 1900, 1);
}

} // namespace
} // namespace krv::standard
