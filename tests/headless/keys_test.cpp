#include "headless/traced_form.h"

namespace krv::headless {

namespace {

class Keys : public TracedForm {
protected:
    /// Swallows every key, so that only the codes are seen.
    Lines codes_of(const std::string& text) {
        focus(box());
        inp_fld_events.on_key_down = [](std::int16_t& code) { code = 0; };
        person().text(text);
        return taken();
    }

    std::string character_of(std::int16_t code, std::int16_t shift) {
        form.outside().SetText("");
        focus(form.outside());
        person().key(code, shift);
        return form.outside().Text();
    }
};

} // namespace

TEST_F(Keys, keys_on_Grid_go_to_its_own_handler) {
    person().key(control->Grid(), 116);
    EXPECT_EQ(taken(), Lines{"Grid.KeyDown(116, 0)"});
}

TEST_F(Keys, keys_on_InpFld_go_to_its_own_handler) {
    person().key(box(), 116, 1);
    EXPECT_EQ(taken(), (Lines{"InpFld.GotFocus", "InpFld.KeyDown(116, 1)"}));
}

TEST_F(Keys, keys_on_buttons_and_on_GridIn_go_to_the_control) {
    person().key(control->btnAdd(), 65);
    person().key(control->btnOK(), 116);
    person().key(control->GridIn(), 40);
    EXPECT_EQ(
        taken(),
        (Lines{"surface.KeyDown(65, 0)", "surface.KeyDown(116, 0)", "surface.KeyDown(40, 0)"}));
}

TEST_F(Keys, keys_on_the_surface_go_to_the_control_and_leave_the_focus) {
    focus(form.outside());
    person().key(*control, 117, 2);
    EXPECT_EQ(taken(), Lines{"surface.KeyDown(117, 2)"});
    EXPECT_EQ(focused(), "outside");
}

TEST_F(Keys, Enter_and_Space_on_a_button_click_it_and_reach_no_key_handling) {
    focus(control->btnAdd());
    person().key(13);
    person().key(32);
    EXPECT_EQ(taken(), (Lines{"btnAdd.Click", "btnAdd.Click"}));
}

TEST_F(Keys, Enter_and_Space_elsewhere_are_keys_like_others) {
    focus(control->Grid());
    person().key(13);
    person().key(32);
    EXPECT_EQ(taken(), (Lines{"Grid.KeyDown(13, 0)", "Grid.KeyDown(32, 0)"}));
}

TEST_F(Keys, a_key_without_focus_is_lost) {
    person().key(65);
    person().text("a");
    person().paste("a");
    EXPECT_EQ(taken(), Lines{});
}

TEST_F(Keys, Tab_without_focus_is_lost) {
    person().key(9);
    EXPECT_EQ(focused(), "");
}

TEST_F(Keys, a_key_on_a_part_comes_after_the_focus_was_told) {
    focus(box());
    person().key(control->Grid(), 40);
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "Grid.KeyDown(40, 0)"}));
}

TEST_F(Keys, a_key_meant_for_another_part_is_dropped_when_the_field_takes_the_focus_back) {
    focus(box());
    trace.once("InpFld.LostFocus", [this] { box().SetFocus(); });
    person().key(control->Grid(), 40);
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "InpFld.GotFocus"}));
    EXPECT_EQ(focused(), "InpFld");
}

TEST_F(Keys, a_key_on_a_part_that_cannot_take_the_focus_fails_with_5) {
    control->btnAdd().SetEnabled(false);
    EXPECT_EQ(error_of([this] { person().key(control->btnAdd(), 65); }), 5);
    EXPECT_EQ(error_of([this] { person().key(control->Line1(), 65); }), 5);
    EXPECT_EQ(taken(), Lines{});
}

TEST_F(Keys, each_key_is_worked_through_with_what_it_queued_before_the_next) {
    focus(box());
    inp_fld_events.on_key_down = [this](std::int16_t& code) {
        if (code == 65) {
            form.outside().SetFocus();
            box().SetFocus();
        }
        code = 0;
    };
    person().text("ab");
    EXPECT_EQ(taken(),
              (Lines{"InpFld.KeyDown(65, 0)",
                     "InpFld.LostFocus",
                     "outside.GotFocus",
                     "outside.LostFocus",
                     "InpFld.GotFocus",
                     "InpFld.KeyDown(66, 0)"}));
}

TEST_F(Keys, what_is_typed_goes_to_where_the_focus_is_by_then) {
    focus(form.outside());
    person().text("a\tb");
    EXPECT_EQ(form.outside().Text(), "a");
    EXPECT_EQ(focused(), "Grid");
    EXPECT_EQ(taken().back(), "Grid.KeyDown(66, 0)");
}

TEST_F(Keys, a_person_s_key_comes_behind_what_is_queued) {
    box().SetFocus();
    person().key(116);
    EXPECT_EQ(taken(), (Lines{"InpFld.GotFocus", "InpFld.KeyDown(116, 0)"}));
}

TEST_F(Keys, typed_characters_have_their_keys) {
    EXPECT_EQ(codes_of("aZ0 \t"),
              (Lines{"InpFld.KeyDown(65, 0)",
                     "InpFld.KeyDown(90, 1)",
                     "InpFld.KeyDown(48, 0)",
                     "InpFld.KeyDown(32, 0)",
                     "InpFld.LostFocus"}));
}

TEST_F(Keys, other_characters_have_the_key_231) {
    EXPECT_EQ(codes_of("{è\xF0\x9F\x98\x80"), (Lines(3, "InpFld.KeyDown(231, 0)")));
}

TEST_F(Keys, every_kind_of_line_end_is_one_Enter) {
    EXPECT_EQ(codes_of("\r\n\n\r"), (Lines(3, "InpFld.KeyDown(13, 0)")));
}

TEST_F(Keys, an_Enter_that_nobody_swallows_types_nothing) {
    focus(form.outside());
    person().text("a\nb");
    EXPECT_EQ(form.outside().Text(), "ab");
}

TEST_F(Keys, keys_have_the_characters_of_a_keyboard) {
    Lines characters;
    for (const std::int16_t code : {65, 90, 48, 57, 32, 96, 105, 106, 107, 109, 110, 111}) {
        characters.push_back(character_of(code, 0));
    }
    EXPECT_EQ(characters, (Lines{"a", "z", "0", "9", " ", "0", "9", "*", "+", "-", ".", "/"}));
}

TEST_F(Keys, with_Shift_letters_are_capitals_and_digits_have_no_character) {
    EXPECT_EQ(character_of(65, 1), "A");
    EXPECT_EQ(character_of(48, 1), "");
    EXPECT_EQ(character_of(32, 1), " ");
}

TEST_F(Keys, other_keys_have_no_character) {
    for (const std::int16_t code : {0, 13, 27, 38, 47, 58, 64, 91, 95, 108, 112, 186, 231, -1}) {
        EXPECT_EQ(character_of(code, 0), "") << code;
    }
}

TEST_F(Keys, the_arrows_move_nothing_in_a_grid) {
    focus(control->Grid());
    control->Grid().SetRow(2);
    taken();
    for (const std::int16_t code : {37, 38, 39, 40}) {
        person().key(code);
    }
    EXPECT_EQ(control->Grid().Row(), 2);
    EXPECT_EQ(control->Grid().Col(), 0);
    EXPECT_EQ(taken().size(), 4U);
}

TEST_F(Keys, End_and_Home_scroll_a_grid_unless_they_are_swallowed) {
    control->Grid().SetRows(100);
    focus(control->Grid());
    person().key(35);
    EXPECT_EQ(control->Grid().TopRow(), 93);
    grid_events.on_key_down = [](std::int16_t& code) { code = 0; };
    person().key(36);
    EXPECT_EQ(control->Grid().TopRow(), 93);
    EXPECT_EQ(control->Grid().Row(), 0);
}

TEST_F(Keys, a_key_that_moves_the_list_s_row_scrolls_the_list_to_it) {
    control->Grid().SetRows(100);
    inp_fld_events.on_key_down = [this](std::int16_t&) { control->Grid().SetRow(50); };
    surface_events.on_key_down = [this](std::int16_t&) { control->Grid().SetRow(3); };
    focus(box());
    person().key(112);
    EXPECT_TRUE(control->Grid().RowIsVisible(50));
    person().key(*control, 112);
    EXPECT_TRUE(control->Grid().RowIsVisible(3));
}

TEST_F(Keys, a_key_that_moves_no_row_leaves_the_scrolling) {
    control->Grid().SetRows(100);
    control->Grid().SetTopRow(50);
    focus(box());
    person().key(112);
    EXPECT_EQ(control->Grid().TopRow(), 50);
}

TEST_F(Keys, the_first_error_leaves_the_turn_and_the_rest_of_the_text_stays_typed_ahead) {
    focus(box());
    trace.once("InpFld.Change", [] { fail_with(1234); });
    EXPECT_EQ(error_of([this] { person().text("abc"); }), 1234);
    EXPECT_EQ(box().Text(), "a");
    form.turn();
    EXPECT_EQ(box().Text(), "abc");
}

} // namespace krv::headless
