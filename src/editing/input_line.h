#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace krv {

struct ControlState;

namespace editing {

/// Shows the input line. A row that has just been opened is not modified: the confirm button is
/// hidden first when the line was not shown before.
void show_input_line(const ControlState& state);

/// Empties the row of the input line.
/// \throws RuntimeError 6 for more columns than 16 bits count; nothing is emptied then
void empty_input_line(ControlState& state);

/// The input line holds another row from now on, or none.
void begin_line(ControlState& state);

/// Shows the editor where it stood and gives it the focus, if there is still a usable cell under it.
/// \return whether it is shown
bool show_editor_again(const ControlState& state);

/// Whether a person can edit the column: not hidden, editable, and there.
bool is_usable(const ControlState& state, std::int32_t col);

/// The input line's text in a column as the editor shows it: plain without a pattern, as
/// "dd/mm/yyyy" under a date pattern, else without the pattern's dress.
std::string text_for_editor(const ControlState& state, std::int32_t col);

/// Whether the editor's text differs from its cell, compared as the column's pattern demands.
bool field_differs(const ControlState& state);

/// Whether leaving the row would lose something: a modified row, or a field whose text is not yet in
/// its cell.
bool has_pending_edit(const ControlState& state);

/// Runs the Add command twice with a turn between. Deliberate: hosts see its events twice, and the
/// second opening is the one that stays. The control may be gone afterwards.
void add_automatically(const ControlState& state);

/// Whether a text is empty or nothing but blanks.
bool is_blank(std::string_view text);

/// Hands the focus to the host's object for it. The host's code runs; the control may be gone.
/// \return false when there is none or it cannot take the focus
bool give_focus_away(const ControlState& state);

} // namespace editing
} // namespace krv
