#pragma once

namespace krv {

struct ControlState;

/// Gives every part the font size, in points, and every present row, the input line and the editor
/// the height that goes with it; 0 does nothing. Nothing is placed anew.
/// \throws RuntimeError 380 for a size that a font cannot have; nothing changed
void set_font(const ControlState& state, float size);

/// Makes every part a tab stop again.
void restore_tab_stops(const ControlState& state);

/// Takes the tab stop from every part: Tab then stays with the part that has the focus.
void clear_tab_stops(const ControlState& state);

} // namespace krv
