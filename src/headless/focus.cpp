#include "krv/headless/focus.h"

#include "krv/headless/form_part.h"
#include "krv/headless/headless_control.h"
#include "krv/platform/error.h"

#include <algorithm>
#include <string>

namespace krv::headless {

bool Focus::is_inside(const HeadlessControl& control) const noexcept {
    return current_ != nullptr && current_->control() == &control;
}

void Focus::set(FormPart& part) {
    if (!part.can_take_focus()) {
        throw platform::RuntimeError(platform::error_number::invalid_call,
                                     "Invalid procedure call or argument",
                                     std::string(part.name()));
    }
    move_to(&part);
}

void Focus::pass_on() {
    FormPart* part = next(current_, TabDirection::forward);
    move_to(part == current_ ? nullptr : part);
}

template <class Accepts>
FormPart* Focus::find(const FormPart* from, TabDirection direction, Accepts accepts) const {
    const auto count = order_.size();
    const auto found = std::find(order_.begin(), order_.end(), from);
    const bool forward = direction == TabDirection::forward;
    auto at = static_cast<std::size_t>(found - order_.begin());
    if (found == order_.end()) {
        at = forward && count > 0 ? count - 1 : 0;
    }
    for (std::size_t step = 0; step < count; ++step) {
        at = (at + (forward ? 1 : count - 1)) % count;
        FormPart* const part = order_[at];
        if (part->can_take_focus() && part->is_tab_stop() && accepts(*part)) {
            return part;
        }
    }
    return nullptr;
}

FormPart* Focus::next(const FormPart* from, TabDirection direction) const {
    return find(from, direction, [](const FormPart&) { return true; });
}

bool Focus::tab_moves_from(const FormPart& part) const {
    if (part.control() == nullptr) {
        return true;
    }
    return part.is_tab_stop() &&
           std::any_of(order_.begin(), order_.end(), [&part](const FormPart* other) {
               return other != &part && other->control() == part.control() && other->is_tab_stop();
           });
}

void Focus::remove(const FormPart& part) noexcept {
    order_.erase(std::remove(order_.begin(), order_.end(), &part), order_.end());
    if (current_ == &part) {
        current_ = nullptr;
    }
}

void Focus::remove(const HeadlessControl& control) {
    const bool was_inside = is_inside(control);
    if (was_inside) {
        current_ = find(current_, TabDirection::forward, [&control](const FormPart& part) {
            return part.control() != &control;
        });
    }
    std::erase_if(order_, [&control](const FormPart* p) { return p->control() == &control; });
    if (was_inside && current_ != nullptr) {
        current_->post([part = current_] { part->got_focus(); });
    }
}

void Focus::move_to(FormPart* part) {
    if (part == current_) {
        return;
    }
    FormPart* const old = current_;
    current_ = part;
    if (old != nullptr) {
        old->post([old] { old->lost_focus(); });
        HeadlessControl* const left = old->control();
        if (left != nullptr && !is_inside(*left)) {
            left->post_exit_focus();
        }
    }
    if (part != nullptr) {
        part->post([part] { part->got_focus(); });
    }
}

} // namespace krv::headless
