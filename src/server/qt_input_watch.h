#pragma once

#include "qt/form_loop.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <memory>
#include <utility>

namespace krv::server {

/// What a person does in a window, beside what its widgets notice by themselves, is followed by a
/// turn as well.
class QtInputWatch final : public QObject {
public:
    /// \param window  outlives the watch
    QtInputWatch(QWidget& window, std::shared_ptr<qt::FormLoop> loop)
        : window_(window)
        , loop_(std::move(loop)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        const auto* const widget = qobject_cast<QWidget*>(receiver);
        if (event->spontaneous() && is_input(*event) && widget != nullptr &&
            widget->window() == &window_) {
            QMetaObject::invokeMethod(
                this, [loop = loop_] { loop->turn_by_event_loop(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    static bool is_input(const QEvent& event) {
        return event.type() == QEvent::KeyPress || event.type() == QEvent::MouseButtonPress ||
               event.type() == QEvent::MouseButtonRelease;
    }

    QWidget& window_;
    std::shared_ptr<qt::FormLoop> loop_;
};

} // namespace krv::server
