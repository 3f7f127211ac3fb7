#include "headless/traced_form.h"

namespace krv::headless {

namespace {

class FormFocus : public TracedForm {};

} // namespace

TEST_F(FormFocus, a_new_form_has_no_focus) {
    EXPECT_EQ(focused(), "");
}

TEST_F(FormFocus, SetFocus_moves_at_once_and_tells_in_the_next_turn) {
    focus(box());
    form.outside().SetFocus();
    EXPECT_EQ(focused(), "outside");
    EXPECT_EQ(taken(), Lines{});
    form.turn();
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "surface.ExitFocus", "outside.GotFocus"}));
}

TEST_F(FormFocus, SetFocus_on_the_part_that_has_it_queues_nothing) {
    focus(box());
    box().SetFocus();
    EXPECT_TRUE(form.queue().empty());
}

TEST_F(FormFocus, every_move_is_told_even_when_the_focus_comes_back_before_the_turn) {
    focus(box());
    control->btnAdd().SetFocus();
    box().SetFocus();
    form.turn();
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "InpFld.GotFocus"}));
}

TEST_F(FormFocus, SetFocus_on_a_hidden_or_disabled_part_fails_with_5) {
    focus(control->btnAdd());
    box().SetVisible(false);
    EXPECT_EQ(error_of([this] { box().SetFocus(); }), 5);
    box().SetVisible(true);
    box().SetEnabled(false);
    EXPECT_EQ(error_of([this] { box().SetFocus(); }), 5);
    EXPECT_EQ(focused(), "btnAdd");
    EXPECT_TRUE(form.queue().empty());
}

TEST_F(FormFocus, a_part_without_tab_stop_takes_the_focus_all_the_same) {
    box().SetTabStop(false);
    box().SetFocus();
    EXPECT_EQ(focused(), "InpFld");
}

TEST_F(FormFocus, Line1_has_no_focus_and_no_tab_stop) {
    HeadlessLine& line = control->Line1();
    EXPECT_EQ(error_of([&] { line.SetFocus(); }), 5);
    EXPECT_EQ(error_of([&] { line.TabStop(); }), 438);
    EXPECT_EQ(error_of([&] { line.SetTabStop(true); }), 438);
}

TEST_F(FormFocus, hiding_the_focused_part_gives_the_focus_to_the_next_tab_stop) {
    focus(box());
    box().SetVisible(false);
    EXPECT_EQ(focused(), "btnAdd");
    EXPECT_EQ(taken(), Lines{});
    form.turn();
    EXPECT_EQ(taken(), Lines{"InpFld.LostFocus"});
}

TEST_F(FormFocus, disabling_the_focused_part_gives_the_focus_away_like_hiding) {
    focus(control->btnAdd());
    control->btnAdd().SetEnabled(false);
    EXPECT_EQ(focused(), "btnInsert");
}

TEST_F(FormFocus, hidden_and_disabled_parts_and_parts_without_tab_stop_are_passed_over) {
    focus(box());
    control->btnAdd().SetVisible(false);
    control->btnInsert().SetEnabled(false);
    control->btnCopy().SetTabStop(false);
    box().SetVisible(false);
    EXPECT_EQ(focused(), "btnDelete");
}

TEST_F(FormFocus, the_search_wraps_around_the_form_s_other_parts_included) {
    focus(control->btnOK());
    control->btnOK().SetVisible(false);
    EXPECT_EQ(focused(), "outside");
    form.turn();
    EXPECT_EQ(taken(), (Lines{"surface.ExitFocus", "outside.GotFocus"}));
}

TEST_F(FormFocus, without_another_tab_stop_nobody_gets_the_focus) {
    focus(box());
    form.outside().SetTabStop(false);
    for (platform::Part* part : control->Controls()) {
        if (part != &control->Line1()) {
            part->SetTabStop(false);
        }
    }
    box().SetVisible(false);
    EXPECT_EQ(focused(), "");
    form.turn();
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "surface.ExitFocus"}));
}

TEST_F(FormFocus, hiding_a_part_without_the_focus_moves_nothing) {
    focus(box());
    control->btnAdd().SetVisible(false);
    EXPECT_EQ(focused(), "InpFld");
    EXPECT_TRUE(form.queue().empty());
}

TEST_F(FormFocus, clearing_the_tab_stop_of_the_focused_part_moves_nothing) {
    focus(box());
    box().SetTabStop(false);
    EXPECT_EQ(focused(), "InpFld");
}

TEST_F(FormFocus, ExitFocus_is_dropped_when_the_focus_is_inside_again) {
    focus(box());
    form.outside().SetFocus();
    box().SetFocus();
    form.turn();
    EXPECT_EQ(
        taken(),
        (Lines{"InpFld.LostFocus", "outside.GotFocus", "outside.LostFocus", "InpFld.GotFocus"}));
}

TEST_F(FormFocus, ExitFocus_is_dropped_when_the_handler_of_LostFocus_takes_the_focus_back) {
    focus(box());
    trace.once("InpFld.LostFocus", [this] { box().SetFocus(); });
    person().focus(form.outside());
    EXPECT_EQ(focused(), "InpFld");
    EXPECT_EQ(
        taken(),
        (Lines{"InpFld.LostFocus", "outside.GotFocus", "outside.LostFocus", "InpFld.GotFocus"}));
}

TEST_F(FormFocus, moving_inside_the_control_is_no_ExitFocus) {
    focus(box());
    person().focus(control->Grid());
    EXPECT_EQ(taken(), Lines{"InpFld.LostFocus"});
}

TEST_F(FormFocus, moving_to_another_control_is_an_ExitFocus_of_the_first) {
    HeadlessControl& other = form.add_control();
    focus(box());
    person().focus(other.InpFld());
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "surface.ExitFocus"}));
}

TEST_F(FormFocus, Tab_walks_through_the_control_and_the_form_in_tab_order) {
    focus(form.outside());
    Lines walk;
    for (int i = 0; i < 10; ++i) {
        person().key(9);
        walk.push_back(focused());
    }
    EXPECT_EQ(walk,
              (Lines{"Grid",
                     "GridIn",
                     "InpFld",
                     "btnAdd",
                     "btnInsert",
                     "btnCopy",
                     "btnDelete",
                     "btnOK",
                     "outside",
                     "Grid"}));
}

TEST_F(FormFocus, Shift_Tab_walks_backwards) {
    focus(control->Grid());
    person().key(9, 1);
    EXPECT_EQ(focused(), "outside");
    person().key(9, 1);
    EXPECT_EQ(focused(), "btnOK");
    person().key(9, 1);
    EXPECT_EQ(focused(), "btnDelete");
}

TEST_F(FormFocus, Tab_passes_into_the_next_control) {
    HeadlessControl& other = form.add_control();
    focus(control->btnOK());
    person().key(9);
    EXPECT_EQ(form.focus().current(), &other.Grid());
}

TEST_F(FormFocus, Tab_raises_no_key_down) {
    focus(box());
    person().key(9);
    EXPECT_EQ(taken(), Lines{"InpFld.LostFocus"});
    EXPECT_EQ(focused(), "btnAdd");
}

TEST_F(FormFocus, Tab_reaches_the_key_handler_when_no_other_part_of_the_control_is_a_tab_stop) {
    for (platform::Part* part : control->Controls()) {
        if (part != &control->Line1() && part != &box()) {
            part->SetTabStop(false);
        }
    }
    focus(box());
    person().key(9);
    person().key(9, 1);
    EXPECT_EQ(taken(), (Lines{"InpFld.KeyDown(9, 0)", "InpFld.KeyDown(9, 1)"}));
    EXPECT_EQ(focused(), "InpFld");
}

TEST_F(FormFocus, Tab_reaches_the_key_handler_of_a_part_that_is_no_tab_stop) {
    box().SetTabStop(false);
    focus(box());
    person().key(9);
    EXPECT_EQ(taken(), Lines{"InpFld.KeyDown(9, 0)"});
    EXPECT_EQ(focused(), "InpFld");
}

TEST_F(FormFocus, Tab_with_Ctrl_or_Alt_reaches_the_key_handler) {
    focus(box());
    person().key(9, 2);
    person().key(9, 3);
    EXPECT_EQ(taken(), (Lines{"InpFld.KeyDown(9, 2)", "InpFld.KeyDown(9, 3)"}));
}

TEST_F(FormFocus, Tab_always_leaves_a_part_outside_the_controls) {
    form.outside().SetTabStop(false);
    focus(form.outside());
    person().key(9);
    EXPECT_EQ(focused(), "Grid");
}

TEST_F(FormFocus, the_focus_moved_by_a_person_fails_with_5_on_a_part_that_cannot_take_it) {
    box().SetVisible(false);
    EXPECT_EQ(error_of([this] { person().focus(box()); }), 5);
    EXPECT_EQ(error_of([this] { person().focus(control->Line1()); }), 5);
}

TEST_F(FormFocus, a_person_moves_the_focus_behind_what_is_queued) {
    box().SetFocus();
    person().focus(form.outside());
    EXPECT_EQ(
        taken(),
        (Lines{"InpFld.GotFocus", "InpFld.LostFocus", "surface.ExitFocus", "outside.GotFocus"}));
}

TEST_F(FormFocus, an_object_of_the_host_takes_the_focus_like_a_part_of_the_form) {
    const auto object = form.make_object("uno", FocusRole::takes_focus);
    focus(box());
    object->SetFocus();
    EXPECT_EQ(focused(), "uno");
    form.turn();
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "surface.ExitFocus"}));
}

TEST_F(FormFocus, an_object_that_takes_no_focus_fails_with_5) {
    const auto object = form.make_object("due", FocusRole::takes_none);
    EXPECT_EQ(error_of([&] { object->SetFocus(); }), 5);
}

TEST_F(FormFocus, Tab_never_stops_at_an_object_of_the_host) {
    const auto object = form.make_object("uno", FocusRole::takes_focus);
    focus(control->btnOK());
    person().key(9);
    EXPECT_EQ(focused(), "outside");
    object->SetFocus();
    person().key(9);
    EXPECT_EQ(focused(), "outside");
}

TEST_F(FormFocus, an_object_that_is_gone_leaves_nobody_with_the_focus) {
    auto object = form.make_object("uno", FocusRole::takes_focus);
    object->SetFocus();
    object.reset();
    EXPECT_EQ(focused(), "");
}

TEST(HostObject, takes_no_focus_once_its_form_is_gone) {
    std::shared_ptr<HostObject> object;
    {
        HeadlessForm form;
        object = form.make_object("uno", FocusRole::takes_focus);
        object->SetFocus();
    }
    EXPECT_EQ(error_of([&] { object->SetFocus(); }), 5);
}

} // namespace krv::headless
