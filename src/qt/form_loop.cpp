#include "qt/form_loop.h"

#include "qt/part_handle.h"
#include "qt/surface.h"

#include <QApplication>

#include <utility>

namespace krv::qt {

namespace {

/// Runs a member later, from Qt's event loop, if the loop is still there.
void call_later(const std::weak_ptr<FormLoop>& weak, void (FormLoop::*member)()) {
    QMetaObject::invokeMethod(
        qApp,
        [weak, member] {
            if (const std::shared_ptr<FormLoop> loop = weak.lock()) {
                (*loop.*member)();
            }
        },
        Qt::QueuedConnection);
}

} // namespace

std::shared_ptr<FormLoop> FormLoop::shared() {
    static std::weak_ptr<FormLoop> known;
    std::shared_ptr<FormLoop> loop = known.lock();
    if (loop == nullptr) {
        loop.reset(new FormLoop);
        known = loop;
    }
    return loop;
}

FormLoop::FormLoop() {
    queue_.set_on_post([this] { plan_turn(); });
    focus_watch_ =
        QObject::connect(qApp, &QApplication::focusChanged, qApp, [this] { sync_focus(); });
}

FormLoop::~FormLoop() {
    QObject::disconnect(focus_watch_);
}

void FormLoop::turn() {
    const Activity activity(shared_from_this());
    failing_.reset();
    sync_focus();
    queue_.turn();
}

void FormLoop::plan_turn() {
    if (!planned_ && holds_ == 0) {
        planned_ = true;
        call_later(weak_from_this(), &FormLoop::turn_by_event_loop);
    }
}

void FormLoop::turn_by_event_loop() noexcept {
    planned_ = false;
    try {
        turn();
    } catch (...) {
        report(std::current_exception(), surfaces_.empty() ? nullptr : surfaces_.front());
    }
    if (!queue_.empty()) {
        plan_turn();
    }
}

void FormLoop::sync_focus() {
    for (Surface* surface : surfaces_) {
        surface->notice_loss();
    }
    for (Surface* surface : surfaces_) {
        surface->notice_gain();
    }
}

PartHandle* FormLoop::part_of(const QWidget& widget) const {
    for (const Surface* surface : surfaces_) {
        if (PartHandle* const part = surface->part_of(widget)) {
            return part;
        }
    }
    return nullptr;
}

void FormLoop::report(const std::exception_ptr& error, Surface* otherwise) noexcept {
    const std::shared_ptr<Surface> failing = std::exchange(failing_, {}).lock();
    Surface* const surface = failing != nullptr ? failing.get() : otherwise;
    if (surface != nullptr) {
        surface->report(error);
    } else {
        Surface::log(error);
    }
}

void FormLoop::plan_freeing() {
    call_later(weak_from_this(), &FormLoop::free_buried);
}

void FormLoop::free_buried() noexcept {
    if (!is_active()) {
        std::exchange(buried_, {}).clear();
    }
}

FormLoop::Hold::Hold(std::shared_ptr<FormLoop> loop)
    : loop_(std::move(loop)) {
    ++loop_->holds_;
}

FormLoop::Hold::~Hold() {
    --loop_->holds_;
    if (!loop_->queue_.empty()) {
        loop_->plan_turn();
    }
}

FormLoop::Activity::Activity(std::shared_ptr<FormLoop> loop)
    : loop_(std::move(loop)) {
    ++loop_->activities_;
}

FormLoop::Activity::~Activity() {
    --loop_->activities_;
    if (!loop_->is_active() && !loop_->buried_.empty()) {
        loop_->plan_freeing();
    }
}

FormLoop::Script::Script(FormLoop& loop)
    : loop_(loop)
    , outer_(std::exchange(loop.script_, this)) {}

FormLoop::Script::~Script() {
    loop_.script_ = outer_;
}

void FormLoop::Script::keep(const std::exception_ptr& error) noexcept {
    if (!error_) {
        error_ = error;
    }
}

void FormLoop::Script::rethrow_error() const {
    if (error_) {
        std::rethrow_exception(error_);
    }
}

FormLoop::Script::Pause::Pause(FormLoop& loop)
    : loop_(loop)
    , script_(std::exchange(loop.script_, nullptr)) {}

FormLoop::Script::Pause::~Pause() {
    loop_.script_ = script_;
}

} // namespace krv::qt
