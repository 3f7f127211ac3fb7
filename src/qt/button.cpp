#include "qt/button.h"

#include "krv/platform/keys.h"
#include "krv/qt/colors.h"
#include "qt/coded_events.h"
#include "qt/keys.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace krv::qt {

namespace {

constexpr int frame_px = 2;
constexpr int pressed_percent = 115;
constexpr int least_stretch = 70; // percent

bool clicks(const QKeyEvent& event) {
    const std::int16_t code = key_code(event);
    return code == platform::key_enter || code == platform::key_space;
}

QColor between(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2,
                  (one.green() + other.green()) / 2,
                  (one.blue() + other.blue()) / 2);
}

int width_of(const QStyleOptionButton& option) {
    return option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
}

/// The button's font, narrower when the caption would not fit otherwise: the key at its end is what
/// a user looks for. A caption that does not fit even so is elided.
QFont fitting_font(QStyleOptionButton& option, const QFont& font) {
    const int room = option.rect.width() - 2 * (frame_px + 1);
    QFont narrow = font;
    for (int stretch = 95; width_of(option) > room && stretch >= least_stretch; stretch -= 5) {
        narrow.setStretch(stretch);
        option.fontMetrics = QFontMetrics(narrow);
    }
    option.text =
        option.fontMetrics.elidedText(option.text, Qt::ElideRight, room, Qt::TextShowMnemonic);
    return narrow;
}

} // namespace

FunctionButton::FunctionButton(QtButton& part, QWidget& parent)
    : QPushButton(&parent)
    , part_(part) {
    setAutoDefault(false);
}

bool FunctionButton::event(QEvent* event) {
    const FormLoop::Activity activity(part_.surface().loop());
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
    if (key_code(*event) == platform::key_space) {
        QPushButton::keyPressEvent(event); // clicks at the release
        return;
    }
    event->accept();
    if (!event->isAutoRepeat()) {
        by_key_ = true;
        QAbstractButton::click();
        by_key_ = false;
    }
}

void FunctionButton::keyReleaseEvent(QKeyEvent* event) {
    by_key_ = true;
    QPushButton::keyReleaseEvent(event);
    by_key_ = false;
}

void FunctionButton::mousePressEvent(QMouseEvent* event) {
    if (!part_.press_arrives()) {
        return;
    }
    if (coded(*event) != nullptr) {
        setDown(true);
    } else {
        QPushButton::mousePressEvent(event);
    }
}

void FunctionButton::mouseReleaseEvent(QMouseEvent* event) {
    const CodedMouseEvent* const sent = coded(*event);
    if (sent == nullptr) {
        QPushButton::mouseReleaseEvent(event);
        return;
    }
    setDown(false);
    if (sent->clicks() && sent->codes().button == 1) {
        QAbstractButton::click();
    }
}

void FunctionButton::mouseDoubleClickEvent(QMouseEvent* event) {
    if (coded(*event) == nullptr) {
        QPushButton::mouseDoubleClickEvent(event);
    }
}

void FunctionButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    if (part_.has_color()) {
        // Styles shade a button's colour, and some leave it out: the host's is drawn as it is.
        const QColor face = palette().color(QPalette::Button);
        painter.fillRect(rect().adjusted(frame_px, frame_px, -frame_px, -frame_px),
                         isDown() ? face.darker(pressed_percent) : face);
    }
    painter.setFont(fitting_font(option, font()));
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
    bool arrives = false;
    surface().person_acts([&] { arrives = surface().has_focus(*this); });
    return arrives;
}

void QtButton::press_key(QKeyEvent& event) {
    std::int16_t code = key_code(event);
    surface().key_acts([&] {
        std::int16_t shift = shift_state(event);
        if (is_told(event) && surface().has_focus(*this)) {
            surface().key_down(code, shift);
        }
    });
    // Escape is the host's when the control left it alone: it closes dialogs.
    event.setAccepted(code == 0 || event.key() != Qt::Key_Escape);
}

void QtButton::click() {
    const auto tell = [this] {
        if (events_ != nullptr) {
            events_->Click();
        }
    };
    if (button_->by_key_) {
        surface().key_acts(tell);
    } else {
        surface().person_acts(tell);
    }
}

} // namespace krv::qt
