#include "qt/focus_target.h"

#include "krv/platform/error.h"

namespace krv::qt {

namespace {

/// The widget that has the focus in place of this one.
const QWidget& bearer_of(const QWidget& widget) {
    const QWidget* bearer = &widget;
    while (bearer->focusProxy() != nullptr) {
        bearer = bearer->focusProxy();
    }
    return *bearer;
}

/// Qt gives the focus to widgets without a focus policy too, where no key would find a user.
bool takes_focus(const QWidget& widget) {
    const QWidget& bearer = bearer_of(widget);
    return bearer.focusPolicy() != Qt::NoFocus && bearer.isEnabled() &&
           bearer.isVisibleTo(bearer.window());
}

} // namespace

void FocusTarget::SetFocus() {
    if (!widget_) {
        platform::fail_object_not_set();
    }
    if (!takes_focus(*widget_)) {
        throw platform::RuntimeError(
            platform::error_number::invalid_call, "Invalid procedure call or argument", "krvList3");
    }
    widget_->setFocus(Qt::OtherFocusReason);
    if (const std::shared_ptr<Surface> surface = surface_.lock()) {
        surface->sync_focus();
    }
}

} // namespace krv::qt
