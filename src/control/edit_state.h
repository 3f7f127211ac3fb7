#pragma once

#include <cstdint>
#include <optional>

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
    /// A field is open: from the editor's focus gain until its commit begins, or until it is closed
    /// without one.
    bool FieldHasFocus = false;

    /// The row-change handling runs, or is held off.
    bool RowChangeBusy = false;
    /// Selected row that the last run of the row-change handling saw.
    std::int32_t LastRowSel = 0;

    // What a routine has to know about the calls that it made: it compares before and after.

    /// Fields that the host refused; the user stays in them.
    std::uint32_t refusals = 0;
    /// Pending edits that the user chose to keep, or that a refused field kept.
    std::uint32_t kept_edits = 0;
    /// Fields over which the editor was put.
    std::uint32_t placements = 0;
    /// Gains of the focus, each of which opens a field.
    std::uint32_t focus_gains = 0;
    /// Rows that the input line held, or gave up: its cells belong to another row when it moved.
    std::uint32_t lines = 0;

    /// The host is being asked about the open field's text, which is in no cell yet.
    bool offering = false;
    /// A refused editor was shown again, and its focus gain is still to come: a loss of the focus
    /// that is reported meanwhile happened before.
    bool editor_returns = false;
    /// The editor that returns still holds what was typed: its focus gain leaves the text alone.
    bool keeps_typed_text = false;
    /// An edit is being dropped: a field that the host refuses now holds nobody.
    bool dropping = false;
    /// While Copy has another row's texts in the input line and leaves the list's row: whether an
    /// edit was pending before.
    std::optional<bool> pending_before_copy;
};

} // namespace krv
