#include "headless/traced_form.h"

namespace krv::headless {

namespace {

/// A way to make an event of a control come, and what is heard when the control is destroyed in it.
struct Way {
    const char* event;
    std::function<void(HeadlessForm&, HeadlessControl&)> act;
    Lines heard;
};

std::ostream& operator<<(std::ostream& out, const Way& way) {
    return out << way.event;
}

constexpr Mouse in_row_2{1, 0, 10, 580};

std::vector<Way> ways() {
    return {
        {"InpFld.Change",
         [](HeadlessForm&, HeadlessControl& c) { c.InpFld().SetText("x"); },
         {"InpFld.Change"}},
        {"InpFld.GotFocus",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().focus(c.InpFld()); },
         {"InpFld.GotFocus", "outside.GotFocus"}},
        {"InpFld.LostFocus",
         [](HeadlessForm& f, HeadlessControl& c) {
             f.person().focus(c.InpFld());
             f.person().focus(f.outside());
         },
         {"InpFld.GotFocus", "InpFld.LostFocus", "outside.GotFocus"}},
        {"surface.ExitFocus",
         [](HeadlessForm& f, HeadlessControl& c) {
             f.person().focus(c.Grid());
             f.person().focus(f.outside());
         },
         {"surface.ExitFocus", "outside.GotFocus"}},
        {"InpFld.KeyDown",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().key(c.InpFld(), 65); },
         {"InpFld.GotFocus", "InpFld.KeyDown(65, 0)", "outside.GotFocus"}},
        {"InpFld.KeyPress",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().key(c.InpFld(), 65); },
         {"InpFld.GotFocus", "InpFld.KeyDown(65, 0)", "InpFld.KeyPress(97)", "outside.GotFocus"}},
        {"InpFld.MouseDown",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().double_click(c.InpFld()); },
         {"InpFld.GotFocus", "InpFld.MouseDown(1, 0, 0, 0)", "outside.GotFocus"}},
        {"InpFld.DblClick",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().double_click(c.InpFld()); },
         {"InpFld.GotFocus",
          "InpFld.MouseDown(1, 0, 0, 0)",
          "InpFld.MouseDown(1, 0, 0, 0)",
          "InpFld.DblClick",
          "outside.GotFocus"}},
        {"btnAdd.Click",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().double_click(c.btnAdd()); },
         {"btnAdd.Click", "outside.GotFocus"}},
        {"surface.KeyDown",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().key(c.btnAdd(), 116); },
         {"surface.KeyDown(116, 0)", "outside.GotFocus"}},
        {"surface.Resize",
         [](HeadlessForm&, HeadlessControl& c) { c.SetWidth(7000); },
         {"surface.Resize"}},
        {"Grid.RowColChange",
         [](HeadlessForm&, HeadlessControl& c) { c.Grid().SetRow(2); },
         {"Grid.RowColChange"}},
        {"Grid.KeyDown",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().key(c.Grid(), 35); },
         {"Grid.KeyDown(35, 0)", "outside.GotFocus"}},
        {"Grid.MouseDown",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().click(c.Grid(), in_row_2); },
         {"Grid.RowColChange", "Grid.MouseDown(1, 0, 10, 580)", "outside.GotFocus"}},
        {"Grid.MouseUp",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().click(c.Grid(), in_row_2); },
         {"Grid.RowColChange",
          "Grid.MouseDown(1, 0, 10, 580)",
          "Grid.MouseUp(1, 0, 10, 580)",
          "outside.GotFocus"}},
        {"Grid.Click",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().click(c.Grid(), in_row_2); },
         {"Grid.RowColChange",
          "Grid.MouseDown(1, 0, 10, 580)",
          "Grid.MouseUp(1, 0, 10, 580)",
          "Grid.Click(1, 0, 10, 580)",
          "outside.GotFocus"}},
        {"GridIn.DblClick",
         [](HeadlessForm& f, HeadlessControl& c) { f.person().double_click(c.GridIn()); },
         {"GridIn.MouseDown(1, 0, 0, 0)",
          "GridIn.MouseUp(1, 0, 0, 0)",
          "GridIn.Click(1, 0, 0, 0)",
          "GridIn.MouseDown(1, 0, 0, 0)",
          "GridIn.DblClick",
          "outside.GotFocus"}},
    };
}

std::string name_of(const ::testing::TestParamInfo<Way>& way) {
    std::string name = way.param.event;
    name.replace(name.find('.'), 1, "_");
    return name;
}

class Lifetime : public TracedForm {};

class DestroyedInside : public TracedForm, public ::testing::WithParamInterface<Way> {};

} // namespace

TEST_P(DestroyedInside, its_event_nothing_more_is_heard_of_a_control) {
    trace.once(GetParam().event, [this] { destroy(); });
    GetParam().act(form, *control);
    form.turn();
    EXPECT_EQ(taken(), GetParam().heard);
    EXPECT_EQ(control, nullptr);
}

TEST_P(DestroyedInside, its_event_a_control_may_be_followed_by_turns_and_a_new_control) {
    trace.once(GetParam().event, [this] {
        destroy();
        form.turn();
        form.add_control();
        form.person().key(65);
    });
    GetParam().act(form, *control);
    form.turn();
    EXPECT_EQ(form.removed_controls(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Events, DestroyedInside, ::testing::ValuesIn(ways()), name_of);

TEST_F(Lifetime, a_control_destroyed_in_its_property_notification_is_left_alone) {
    control->set_on_property_changed([this](std::string_view) { destroy(); });
    HeadlessControl* const dying = control;
    dying->PropertyChanged("Cols");
    EXPECT_EQ(control, nullptr);
    form.turn();
    EXPECT_EQ(form.removed_controls(), 0U);
}

TEST_F(Lifetime, a_control_destroyed_while_a_message_box_is_shown_is_left_alone) {
    trace.on("btnAdd.Click",
             [this] { form.application().MsgBox("sure?", platform::MessageButtons::yes_no); });
    form.application().set_ask([this](const ShownMessage&) {
        destroy();
        form.turn();
        return platform::MessageAnswer::yes;
    });
    person().click(control->btnAdd());
    EXPECT_EQ(taken(), (Lines{"btnAdd.Click", "outside.GotFocus"}));
}

TEST_F(Lifetime, a_control_destroyed_by_a_waiting_row_change_is_left_alone) {
    control->Grid().SetRow(5);
    control->Grid().SetRows(2);
    taken();
    trace.once("Grid.RowColChange", [this] { destroy(); });
    control->Grid().SetRow(0); // delivers the waiting one first
    EXPECT_EQ(taken(), Lines{"Grid.RowColChange"});
}

TEST_F(Lifetime, notifications_of_a_destroyed_control_are_dropped) {
    focus(box());
    form.outside().SetFocus();
    control->Grid().SetRow(5);
    control->Grid().SetRows(2);
    taken();
    destroy();
    form.turn();
    EXPECT_EQ(taken(), Lines{"outside.GotFocus"});
}

TEST_F(Lifetime, the_surface_stays_until_no_call_can_be_inside_it) {
    std::size_t held = 0;
    trace.once("btnAdd.Click", [&] {
        destroy();
        form.turn();
        held = form.removed_controls();
    });
    person().click(control->btnAdd());
    EXPECT_EQ(held, 1U);
    form.turn();
    EXPECT_EQ(form.removed_controls(), 0U);
}

TEST_F(Lifetime, the_focus_of_a_destroyed_control_moves_on_by_tab_order) {
    HeadlessControl& other = form.add_control();
    focus(box());
    destroy();
    EXPECT_EQ(form.focus().current(), &other.Grid());
}

TEST_F(Lifetime, the_focus_of_a_destroyed_control_is_lost_when_there_is_no_other_tab_stop) {
    form.outside().SetEnabled(false);
    focus(box());
    destroy();
    EXPECT_EQ(focused(), "");
}

TEST_F(Lifetime, a_control_destroyed_without_the_focus_leaves_it_where_it_is) {
    focus(form.outside());
    destroy();
    form.turn();
    EXPECT_EQ(focused(), "outside");
    EXPECT_EQ(taken(), Lines{});
}

TEST_F(Lifetime, the_other_controls_live_on) {
    HeadlessControl& other = form.add_control();
    other.btnAdd().SetEvents(&ok_events);
    destroy();
    person().click(other.btnAdd());
    EXPECT_EQ(taken(), Lines{"btnOK.Click"});
}

TEST_F(Lifetime, a_drag_ends_with_its_control) {
    HeadlessControl* const dying = control;
    person().press(dying->Grid(), in_row_2);
    destroy();
    person().release(form.outside());
    person().click(form.outside());
    EXPECT_EQ(taken().back(), "outside.MouseDown(1, 0, 0, 0)");
}

TEST_F(Lifetime, removing_a_control_twice_does_nothing) {
    HeadlessControl& dying = *control;
    form.remove_control(dying);
    form.remove_control(dying);
    EXPECT_EQ(form.removed_controls(), 1U);
}

} // namespace krv::headless
