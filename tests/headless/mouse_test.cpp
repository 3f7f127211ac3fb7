#include "headless/traced_form.h"

namespace krv::headless {

namespace {

class MouseInput : public TracedForm {
protected:
    /// A place in a row of a grid whose rows are 240 high, in column 1.
    static Mouse at_row(int row) { return {1, 0, 1000, static_cast<float>(row * 240 + 100)}; }

    std::vector<std::int32_t> selection(HeadlessGrid& grid) {
        return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()};
    }
};

using Numbers = std::vector<std::int32_t>;

} // namespace

TEST_F(MouseInput, a_click_on_a_button_moves_the_focus_first) {
    focus(box());
    person().click(control->btnAdd());
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "btnAdd.Click"}));
    EXPECT_EQ(focused(), "btnAdd");
}

TEST_F(MouseInput, a_button_clicks_at_the_release) {
    person().press(control->btnAdd());
    EXPECT_EQ(taken(), Lines{});
    person().release(control->btnAdd());
    EXPECT_EQ(taken(), Lines{"btnAdd.Click"});
}

TEST_F(MouseInput, a_release_elsewhere_does_nothing_and_ends_the_press) {
    person().press(control->btnAdd());
    person().release(control->btnOK());
    person().release(control->btnAdd());
    EXPECT_EQ(taken(), Lines{});
}

TEST_F(MouseInput, only_the_left_button_clicks_a_button) {
    person().click(control->btnAdd(), {2, 0, 10, 10});
    EXPECT_EQ(taken(), Lines{});
    EXPECT_EQ(focused(), "btnAdd");
}

TEST_F(MouseInput, code_that_shows_hides_or_captions_a_button_clicks_nothing) {
    control->btnAdd().SetCaption("aggiungi");
    control->btnAdd().SetVisible(false);
    control->btnAdd().SetVisible(true);
    control->btnAdd().SetFocus();
    form.turn();
    EXPECT_EQ(taken(), Lines{});
}

TEST_F(MouseInput, hidden_and_disabled_parts_and_lines_ignore_the_mouse) {
    control->btnAdd().SetVisible(false);
    control->Grid().SetEnabled(false);
    focus(box());
    person().click(control->btnAdd());
    person().click(control->Grid(), at_row(1));
    person().double_click(control->Line1());
    EXPECT_EQ(taken(), Lines{});
    EXPECT_EQ(focused(), "InpFld");
    EXPECT_EQ(control->Grid().Row(), 0);
}

TEST_F(MouseInput, press_release_and_click_are_dropped_when_a_refused_field_takes_the_focus_back) {
    focus(box());
    trace.on("InpFld.LostFocus", [this] { box().SetFocus(); });
    person().click(control->Grid(), at_row(2));
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "InpFld.GotFocus"}));
    EXPECT_EQ(control->Grid().Row(), 0);
    person().click(control->btnOK());
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "InpFld.GotFocus"}));
    person().press(control->btnOK());
    person().release(control->btnOK());
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "InpFld.GotFocus"}));
}

TEST_F(MouseInput, a_double_click_is_dropped_whole_when_its_first_press_is) {
    focus(box());
    trace.once("InpFld.LostFocus", [this] { box().SetFocus(); });
    person().double_click(control->GridIn(), at_row(1));
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "InpFld.GotFocus"}));
}

TEST_F(MouseInput, a_press_is_dropped_when_its_part_is_hidden_by_then) {
    focus(box());
    trace.on("InpFld.LostFocus", [this] { control->btnOK().SetVisible(false); });
    person().click(control->btnOK());
    EXPECT_EQ(taken(), (Lines{"InpFld.LostFocus", "surface.ExitFocus", "outside.GotFocus"}));
}

TEST_F(MouseInput, a_press_on_Grid_makes_the_row_current_before_the_press_event) {
    person().press(control->Grid(), at_row(2));
    EXPECT_EQ(taken(), (Lines{"Grid.RowColChange", "Grid.MouseDown(1, 0, 1000, 580)"}));
    EXPECT_EQ(selection(control->Grid()), (Numbers{2, 0, 2, 2}));
}

TEST_F(MouseInput, a_press_on_GridIn_makes_the_cell_current_the_caption_row_too) {
    person().press(control->GridIn(), at_row(1));
    EXPECT_EQ(selection(control->GridIn()), (Numbers{1, 1, 1, 1}));
    person().press(control->GridIn(), {1, 0, 2000, 100});
    EXPECT_EQ(selection(control->GridIn()), (Numbers{0, 2, 0, 2}));
}

TEST_F(MouseInput, a_click_on_a_grid_is_press_release_click) {
    person().click(control->Grid(), {2, 1, 1000, 580});
    EXPECT_EQ(taken(),
              (Lines{"Grid.RowColChange",
                     "Grid.MouseDown(2, 1, 1000, 580)",
                     "Grid.MouseUp(2, 1, 1000, 580)",
                     "Grid.Click(2, 1, 1000, 580)"}));
}

TEST_F(MouseInput, a_press_beside_the_cells_moves_nothing_and_is_told) {
    person().click(control->Grid(), {1, 0, 5000, 580});
    EXPECT_EQ(taken(),
              (Lines{"Grid.MouseDown(1, 0, 5000, 580)",
                     "Grid.MouseUp(1, 0, 5000, 580)",
                     "Grid.Click(1, 0, 5000, 580)"}));
}

TEST_F(MouseInput, the_release_comes_when_the_press_and_what_it_queued_are_worked_through) {
    trace.once("Grid.RowColChange", [this] { box().SetFocus(); });
    person().click(control->Grid(), at_row(2));
    EXPECT_EQ(taken(),
              (Lines{"Grid.RowColChange",
                     "Grid.MouseDown(1, 0, 1000, 580)",
                     "InpFld.GotFocus",
                     "Grid.MouseUp(1, 0, 1000, 580)",
                     "Grid.Click(1, 0, 1000, 580)"}));
}

TEST_F(MouseInput, a_yield_inside_the_press_does_not_deliver_the_release) {
    trace.once("Grid.RowColChange", [this] {
        form.turn();
        trace.note("yielded");
    });
    person().click(control->Grid(), at_row(2));
    EXPECT_EQ(taken(),
              (Lines{"Grid.RowColChange",
                     "yielded",
                     "Grid.MouseDown(1, 0, 1000, 580)",
                     "Grid.MouseUp(1, 0, 1000, 580)",
                     "Grid.Click(1, 0, 1000, 580)"}));
}

TEST_F(MouseInput, a_double_click_is_press_release_click_press_double_click_release) {
    const Mouse mouse{1, 0, 10, 10};
    person().double_click(control->GridIn(), mouse);
    EXPECT_EQ(taken(),
              (Lines{"GridIn.MouseDown(1, 0, 10, 10)",
                     "GridIn.MouseUp(1, 0, 10, 10)",
                     "GridIn.Click(1, 0, 10, 10)",
                     "GridIn.MouseDown(1, 0, 10, 10)",
                     "GridIn.DblClick",
                     "GridIn.MouseUp(1, 0, 10, 10)"}));
}

TEST_F(MouseInput, the_second_press_of_a_double_click_takes_the_focus_again) {
    trace.on("GridIn.MouseDown", [this] { box().SetFocus(); });
    person().double_click(control->GridIn(), {1, 0, 10, 10});
    EXPECT_EQ(taken(),
              (Lines{"GridIn.MouseDown(1, 0, 10, 10)",
                     "InpFld.GotFocus",
                     "GridIn.MouseUp(1, 0, 10, 10)",
                     "GridIn.Click(1, 0, 10, 10)",
                     "InpFld.LostFocus",
                     "GridIn.MouseDown(1, 0, 10, 10)",
                     "InpFld.GotFocus",
                     "GridIn.DblClick",
                     "GridIn.MouseUp(1, 0, 10, 10)"}));
    EXPECT_EQ(focused(), "InpFld");
}

TEST_F(MouseInput, a_double_click_on_the_editor_presses_twice) {
    focus(box());
    person().double_click(box(), {1, 2, 150, 90});
    EXPECT_EQ(taken(),
              (Lines{"InpFld.MouseDown(1, 2, 150, 90)",
                     "InpFld.MouseDown(1, 2, 150, 90)",
                     "InpFld.DblClick"}));
}

TEST_F(MouseInput, a_double_click_ends_when_its_first_click_hides_the_part) {
    trace.on("btnAdd.Click", [this] { control->btnAdd().SetVisible(false); });
    person().double_click(control->btnAdd());
    EXPECT_EQ(taken(), Lines{"btnAdd.Click"});
}

TEST_F(MouseInput, a_double_click_clicks_a_button_once) {
    person().double_click(control->btnAdd());
    EXPECT_EQ(taken(), Lines{"btnAdd.Click"});
}

TEST_F(MouseInput, a_drag_moves_RowSel_and_not_Row) {
    person().press(control->Grid(), at_row(1));
    person().move(control->Grid(), at_row(2));
    person().move(control->Grid(), at_row(4));
    EXPECT_EQ(selection(control->Grid()), (Numbers{1, 0, 4, 2}));
    person().release(control->Grid(), at_row(4));
    EXPECT_EQ(taken(),
              (Lines{"Grid.RowColChange",
                     "Grid.MouseDown(1, 0, 1000, 340)",
                     "Grid.MouseUp(1, 0, 1000, 1060)",
                     "Grid.Click(1, 0, 1000, 1060)"}));
}

TEST_F(MouseInput, moving_without_a_press_drags_nothing) {
    person().move(control->Grid(), at_row(2));
    EXPECT_EQ(selection(control->Grid()), (Numbers{0, 0, 0, 0}));
    person().click(control->Grid(), at_row(1));
    person().move(control->Grid(), at_row(2));
    EXPECT_EQ(selection(control->Grid()), (Numbers{1, 0, 1, 2}));
}

TEST_F(MouseInput, a_release_elsewhere_ends_a_drag) {
    person().press(control->Grid(), at_row(1));
    person().release(control->btnAdd());
    person().move(control->Grid(), at_row(3));
    EXPECT_EQ(selection(control->Grid()), (Numbers{1, 0, 1, 2}));
}

TEST_F(MouseInput, a_part_that_its_press_hides_gets_no_release) {
    trace.on("GridIn.MouseDown", [this] { control->GridIn().SetVisible(false); });
    person().click(control->GridIn(), {1, 0, 10, 10});
    EXPECT_EQ(taken(), (Lines{"GridIn.MouseDown(1, 0, 10, 10)", "InpFld.GotFocus"}));
}

TEST_F(MouseInput, after_an_error_in_the_press_the_release_still_waits) {
    trace.once("Grid.MouseDown", [] { fail_with(1234); });
    EXPECT_EQ(error_of([this] { person().click(control->Grid(), at_row(1)); }), 1234);
    taken();
    form.turn();
    EXPECT_EQ(taken(), (Lines{"Grid.MouseUp(1, 0, 1000, 340)", "Grid.Click(1, 0, 1000, 340)"}));
}

} // namespace krv::headless
