#include "qt/application.h"

#include "qt/qt_text.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

namespace krv::qt {

namespace {

QMessageBox* make_box(QWidget* parent,
                      const QString& title,
                      std::string_view text,
                      platform::MessageButtons buttons) {
    const bool asks = buttons == platform::MessageButtons::yes_no;
    auto* const box = new QMessageBox(asks ? QMessageBox::Question : QMessageBox::Information,
                                      title,
                                      qt_text(text),
                                      asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok,
                                      parent);
    // Texts of a database or a host are no markup.
    box->setTextFormat(Qt::PlainText);
    if (asks) {
        box->setEscapeButton(QMessageBox::No);
    }
    return box;
}

} // namespace

std::string QtApplication::Title() const {
    if (kept_title_) {
        return *kept_title_;
    }
    return QGuiApplication::applicationDisplayName().toStdString();
}

void QtApplication::SetTitle(std::string_view title) {
    if (kept_title_) {
        *kept_title_ = title;
        return;
    }
    QGuiApplication::setApplicationDisplayName(qt_text(title));
}

platform::MessageAnswer QtApplication::MsgBox(std::string_view text,
                                              platform::MessageButtons buttons) {
    if (message_handler_) {
        const MessageHandler handler = message_handler_;
        const std::string shown(text);
        Yield(); // what waits comes while the box is up, before its answer
        return handler(shown, buttons);
    }
    // The host may destroy the control, or the whole window, while the box is open.
    const QPointer<QMessageBox> box =
        make_box(surface_->root().window(), qt_text(Title()), text, buttons);
    QObject::connect(&surface_->root(), &QObject::destroyed, box, &QDialog::reject);
    QTimer::singleShot(0, box, [surface = surface_] { surface->guard([&] { surface->turn(); }); });
    const int answer = box->exec();
    delete box;
    if (buttons == platform::MessageButtons::ok) {
        return platform::MessageAnswer::ok;
    }
    return answer == QMessageBox::Yes ? platform::MessageAnswer::yes : platform::MessageAnswer::no;
}

void QtApplication::Yield() {
    const std::shared_ptr<Surface> surface = surface_;
    if (!surface->closed()) {
        surface->turn();
    }
}

} // namespace krv::qt
