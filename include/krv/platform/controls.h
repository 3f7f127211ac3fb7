#pragma once

#include "krv/platform/units.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::platform {

/// What every visible part of a form has: a place, a state, a tab stop.
///
/// The host owns the parts and keeps them alive longer than the control that works with them.
/// State changes at once; `GotFocus` and `LostFocus` that follow are queued for the next turn of
/// the message loop.
class Part {
public:
    virtual ~Part() = default;

    /// The part's own name, for example "btnAdd".
    virtual std::string_view Name() const = 0;

    virtual bool Visible() const = 0;
    /// Hiding the part that has the focus gives the focus to the next part in tab order.
    virtual void SetVisible(bool visible) = 0;

    virtual bool Enabled() const = 0;
    /// Disabling the part that has the focus gives the focus away like hiding it.
    virtual void SetEnabled(bool enabled) = 0;

    /// Whether Tab reaches the part.
    /// \throws RuntimeError 438 on a part that has no tab stop (a line)
    virtual bool TabStop() const = 0;
    /// \throws RuntimeError 438 on a part that has no tab stop (a line)
    virtual void SetTabStop(bool tab_stop) = 0;

    // Edges and sizes in twips from the top left of the control (`TwipsSingle`, any value).

    virtual TwipsSingle Left() const = 0;
    virtual void SetLeft(TwipsSingle left) = 0;
    virtual TwipsSingle Top() const = 0;
    virtual void SetTop(TwipsSingle top) = 0;
    virtual TwipsSingle Width() const = 0;
    virtual void SetWidth(TwipsSingle width) = 0;
    virtual TwipsSingle Height() const = 0;
    virtual void SetHeight(TwipsSingle height) = 0;
    virtual void Move(TwipsSingle left, TwipsSingle top, TwipsSingle width, TwipsSingle height) = 0;

    /// Points; 8.25 at first.
    virtual float FontSize() const = 0;
    /// \throws RuntimeError 380 for points not above 0 or above 2160
    virtual void SetFontSize(float points) = 0;

    /// Moves the focus here; nothing happens when it is here already.
    /// \throws RuntimeError 5 when the part is hidden, disabled or cannot take the focus
    virtual void SetFocus() = 0;
};

/// What a text box tells its owner. Key codes and shift states are the platform's (Tab 9, Enter 13,
/// F1 112; 1 Shift, 2 Ctrl, 4 Alt). A handler that sets the code to 0 swallows the key.
class TextBoxEvents {
public:
    /// The text became different; raised inside the call that changed it.
    virtual void Change() {}

    virtual void DblClick() {}

    /// Queued: comes in the turn after the focus moved.
    virtual void GotFocus() {}

    virtual void KeyDown(std::int16_t& /*key_code*/, std::int16_t& /*shift*/) {}

    virtual void KeyPress(std::int16_t& /*key_ascii*/) {}

    /// Queued: comes in the turn after the focus moved.
    virtual void LostFocus() {}

    /// `x` and `y` in twips from the top left of the box.
    virtual void
    MouseDown(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

protected:
    ~TextBoxEvents() = default;
};

/// One line of text that a person edits. Lengths and positions count characters as UTF-16 code
/// units.
class TextBox : public Part {
public:
    /// UTF-8.
    virtual std::string Text() const = 0;
    /// Any length, `MaxLength` or not. A different text puts the caret at 0, selects nothing and
    /// raises `Change` inside the call; the same text does nothing.
    virtual void SetText(std::string_view text) = 0;

    /// Characters that a person may type or paste; 0 and less: any number.
    virtual std::int32_t MaxLength() const = 0;
    virtual void SetMaxLength(std::int32_t length) = 0;

    /// Start of the selection, or the caret; 0 to the text's length.
    virtual std::int32_t SelStart() const = 0;
    /// Clipped to the text; selects nothing.
    /// \throws RuntimeError 380 when negative
    virtual void SetSelStart(std::int32_t start) = 0;
    /// 0 to the text's length minus `SelStart`.
    virtual std::int32_t SelLength() const = 0;
    /// Clipped to the text.
    /// \throws RuntimeError 380 when negative
    virtual void SetSelLength(std::int32_t length) = 0;

    /// The one listener, not owned; null for none.
    virtual void SetEvents(TextBoxEvents* events) = 0;
};

/// What a button tells its owner. Its keys go to the control's surface.
class ButtonEvents {
public:
    /// A person clicked it, or pressed Enter or Space on it. Never raised by code.
    virtual void Click() {}

protected:
    ~ButtonEvents() = default;
};

class Button : public Part {
public:
    virtual std::string Caption() const = 0;
    virtual void SetCaption(std::string_view caption) = 0;

    virtual OleColor BackColor() const = 0;
    virtual void SetBackColor(OleColor color) = 0;

    /// The one listener, not owned; null for none.
    virtual void SetEvents(ButtonEvents* events) = 0;
};

/// A straight line. It has no focus, no keys and no tab stop.
class Line : public Part {
public:
    virtual TwipsSingle X1() const = 0;
    virtual void SetX1(TwipsSingle x) = 0;
    virtual TwipsSingle X2() const = 0;
    virtual void SetX2(TwipsSingle x) = 0;
    virtual TwipsSingle Y1() const = 0;
    virtual void SetY1(TwipsSingle y) = 0;
    virtual TwipsSingle Y2() const = 0;
    virtual void SetY2(TwipsSingle y) = 0;
};

} // namespace krv::platform
