#include "qt/text_box.h"

#include "qt/keys.h"
#include "qt/length_limit.h"

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
    if (event->type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(*event);
        if (!is_tab(key) || part_.surface().tab_reaches(part_)) {
            return press_key(key);
        }
    }
    return QLineEdit::event(event);
}

bool FieldEdit::press_key(QKeyEvent& event) {
    // A handler may destroy the control: nothing of it is touched after the call.
    event.accept();
    part_.press_key(event);
    return event.isAccepted();
}

void FieldEdit::inputMethodEvent(QInputMethodEvent* event) {
    const std::shared_ptr<Surface> surface = part_.surface().shared_from_this();
    const QPointer<FieldEdit> self(this);
    surface->key_acts([&] {
        std::int16_t code = input_method_key;
        std::int16_t shift = 0;
        if (!event->commitString().isEmpty() && part_.events_ != nullptr) {
            part_.events_->KeyDown(code, shift);
        }
        if (self && code != 0) {
            QLineEdit::inputMethodEvent(event);
        }
    });
}

void FieldEdit::mousePressEvent(QMouseEvent* event) {
    part_.press(*event, QtTextBox::Press::once);
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (!press_dropped_) {
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
    const QString next = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (next == edit_->text()) {
        return;
    }
    const int length_limit = limit_->limit();
    limit_->set_limit(0);
    assigning_ = true;
    edit_->setText(next);
    edit_->setCursorPosition(0);
    assigning_ = false;
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
    if (visible && on_show_) {
        on_show_();
    }
    QtPart::SetVisible(visible);
    if (visible) {
        edit_->raise();
    }
}

void QtTextBox::text_changed() {
    limit_->set_text(edit_->text());
    if (assigning_ || events_ == nullptr) {
        return;
    }
    const std::shared_ptr<Surface> shared = surface().shared_from_this();
    try {
        events_->Change();
    } catch (...) {
        // Raised from inside the line edit: what a handler lets out may not pass through Qt.
        shared->report(std::current_exception());
    }
}

bool QtTextBox::key_goes_on(const QKeyEvent& event) {
    std::int16_t code = key_code(event);
    std::int16_t shift = shift_state(event.modifiers());
    if (events_ != nullptr && code != 0) {
        events_->KeyDown(code, shift);
        return code != 0;
    }
    return true;
}

/// What the handler let through, or made of it; nothing when it swallowed the key.
std::optional<QString> QtTextBox::typed_text(const QKeyEvent& event) {
    if (events_ == nullptr) {
        return event.text();
    }
    const QPointer<FieldEdit> alive(edit_);
    QString typed;
    for (const QChar character : event.text()) {
        auto code = static_cast<std::int16_t>(character.unicode());
        events_->KeyPress(code);
        if (!alive || code == 0) {
            return std::nullopt;
        }
        typed.append(QChar(static_cast<char16_t>(code)));
    }
    return typed;
}

void QtTextBox::type(QKeyEvent& event, const QString& text) {
    if (text == event.text()) {
        edit_->type(event);
        return;
    }
    QKeyEvent other(event.type(), Qt::Key_unknown, Qt::NoModifier, text);
    edit_->type(other);
}

void QtTextBox::press_key(QKeyEvent& event) {
    const std::shared_ptr<Surface> shared = surface().shared_from_this();
    const QPointer<FieldEdit> alive(edit_);
    shared->key_acts([&] {
        // What waited may have taken the focus elsewhere; then the key was not meant for this box.
        if (!shared->has_focus(*this) || !key_goes_on(event) || !alive) {
            return;
        }
        const std::optional<QString> text = typed_text(event);
        if (text && shared->has_focus(*this) && !is_tab(event)) {
            type(event, *text);
        }
    });
}

void QtTextBox::press(QMouseEvent& event, Press press) {
    const std::shared_ptr<Surface> shared = surface().shared_from_this();
    const QPointer<FieldEdit> alive(edit_);
    const Resolution resolution(edit_->logicalDpiX());
    const auto x = static_cast<float>(resolution.twips(event.position().x()));
    const auto y = static_cast<float>(resolution.twips(event.position().y()));
    edit_->press_dropped_ = true;
    shared->person_acts([&] {
        if (!shared->has_focus(*this)) {
            return;
        }
        edit_->press_dropped_ = false;
        edit_->press(event, press == Press::twice);
        if (alive && events_ != nullptr) {
            events_->MouseDown(button_code(event.button()), shift_state(event.modifiers()), x, y);
        }
        if (alive && press == Press::twice && events_ != nullptr) {
            events_->DblClick();
        }
    });
}

} // namespace krv::qt
