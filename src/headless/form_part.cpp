#include "krv/headless/form_part.h"

#include "krv/headless/headless_form.h"
#include "krv/platform/error.h"

#include <utility>

namespace krv::headless {

FormPart::FormPart(HeadlessForm& form, HeadlessControl* control, std::string name, FocusRole role)
    : form_(form)
    , control_(control)
    , name_(std::move(name))
    , role_(role)
    , form_life_(form.watch()) {
    form_.focus().add(*this);
}

FormPart::~FormPart() {
    if (!form_life_.expired()) {
        form_.focus().remove(*this);
    }
}

bool FormPart::has_focus() const noexcept {
    return !form_life_.expired() && form_.focus().current() == this;
}

std::weak_ptr<const void> FormPart::watch() const {
    return life_ ? life_->watch() : std::weak_ptr<const void>();
}

void FormPart::post(std::function<void()> notification) {
    if (life_) {
        form_.queue().post(*life_, std::move(notification));
    }
}

void FormPart::retire() {
    drop_events();
    life_.reset();
    form_.focus().remove(*this);
}

void FormPart::set_visible(bool visible) {
    state_.visible = visible;
    leave_focus_when_unusable();
}

void FormPart::set_enabled(bool enabled) {
    state_.enabled = enabled;
    leave_focus_when_unusable();
}

void FormPart::leave_focus_when_unusable() {
    if (has_focus() && !is_usable()) {
        form_.focus().pass_on();
    }
}

void FormPart::take_focus() {
    if (form_life_.expired()) {
        throw platform::RuntimeError(
            platform::error_number::invalid_call, "Invalid procedure call or argument", name_);
    }
    form_.focus().set(*this);
}

} // namespace krv::headless
