#include "server/qt_host_object.h"

#include "krv/platform/error.h"

#include <QWidget>

#include <utility>

namespace krv::server {

QtHostObject::QtHostObject(QWidget* window, std::shared_ptr<qt::FormLoop> loop, std::string name)
    : loop_(std::move(loop))
    , name_(std::move(name)) {
    if (window != nullptr) {
        widget_ = new QWidget(window);
        widget_->setFocusPolicy(Qt::ClickFocus);
        widget_->resize(0, 0);
        widget_->show();
    }
}

QtHostObject::~QtHostObject() {
    if (widget_) {
        widget_->clearFocus();
        loop_->sync_focus();
        delete widget_;
    }
}

void QtHostObject::SetFocus() {
    if (!widget_) {
        throw platform::RuntimeError(
            platform::error_number::invalid_call, "Invalid procedure call or argument", name_);
    }
    widget_->setFocus(Qt::OtherFocusReason);
    loop_->sync_focus();
}

} // namespace krv::server
