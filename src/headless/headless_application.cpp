#include "krv/headless/headless_application.h"

#include "krv/headless/activity.h"
#include "krv/headless/headless_form.h"

#include <utility>

namespace krv::headless {

using platform::MessageAnswer;
using platform::MessageButtons;

namespace {

MessageAnswer closed(MessageButtons buttons) {
    return buttons == MessageButtons::ok ? MessageAnswer::ok : MessageAnswer::no;
}

bool has_button(MessageButtons buttons, MessageAnswer answer) {
    return (buttons == MessageButtons::ok) == (answer == MessageAnswer::ok);
}

} // namespace

HeadlessApplication::HeadlessApplication(HeadlessForm& form, std::string title)
    : form_(form)
    , title_(std::move(title)) {}

MessageAnswer HeadlessApplication::MsgBox(std::string_view text, MessageButtons buttons) {
    const Activity activity(form_);
    const ShownMessage message{std::string(text), buttons, title_};
    messages_.push_back(message);
    form_.turn();
    const MessageAnswer answer = answer_to(message);
    return has_button(buttons, answer) ? answer : closed(buttons);
}

void HeadlessApplication::Yield() {
    form_.turn();
}

void HeadlessApplication::set_standing_answer(std::string_view text,
                                              std::optional<MessageAnswer> answer) {
    if (answer) {
        standing_answers_.insert_or_assign(std::string(text), *answer);
    } else {
        standing_answers_.erase(std::string(text));
    }
}

MessageAnswer HeadlessApplication::answer_to(const ShownMessage& message) {
    if (!next_answers_.empty()) {
        const MessageAnswer answer = next_answers_.front();
        next_answers_.pop_front();
        return answer;
    }
    for (const std::string_view text : {std::string_view(message.text), std::string_view("*")}) {
        const auto standing = standing_answers_.find(text);
        if (standing != standing_answers_.end()) {
            return standing->second;
        }
    }
    const Ask ask = ask_; // a copy: the callback may replace itself
    return ask ? ask(message) : closed(message.buttons);
}

} // namespace krv::headless
