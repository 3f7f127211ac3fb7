#include "headless/traced_form.h"

namespace krv::headless {

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;

class MessageBox : public TracedForm {
protected:
    HeadlessApplication& application() { return form.application(); }

    MessageAnswer ask(const std::string& text = "sure?") {
        return application().MsgBox(text, MessageButtons::yes_no);
    }

    MessageAnswer tell(const std::string& text = "done") {
        return application().MsgBox(text, MessageButtons::ok);
    }
};

} // namespace

TEST_F(MessageBox, shows_its_text_its_buttons_and_the_application_title) {
    application().SetTitle("Rolda");
    ask("sure?");
    tell("done");
    EXPECT_EQ(application().messages(),
              (std::vector<ShownMessage>{{"sure?", MessageButtons::yes_no, "Rolda"},
                                         {"done", MessageButtons::ok, "Rolda"}}));
}

TEST_F(MessageBox, that_nobody_answers_is_closed_with_OK_or_No) {
    EXPECT_EQ(tell(), MessageAnswer::ok);
    EXPECT_EQ(ask(), MessageAnswer::no);
}

TEST_F(MessageBox, is_closed_by_an_answer_that_it_has_no_button_for) {
    application().answer_next(MessageAnswer::ok);
    EXPECT_EQ(ask(), MessageAnswer::no);
    application().answer_next(MessageAnswer::yes);
    EXPECT_EQ(tell(), MessageAnswer::ok);
}

TEST_F(MessageBox, delivers_what_is_queued_before_it_is_answered) {
    box().SetFocus();
    trace.on("InpFld.GotFocus",
             [this] { trace.note(application().messages().size() == 1 ? "shown" : "not shown"); });
    application().set_ask([this](const ShownMessage& message) {
        trace.note("asked " + message.text);
        return MessageAnswer::yes;
    });
    EXPECT_EQ(ask(), MessageAnswer::yes);
    EXPECT_EQ(taken(), (Lines{"InpFld.GotFocus", "shown", "asked sure?"}));
}

TEST_F(MessageBox, an_answer_given_ahead_is_used_once_and_first) {
    application().set_standing_answer("*", MessageAnswer::no);
    application().answer_next(MessageAnswer::yes);
    EXPECT_EQ(ask(), MessageAnswer::yes);
    EXPECT_EQ(ask(), MessageAnswer::no);
}

TEST_F(MessageBox, a_standing_answer_for_the_text_goes_before_the_one_for_all) {
    application().set_standing_answer("*", MessageAnswer::no);
    application().set_standing_answer("sure?", MessageAnswer::yes);
    EXPECT_EQ(ask("sure?"), MessageAnswer::yes);
    EXPECT_EQ(ask("really?"), MessageAnswer::no);
}

TEST_F(MessageBox, a_standing_answer_that_is_taken_back_leaves_the_callback) {
    application().set_ask([](const ShownMessage&) { return MessageAnswer::yes; });
    application().set_standing_answer("*", MessageAnswer::no);
    EXPECT_EQ(ask(), MessageAnswer::no);
    application().set_standing_answer("*", std::nullopt);
    EXPECT_EQ(ask(), MessageAnswer::yes);
}

TEST_F(MessageBox, the_callback_may_act_on_the_form) {
    application().set_ask([this](const ShownMessage&) {
        person().click(control->btnAdd());
        return MessageAnswer::yes;
    });
    EXPECT_EQ(ask(), MessageAnswer::yes);
    EXPECT_EQ(taken(), Lines{"btnAdd.Click"});
}

TEST_F(MessageBox, an_error_of_a_handler_leaves_it) {
    box().SetFocus();
    trace.on("InpFld.GotFocus", [] { fail_with(1234); });
    EXPECT_EQ(error_of([this] { ask(); }), 1234);
}

TEST_F(MessageBox, a_new_form_s_application_has_a_title) {
    EXPECT_EQ(application().Title(), "krvList3");
}

TEST_F(MessageBox, Yield_delivers_everything_queued_what_is_queued_meanwhile_included) {
    trace.once("outside.GotFocus", [this] { box().SetFocus(); });
    form.outside().SetFocus();
    application().Yield();
    EXPECT_EQ(taken(), (Lines{"outside.GotFocus", "outside.LostFocus", "InpFld.GotFocus"}));
}

TEST_F(MessageBox, a_Yield_inside_a_handler_delivers_the_rest) {
    trace.once("InpFld.LostFocus", [this] {
        application().Yield();
        trace.note("yielded");
    });
    focus(box());
    person().focus(form.outside());
    EXPECT_EQ(taken(),
              (Lines{"InpFld.LostFocus", "surface.ExitFocus", "outside.GotFocus", "yielded"}));
}

TEST_F(MessageBox, the_first_error_leaves_the_yield_and_the_rest_stays_queued) {
    focus(box());
    form.outside().SetFocus();
    trace.once("InpFld.LostFocus", [] { fail_with(1234); });
    EXPECT_EQ(error_of([this] { application().Yield(); }), 1234);
    EXPECT_EQ(taken(), Lines{"InpFld.LostFocus"});
    application().Yield();
    EXPECT_EQ(taken(), (Lines{"surface.ExitFocus", "outside.GotFocus"}));
}

} // namespace krv::headless
