#include "standard/formatter_support.h"
#include "standard/letter_case.h"

#include <gtest/gtest.h>

namespace krv::standard {
namespace {

using namespace testing_support;

TEST(StringFormat, takes_the_regional_text_of_numbers_and_dates) {
    EXPECT_EQ(it(1.5, "@@@@@"), "  1,5");
    EXPECT_EQ(it(date(45356), "@@@@@@@@@@@@"), "  05/03/2024");
    EXPECT_EQ(it(true, ">@"), "TRUE");
}

TEST(StringFormat, changes_letter_case_of_the_whole_text) {
    EXPECT_EQ(us("MiXed", "<"), "mixed");
    EXPECT_EQ(us("MiXed", ">"), "MIXED");
    EXPECT_EQ(us("MiXed", "@@@>"), "MIXED");
    EXPECT_EQ(us("MiXed", "<>"), "MiXed");
    EXPECT_EQ(us("Città È", ">"), "CITTÀ È");
    EXPECT_EQ(us("CITTÀ", "<@@@@@@@"), "  città");
}

TEST(StringFormat, fills_places_from_the_right) {
    EXPECT_EQ(us("ab", "@@@@"), "  ab");
    EXPECT_EQ(us("ab", "&&&&"), "ab");
    EXPECT_EQ(us("ab", "@&@&"), " ab");
    EXPECT_EQ(us("ab", "@-@-@"), " -a-b");
    EXPECT_EQ(us("àb", "@@@"), " àb");
}

TEST(StringFormat, fills_places_from_the_left_with_an_exclamation_mark) {
    EXPECT_EQ(us("ab", "!@@@@"), "ab  ");
    EXPECT_EQ(us("ab", "@@@@!"), "ab  ");
    EXPECT_EQ(us("ab", "!&&&&x"), "abx");
    EXPECT_EQ(us("ab", "!@-@-@"), "a-b- ");
}

TEST(StringFormat, puts_the_rest_of_a_long_text_at_the_very_end) {
    EXPECT_EQ(us("Microsoft", "@-@"), "M-icrosoft");
    EXPECT_EQ(us("foobar", "\\x@@\\y"), "xfoyobar");
    EXPECT_EQ(us("abc", "!@x"), "axbc");
    EXPECT_EQ(us("abc", "<x"), "xabc");
    EXPECT_EQ(us("ab", "\"[\"&&\"]\""), "[ab]");
}

TEST(StringFormat, the_second_section_serves_null_empty_and_no_text) {
    EXPECT_EQ(us(null(), "@@;\"none\""), "none");
    EXPECT_EQ(us(empty(), "@@;\"none\""), "none");
    EXPECT_EQ(us("", "@@;\"none\""), "none");
    EXPECT_EQ(us("a", "@@;\"none\""), " a");
    EXPECT_EQ(us(null(), "@@"), "");
    EXPECT_EQ(us(empty(), "@@"), "");
    EXPECT_EQ(us("", "@@"), "");
    EXPECT_EQ(us("", "@@;@x@"), " x ");
}

TEST(StringFormat, other_kinds_characters_are_plain_text) {
    EXPECT_EQ(us("ab", "@.0/:d@"), "a.0/:db");
}

TEST(StringFormat, texts_longer_than_any_buffer) {
    const std::string text(5000, 'x');
    EXPECT_EQ(us(std::string_view(text), "@-"), "x-" + text.substr(1));
    EXPECT_EQ(us(std::string_view(text), ">"), std::string(5000, 'X'));
}

TEST(StringFormat, broken_utf8_passes_through) {
    EXPECT_EQ(us("a\xFF\xC3z", ">@@"), "A\xFF\xC3Z");
    EXPECT_EQ(us("\xE2\x82", "@-@-@"), " -\xE2-\x82");
    EXPECT_EQ(us(std::string_view("a\0b", 3), "@-@"), std::string("a-\0b", 4));
}

TEST(LetterCase, keeps_the_length_of_every_character) {
    for (char32_t code = 0; code < 0x11000; ++code) {
        std::string text;
        append_utf8(code, text);
        ASSERT_EQ(upper_case(text).size(), text.size()) << static_cast<std::uint32_t>(code);
        ASSERT_EQ(lower_case(text).size(), text.size()) << static_cast<std::uint32_t>(code);
        ASSERT_EQ(lower_case(upper_case(lower_case(text))), lower_case(text))
            << static_cast<std::uint32_t>(code);
    }
}

} // namespace
} // namespace krv::standard
