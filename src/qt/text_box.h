#pragma once

#include "qt/coded_events.h"
#include "qt/part.h"

#include <QLineEdit>

#include <exception>
#include <functional>
#include <optional>

namespace krv::qt {

class LengthLimit;
class QtTextBox;

/// The line edit of the field editor: offers keys and presses to the text box before they work.
class FieldEdit : public QLineEdit {
public:
    FieldEdit(QtTextBox& part, QWidget& parent);

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    friend class QtTextBox;

    bool press_key(QKeyEvent& event);

    /// The line edit's own handling of a key; Left and Right go to the ends of a selection, which Qt
    /// does on some desktops only.
    void type(QKeyEvent& event);

    /// The line edit's own handling of a press.
    void press(QMouseEvent& event, bool twice) {
        twice ? QLineEdit::mouseDoubleClickEvent(&event) : QLineEdit::mousePressEvent(&event);
    }

    /// The line edit's own handling of what an input method composed.
    void compose(QInputMethodEvent& event) { QLineEdit::inputMethodEvent(&event); }

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
    void work_through(QKeyEvent& event);
    void act_on(const CodedKeyEvent& event, std::int16_t code, std::int16_t shift);
    void act_on_key(std::int16_t code, std::int16_t shift);
    void insert(const QString& text);
    std::optional<QString> typed_text(const QString& text);
    bool is_too_long(const QString& text) const;
    void input_method(QInputMethodEvent& event);
    void press(QMouseEvent& event, Press press);
    void mouse_down(const MouseCodes& mouse);
    void double_click();
    void text_changed();
    platform::RuntimeError invalid_value() const;
    template <class Act>
    void edit(Act act);

    FieldEdit* edit_;
    LengthLimit* limit_;
    platform::TextBoxEvents* events_ = nullptr;
    std::function<void()> on_show_;
    QString text_; ///< as last told
    bool assigning_ = false;
    /// Where the error of a change goes that the line edit works on; null when nobody waits for it.
    std::exception_ptr* failure_ = nullptr;
};

} // namespace krv::qt
