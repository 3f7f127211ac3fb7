#include "qt/application.h"

#include "qt/form_fixture.h"

#include <QMessageBox>
#include <QTimer>

namespace krv::qt::testing {

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;

class MessageBoxes : public FormTest {
protected:
    void SetUp() override { show(); }

    /// Once the box stands there.
    void then(const std::function<void(QMessageBox&)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            auto* const asked = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(asked, nullptr);
            act(*asked);
        });
    }

    QtApplication application{surface};
};

} // namespace

TEST_F(MessageBoxes, ask_and_give_the_answer) {
    then([](QMessageBox& asked) { asked.button(QMessageBox::Yes)->click(); });
    EXPECT_EQ(application.MsgBox("sure?", MessageButtons::yes_no), MessageAnswer::yes);
    then([](QMessageBox& asked) { asked.button(QMessageBox::No)->click(); });
    EXPECT_EQ(application.MsgBox("sure?", MessageButtons::yes_no), MessageAnswer::no);
    then([](QMessageBox& asked) { asked.button(QMessageBox::Ok)->click(); });
    EXPECT_EQ(application.MsgBox("so it is", MessageButtons::ok), MessageAnswer::ok);
}

TEST_F(MessageBoxes, closed_by_other_means_answer_no_or_ok) {
    then([](QMessageBox& asked) { asked.close(); });
    EXPECT_EQ(application.MsgBox("sure?", MessageButtons::yes_no), MessageAnswer::no);
    then([](QMessageBox& asked) { QTest::keyClick(&asked, Qt::Key_Escape); });
    EXPECT_EQ(application.MsgBox("so it is", MessageButtons::ok), MessageAnswer::ok);
}

TEST_F(MessageBoxes, show_plain_text_under_the_applications_title) {
    application.SetTitle("Rolda");
    EXPECT_EQ(application.Title(), "Rolda");
    then([](QMessageBox& asked) {
        EXPECT_EQ(asked.text(), "<b>è</b>");
        EXPECT_EQ(asked.textFormat(), Qt::PlainText);
        EXPECT_TRUE(asked.windowTitle().startsWith("Rolda"));
        asked.close();
    });
    application.MsgBox("<b>\xC3\xA8</b>", MessageButtons::ok);
}

TEST_F(MessageBoxes, deliver_what_is_queued_and_take_the_focus_from_nobody) {
    box->SetFocus();
    turn();
    told.clear();
    surface->queue().post(box->life(), [this] {
        application.MsgBox("so it is", MessageButtons::ok);
        tell("answered");
    });
    surface->queue().post(box->life(), [this] { tell("queued"); });
    then([](QMessageBox& shown) { QTimer::singleShot(0, &shown, [&shown] { shown.close(); }); });
    surface->turn();
    EXPECT_EQ(take(), (Told{"queued", "answered"}));
}

TEST_F(MessageBoxes, deliver_what_is_queued_before_a_host_answers_in_their_place) {
    surface->queue().post(box->life(), [this] { tell("queued"); });
    application.set_message_handler([this](std::string_view, MessageButtons) {
        tell("answered");
        return MessageAnswer::ok;
    });
    application.MsgBox("so it is", MessageButtons::ok);
    EXPECT_EQ(take(), (Told{"queued", "answered"}));
}

TEST_F(MessageBoxes, outlive_the_control_under_them) {
    then([this](QMessageBox&) { destroy(); });
    EXPECT_EQ(application.MsgBox("sure?", MessageButtons::yes_no), MessageAnswer::no);
}

TEST_F(MessageBoxes, are_not_shown_when_the_host_answers_itself) {
    std::string question;
    application.set_message_handler([&](std::string_view text, MessageButtons) {
        question = text;
        return MessageAnswer::yes;
    });
    EXPECT_EQ(application.MsgBox("sure?", MessageButtons::yes_no), MessageAnswer::yes);
    EXPECT_EQ(question, "sure?");
}

TEST_F(MessageBoxes, a_yield_delivers_until_nothing_waits) {
    surface->queue().post(box->life(), [this] {
        tell("first");
        surface->queue().post(box->life(), [this] { tell("second"); });
    });
    application.Yield();
    EXPECT_EQ(take(), (Told{"first", "second"}));
}

} // namespace krv::qt::testing
