#include "qt/surface.h"

#include "krv/platform/error.h"
#include "qt/part_handle.h"

#include <QApplication>
#include <QDebug>

#include <algorithm>
#include <utility>

namespace krv::qt {

std::shared_ptr<Surface> Surface::make(QWidget& root) {
    std::shared_ptr<Surface> surface(new Surface(root));
    surface->focus_watch_ = QObject::connect(
        qApp, &QApplication::focusChanged, &root, [self = surface.get()] { self->sync_focus(); });
    return surface;
}

Surface::Surface(QWidget& root)
    : root_(&root) {
    queue_.set_on_post([this] { plan_turn(); });
}

Surface::~Surface() = default;

void Surface::add(PartHandle& part) {
    if (!parts_.empty()) {
        QWidget::setTabOrder(parts_.back()->widget(), part.widget());
    }
    parts_.push_back(&part);
}

void Surface::close() noexcept {
    closed_ = true;
    QObject::disconnect(focus_watch_);
    parts_.clear();
    focused_ = nullptr;
    key_begins_ = nullptr;
    on_exit_focus_ = nullptr;
    on_key_down_ = nullptr;
}

void Surface::turn() {
    const std::shared_ptr<Surface> self = shared_from_this();
    sync_focus();
    queue_.turn();
}

void Surface::plan_turn() {
    if (planned_ || closed_) {
        return;
    }
    planned_ = true;
    QMetaObject::invokeMethod(
        qApp,
        [weak = weak_from_this()] {
            if (const std::shared_ptr<Surface> self = weak.lock()) {
                self->planned_turn();
            }
        },
        Qt::QueuedConnection);
}

void Surface::planned_turn() noexcept {
    planned_ = false;
    try {
        if (!closed_) {
            turn();
        }
    } catch (...) {
        report(std::current_exception());
    }
    if (!queue_.empty()) {
        plan_turn();
    }
}

QWidget* Surface::form_focus() const {
    return root_ ? root_->window()->focusWidget() : nullptr;
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
    if (closed_) {
        return;
    }
    const QWidget* const focused = form_focus();
    PartHandle* const now = part_with(focused);
    if (PartHandle* const before = std::exchange(focused_, now); before != now) {
        if (before != nullptr) {
            queue_.post(before->life(), [before] { before->focus_lost(); });
        }
        if (now != nullptr) {
            queue_.post(now->life(), [now] { now->focus_gained(); });
        }
    }
    const bool inside = now != nullptr || focused == root_;
    if (std::exchange(inside_, inside) && !inside) {
        queue_.post(life_, [this] {
            if (!inside_ && on_exit_focus_) {
                const std::function<void()> handler = on_exit_focus_;
                handler();
            }
        });
    }
}

bool Surface::has_focus(const PartHandle& part) const {
    return !closed_ && part_with(form_focus()) == &part;
}

bool Surface::takes_tab(const QWidget& widget) const {
    if ((widget.focusPolicy() & Qt::TabFocus) == 0 || widget.focusProxy() != nullptr ||
        !widget.isEnabled() || widget.isWindow()) {
        return false;
    }
    // A part of a form that was never shown counts as hidden with Qt: ask the part itself.
    const PartHandle* const part = part_with(&widget);
    return part != nullptr ? part->can_take_focus() : widget.isVisibleTo(widget.window());
}

void Surface::move_focus_on(const PartHandle& from) {
    QWidget* const start = from.widget();
    for (QWidget* next = start->nextInFocusChain(); next != nullptr && next != start;
         next = next->nextInFocusChain()) {
        if (takes_tab(*next)) {
            next->setFocus(Qt::OtherFocusReason);
            sync_focus();
            return;
        }
    }
    start->clearFocus();
    sync_focus();
}

bool Surface::tab_reaches(const PartHandle& part) const {
    return !part.is_tab_stop() ||
           std::none_of(parts_.begin(), parts_.end(), [&](const PartHandle* other) {
               return other != &part && other->is_tab_stop();
           });
}

void Surface::report(const std::exception_ptr& error) noexcept {
    try {
        if (error_handler_) {
            const ErrorHandler handler = error_handler_;
            handler(error);
            return;
        }
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
