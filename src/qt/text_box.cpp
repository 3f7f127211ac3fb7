#include "qt/text_box.h"

#include "krv/platform/keys.h"
#include "qt/keys.h"
#include "qt/length_limit.h"
#include "qt/qt_text.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace krv::qt {

namespace {

constexpr std::int16_t input_method_key = 229;

} // namespace

FieldEdit::FieldEdit(QtTextBox& part, QWidget& parent)
    : QLineEdit(&parent)
    , part_(part) {
    // The box is as high as a grid row: a style's frame would leave no room for the text.
    setFrame(false);
    setTextMargins(1, 0, 1, 0);
    setMaxLength(std::numeric_limits<int>::max());
    setAutoFillBackground(true);
}

bool FieldEdit::event(QEvent* event) {
    // Qt goes on with the line edit after its text changed: it may not be freed in between.
    const FormLoop::Activity activity(part_.surface().loop());
    if (event->type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(*event);
        if (!is_tab(key) || part_.surface().tab_reaches(part_)) {
            return press_key(key);
        }
    }
    return QLineEdit::event(event);
}

bool FieldEdit::press_key(QKeyEvent& event) {
    event.accept();
    part_.press_key(event);
    return event.isAccepted();
}

void FieldEdit::type(QKeyEvent& event) {
    const bool goes_left = event.matches(QKeySequence::MoveToPreviousChar);
    if (!hasSelectedText() || (!goes_left && !event.matches(QKeySequence::MoveToNextChar))) {
        QLineEdit::keyPressEvent(&event);
        return;
    }
    const int end = goes_left ? selectionStart() : selectionEnd();
    deselect();
    setCursorPosition(end);
}

void FieldEdit::focusInEvent(QFocusEvent* event) {
    // What is selected is for the control to say, also when the focus came by Tab.
    const bool by_tab =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QFocusEvent plain(event->type(), by_tab ? Qt::OtherFocusReason : event->reason());
    QLineEdit::focusInEvent(&plain);
}

void FieldEdit::focusOutEvent(QFocusEvent* event) {
    QFocusEvent keeping_the_selection(event->type(), Qt::ActiveWindowFocusReason);
    QLineEdit::focusOutEvent(&keeping_the_selection);
}

void FieldEdit::inputMethodEvent(QInputMethodEvent* event) {
    part_.input_method(*event);
}

void FieldEdit::mousePressEvent(QMouseEvent* event) {
    part_.press(*event, QtTextBox::Press::once);
}

void FieldEdit::mouseMoveEvent(QMouseEvent* event) {
    if (coded(*event) == nullptr) {
        QLineEdit::mouseMoveEvent(event);
    }
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (!press_dropped_ && coded(*event) == nullptr) {
        QLineEdit::mouseReleaseEvent(event);
    }
}

void FieldEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    part_.press(*event, QtTextBox::Press::twice);
}

void FieldEdit::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

QtTextBox::QtTextBox(Surface& surface, std::string name)
    : QtPart(surface, std::move(name))
    , edit_(new FieldEdit(*this, surface.root()))
    , limit_(new LengthLimit(edit_)) {
    adopt(edit_);
    surface.add(*this);
    edit_->setValidator(limit_);
    QObject::connect(edit_, &QLineEdit::textChanged, edit_, [this] { text_changed(); });
}

std::string QtTextBox::Text() const {
    return edit_->text().toStdString();
}

void QtTextBox::SetText(std::string_view text) {
    const QString next = qt_text(text);
    if (next == edit_->text()) {
        return;
    }
    const int length_limit = limit_->limit();
    limit_->set_limit(0);
    assigning_ = true;
    edit_->setText(next);
    edit_->setCursorPosition(0);
    assigning_ = false;
    text_ = next;
    limit_->set_limit(length_limit);
    if (events_ != nullptr) {
        events_->Change();
    }
}

std::int32_t QtTextBox::MaxLength() const {
    return limit_->limit();
}

void QtTextBox::SetMaxLength(std::int32_t length) {
    limit_->set_limit(length);
}

std::int32_t QtTextBox::SelStart() const {
    return edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
}

void QtTextBox::SetSelStart(std::int32_t start) {
    if (start < 0) {
        throw invalid_value();
    }
    edit_->deselect();
    edit_->setCursorPosition(std::min(start, static_cast<std::int32_t>(edit_->text().size())));
}

std::int32_t QtTextBox::SelLength() const {
    return edit_->selectionLength();
}

void QtTextBox::SetSelLength(std::int32_t length) {
    if (length < 0) {
        throw invalid_value();
    }
    const std::int32_t start = SelStart();
    const auto most = static_cast<std::int32_t>(edit_->text().size()) - start;
    edit_->setSelection(start, std::min(length, most));
}

platform::RuntimeError QtTextBox::invalid_value() const {
    return {platform::error_number::invalid_property_value,
            "Invalid property value",
            std::string(Name())};
}

void QtTextBox::focus_gained() {
    if (events_ != nullptr) {
        events_->GotFocus();
    }
}

void QtTextBox::focus_lost() {
    if (events_ != nullptr) {
        events_->LostFocus();
    }
}

void QtTextBox::SetVisible(bool visible) {
    if (visible && !Visible() && on_show_) {
        on_show_();
    }
    QtPart::SetVisible(visible);
    if (visible) {
        edit_->raise();
    }
}

void QtTextBox::text_changed() {
    limit_->set_text(edit_->text());
    if (assigning_ || std::exchange(text_, edit_->text()) == edit_->text() || events_ == nullptr) {
        return;
    }
    // Raised from inside the line edit: what a handler lets out may not pass through Qt, and the
    // line edit may not be freed before it has ended.
    const FormLoop::Activity activity(surface().loop());
    try {
        events_->Change();
    } catch (...) {
        if (failure_ == nullptr) {
            surface().report(std::current_exception());
        } else if (!*failure_) {
            *failure_ = std::current_exception();
        }
    }
}

/// Lets the line edit work; the first error of a change comes out behind that.
template <class Act>
void QtTextBox::edit(Act act) {
    std::exception_ptr failure;
    std::exception_ptr* const outer = std::exchange(failure_, &failure);
    act();
    failure_ = outer;
    if (failure) {
        std::rethrow_exception(failure);
    }
}

// Keys

void QtTextBox::press_key(QKeyEvent& event) {
    surface().key_acts([&] {
        // What waited may have taken the focus elsewhere; then the key was not meant for this box.
        if (surface().has_focus(*this)) {
            work_through(event);
        }
    });
}

void QtTextBox::work_through(QKeyEvent& event) {
    std::int16_t code = key_code(event);
    std::int16_t shift = shift_state(event);
    if (events_ != nullptr && is_told(event)) {
        events_->KeyDown(code, shift);
        if (code == 0 || !surface().has_focus(*this)) {
            return;
        }
    }
    if (const CodedKeyEvent* const sent = coded(event)) {
        act_on(*sent, code, shift);
        return;
    }
    const std::optional<QString> text = typed_text(event.text());
    if (!text || !surface().has_focus(*this) || is_tab(event)) {
        return;
    }
    if (*text == event.text()) {
        edit([&] { edit_->type(event); });
    } else {
        insert(*text);
    }
}

/// Deliberate: a program's key does what the control's keys are said to do and no more. Shortcuts
/// of the line edit differ from one desktop to the next.
void QtTextBox::act_on(const CodedKeyEvent& event, std::int16_t code, std::int16_t shift) {
    act_on_key(code, shift);
    if (event.text().isEmpty() || !surface().has_focus(*this)) {
        return;
    }
    const std::optional<QString> text = typed_text(event.text());
    if (text && surface().has_focus(*this)) {
        insert(*text);
    }
}

void QtTextBox::act_on_key(std::int16_t code, std::int16_t shift) {
    const bool moves = code == platform::key_left || code == platform::key_right ||
                       code == platform::key_home || code == platform::key_end;
    const bool removes = code == platform::key_backspace || code == platform::key_delete;
    if ((!moves && !removes) || (shift & ~platform::shift_key) != 0) {
        return;
    }
    // With Shift, Delete is a shortcut of the line edit for something else.
    const bool extends = moves && shift == platform::shift_key;
    QKeyEvent event(
        QEvent::KeyPress, qt_key(code, 0), extends ? Qt::ShiftModifier : Qt::NoModifier);
    edit([&] { edit_->type(event); });
}

void QtTextBox::insert(const QString& text) {
    if (!text.isEmpty() && !is_too_long(text)) {
        edit([&] { edit_->insert(text); });
    }
}

/// A character that has no room is dropped, and what it would replace stays.
bool QtTextBox::is_too_long(const QString& text) const {
    const qsizetype left = edit_->text().size() - edit_->selectionLength();
    return limit_->limit() > 0 && left + text.size() > limit_->limit();
}

/// What the handler let through, or made of it; nothing when it swallowed a character.
std::optional<QString> QtTextBox::typed_text(const QString& text) {
    if (events_ == nullptr) {
        return text;
    }
    QString typed;
    for (const QChar character : text) {
        auto code = static_cast<std::int16_t>(character.unicode());
        if (events_ != nullptr) {
            events_->KeyPress(code);
        }
        if (code == 0) {
            return std::nullopt;
        }
        typed.append(QChar(static_cast<char16_t>(code)));
    }
    return typed;
}

void QtTextBox::input_method(QInputMethodEvent& event) {
    surface().key_acts([&] {
        std::int16_t code = input_method_key;
        std::int16_t shift = 0;
        // What waited, or the handler, may have taken the focus elsewhere.
        if (!surface().has_focus(*this)) {
            return;
        }
        if (!event.commitString().isEmpty() && events_ != nullptr) {
            events_->KeyDown(code, shift);
        }
        if (code != 0 && surface().has_focus(*this)) {
            edit([&] { edit_->compose(event); });
        }
    });
}

// Mouse

void QtTextBox::press(QMouseEvent& event, Press press) {
    if (const CodedMouseEvent* const sent = coded(event)) {
        // Deliberate: a program's press moves no caret, since glyphs differ from font to font.
        surface().person_acts(
            [&] { press == Press::once ? mouse_down(sent->codes()) : double_click(); });
        return;
    }
    const Resolution resolution(edit_->logicalDpiX());
    const MouseCodes mouse{button_code(event),
                           shift_state(event),
                           static_cast<float>(resolution.twips(event.position().x())),
                           static_cast<float>(resolution.twips(event.position().y()))};
    edit_->press_dropped_ = true;
    surface().person_acts([&] {
        if (!surface().has_focus(*this)) {
            return;
        }
        edit_->press_dropped_ = false;
        edit([&] { edit_->press(event, press == Press::twice); });
        mouse_down(mouse);
        if (press == Press::twice) {
            double_click();
        }
    });
}

void QtTextBox::mouse_down(const MouseCodes& mouse) {
    if (events_ != nullptr) {
        events_->MouseDown(mouse.button, mouse.shift, mouse.x, mouse.y);
    }
}

void QtTextBox::double_click() {
    if (events_ != nullptr) {
        events_->DblClick();
    }
}

} // namespace krv::qt
