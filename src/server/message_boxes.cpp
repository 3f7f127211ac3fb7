#include "server/message_boxes.h"

#include "server/log.h"

namespace krv::server {

using platform::MessageAnswer;
using platform::MessageButtons;

std::optional<MessageAnswer> message_answer_of(const Json& reply) {
    if (reply == "ok") {
        return MessageAnswer::ok;
    }
    if (reply == "yes") {
        return MessageAnswer::yes;
    }
    return reply == "no" ? std::optional(MessageAnswer::no) : std::nullopt;
}

void MessageBoxes::set_standing(const std::string& text, std::optional<MessageAnswer> answer) {
    if (answer) {
        standing_.insert_or_assign(text, *answer);
    } else {
        standing_.erase(text);
    }
}

MessageAnswer
MessageBoxes::answer(std::string_view text, MessageButtons buttons, std::string_view title) {
    const auto ready = standing(text);
    const auto answer = ready ? ready : asked(text, buttons, title);
    if (buttons == MessageButtons::ok) {
        return MessageAnswer::ok;
    }
    return answer == MessageAnswer::yes ? MessageAnswer::yes : MessageAnswer::no;
}

std::optional<MessageAnswer> MessageBoxes::standing(std::string_view text) const {
    auto found = standing_.find(text);
    if (found == standing_.end()) {
        found = standing_.find(std::string_view("*"));
    }
    return found == standing_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<MessageAnswer>
MessageBoxes::asked(std::string_view text, MessageButtons buttons, std::string_view title) {
    const char* const names = buttons == MessageButtons::ok ? "ok" : "yesno";
    try {
        return message_answer_of(
            client_.ask("message", {{"text", text}, {"buttons", names}, {"title", title}}));
    } catch (const ClientError&) {
        log("an error as the answer to a message box closes it");
        return std::nullopt;
    }
}

} // namespace krv::server
