#include "standard/utf8.h"

#include "standard/letter_case.h"

#include <gtest/gtest.h>

namespace krv::standard {
namespace {

using namespace std::string_view_literals;

std::string repaired(std::string_view text) {
    std::string storage;
    return std::string(repaired_utf8(text, storage));
}

std::string from_utf16(std::u16string_view text) {
    std::string storage;
    return std::string(utf8_from_utf16({text.data(), text.size()}, storage));
}

TEST(Utf8, valid_text_is_handed_back_as_it_is) {
    for (const auto text : {""sv,
                            "a"sv,
                            "nota\0nota"sv,
                            "città"sv,
                            "12345678"sv,
                            "123456789"sv,
                            "\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"sv}) {
        std::string storage = "untouched";
        EXPECT_EQ(repaired_utf8(text, storage).data(), text.data()) << text;
        EXPECT_EQ(repaired_utf8(text, storage).size(), text.size()) << text;
        EXPECT_EQ(storage, "untouched");
    }
}

TEST(Utf8, a_broken_byte_is_found_at_every_place_of_texts_of_every_length) {
    for (std::size_t size = 1; size < 40; ++size) {
        for (std::size_t at = 0; at < size; ++at) {
            std::string text(size, 'x');
            EXPECT_TRUE(is_valid_utf8(text));
            text[at] = '\xFF';
            EXPECT_FALSE(is_valid_utf8(text)) << size << " " << at;
            EXPECT_EQ(repaired(text),
                      std::string(at, 'x') + "\uFFFD" + std::string(size - at - 1, 'x'));
        }
    }
}

TEST(Utf8, each_broken_sequence_becomes_one_replacement_character) {
    EXPECT_EQ(repaired("a\xE9z"), "a\uFFFDz");         // Latin-1
    EXPECT_EQ(repaired("a\xE2\x82"), "a\uFFFD");       // cut at the end
    EXPECT_EQ(repaired("\xE2\x82g"), "\uFFFDg");       // cut by another character
    EXPECT_EQ(repaired("\x80\x80"), "\uFFFD\uFFFD");   // nothing begins
    EXPECT_EQ(repaired("\xC0\x80"), "\uFFFD");         // overlong
    EXPECT_EQ(repaired("\xF4\x90\x80\x80"), "\uFFFD"); // above U+10FFFF
    EXPECT_EQ(repaired("\xED\xA0\x80z"), "\uFFFDz");   // lone surrogate
    EXPECT_EQ(repaired("\xED\xA0\xBD\xED\xB8\x80"), "\uFFFD\uFFFD");
    EXPECT_EQ(repaired("\xFE\xFF"), "\uFFFD\uFFFD");
    EXPECT_EQ(repaired("\xE0\x80\x80è"), "\uFFFDè");
}

TEST(Utf8, a_NUL_is_kept_in_a_repaired_text) {
    EXPECT_EQ(repaired("a\0\xFF\0b"sv), "a\0\uFFFD\0b"sv);
}

TEST(Utf8, UTF_16_pairs_are_joined_and_lone_surrogates_replaced) {
    EXPECT_EQ(from_utf16(u"a\u00E8\u20AC\U0001F600z"), "a\u00E8\u20AC\U0001F600z");
    EXPECT_EQ(from_utf16(std::u16string{u'a', char16_t{0xD83D}, u'b'}), "a\uFFFDb");
    EXPECT_EQ(from_utf16(std::u16string{char16_t{0xDE00}, char16_t{0xD83D}}), "\uFFFD\uFFFD");
    EXPECT_EQ(from_utf16(std::u16string{char16_t{0xD83D}, char16_t{0xD83D}, char16_t{0xDE00}}),
              "\uFFFD\U0001F600");
}

TEST(EqualInAnyCase, compares_letters_of_Europes_alphabets) {
    EXPECT_TRUE(equal_in_any_case("Nome", "nOME"));
    EXPECT_TRUE(equal_in_any_case("CITTÀ", "città"));
    EXPECT_TRUE(equal_in_any_case("ΑΒΓ ЖЩ", "αβγ жщ"));
    EXPECT_FALSE(equal_in_any_case("citta", "città"));
    EXPECT_FALSE(equal_in_any_case("nome ", "nome"));
    EXPECT_FALSE(equal_in_any_case("nom", "nome"));
    EXPECT_TRUE(equal_in_any_case("\xFFx", "\xFFX"));
    EXPECT_FALSE(equal_in_any_case("\xFF", "\xFE"));
}

} // namespace
} // namespace krv::standard
