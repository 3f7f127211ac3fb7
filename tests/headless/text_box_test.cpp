#include "headless/traced_form.h"

namespace krv::headless {

namespace {

class TextBox : public TracedForm {
protected:
    TextBox() { focus(box()); }

    Lines typed(const std::string& text) {
        person().text(text);
        return taken();
    }
};

} // namespace

TEST_F(TextBox, code_that_assigns_another_text_raises_Change_inside_the_call) {
    box().SetText("abc");
    EXPECT_EQ(taken(), Lines{"InpFld.Change"});
}

TEST_F(TextBox, code_that_assigns_the_same_text_raises_nothing_and_leaves_the_caret) {
    box().SetText("abc");
    box().SetSelStart(1);
    box().SetSelLength(2);
    taken();
    box().SetText("abc");
    EXPECT_EQ(taken(), Lines{});
    EXPECT_EQ(box().SelStart(), 1);
    EXPECT_EQ(box().SelLength(), 2);
}

TEST_F(TextBox, another_text_puts_the_caret_at_0_and_selects_nothing) {
    box().SetText("abc");
    box().SetSelStart(1);
    box().SetSelLength(2);
    box().SetText("abcd");
    EXPECT_EQ(box().SelStart(), 0);
    EXPECT_EQ(box().SelLength(), 0);
}

TEST_F(TextBox, MaxLength_does_not_bound_what_code_assigns) {
    box().SetMaxLength(2);
    box().SetText("abcdef");
    EXPECT_EQ(box().Text(), "abcdef");
}

TEST_F(TextBox, MaxLength_bounds_what_a_person_types) {
    box().SetMaxLength(2);
    typed("abc");
    EXPECT_EQ(box().Text(), "ab");
}

TEST_F(TextBox, a_MaxLength_below_1_is_no_limit) {
    for (const std::int32_t none : {0, -1}) {
        box().SetText("");
        box().SetMaxLength(none);
        typed("abc");
        EXPECT_EQ(box().Text(), "abc");
    }
}

TEST_F(TextBox, a_character_beyond_MaxLength_raises_its_key_events_but_no_Change) {
    box().SetMaxLength(1);
    box().SetText("a");
    taken();
    EXPECT_EQ(typed("b"), (Lines{"InpFld.KeyDown(66, 0)", "InpFld.KeyPress(98)"}));
}

TEST_F(TextBox, SelStart_and_SelLength_are_clipped_to_the_text) {
    box().SetText("abc");
    box().SetSelStart(9);
    EXPECT_EQ(box().SelStart(), 3);
    box().SetSelStart(1);
    box().SetSelLength(9);
    EXPECT_EQ(box().SelLength(), 2);
}

TEST_F(TextBox, a_negative_SelStart_or_SelLength_fails_with_380_and_changes_nothing) {
    box().SetText("abc");
    box().SetSelStart(1);
    box().SetSelLength(1);
    EXPECT_EQ(error_of([this] { box().SetSelStart(-1); }), 380);
    EXPECT_EQ(error_of([this] { box().SetSelLength(-1); }), 380);
    EXPECT_EQ(box().SelStart(), 1);
    EXPECT_EQ(box().SelLength(), 1);
}

TEST_F(TextBox, SelStart_is_the_start_of_a_selection_drawn_to_the_left) {
    box().SetText("abc");
    person().key(35);
    person().key(37, 1);
    person().key(37, 1);
    EXPECT_EQ(box().SelStart(), 1);
    EXPECT_EQ(box().SelLength(), 2);
}

TEST_F(TextBox, a_typed_character_is_key_down_then_key_press_then_Change) {
    EXPECT_EQ(typed("aB"),
              (Lines{"InpFld.KeyDown(65, 0)",
                     "InpFld.KeyPress(97)",
                     "InpFld.Change",
                     "InpFld.KeyDown(66, 1)",
                     "InpFld.KeyPress(66)",
                     "InpFld.Change"}));
    EXPECT_EQ(box().Text(), "aB");
}

TEST_F(TextBox, the_text_is_the_old_one_until_the_key_events_are_over) {
    Lines seen;
    inp_fld_events.on_key_down = [&](std::int16_t&) { seen.push_back(box().Text()); };
    inp_fld_events.on_key_press = [&](std::int16_t&) { seen.push_back(box().Text()); };
    trace.on("InpFld.Change", [&] { seen.push_back(box().Text()); });
    typed("x");
    EXPECT_EQ(seen, (Lines{"", "", "x"}));
}

TEST_F(TextBox, a_key_down_handler_that_sets_0_swallows_the_character) {
    inp_fld_events.on_key_down = [](std::int16_t& code) { code = 0; };
    EXPECT_EQ(typed("a"), Lines{"InpFld.KeyDown(65, 0)"});
    EXPECT_EQ(box().Text(), "");
}

TEST_F(TextBox, a_key_press_handler_that_sets_0_swallows_the_character) {
    inp_fld_events.on_key_press = [](std::int16_t& code) { code = 0; };
    EXPECT_EQ(typed("a"), (Lines{"InpFld.KeyDown(65, 0)", "InpFld.KeyPress(97)"}));
    EXPECT_EQ(box().Text(), "");
}

TEST_F(TextBox, a_key_press_handler_may_put_another_character) {
    inp_fld_events.on_key_press = [](std::int16_t& code) { code = 'X'; };
    typed("a");
    EXPECT_EQ(box().Text(), "X");
}

TEST_F(TextBox, a_character_beyond_16_bits_is_two_key_presses_and_one_Change) {
    EXPECT_EQ(typed("\xF0\x9F\x98\x80"),
              (Lines{"InpFld.KeyDown(231, 0)",
                     "InpFld.KeyPress(-10179)",
                     "InpFld.KeyPress(-8704)",
                     "InpFld.Change"}));
    EXPECT_EQ(box().Text(), "\xF0\x9F\x98\x80");
    EXPECT_EQ(box().SelStart(), 2);
}

TEST_F(TextBox, a_typed_character_replaces_the_selection) {
    box().SetText("abcd");
    box().SetSelStart(1);
    box().SetSelLength(2);
    typed("x");
    EXPECT_EQ(box().Text(), "axd");
}

TEST_F(TextBox, Backspace_and_Delete_remove_the_selection_or_one_character) {
    box().SetText("abcdef");
    box().SetSelStart(2);
    person().key(8);
    EXPECT_EQ(box().Text(), "acdef");
    person().key(46);
    EXPECT_EQ(box().Text(), "adef");
    box().SetSelLength(2);
    person().key(8);
    EXPECT_EQ(box().Text(), "af");
}

TEST_F(TextBox, Backspace_at_the_start_raises_no_Change) {
    box().SetText("a");
    taken();
    person().key(8);
    EXPECT_EQ(taken(), Lines{"InpFld.KeyDown(8, 0)"});
}

TEST_F(TextBox, Left_Right_Home_and_End_move_the_caret) {
    box().SetText("abc");
    std::vector<std::int32_t> places;
    for (const std::int16_t code : {35, 37, 36, 39}) {
        person().key(code);
        places.push_back(box().SelStart());
    }
    EXPECT_EQ(places, (std::vector<std::int32_t>{3, 2, 0, 1}));
}

TEST_F(TextBox, a_key_acts_as_the_code_that_its_handler_left) {
    box().SetText("abc");
    inp_fld_events.on_key_down = [](std::int16_t& code) { code = 35; };
    person().key(112);
    EXPECT_EQ(box().SelStart(), 3);
}

TEST_F(TextBox, with_Ctrl_or_Alt_a_key_has_no_character_and_edits_nothing) {
    box().SetText("abc");
    taken();
    person().key(65, 2);
    person().key(65, 4);
    person().key(46, 2);
    EXPECT_EQ(taken(),
              (Lines{"InpFld.KeyDown(65, 2)", "InpFld.KeyDown(65, 4)", "InpFld.KeyDown(46, 2)"}));
    EXPECT_EQ(box().Text(), "abc");
}

TEST_F(TextBox, a_pasted_text_is_one_Change_and_keeps_its_first_line) {
    person().paste("a\tb\r\nsecond");
    EXPECT_EQ(taken(), (Lines{"InpFld.KeyDown(86, 2)", "InpFld.Change"}));
    EXPECT_EQ(box().Text(), "a\tb");
}

TEST_F(TextBox, a_pasted_text_is_cut_at_MaxLength) {
    box().SetText("ab");
    box().SetSelLength(1);
    box().SetMaxLength(4);
    person().paste("wxyz");
    EXPECT_EQ(box().Text(), "wxyb");
}

TEST_F(TextBox, pasting_nothing_leaves_the_selection) {
    box().SetText("ab");
    box().SetSelLength(1);
    person().paste("\nsecond");
    EXPECT_EQ(box().Text(), "ab");
    EXPECT_EQ(box().SelLength(), 1);
}

TEST_F(TextBox, a_key_down_handler_that_sets_0_swallows_a_paste) {
    inp_fld_events.on_key_down = [](std::int16_t& code) { code = 0; };
    person().paste("abc");
    EXPECT_EQ(box().Text(), "");
}

TEST_F(TextBox, what_the_handler_of_Change_assigns_stays) {
    trace.once("InpFld.Change", [this] { box().SetText(box().Text() + "!"); });
    EXPECT_EQ(
        typed("a"),
        (Lines{"InpFld.KeyDown(65, 0)", "InpFld.KeyPress(97)", "InpFld.Change", "InpFld.Change"}));
    EXPECT_EQ(box().Text(), "a!");
}

TEST_F(TextBox, a_character_is_dropped_when_its_key_down_moved_the_focus_away) {
    inp_fld_events.on_key_down = [this](std::int16_t&) { form.outside().SetFocus(); };
    person().key(65);
    EXPECT_EQ(box().Text(), "");
    EXPECT_EQ(form.outside().Text(), "");
}

} // namespace krv::headless
