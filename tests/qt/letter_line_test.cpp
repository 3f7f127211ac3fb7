#include "qt/letter_line.h"

#include <gtest/gtest.h>

namespace krv::qt {

namespace {

class LetterLines : public ::testing::Test {
protected:
    LetterLines() {
        QFont font("DejaVu Sans");
        font.setPixelSize(11);
        atlas.set_font(font, 1);
    }

    std::u16string letters() const {
        std::u16string text;
        for (const LetterLine::Placed& placed : line.letters()) {
            text += placed.letter->character;
        }
        return text;
    }

    GlyphAtlas atlas;
    LetterLine line;
};

} // namespace

TEST_F(LetterLines, a_text_that_fits_stands_whole) {
    ASSERT_TRUE(line.set(atlas, "Quantit\xC3\xA0", 200));
    EXPECT_EQ(letters(), u"Quantit\u00E0");
    EXPECT_FLOAT_EQ(line.letters().front().x, 0);
    EXPECT_GT(line.width(), line.letters().back().x);
}

TEST_F(LetterLines, a_text_too_wide_ends_in_an_ellipsis_and_fits) {
    ASSERT_TRUE(line.set(atlas, "a long long text", 40));
    EXPECT_EQ(letters().back(), u'\u2026');
    EXPECT_LE(line.width(), 40);
    EXPECT_GT(line.width(), 30);
}

TEST_F(LetterLines, nothing_stands_where_not_even_an_ellipsis_fits) {
    ASSERT_TRUE(line.set(atlas, "text", 3));
    EXPECT_EQ(letters(), u"");
    EXPECT_FLOAT_EQ(line.width(), 0);
}

TEST_F(LetterLines, the_exact_width_is_enough) {
    ASSERT_TRUE(line.set(atlas, "text", 200));
    const float width = line.width();
    ASSERT_TRUE(line.set(atlas, "text", width));
    EXPECT_EQ(letters(), u"text");
    ASSERT_TRUE(line.set(atlas, "text", width - 1));
    EXPECT_EQ(letters().back(), u'\u2026');
}

TEST_F(LetterLines, control_characters_are_blanks) {
    ASSERT_TRUE(line.set(atlas, "a\r\nb\tc", 200));
    EXPECT_EQ(letters(), u"a  b c");
}

TEST_F(LetterLines, what_needs_shaping_is_left_to_qt) {
    for (const char* text : {"\xD7\xA9",         // right to left
                             "e\xCC\x81",        // a letter and its mark
                             "\xE0\xA4\x95",     // joined script
                             "\xF0\x9F\x8D\xA6", // beyond the basic plane
                             "a\xE2\x80\xAE"
                             "b",           // turns the direction
                             "\xFF",        // no UTF-8
                             "\xC0\x80",    // overlong
                             "\xE2\x82"}) { // cut off
        EXPECT_FALSE(line.set(atlas, text, 200)) << text;
    }
}

TEST_F(LetterLines, kerning_is_the_fonts_own) {
    ASSERT_TRUE(line.set(atlas, "AV", 200));
    const QFont font = [] {
        QFont named("DejaVu Sans");
        named.setPixelSize(11);
        return named;
    }();
    EXPECT_NEAR(
        static_cast<double>(line.width()), QFontMetricsF(font).horizontalAdvance("AV"), 0.01);
}

TEST_F(LetterLines, a_drawn_letter_has_ink_and_a_blank_has_none) {
    EXPECT_FALSE(atlas.image(*atlas.letter(U'A'), 0).shares.empty());
    EXPECT_TRUE(atlas.image(*atlas.letter(U' '), 0).shares.empty());
}

} // namespace krv::qt
