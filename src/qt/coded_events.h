#pragma once

#include <QKeyEvent>
#include <QMouseEvent>

#include <cstdint>

namespace krv::qt {

/// A key that a program presses for a person, with the platform's key code and shift state: any
/// 16-bit numbers, also those that no key of Qt stands for.
class CodedKeyEvent : public QKeyEvent {
public:
    /// \param character  what the key types; empty for nothing
    CodedKeyEvent(QEvent::Type type,
                  std::int16_t code,
                  std::int16_t shift,
                  const QString& character = {});

    std::int16_t code() const noexcept { return code_; }

    std::int16_t shift() const noexcept { return shift_; }

    CodedKeyEvent* clone() const override { return new CodedKeyEvent(*this); }

private:
    std::int16_t code_;
    std::int16_t shift_;
};

/// What a mouse does, in the platform's numbers: twips from the part's top left.
struct MouseCodes {
    std::int16_t button = 1;
    std::int16_t shift = 0;
    float x = 0;
    float y = 0;
};

/// A step with the mouse that a program does for a person. Unlike those of Qt, the steps of a
/// double click are press, release, press, double click, release.
class CodedMouseEvent : public QMouseEvent {
public:
    /// Whether the release is a click as well.
    enum class AtRelease { click, nothing };

    /// \param place  the same place in the widget's pixels
    CodedMouseEvent(QEvent::Type type,
                    const MouseCodes& codes,
                    const QWidget& widget,
                    QPointF place,
                    AtRelease at_release = AtRelease::nothing);

    const MouseCodes& codes() const noexcept { return codes_; }

    bool clicks() const noexcept { return at_release_ == AtRelease::click; }

    CodedMouseEvent* clone() const override { return new CodedMouseEvent(*this); }

private:
    MouseCodes codes_;
    AtRelease at_release_;
};

/// Null for an event that Qt made.
inline const CodedKeyEvent* coded(const QKeyEvent& event) {
    return dynamic_cast<const CodedKeyEvent*>(&event);
}

/// Null for an event that Qt made.
inline const CodedMouseEvent* coded(const QMouseEvent& event) {
    return dynamic_cast<const CodedMouseEvent*>(&event);
}

} // namespace krv::qt
