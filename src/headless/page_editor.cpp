#include "krv/headless/page_editor.h"

#include "krv/headless/activity.h"
#include "krv/headless/headless_form.h"
#include "krv/platform/error.h"

#include <algorithm>
#include <utility>

namespace krv::headless {

namespace error_number = platform::error_number;

void PageFocus::move_to(PageEditor* editor) {
    if (editor == current_) {
        return;
    }
    PageEditor* const old = std::exchange(current_, editor);
    if (old != nullptr) {
        old->tell_later(&platform::EditorEvents::LostFocus);
    }
    if (editor != nullptr) {
        editor->tell_later(&platform::EditorEvents::GotFocus);
    }
}

void PageFocus::pass_on() {
    const auto focused = std::find(order_.begin(), order_.end(), current_);
    const auto is_enabled = [](const PageEditor* editor) { return editor->is_enabled(); };
    auto next = std::find_if(focused, order_.end(), is_enabled);
    if (next == order_.end()) {
        next = std::find_if(order_.begin(), focused, is_enabled);
        next = next == focused ? order_.end() : next;
    }
    move_to(next == order_.end() ? nullptr : *next);
}

PageEditor* PageFocus::find(std::string_view name) const noexcept {
    const auto found = std::find_if(order_.begin(), order_.end(), [name](const PageEditor* editor) {
        return editor->name() == name;
    });
    return found == order_.end() ? nullptr : *found;
}

void PageFocus::remove(const PageEditor& editor) noexcept {
    std::erase(order_, &editor);
    if (current_ == &editor) {
        current_ = nullptr;
    }
}

PageEditor::PageEditor(PageFocus& focus, std::string name)
    : focus_(focus)
    , name_(std::move(name)) {
    focus_.add(*this);
}

PageEditor::~PageEditor() {
    focus_.remove(*this);
}

void PageEditor::set_enabled(bool enabled) {
    enabled_ = enabled;
    if (!enabled && has_focus()) {
        focus_.pass_on();
    }
}

void PageEditor::require_focusable() const {
    if (!enabled_) {
        fail(error_number::invalid_call, "Invalid procedure call or argument");
    }
}

void PageEditor::take_focus() {
    require_focusable();
    focus_.move_to(this);
}

void PageEditor::tell(Event event) {
    if (events_ != nullptr) {
        const Activity activity(focus_.form());
        (events_->*event)();
    }
}

void PageEditor::tell_later(Event event) {
    focus_.form().queue().post(life_, [this, event] { tell(event); });
}

void PageEditor::type(std::string_view /*text*/) {
    fail(error_number::no_such_member, "Object doesn't support this property or method");
}

void PageEditor::click(std::int32_t /*index*/) {
    fail(error_number::no_such_member, "Object doesn't support this property or method");
}

void PageEditor::fail(std::int32_t number, const char* description) const {
    throw platform::RuntimeError(number, description, name_);
}

} // namespace krv::headless
