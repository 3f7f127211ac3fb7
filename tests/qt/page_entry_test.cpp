#include "qt/page_fixture.h"

namespace krv::qt::testing {

using krv::testing::error_number_of;

namespace {

class PageEntry : public PageEditorTest {
protected:
    QtEntryBox& entry() { return parts->entry; }

    QtCheckBox& check() { return parts->check; }
};

} // namespace

TEST_F(PageEntry, code_that_assigns_another_text_raises_one_change_inside_the_call) {
    entry().SetText("uno");
    EXPECT_EQ(take(), Told{"entry change"});
    entry().SetText("uno");
    EXPECT_EQ(take(), Told{});
    EXPECT_EQ(entry().Text(), "uno");
    EXPECT_EQ(entry().edit().cursorPosition(), 0);
}

TEST_F(PageEntry, a_change_reads_the_new_text) {
    std::string seen;
    on_told = [&](const std::string&) { seen = entry().Text(); };
    entry().SetText("due");
    EXPECT_EQ(seen, "due");
}

TEST_F(PageEntry, every_typed_character_is_a_change) {
    entry().SetFocus();
    turn();
    take();
    QTest::keyClicks(&entry().edit(), "ab");
    EXPECT_EQ(take(), (Told{"entry change", "entry change"}));
    EXPECT_EQ(entry().Text(), "ab");
}

TEST_F(PageEntry, typing_in_one_go_is_one_change_and_the_same_text_is_none) {
    entry().SetText("vecchio");
    take();
    entry().type("nuovo");
    EXPECT_EQ(take(), Told{"entry change"});
    entry().type("nuovo");
    EXPECT_EQ(take(), Told{});
    entry().type("");
    EXPECT_EQ(take(), Told{"entry change"});
    EXPECT_EQ(entry().Text(), "");
}

TEST_F(PageEntry, long_texts_and_line_ends_stay_whole) {
    const std::string text = std::string(100'000, 'x') + "\ttab;\"quote\"";
    entry().SetText(text);
    EXPECT_EQ(entry().Text(), text);
}

TEST_F(PageEntry, a_double_click_is_told_after_the_widget_has_worked) {
    QTest::mouseDClick(&entry().edit(), Qt::LeftButton);
    EXPECT_EQ(take(), (Told{"entry got", "entry double"}));
    QTest::mouseDClick(&entry().edit(), Qt::RightButton);
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageEntry, an_error_of_a_change_by_code_comes_out_of_the_call) {
    on_told = [](const std::string&) { throw platform::RuntimeError(6, "Overflow", "page"); };
    EXPECT_EQ(error_number_of([&] { entry().SetText("99999"); }), 6);
    EXPECT_EQ(entry().Text(), "99999");
}

TEST_F(PageEntry, an_error_of_a_change_by_a_person_is_reported_and_the_text_stays) {
    entry().SetFocus();
    turn();
    on_told = [](const std::string& what) {
        if (what == "entry change") {
            throw platform::RuntimeError(6, "Overflow", "page");
        }
    };
    take();
    QTest::keyClicks(&entry().edit(), "9");
    EXPECT_EQ(take(), (Told{"entry change", "error Overflow"}));
    EXPECT_EQ(entry().Text(), "9");
}

TEST_F(PageEntry, a_program_gets_what_a_handler_lets_out) {
    on_told = [](const std::string&) { throw platform::RuntimeError(6, "Overflow", "page"); };
    const FormLoop::Script script(*surface->loop());
    entry().type("9");
    EXPECT_EQ(error_number_of([&] { script.rethrow_error(); }), 6);
    EXPECT_EQ(take(), Told{"entry change"});
}

TEST_F(PageEntry, a_handler_may_destroy_the_page_while_a_person_types) {
    entry().SetFocus();
    turn();
    on_told = [this](const std::string& what) {
        if (what == "entry change") {
            destroy();
        }
    };
    take();
    QTest::keyClick(&entry().edit(), Qt::Key_A);
    turn();
    EXPECT_EQ(take(), Told{"entry change"});
    EXPECT_EQ(form, nullptr);
}

TEST_F(PageEntry, focus_is_told_in_a_turn_and_in_order) {
    entry().SetFocus();
    EXPECT_EQ(take(), Told{});
    turn();
    EXPECT_EQ(take(), Told{"entry got"});
    check().SetFocus();
    entry().SetFocus();
    turn();
    EXPECT_EQ(take(), (Told{"entry lost", "check got", "check lost", "entry got"}));
}

TEST_F(PageEntry, tab_walks_through_the_editors_in_their_order) {
    entry().SetFocus();
    turn();
    take();
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        turn();
    }
    EXPECT_EQ(take(),
              (Told{"entry lost",
                    "check got",
                    "check lost",
                    "tabs got",
                    "tabs lost",
                    "combo got",
                    "combo lost",
                    "list got",
                    "list lost"}));
}

TEST_F(PageEntry, a_disabled_editor_gives_the_focus_on_and_cannot_take_it) {
    entry().SetFocus();
    turn();
    take();
    entry().SetEnabled(false);
    turn();
    EXPECT_EQ(take(), (Told{"entry lost", "check got"}));
    EXPECT_FALSE(entry().Enabled());
    EXPECT_EQ(error_number_of([&] { entry().SetFocus(); }), 5);
    entry().SetEnabled(true);
    EXPECT_EQ(error_number_of([&] { entry().SetFocus(); }), 0);
}

TEST_F(PageEntry, a_press_is_dropped_when_the_editor_before_takes_the_focus_back) {
    entry().SetFocus();
    turn();
    take();
    on_told = [this](const std::string& what) {
        if (what == "entry lost") {
            entry().SetFocus();
        }
    };
    QTest::mouseClick(&check().box(), Qt::LeftButton);
    turn();
    EXPECT_EQ(check().Value(), 0);
    EXPECT_TRUE(surface->has_focus(entry()));
    EXPECT_EQ(take(), (Told{"entry lost", "check got", "check lost", "entry got"}));
}

TEST_F(PageEntry, another_window_takes_the_focus_from_nobody) {
    entry().SetFocus();
    turn();
    take();
    QWidget second;
    second.show();
    second.activateWindow();
    turn();
    EXPECT_EQ(take(), Told{});
    EXPECT_TRUE(surface->has_focus(entry()));
}

TEST_F(PageEntry, a_check_box_clicks_when_its_value_becomes_different) {
    check().SetValue(1);
    check().SetValue(1);
    EXPECT_EQ(take(), Told{"check click"});
    check().SetValue(0);
    EXPECT_EQ(take(), Told{"check click"});
    EXPECT_EQ(error_number_of([&] { check().SetValue(2); }), 380);
    EXPECT_EQ(error_number_of([&] { check().SetValue(-1); }), 380);
    EXPECT_EQ(check().Value(), 0);
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageEntry, a_check_box_clicks_by_mouse_and_by_the_space_key) {
    QTest::mouseClick(&check().box(), Qt::LeftButton, {}, QPoint(8, check().box().height() / 2));
    EXPECT_EQ(take(), (Told{"check got", "check click"}));
    EXPECT_EQ(check().Value(), 1);
    QTest::keyClick(&check().box(), Qt::Key_Space);
    EXPECT_EQ(take(), Told{"check click"});
    EXPECT_EQ(check().Value(), 0);
    check().SetEnabled(false);
    QTest::mouseClick(&check().box(), Qt::LeftButton);
    check().click(0);
    EXPECT_EQ(check().Value(), 0);
}

TEST_F(PageEntry, what_an_editor_cannot_do_fails) {
    EXPECT_EQ(error_number_of([&] { entry().click(0); }), 438);
    EXPECT_EQ(error_number_of([&] { check().type("x"); }), 438);
    EXPECT_EQ(error_number_of([&] { parts->list.type("x"); }), 438);
}

} // namespace krv::qt::testing
