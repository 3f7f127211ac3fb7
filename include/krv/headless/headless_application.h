#pragma once

#include "krv/platform/host.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krv::headless {

class HeadlessForm;

/// A message box as a person saw it.
struct ShownMessage {
    std::string text;
    platform::MessageButtons buttons = platform::MessageButtons::ok;
    std::string title;

    friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

/// The host's program without a screen.
///
/// A message box is answered by the first of these that there is: the next answer given to
/// `answer_next`, the standing answer for its text, the standing answer for all texts ("*"), the
/// callback; at last as by closing it: OK, or No. An answer that a box has no button for closes it,
/// too.
class HeadlessApplication final : public platform::Application {
public:
    using Ask = std::function<platform::MessageAnswer(const ShownMessage&)>;

    HeadlessApplication(HeadlessForm& form, std::string title);

    std::string Title() const override { return title_; }

    void SetTitle(std::string_view title) override { title_ = title; }

    /// Notes the box, delivers what is queued, then gets the answer.
    platform::MessageAnswer MsgBox(std::string_view text,
                                   platform::MessageButtons buttons) override;

    void Yield() override;

    /// The boxes so far, oldest first; an answer may still be awaited.
    const std::vector<ShownMessage>& messages() const noexcept { return messages_; }

    void clear_messages() { messages_.clear(); }

    /// The next box that has no earlier one of these answers waiting is answered so, once.
    void answer_next(platform::MessageAnswer answer) { next_answers_.push_back(answer); }

    /// Every box with the text is answered so; "*" stands for all texts. Nothing takes it back.
    void set_standing_answer(std::string_view text, std::optional<platform::MessageAnswer> answer);

    /// Asked for the answer while the box is shown; may use the form, call the control, destroy it,
    /// or throw. Empty for none.
    void set_ask(Ask ask) { ask_ = std::move(ask); }

private:
    platform::MessageAnswer answer_to(const ShownMessage& message);

    HeadlessForm& form_;
    std::string title_;
    std::vector<ShownMessage> messages_;
    std::deque<platform::MessageAnswer> next_answers_;
    std::map<std::string, platform::MessageAnswer, std::less<>> standing_answers_;
    Ask ask_;
};

} // namespace krv::headless
