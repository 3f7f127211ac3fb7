#include "qt/form_fixture.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace krv::qt::testing {

namespace {

using krv::testing::error_number_of;

class TextBoxes : public FormTest {
protected:
    void SetUp() override {
        show();
        box->SetFocus();
        turn();
        told.clear();
    }

    QLineEdit& edit() { return *qobject_cast<QLineEdit*>(box->widget()); }

    void type(const char* keys) { QTest::keyClicks(&edit(), keys); }
};

} // namespace

TEST_F(TextBoxes, another_text_puts_the_caret_at_the_start_and_is_told_once) {
    box->SetText("four");
    EXPECT_EQ(take(), Told{"change"});
    EXPECT_EQ(box->Text(), "four");
    EXPECT_EQ(box->SelStart(), 0);
    EXPECT_EQ(box->SelLength(), 0);
}

TEST_F(TextBoxes, the_same_text_leaves_caret_and_selection) {
    box->SetText("four");
    box->SetSelStart(1);
    box->SetSelLength(2);
    told.clear();
    box->SetText("four");
    EXPECT_EQ(take(), Told{});
    EXPECT_EQ(box->SelStart(), 1);
    EXPECT_EQ(box->SelLength(), 2);
}

TEST_F(TextBoxes, the_selection_is_clipped_and_negative_values_fail) {
    box->SetText("four");
    box->SetSelStart(9);
    EXPECT_EQ(box->SelStart(), 4);
    box->SetSelStart(3);
    box->SetSelLength(9);
    EXPECT_EQ(box->SelLength(), 1);
    EXPECT_EQ(error_number_of([&] { box->SetSelStart(-1); }), 380);
    EXPECT_EQ(error_number_of([&] { box->SetSelLength(-1); }), 380);
    EXPECT_EQ(box->SelStart(), 3);
}

TEST_F(TextBoxes, a_typed_character_is_offered_as_key_and_as_character_before_it_works) {
    type("a");
    EXPECT_EQ(take(), (Told{"down 65/0", "press 97", "change"}));
    EXPECT_EQ(box->Text(), "a");
}

TEST_F(TextBoxes, a_swallowed_key_types_nothing) {
    swallow_key = true;
    type("a");
    EXPECT_EQ(take(), (Told{"down 65/0"}));
    EXPECT_EQ(box->Text(), "");
}

TEST_F(TextBoxes, a_swallowed_character_types_nothing_and_another_one_is_typed_instead) {
    typed = [](std::int16_t code) { return code == 'a' ? std::int16_t{0} : std::int16_t{'Z'}; };
    type("ab");
    EXPECT_EQ(box->Text(), "Z");
}

TEST_F(TextBoxes, the_length_limit_bounds_typing_and_not_code) {
    box->SetMaxLength(3);
    type("abcd");
    EXPECT_EQ(box->Text(), "abc");
    box->SetText("abcdef");
    EXPECT_EQ(box->Text(), "abcdef");
    box->SetSelStart(6);
    type("g");
    EXPECT_EQ(box->Text(), "abcdef");
    QTest::keyClick(&edit(), Qt::Key_Backspace);
    EXPECT_EQ(box->Text(), "abcde");
}

TEST_F(TextBoxes, a_paste_is_cut_at_the_length_limit) {
    box->SetText("a-b");
    box->SetMaxLength(5);
    box->SetSelStart(2);
    QApplication::clipboard()->setText("12345");
    edit().paste();
    EXPECT_EQ(box->Text(), "a-12b");
    EXPECT_EQ(box->SelStart(), 4);
}

TEST_F(TextBoxes, a_character_of_two_units_is_not_cut_in_half) {
    box->SetMaxLength(2);
    QApplication::clipboard()->setText(QString::fromUtf8("a\xF0\x9F\x8D\xA6"));
    edit().paste();
    EXPECT_EQ(box->Text(), "a");
}

TEST_F(TextBoxes, typing_over_a_selection_counts_what_remains) {
    box->SetText("abc");
    box->SetMaxLength(3);
    box->SetSelStart(0);
    box->SetSelLength(3);
    type("xyzw");
    EXPECT_EQ(box->Text(), "xyz");
}

TEST_F(TextBoxes, a_limit_of_0_or_less_is_none) {
    for (const int limit : {0, -1}) {
        box->SetText("");
        box->SetMaxLength(limit);
        type("abcdefgh");
        EXPECT_EQ(box->Text(), "abcdefgh");
    }
}

TEST_F(TextBoxes, lengths_count_utf_16_units) {
    box->SetText("\xF0\x9F\x8D\xA6x");
    box->SetSelStart(9);
    EXPECT_EQ(box->SelStart(), 3);
}

TEST_F(TextBoxes, an_input_method_is_told_as_its_own_key) {
    QInputMethodEvent event(QString(), {});
    event.setCommitString(QString::fromUtf8("\xE6\xBC\xA2"));
    QApplication::sendEvent(&edit(), &event);
    EXPECT_EQ(take(), (Told{"down 229/0", "change"}));
    EXPECT_EQ(box->Text(), "\xE6\xBC\xA2");
}

TEST_F(TextBoxes, an_input_method_writes_nothing_into_a_box_that_lost_the_focus) {
    on_told = [this](const std::string& what) {
        if (what == "down 229/0") {
            other->setFocus();
        }
    };
    QInputMethodEvent event(QString(), {});
    event.setCommitString("x");
    QApplication::sendEvent(&edit(), &event);
    EXPECT_EQ(box->Text(), "");
}

TEST_F(TextBoxes, a_press_and_a_double_click_are_told) {
    QTest::mouseClick(&edit(), Qt::LeftButton, Qt::ShiftModifier);
    QTest::mouseDClick(&edit(), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(take(), (Told{"mouse 1/1", "mouse 1/1", "double"}));
}

TEST_F(TextBoxes, an_error_of_a_handler_is_reported_and_not_thrown) {
    on_told = [](const std::string& what) {
        if (what == "change") {
            throw platform::RuntimeError(5, "no", "host");
        }
    };
    type("a");
    EXPECT_EQ(take(), (Told{"down 65/0", "press 97", "change", "error no"}));
}

TEST_F(TextBoxes, an_error_of_a_handler_comes_out_of_the_call_that_changed_the_text) {
    on_told = [](const std::string&) { throw platform::RuntimeError(5, "no", "host"); };
    EXPECT_EQ(error_number_of([&] { box->SetText("x"); }), 5);
    EXPECT_EQ(box->Text(), "x");
}

TEST_F(TextBoxes, tab_moves_the_focus_while_there_are_other_tab_stops) {
    QTest::keyClick(&edit(), Qt::Key_Tab);
    EXPECT_TRUE(surface->has_focus(*button));
    EXPECT_EQ(take(), Told{});
}

TEST_F(TextBoxes, tab_is_a_key_when_the_box_is_no_tab_stop) {
    box->SetTabStop(false);
    QTest::keyClick(&edit(), Qt::Key_Tab);
    EXPECT_TRUE(surface->has_focus(*box));
    EXPECT_EQ(take(), (Told{"down 9/0", "press 9"}));
    QKeyEvent back(QEvent::KeyPress, Qt::Key_Backtab, Qt::ShiftModifier);
    QApplication::sendEvent(&edit(), &back);
    EXPECT_EQ(take(), Told{"down 9/1"});
    EXPECT_EQ(box->Text(), "");
}

TEST_F(TextBoxes, tab_is_a_key_when_no_other_part_is_a_tab_stop) {
    grid->SetTabStop(false);
    button->SetTabStop(false);
    QTest::keyClick(&edit(), Qt::Key_Tab);
    EXPECT_EQ(take().front(), "down 9/0");
}

} // namespace krv::qt::testing
