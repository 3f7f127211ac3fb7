#include "qt/coded_events.h"

#include "qt/keys.h"

#include <QWidget>

namespace krv::qt {

namespace {

Qt::KeyboardModifiers modifiers_of(std::int16_t shift) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (shift & 1) != 0);
    modifiers.setFlag(Qt::ControlModifier, (shift & 2) != 0);
    modifiers.setFlag(Qt::AltModifier, (shift & 4) != 0);
    return modifiers;
}

/// Left for a number that stands for no button: Qt takes a move without any for no drag.
Qt::MouseButton button_of(std::int16_t code) {
    switch (code) {
    case 2:
        return Qt::RightButton;
    case 4:
        return Qt::MiddleButton;
    default:
        return Qt::LeftButton;
    }
}

} // namespace

CodedKeyEvent::CodedKeyEvent(QEvent::Type type,
                             std::int16_t code,
                             std::int16_t shift,
                             const QString& character)
    : QKeyEvent(type, qt_key(code, shift), modifiers_of(shift), character)
    , code_(code)
    , shift_(shift) {}

CodedMouseEvent::CodedMouseEvent(QEvent::Type type,
                                 const MouseCodes& codes,
                                 const QWidget& widget,
                                 QPointF place,
                                 AtRelease at_release)
    : QMouseEvent(type,
                  place,
                  widget.mapToGlobal(place),
                  type == QEvent::MouseMove ? Qt::NoButton : button_of(codes.button),
                  type == QEvent::MouseButtonRelease ? Qt::NoButton : button_of(codes.button),
                  modifiers_of(codes.shift))
    , codes_(codes)
    , at_release_(at_release) {}

} // namespace krv::qt
