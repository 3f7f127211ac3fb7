#pragma once

#include "krv/control/constituents.h"
#include "krv/control/karvo_list.h"
#include "krv/platform/host.h"
#include "krv/qt/error_handler.h"
#include "krv/qt/message_handler.h"

#include <QWidget>

#include <memory>

namespace krv::qt {

/// The control as a widget: list, input line, function buttons, over a `KarvoList`.
///
/// Properties, methods and events are those of `list()`. The host may destroy the widget inside any
/// event. Errors that handlers let out while Qt's event loop calls the control go to the error
/// handler; those that a call of `list()` causes come out of that call.
class KarvoListWidget : public QWidget {
    Q_OBJECT

public:
    /// A new control in its start-up state, 6000 by 3000 twips.
    /// \param data_access, formatter  kept as long as the widget; not null
    KarvoListWidget(std::shared_ptr<platform::DataAccess> data_access,
                    std::shared_ptr<const platform::Formatter> formatter,
                    QWidget* parent = nullptr);
    ~KarvoListWidget() override;

    /// The typed face. Valid as long as the widget.
    KarvoList& list() noexcept;
    const KarvoList& list() const noexcept;

    /// Empty: errors are written to Qt's log as warnings.
    void set_error_handler(ErrorHandler handler);

    /// Empty: messages are shown in modal boxes.
    void set_message_handler(MessageHandler handler);

    // For tests and tools, which look at the parts and act on them as a person does.

    /// The parts. Valid as long as the widget.
    Constituents constituents() noexcept;
    /// The control's own surface. Valid as long as the widget.
    platform::Container& container() noexcept;
    /// Title, message boxes and message loop as the control uses them. Valid as long as the widget.
    platform::Application& application() noexcept;
    /// Delivers what is queued for the controls of this thread, in order, until nothing is.
    /// \throws the first error out of a handler; what was still queued stays queued
    void turn();

    QSize sizeHint() const override;
    /// 5055 by 1800 twips: below that the control grows by itself.
    QSize minimumSizeHint() const override;

signals:
    /// A persisted property was put; `name` is its name in the property bag.
    void propertyChanged(const QString& name);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Rooms;

    std::unique_ptr<Rooms> rooms_;
};

} // namespace krv::qt
