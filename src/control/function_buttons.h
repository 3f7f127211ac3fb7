#pragma once

#include "krv/platform/controls.h"
#include "krv/platform/units.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace krv {

struct ControlState;

/// The four function buttons with a key mark, numbered as `EvidenziaFunzione` numbers them.
enum class Function : std::uint8_t { add = 1, insert = 2, remove = 3, copy = 4 };

inline constexpr std::array all_functions = {
    Function::add, Function::insert, Function::remove, Function::copy};

/// Keys, captions, visible flags and highlight of the function buttons.
class FunctionButtons {
public:
    explicit FunctionButtons(ControlState& state);

    platform::Button& button(Function function) const;

    std::int16_t key(Function function) const { return setting(function).key; }

    /// Stores the code and recomposes the caption; a code outside F1 to F12 shows a message
    /// instead. \return whether the code was stored
    bool set_key(Function function, std::int16_t code);

    /// As `set_key` for a code that was stored: any code, no message.
    /// \throws RuntimeError 6 when its number leaves 16 bits; the code is stored by then
    void restore_key(Function function, std::int16_t code);

    const std::string& caption(Function function) const { return setting(function).caption; }

    /// Stores the text and composes the button's caption: text, blank, "(F" number ")".
    /// \throws RuntimeError 6 when the key's number leaves 16 bits; the text is stored by then
    void set_caption(Function function, std::string_view caption);

    bool visible(Function function) const { return setting(function).visible; }

    /// Stores the flag and shows or hides the button; its place in the row stays.
    void set_visible(Function function, bool visible);

    /// Captions as a load leaves them.
    /// \throws RuntimeError 6 when a key's number leaves 16 bits; earlier buttons are captioned by
    /// then
    void recaption_after_load();

    /// Marks one function button (1 to 4), by the line or by the highlight colour; 0 takes an
    /// existing mark away; other numbers do nothing.
    void EvidenziaFunzione(std::int16_t function);

    /// Puts the line under the button that it marks, if any: the layout may have moved it.
    void place_line();

    std::int16_t KeyOK = 13;
    bool OkVisible = false;
    platform::OleColor EvidenziaColor = 0;

private:
    struct Setting {
        std::int16_t key;
        std::string caption;
        bool visible;
    };

    const Setting& setting(Function function) const;
    Setting& setting(Function function);
    void compose_caption(Function function);
    void mark_by_color(Function function);
    void clear_marks();
    void hide_line();

    ControlState& state_;
    std::array<Setting, 4> settings_;
    std::optional<Function> marked_by_line_;
    std::optional<Function> marked_by_color_;
};

} // namespace krv
