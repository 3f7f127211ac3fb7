#pragma once

#include "qt/part.h"

#include <QLineEdit>

#include <functional>
#include <optional>

class QKeyEvent;
class QMouseEvent;

namespace krv::qt {

class LengthLimit;
class QtTextBox;

/// The line edit of the field editor: offers keys and presses to the text box before they work.
class FieldEdit : public QLineEdit {
public:
    FieldEdit(QtTextBox& part, QWidget& parent);

protected:
    bool event(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    friend class QtTextBox;

    bool press_key(QKeyEvent& event);

    /// The line edit's own handling of a key.
    void type(QKeyEvent& event) { QLineEdit::keyPressEvent(&event); }

    /// The line edit's own handling of a press.
    void press(QMouseEvent& event, bool twice) {
        twice ? QLineEdit::mouseDoubleClickEvent(&event) : QLineEdit::mousePressEvent(&event);
    }

    QtTextBox& part_;
    bool press_dropped_ = false;
};

/// `InpFld` over a line edit.
class QtTextBox : public QtPart<platform::TextBox> {
public:
    explicit QtTextBox(Surface& surface, std::string name);

    std::string Text() const override;
    void SetText(std::string_view text) override;
    std::int32_t MaxLength() const override;
    void SetMaxLength(std::int32_t length) override;
    std::int32_t SelStart() const override;
    void SetSelStart(std::int32_t start) override;
    std::int32_t SelLength() const override;
    void SetSelLength(std::int32_t length) override;

    void SetEvents(platform::TextBoxEvents* events) override { events_ = events; }

    void focus_gained() override;
    void focus_lost() override;

    /// Called when the box is about to be shown; may move it.
    void set_on_show(std::function<void()> handler) { on_show_ = std::move(handler); }

    void SetVisible(bool visible) override;

private:
    friend class FieldEdit;

    enum class Press { once, twice };

    void press_key(QKeyEvent& event);
    bool key_goes_on(const QKeyEvent& event);
    std::optional<QString> typed_text(const QKeyEvent& event);
    void type(QKeyEvent& event, const QString& text);
    void press(QMouseEvent& event, Press press);
    void text_changed();
    platform::RuntimeError invalid_value() const;

    FieldEdit* edit_;
    LengthLimit* limit_;
    platform::TextBoxEvents* events_ = nullptr;
    std::function<void()> on_show_;
    bool assigning_ = false;
};

} // namespace krv::qt
