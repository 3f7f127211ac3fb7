#include "qt/form_fixture.h"

namespace krv::qt::testing {

namespace {

using krv::testing::error_number_of;

class Focus : public FormTest {
protected:
    void SetUp() override {
        show();
        other->setFocus();
        turn();
        told.clear();
    }
};

} // namespace

TEST_F(Focus, moves_at_once_and_is_told_in_the_next_turn) {
    box->SetFocus();
    EXPECT_TRUE(surface->has_focus(*box));
    EXPECT_EQ(take(), Told{});
    surface->turn();
    EXPECT_EQ(take(), Told{"got"});
    button->SetFocus();
    EXPECT_FALSE(surface->has_focus(*box));
    turn();
    EXPECT_EQ(take(), Told{"lost"});
}

TEST_F(Focus, on_the_part_that_has_it_queues_nothing) {
    box->SetFocus();
    turn();
    told.clear();
    box->SetFocus();
    turn();
    EXPECT_EQ(take(), Told{});
}

TEST_F(Focus, there_and_back_before_the_turn_is_told_in_full) {
    box->SetFocus();
    turn();
    told.clear();
    button->SetFocus();
    box->SetFocus();
    turn();
    EXPECT_EQ(take(), (Told{"lost", "got"}));
}

TEST_F(Focus, of_a_hidden_or_disabled_part_fails) {
    box->SetVisible(false);
    EXPECT_EQ(error_number_of([&] { box->SetFocus(); }), 5);
    box->SetVisible(true);
    box->SetEnabled(false);
    EXPECT_EQ(error_number_of([&] { box->SetFocus(); }), 5);
    box->SetEnabled(true);
    EXPECT_EQ(error_number_of([&] { box->SetFocus(); }), 0);
}

TEST_F(Focus, goes_to_the_next_tab_stop_when_its_part_is_hidden) {
    box->SetFocus();
    box->SetVisible(false);
    EXPECT_TRUE(surface->has_focus(*button));
    box->SetVisible(true);
    EXPECT_TRUE(surface->has_focus(*button));
}

TEST_F(Focus, passes_parts_that_are_no_tab_stop_or_hidden_and_leaves_the_control) {
    box->SetFocus();
    turn();
    told.clear();
    button->SetTabStop(false);
    box->SetEnabled(false);
    EXPECT_TRUE(other->hasFocus());
    turn();
    EXPECT_EQ(take(), (Told{"lost", "exit"}));
}

TEST_F(Focus, goes_to_none_when_there_is_no_tab_stop) {
    box->SetFocus();
    grid->SetTabStop(false);
    button->SetTabStop(false);
    other->setFocusPolicy(Qt::NoFocus);
    box->SetVisible(false);
    EXPECT_EQ(form->focusWidget(), nullptr);
}

TEST_F(Focus, that_left_the_control_and_came_back_is_no_exit) {
    box->SetFocus();
    turn();
    told.clear();
    other->setFocus();
    box->SetFocus();
    turn();
    EXPECT_EQ(take(), (Told{"lost", "got"}));
}

TEST_F(Focus, stays_when_another_window_becomes_active) {
    box->SetFocus();
    turn();
    told.clear();
    QWidget second;
    second.show();
    second.activateWindow();
    turn();
    EXPECT_EQ(take(), Told{});
    form->activateWindow();
    turn();
    EXPECT_EQ(take(), Told{});
    EXPECT_TRUE(surface->has_focus(*box));
}

TEST_F(Focus, is_taken_on_a_form_that_is_not_shown) {
    form->hide();
    turn();
    told.clear();
    box->SetFocus();
    EXPECT_TRUE(surface->has_focus(*box));
    box->SetVisible(false);
    EXPECT_TRUE(surface->has_focus(*button));
}

TEST_F(Focus, a_press_takes_the_focus_and_the_old_part_hears_of_it_first) {
    box->SetFocus();
    turn();
    told.clear();
    QTest::mouseClick(grid->view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    turn();
    EXPECT_EQ(take(), (Told{"lost", "row change", "grid down", "grid click"}));
}

TEST_F(Focus, that_is_taken_back_drops_the_press_the_release_and_the_click) {
    box->SetFocus();
    turn();
    told.clear();
    on_told = [&](const std::string& what) {
        if (what == "lost") {
            box->SetFocus();
        }
    };
    QTest::mouseClick(grid->view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    EXPECT_EQ(take(), (Told{"lost", "got"}));
    EXPECT_EQ(grid->Row(), 0);
    QTest::mouseClick(button->widget(), Qt::LeftButton);
    EXPECT_EQ(take(), (Told{"lost", "got"}));
}

TEST_F(Focus, a_button_is_clicked_by_mouse_enter_and_space_and_never_by_code) {
    QTest::mouseClick(button->widget(), Qt::LeftButton);
    EXPECT_EQ(take(), Told{"click"});
    EXPECT_TRUE(surface->has_focus(*button));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(button->widget(), key);
        EXPECT_EQ(take(), Told{"click"}) << key;
    }
    grid->SetFocus();
    button->SetCaption("other");
    button->SetVisible(false);
    button->SetVisible(true);
    turn();
    EXPECT_EQ(take(), Told{});
}

TEST_F(Focus, other_keys_on_a_button_and_keys_on_a_grid_are_told) {
    button->SetFocus();
    QTest::keyClick(button->widget(), Qt::Key_F5);
    grid->SetFocus();
    QTest::keyClick(grid->widget(), Qt::Key_Down);
    EXPECT_EQ(take(), (Told{"surface key 116", "grid key 40"}));
}

TEST_F(Focus, a_disabled_button_is_not_clicked) {
    button->SetEnabled(false);
    QTest::mouseClick(button->widget(), Qt::LeftButton);
    EXPECT_EQ(take(), Told{});
}

TEST_F(Focus, a_queued_notification_needs_no_turn_by_hand) {
    surface->queue().post(box->life(), [this] { tell("queued"); });
    EXPECT_EQ(take(), Told{});
    turn();
    EXPECT_EQ(take(), Told{"queued"});
}

TEST_F(Focus, an_error_in_a_turn_is_reported_and_the_rest_still_comes) {
    surface->queue().post(box->life(), [] { throw platform::RuntimeError(6, "first", "host"); });
    surface->queue().post(box->life(), [this] { tell("second"); });
    turn();
    EXPECT_EQ(take(), (Told{"error first", "second"}));
}

TEST_F(Focus, a_caption_shows_its_ampersand_and_names_the_button) {
    button->SetCaption("salva & esci (F5)");
    EXPECT_EQ(button->Caption(), "salva & esci (F5)");
    EXPECT_EQ(button->widget()->accessibleName(), "salva & esci (F5)");
    EXPECT_EQ(qobject_cast<QPushButton*>(button->widget())->text(), "salva && esci (F5)");
}

TEST_F(Focus, a_line_has_no_tab_stop_and_no_focus) {
    QtLine line(*surface, "Line1");
    EXPECT_EQ(error_number_of([&] { static_cast<void>(line.TabStop()); }), 438);
    EXPECT_EQ(error_number_of([&] { line.SetTabStop(true); }), 438);
    EXPECT_EQ(error_number_of([&] { line.SetFocus(); }), 5);
    line.SetX1(1500);
    line.SetX2(3000);
    line.SetY1(2990);
    line.SetY2(2990);
    EXPECT_EQ(line.widget()->geometry().left(), 100);
    EXPECT_EQ(line.widget()->geometry().width(), 100);
    EXPECT_EQ(line.widget()->geometry().bottom(), 199);
    line.SetX1(-1);
    line.SetX2(-1);
    EXPECT_EQ(line.widget()->geometry().width(), 0);
}

} // namespace krv::qt::testing
