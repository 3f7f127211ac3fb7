#include "qt/surface.h"

#include "krv/platform/error.h"
#include "qt/part_handle.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace krv::qt {

std::shared_ptr<Surface> Surface::make(QWidget& root) {
    return std::shared_ptr<Surface>(new Surface(root));
}

Surface::Surface(QWidget& root)
    : root_(&root)
    , loop_(FormLoop::shared()) {
    loop_->add(*this);
}

Surface::~Surface() {
    loop_->remove(*this);
}

void Surface::add(PartHandle& part) {
    if (!parts_.empty()) {
        QWidget::setTabOrder(parts_.back()->widget(), part.widget());
    }
    parts_.push_back(&part);
}

void Surface::close() noexcept {
    closed_ = true;
    for (PartHandle* part : parts_) {
        part->end_life();
    }
    parts_.clear();
    focused_ = nullptr;
    gaining_ = nullptr;
    key_begins_ = nullptr;
    on_exit_focus_ = nullptr;
    on_key_down_ = nullptr;
}

void Surface::leave() {
    if (closed_ || !has_focus_inside()) {
        close();
        return;
    }
    QWidget* const start = form_focus();
    QWidget* const next = next_tab_stop(*start, root_);
    close();
    if (next != nullptr) {
        next->setFocus(Qt::OtherFocusReason);
    } else {
        start->clearFocus();
    }
    loop_->sync_focus();
}

// Focus

QWidget* Surface::form_focus() const {
    return root_ ? root_->window()->focusWidget() : nullptr;
}

PartHandle* Surface::part_of(const QWidget& widget) const {
    const auto found = std::find_if(parts_.begin(), parts_.end(), [&](const PartHandle* part) {
        return part->widget() == &widget;
    });
    return found == parts_.end() ? nullptr : *found;
}

PartHandle* Surface::part_with(const QWidget* focused) const {
    if (focused == nullptr) {
        return nullptr;
    }
    const auto found = std::find_if(parts_.begin(), parts_.end(), [&](const PartHandle* part) {
        return part->widget() == focused || part->widget()->isAncestorOf(focused);
    });
    return found == parts_.end() ? nullptr : *found;
}

void Surface::sync_focus() {
    if (!closed_) {
        loop_->sync_focus();
    }
}

void Surface::notice_loss() {
    if (closed_) {
        return;
    }
    const QWidget* const focused = form_focus();
    PartHandle* const now = part_with(focused);
    PartHandle* const before = std::exchange(focused_, now);
    gaining_ = before == now ? nullptr : now;
    if (before != nullptr && before != now) {
        queue().post(before->life(), [this, before] { deliver([=] { before->focus_lost(); }); });
    }
    const bool inside = now != nullptr || focused == root_;
    if (std::exchange(inside_, inside) && !inside) {
        queue().post(life_, [this] {
            if (!inside_ && on_exit_focus_) {
                deliver(Act(on_exit_focus_)); // a copy: the handler may close the surface
            }
        });
    }
}

void Surface::notice_gain() {
    if (PartHandle* const part = std::exchange(gaining_, nullptr)) {
        queue().post(part->life(), [this, part] { deliver([=] { part->focus_gained(); }); });
    }
}

bool Surface::has_focus(const PartHandle& part) const {
    return !closed_ && part_with(form_focus()) == &part;
}

void Surface::give_focus(const PartHandle& part, const std::string& source) {
    if (!part.can_take_focus() || !part.widget()->isEnabled()) {
        throw platform::RuntimeError(
            platform::error_number::invalid_call, "Invalid procedure call or argument", source);
    }
    if (!has_focus(part)) {
        part.widget()->setFocus(Qt::OtherFocusReason);
    }
    sync_focus();
}

bool Surface::has_focus_inside() const {
    const QWidget* const focused = form_focus();
    return focused != nullptr && (focused == root_ || root_->isAncestorOf(focused));
}

bool Surface::takes_tab(const QWidget& widget) const {
    if ((widget.focusPolicy() & Qt::TabFocus) == 0 || widget.focusProxy() != nullptr ||
        !widget.isEnabled() || widget.isWindow()) {
        return false;
    }
    // A part of a form that was never shown counts as hidden with Qt: ask the part itself.
    const PartHandle* const part = loop_->part_of(widget);
    return part != nullptr ? part->can_take_focus() : widget.isVisibleTo(widget.window());
}

/// The next tab stop behind a widget that is not inside another one; null when there is none.
QWidget* Surface::next_tab_stop(QWidget& start, const QWidget* passed_over) const {
    for (QWidget* next = start.nextInFocusChain(); next != nullptr && next != &start;
         next = next->nextInFocusChain()) {
        const bool passed = passed_over != nullptr && passed_over->isAncestorOf(next);
        if (!passed && takes_tab(*next)) {
            return next;
        }
    }
    return nullptr;
}

void Surface::move_focus_on(const PartHandle& from) {
    QWidget* const start = from.widget();
    if (QWidget* const next = next_tab_stop(*start, nullptr)) {
        next->setFocus(Qt::OtherFocusReason);
    } else {
        start->clearFocus();
    }
    sync_focus();
}

bool Surface::tab_reaches(const PartHandle& part) const {
    return !part.is_tab_stop() ||
           std::none_of(parts_.begin(), parts_.end(), [&](const PartHandle* other) {
               return other != &part && other->is_tab_stop();
           });
}

// Acts and errors

void Surface::deliver(const Act& notification) {
    const std::shared_ptr<Surface> self = shared_from_this();
    try {
        notification();
    } catch (...) {
        self->loop_->set_failing(self);
        throw;
    }
}

void Surface::guard(const Act& act) noexcept {
    const std::shared_ptr<Surface> self = shared_from_this();
    const FormLoop::Activity activity(loop_);
    try {
        act();
    } catch (...) {
        self->report(std::current_exception());
    }
}

void Surface::turn_of_its_own() noexcept {
    if (closed_) {
        return;
    }
    try {
        turn();
    } catch (...) {
        loop_->report(std::current_exception(), this);
    }
}

bool Surface::take_act(const Act& act) noexcept {
    const std::shared_ptr<Surface> self = shared_from_this();
    const FormLoop::Activity activity(loop_);
    FormLoop::Script* const script = loop_->script();
    const FormLoop::Script::Pause pause(*loop_);
    try {
        act();
        return true;
    } catch (...) {
        script != nullptr ? script->keep(std::current_exception())
                          : report(std::current_exception());
        return false;
    }
}

bool Surface::person_acts(const Act& act) noexcept {
    const std::shared_ptr<Surface> self = shared_from_this();
    const FormLoop::Activity activity(loop_);
    const bool in_script = loop_->script() != nullptr;
    if (!in_script) {
        turn_of_its_own();
    }
    const bool done = !closed_ && take_act(act);
    if (!in_script) {
        turn_of_its_own();
    }
    return done;
}

void Surface::key_acts(const Act& act) noexcept {
    const std::shared_ptr<Surface> self = shared_from_this();
    const FormLoop::Activity activity(loop_);
    const Act follow = key_begins_ ? key_begins_() : nullptr;
    if (person_acts(act) && !closed_ && follow) {
        follow();
    }
}

void Surface::report(const std::exception_ptr& error) noexcept {
    const ErrorHandler handler = error_handler_; // a copy: the handler may replace itself
    if (!handler) {
        log(error);
        return;
    }
    try {
        handler(error);
    } catch (...) {
        log(std::current_exception());
    }
}

void Surface::log(const std::exception_ptr& error) noexcept {
    try {
        std::rethrow_exception(error);
    } catch (const platform::RuntimeError& failure) {
        qWarning("%s: error %d: %s",
                 failure.source().c_str(),
                 static_cast<int>(failure.number()),
                 failure.what());
    } catch (const std::exception& failure) {
        qWarning("krvList3: %s", failure.what());
    } catch (...) {
        qWarning("krvList3: an unknown error in an event handler");
    }
}

} // namespace krv::qt
