#include "qt/form_fixture.h"

#include <QClipboard>
#include <QInputMethodEvent>

namespace krv::qt::testing {

namespace {

/// Everything is destroyed inside whatever is told first.
class Destroying : public FormTest {
protected:
    void SetUp() override { show(); }

    void destroy_at(const std::string& moment) {
        on_told = [this, moment](const std::string& what) {
            if (what.rfind(moment, 0) == 0) {
                destroy();
            }
        };
    }

    void expect_gone_after(const std::string& moment) {
        turn();
        ASSERT_FALSE(told.empty());
        EXPECT_EQ(told.back().substr(0, moment.size()), moment);
        EXPECT_EQ(form, nullptr);
    }
};

} // namespace

TEST_F(Destroying, inside_a_press_on_the_grid) {
    destroy_at("grid down");
    QTest::mousePress(grid->view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    expect_gone_after("grid down");
}

TEST_F(Destroying, inside_the_change_of_the_current_row) {
    destroy_at("row change");
    QTest::mousePress(grid->view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    expect_gone_after("row change");
}

TEST_F(Destroying, inside_a_click_on_the_grid) {
    destroy_at("grid click");
    QTest::mousePress(grid->view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    QTest::mouseRelease(grid->view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 20));
    expect_gone_after("grid click");
}

TEST_F(Destroying, inside_a_key_on_the_grid) {
    grid->SetFocus();
    destroy_at("grid key");
    QTest::sendKeyEvent(QTest::Press, grid->widget(), Qt::Key_PageDown, QString(), Qt::NoModifier);
    expect_gone_after("grid key");
}

TEST_F(Destroying, inside_a_key_of_the_box) {
    box->SetFocus();
    destroy_at("down");
    QTest::sendKeyEvent(QTest::Press, box->widget(), Qt::Key_A, "a", Qt::NoModifier);
    expect_gone_after("down");
}

TEST_F(Destroying, inside_a_character_of_the_box) {
    box->SetFocus();
    destroy_at("press");
    QTest::sendKeyEvent(QTest::Press, box->widget(), Qt::Key_A, "a", Qt::NoModifier);
    expect_gone_after("press");
}

TEST_F(Destroying, inside_a_press_on_the_box) {
    box->SetFocus();
    turn();
    destroy_at("mouse");
    QTest::mousePress(box->widget(), Qt::LeftButton);
    expect_gone_after("mouse");
}

TEST_F(Destroying, inside_a_click_on_a_button) {
    destroy_at("click");
    QTest::mousePress(button->widget(), Qt::LeftButton);
    QTest::mouseRelease(button->widget(), Qt::LeftButton);
    expect_gone_after("click");
}

TEST_F(Destroying, inside_enter_on_a_button) {
    button->SetFocus();
    destroy_at("click");
    QTest::sendKeyEvent(QTest::Press, button->widget(), Qt::Key_Return, "\r", Qt::NoModifier);
    expect_gone_after("click");
}

TEST_F(Destroying, inside_a_key_on_a_button) {
    button->SetFocus();
    destroy_at("surface key");
    QTest::sendKeyEvent(QTest::Press, button->widget(), Qt::Key_F5, QString(), Qt::NoModifier);
    expect_gone_after("surface key");
}

TEST_F(Destroying, inside_the_change_that_a_key_makes) {
    box->SetFocus();
    destroy_at("change");
    QTest::sendKeyEvent(QTest::Press, box->widget(), Qt::Key_A, "a", Qt::NoModifier);
    expect_gone_after("change");
}

TEST_F(Destroying, inside_the_change_that_a_deletion_makes) {
    box->SetText("one");
    box->SetFocus();
    destroy_at("change");
    QTest::sendKeyEvent(QTest::Press, box->widget(), Qt::Key_Delete, "", Qt::NoModifier);
    expect_gone_after("change");
}

TEST_F(Destroying, inside_the_change_that_an_input_method_makes) {
    box->SetFocus();
    destroy_at("change");
    QInputMethodEvent event;
    event.setCommitString("å");
    QApplication::sendEvent(box->widget(), &event);
    expect_gone_after("change");
}

TEST_F(Destroying, inside_the_change_that_a_paste_makes) {
    QApplication::clipboard()->setText("pasted");
    box->SetFocus();
    destroy_at("change");
    QTest::sendKeyEvent(QTest::Press, box->widget(), Qt::Key_V, "\x16", Qt::ControlModifier);
    expect_gone_after("change");
}

TEST_F(Destroying, inside_the_change_that_the_context_menu_makes) {
    QApplication::clipboard()->setText("pasted");
    destroy_at("change");
    // Its entries call the line edit, which is handling no event then.
    QMetaObject::invokeMethod(box->widget(), "paste");
    expect_gone_after("change");
}

TEST_F(Destroying, inside_space_on_a_button) {
    button->SetFocus();
    destroy_at("click");
    QTest::sendKeyEvent(QTest::Press, button->widget(), Qt::Key_Space, " ", Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Release, button->widget(), Qt::Key_Space, " ", Qt::NoModifier);
    expect_gone_after("click");
}

TEST_F(Destroying, frees_the_parts_once_nothing_of_them_is_running) {
    const QPointer<QWidget> edit = box->widget();
    box->SetFocus();
    bool is_there_in_the_event = false;
    on_told = [&](const std::string&) {
        destroy();
        turn();
        is_there_in_the_event = edit != nullptr;
    };
    QTest::sendKeyEvent(QTest::Press, edit, Qt::Key_A, "a", Qt::NoModifier);
    EXPECT_TRUE(is_there_in_the_event);
    turn();
    EXPECT_EQ(edit, nullptr);
}

TEST_F(Destroying, inside_a_queued_notification) {
    destroy_at("got");
    box->SetFocus();
    surface->queue().post(box->life(), [this] { tell("never"); });
    expect_gone_after("got");
}

} // namespace krv::qt::testing
