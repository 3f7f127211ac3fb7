#include "qt/button.h"

#include "krv/qt/colors.h"
#include "qt/keys.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace krv::qt {

namespace {

constexpr int frame_px = 2;
constexpr int pressed_percent = 115;

bool clicks(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
           event.key() == Qt::Key_Space || event.key() == Qt::Key_Select;
}

QColor between(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2,
                  (one.green() + other.green()) / 2,
                  (one.blue() + other.blue()) / 2);
}

} // namespace

FunctionButton::FunctionButton(QtButton& part, QWidget& parent)
    : QPushButton(&parent)
    , part_(part) {
    setAutoDefault(false);
}

bool FunctionButton::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto& key = static_cast<QKeyEvent&>(*event);
        if (is_tab(key) && part_.surface().tab_reaches(part_)) {
            keyPressEvent(&key);
            return true;
        }
    }
    return QPushButton::event(event);
}

void FunctionButton::keyPressEvent(QKeyEvent* event) {
    if (!clicks(*event)) {
        event->accept();
        part_.press_key(*event);
        return;
    }
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
        QPushButton::keyPressEvent(event); // clicks at the release
        return;
    }
    event->accept();
    if (!event->isAutoRepeat()) {
        QAbstractButton::click();
    }
}

void FunctionButton::mousePressEvent(QMouseEvent* event) {
    const QPointer<FunctionButton> alive(this);
    if (part_.press_arrives() && alive) {
        QPushButton::mousePressEvent(event);
    }
}

void FunctionButton::paintEvent(QPaintEvent* event) {
    if (!part_.has_color()) {
        QPushButton::paintEvent(event);
        return;
    }
    // Styles shade a button's colour, and some leave it out: the host's is drawn as it is.
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    const QColor face = palette().color(QPalette::Button);
    painter.fillRect(rect().adjusted(frame_px, frame_px, -frame_px, -frame_px),
                     isDown() ? face.darker(pressed_percent) : face);
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

QtButton::QtButton(Surface& surface, std::string name)
    : QtPart(surface, std::move(name))
    , button_(new FunctionButton(*this, surface.root())) {
    adopt(button_);
    surface.add(*this);
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { click(); });
}

void QtButton::SetCaption(std::string_view caption) {
    caption_ = caption;
    QString text = QString::fromStdString(caption_);
    button_->setAccessibleName(text);
    button_->setToolTip(text);
    // An ampersand is a plain character here, not the mark of a shortcut.
    button_->setText(text.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void QtButton::SetBackColor(platform::OleColor color) {
    back_color_ = color;
    apply_color();
}

void QtButton::apply_color() {
    QPalette palette;
    if (has_color()) {
        const QColor face = color_from_ole(back_color_, button_->parentWidget()->palette());
        palette.setColor(QPalette::Button, face);
        const QColor text = text_color_on(face);
        palette.setColor(QPalette::ButtonText, text);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, between(face, text));
    }
    button_->setPalette(palette);
}

bool QtButton::press_arrives() {
    const std::shared_ptr<Surface> shared = surface().shared_from_this();
    bool arrives = false;
    shared->person_acts([&] { arrives = shared->has_focus(*this); });
    return arrives;
}

void QtButton::press_key(QKeyEvent& event) {
    surface().key_acts([&] {
        std::int16_t code = key_code(event);
        std::int16_t shift = shift_state(event.modifiers());
        if (code != 0 && surface().has_focus(*this)) {
            surface().key_down(code, shift);
        }
        // Escape is the host's when the control left it alone: it closes dialogs.
        event.setAccepted(code == 0 || event.key() != Qt::Key_Escape);
    });
}

void QtButton::click() {
    surface().person_acts([this] {
        if (events_ != nullptr) {
            events_->Click();
        }
    });
}

} // namespace krv::qt
