#pragma once

#include <cstdint>

namespace krv {

/// What the control knows about the row and the field being edited.
struct EditState {
    bool Adding = false;    ///< a new row is being entered
    bool Inserting = false; ///< the new row goes before the current one
    bool Editing = false;   ///< the field editor has the focus
    bool Modified = false;  ///< the list differs from what was loaded

    /// Public number of the list row in the input line; -1 for none and while a row is appended.
    std::int32_t EditRow = -1;
    /// Input-line column that the field editor serves, or served last.
    std::int32_t ColInEdit = 0;
    /// From the editor's focus gain until its field is committed or closed.
    bool FieldHasFocus = false;

    /// The row-change handling runs, or is held off.
    bool RowChangeBusy = false;
};

} // namespace krv
