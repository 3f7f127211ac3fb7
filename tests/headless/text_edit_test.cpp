#include "krv/headless/text_edit.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace krv::headless {

namespace {

constexpr const char* smile = "\xF0\x9F\x98\x80"; // two UTF-16 units

TextEdit edit_of(const std::string& text, std::int32_t start, std::int32_t length = 0) {
    TextEdit edit;
    edit.assign(text);
    edit.select(start, length);
    return edit;
}

std::pair<std::int32_t, std::int32_t> selection(const TextEdit& edit) {
    return {edit.selection_start(), edit.selection_length()};
}

using Selection = std::pair<std::int32_t, std::int32_t>;

} // namespace

TEST(TextEdit, lengths_count_UTF_16_units) {
    EXPECT_EQ(edit_of("", 0).length(), 0);
    EXPECT_EQ(edit_of("caffè", 0).length(), 5);
    EXPECT_EQ(edit_of(std::string("a") + smile + "€", 0).length(), 4);
}

TEST(TextEdit, a_broken_sequence_counts_as_one_and_is_kept) {
    TextEdit edit = edit_of("a\xFF"
                            "b",
                            1);
    EXPECT_EQ(edit.length(), 3);
    edit.move_right(false);
    EXPECT_TRUE(edit.insert("x", 0));
    EXPECT_EQ(edit.text(), "a\xFFxb");
}

TEST(TextEdit, assigning_puts_the_caret_at_0) {
    TextEdit edit = edit_of("abc", 1, 2);
    edit.assign("wxyz");
    EXPECT_EQ(selection(edit), Selection(0, 0));
}

TEST(TextEdit, a_selection_is_clipped_to_the_text) {
    EXPECT_EQ(selection(edit_of("abc", 7, 7)), Selection(3, 0));
    EXPECT_EQ(selection(edit_of("abc", 1, 7)), Selection(1, 2));
    EXPECT_EQ(selection(edit_of("abc", 1, 2147483647)), Selection(1, 2));
}

TEST(TextEdit, an_insertion_replaces_the_selection) {
    TextEdit edit = edit_of("abcd", 1, 2);
    EXPECT_TRUE(edit.insert("XYZ", 0));
    EXPECT_EQ(edit.text(), "aXYZd");
    EXPECT_EQ(selection(edit), Selection(4, 0));
}

TEST(TextEdit, replacing_a_selection_by_itself_makes_no_difference) {
    TextEdit edit = edit_of("abc", 0, 1);
    EXPECT_FALSE(edit.insert("a", 0));
    EXPECT_EQ(selection(edit), Selection(1, 0));
}

TEST(TextEdit, an_insertion_beyond_the_limit_is_dropped_whole) {
    TextEdit edit = edit_of("abc", 3);
    EXPECT_FALSE(edit.insert("d", 3));
    EXPECT_FALSE(edit.insert(smile, 4));
    EXPECT_EQ(edit.text(), "abc");
    EXPECT_TRUE(edit.insert("d", 4));
}

TEST(TextEdit, a_selection_that_makes_too_little_room_stays) {
    TextEdit edit = edit_of("abcdef", 0, 1);
    EXPECT_FALSE(edit.insert("x", 3));
    EXPECT_EQ(edit.text(), "abcdef");
    EXPECT_EQ(selection(edit), Selection(0, 1));
}

TEST(TextEdit, a_limit_of_0_or_less_is_none) {
    TextEdit edit = edit_of("abc", 3);
    EXPECT_TRUE(edit.insert("d", 0));
    EXPECT_TRUE(edit.insert("e", -1));
    EXPECT_EQ(edit.text(), "abcde");
}

TEST(TextEdit, what_fits_is_cut_between_characters) {
    TextEdit edit = edit_of("ab", 1);
    EXPECT_TRUE(edit.insert_what_fits(std::string("x") + smile + "y", 4));
    EXPECT_EQ(edit.text(),
              "ax"
              "b");
    EXPECT_FALSE(edit.insert_what_fits("y", 3));
    EXPECT_TRUE(edit.insert_what_fits(smile, 5));
    EXPECT_EQ(edit.text(), std::string("ax") + smile + "b");
}

TEST(TextEdit, erasing_removes_the_selection_or_a_whole_character) {
    TextEdit edit = edit_of(std::string("a") + smile + "bc", 3);
    EXPECT_TRUE(edit.erase_backwards());
    EXPECT_EQ(edit.text(), "abc");
    EXPECT_TRUE(edit.erase_forwards());
    EXPECT_EQ(edit.text(), "ac");
    edit.select(0, 2);
    EXPECT_TRUE(edit.erase_forwards());
    EXPECT_EQ(edit.text(), "");
    EXPECT_FALSE(edit.erase_forwards());
    EXPECT_FALSE(edit.erase_backwards());
}

TEST(TextEdit, erasing_at_the_ends_makes_no_difference) {
    TextEdit edit = edit_of("ab", 0);
    EXPECT_FALSE(edit.erase_backwards());
    edit.move_end(false);
    EXPECT_FALSE(edit.erase_forwards());
    EXPECT_EQ(edit.text(), "ab");
}

TEST(TextEdit, the_caret_moves_by_characters) {
    TextEdit edit = edit_of(std::string("a") + smile + "b", 1);
    edit.move_right(false);
    EXPECT_EQ(selection(edit), Selection(3, 0));
    edit.move_left(false);
    EXPECT_EQ(selection(edit), Selection(1, 0));
    edit.move_home(false);
    edit.move_left(false);
    EXPECT_EQ(selection(edit), Selection(0, 0));
    edit.move_end(false);
    edit.move_right(false);
    EXPECT_EQ(selection(edit), Selection(4, 0));
}

TEST(TextEdit, without_Shift_a_selection_is_left_at_its_ends) {
    TextEdit left = edit_of("abcdef", 2, 2);
    left.move_left(false);
    EXPECT_EQ(selection(left), Selection(2, 0));
    TextEdit right = edit_of("abcdef", 2, 2);
    right.move_right(false);
    EXPECT_EQ(selection(right), Selection(4, 0));
}

TEST(TextEdit, with_Shift_the_caret_draws_the_selection) {
    TextEdit edit = edit_of("abcdef", 3);
    edit.move_left(true);
    edit.move_left(true);
    EXPECT_EQ(selection(edit), Selection(1, 2));
    edit.move_right(true);
    edit.move_right(true);
    edit.move_right(true);
    EXPECT_EQ(selection(edit), Selection(3, 1));
    edit.move_home(true);
    EXPECT_EQ(selection(edit), Selection(0, 3));
    edit.move_end(true);
    EXPECT_EQ(selection(edit), Selection(3, 3));
}

TEST(TextEdit, an_edit_inside_a_surrogate_pair_takes_the_whole_character) {
    TextEdit edit = edit_of(std::string("a") + smile + "b", 2, 1);
    EXPECT_EQ(selection(edit), Selection(2, 1));
    EXPECT_TRUE(edit.insert("x", 0));
    EXPECT_EQ(edit.text(), "axb");
    TextEdit caret = edit_of(smile, 1);
    EXPECT_TRUE(caret.insert("x", 0));
    EXPECT_EQ(caret.text(), std::string("x") + smile);
}

} // namespace krv::headless
