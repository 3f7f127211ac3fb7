#pragma once

#include "krv/platform/controls.h"
#include "krv/platform/units.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace krv::platform {

enum class MessageButtons { ok, yes_no };
enum class MessageAnswer { ok, yes, no };

/// The host's program: its title, its message boxes, its message loop.
class Application {
public:
    virtual ~Application() = default;

    virtual std::string Title() const = 0;
    virtual void SetTitle(std::string_view title) = 0;

    /// Shows a modal box under the application's title and waits for the answer; what is queued is
    /// delivered meanwhile, so the host may call or destroy the control before it returns.
    /// \return `ok` for an OK box; closing a Yes/No box by other means is `no`
    /// \throws what a handler lets out that runs meanwhile
    virtual MessageAnswer MsgBox(std::string_view text, MessageButtons buttons) = 0;

    /// Gives the message loop one turn: everything queued is delivered, also what is queued
    /// meanwhile. The control may be destroyed in it. The first error out of a handler comes out of
    /// here; what was still queued stays queued.
    virtual void Yield() = 0;
};

/// What the surface of the control tells the control.
class ContainerEvents {
public:
    /// The host gave the control another size.
    virtual void Resize() {}

    /// A key went down on the control itself, on a function button or on the input line's grid.
    virtual void KeyDown(std::int16_t& /*key_code*/, std::int16_t& /*shift*/) {}

    /// Queued: the control as a whole lost the focus.
    virtual void ExitFocus() {}

protected:
    ~ContainerEvents() = default;
};

/// The control's own surface on the host's form.
class Container {
public:
    virtual ~Container() = default;

    virtual TwipsSingle Width() const = 0;
    /// Raises `Resize` inside the call when the width becomes different.
    virtual void SetWidth(TwipsSingle width) = 0;
    virtual TwipsSingle Height() const = 0;
    /// Raises `Resize` inside the call when the height becomes different.
    virtual void SetHeight(TwipsSingle height) = 0;

    virtual OleColor BackColor() const = 0;
    virtual void SetBackColor(OleColor color) = 0;

    /// Points; 8.25 at first.
    virtual float FontSize() const = 0;
    /// \throws RuntimeError 380 for points not above 0 or above 2160
    virtual void SetFontSize(float points) = 0;
    /// Height of the text in the control's font: 195 x size / 8.25 twips, rounded to a multiple
    /// of 15.
    virtual TwipsSingle TextHeight(std::string_view text) const = 0;

    /// Every part on the surface, `Line1` included, in a fixed order.
    virtual std::span<Part* const> Controls() = 0;

    /// Asks for a repaint of the whole surface.
    virtual void Repaint() = 0;

    /// Tells the host that a persisted property changed. The host may call the control back.
    virtual void PropertyChanged(std::string_view name) = 0;

    /// The one listener, not owned; null for none.
    virtual void SetEvents(ContainerEvents* events) = 0;
};

} // namespace krv::platform
