#include "editing/row_commands.h"

#include "control/control_state.h"
#include "control/function_buttons.h"
#include "editing/commands.h"
#include "editing/field_commit.h"
#include "editing/field_editor.h"
#include "editing/input_line.h"
#include "editing/line_numbers.h"

#include <algorithm>
#include <vector>

namespace krv::editing {

using platform::MessageAnswer;
using platform::MessageButtons;

namespace {

constexpr std::int16_t number_of(Function function) {
    return static_cast<std::int16_t>(function);
}

} // namespace

// --- Add -----------------------------------------------------------------------------------------

void RowCommands::Add() {
    const platform::LifeWatch watch(state_.life);
    bool cancel = false;
    state_.events.raise(&KarvoListEvents::AddClick, cancel);
    if (watch.ended() || cancel) {
        return;
    }
    const std::uint32_t refusals = state_.edit.refusals;
    commit_.run();
    if (watch.ended()) {
        return;
    }
    state_.host.application.Yield();
    if (watch.ended() || state_.edit.refusals != refusals || !leave_current_row()) {
        return;
    }
    const std::string number = number_for_new_row();
    empty_input_line(state_);
    write_line_number(number);
    show_input_line(state_);
    state_.edit.EditRow = -1;
    state_.edit.Adding = true;
    state_.edit.Inserting = false;
    hide_copy_and_delete();
    buttons_.EvidenziaFunzione(number_of(Function::add));
    bool adding = true;
    state_.events.raise(&KarvoListEvents::LineEditStart, adding);
    if (!watch.ended()) {
        open_first_field();
    }
}

/// \return false when the list stays on its row because a pending edit is kept, or when the control
///         is gone
bool RowCommands::leave_current_row() {
    const platform::LifeWatch watch(state_.life);
    const std::uint32_t kept_edits = state_.edit.kept_edits;
    state_.parts.Grid.SetRow(0);
    if (watch.ended()) {
        return false;
    }
    state_.commands->RowChanged();
    return !watch.ended() && state_.parts.Grid.Row() < 1 && state_.edit.kept_edits == kept_edits;
}

// --- Insert --------------------------------------------------------------------------------------

// Deliberate: unlike Add, Insert commits no open field and raises no LineEditStart.
void RowCommands::Insert() {
    const platform::LifeWatch watch(state_.life);
    bool cancel = false;
    state_.events.raise(&KarvoListEvents::InsertClick, cancel);
    if (watch.ended() || cancel) {
        return;
    }
    const platform::Grid& list = state_.parts.Grid;
    if (list.Row() < 1) {
        state_.host.application.MsgBox("deve essere selezionata la riga prima di cui inserire",
                                       MessageButtons::ok);
        return;
    }
    // The inserted row takes the number of the row before which it goes.
    std::string number;
    if (has_line_numbers(state_)) {
        number = list.TextMatrix(list.Row(), state_.LineNumberColumn);
    }
    state_.edit.EditRow = list.Row() - 1;
    commit_.close(); // its cell is emptied: the text belongs to no row any more
    empty_input_line(state_);
    write_line_number(number);
    show_input_line(state_);
    state_.edit.Inserting = true;
    state_.edit.Adding = false;
    hide_copy_and_delete();
    buttons_.EvidenziaFunzione(number_of(Function::insert));
    open_first_field();
}

// --- Copy ----------------------------------------------------------------------------------------

// Deliberate: Copy checks for no current row (the captions are copied then), commits no open field,
// raises no LineEditStart and hides no button.
void RowCommands::Copy() {
    const platform::LifeWatch watch(state_.life);
    bool cancel = false;
    state_.events.raise(&KarvoListEvents::CopyClick, cancel);
    if (watch.ended() || cancel) {
        return;
    }
    const std::string number = number_for_new_row();
    if (!copy_row_into_line()) {
        return;
    }
    commit_.close(); // another row's text lies under it now
    state_.parts.Grid.SetRowSel(0);
    write_line_number(number);
    show_input_line(state_);
    state_.edit.EditRow = -1;
    state_.edit.Adding = true;
    state_.edit.Inserting = false;
    buttons_.EvidenziaFunzione(number_of(Function::copy));
    open_first_field();
}

/// Puts the current row's texts into the input line and leaves the row, which may ask the user.
/// \return false when the pending edit was kept, its texts put back, or when the control is gone
bool RowCommands::copy_row_into_line() {
    const platform::LifeWatch watch(state_.life);
    platform::Grid& list = state_.parts.Grid;
    platform::Grid& line = state_.parts.GridIn;
    state_.edit.pending_before_copy = has_pending_edit(state_);
    const std::uint32_t lines_before = state_.edit.lines;
    begin_line(state_);
    std::vector<std::string> texts_before;
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        texts_before.emplace_back(line.TextMatrix(1, col));
        line.SetTextMatrix(1, col, list.TextMatrix(list.Row(), col));
    }
    const auto put_back = [&] {
        state_.edit.lines = lines_before; // the same row as before
        const auto cols = static_cast<std::int32_t>(texts_before.size());
        for (std::int32_t col = 0; col < cols && col < line.Cols(); ++col) {
            line.SetTextMatrix(1, col, texts_before[static_cast<std::size_t>(col)]);
        }
    };
    const std::uint32_t kept_edits = state_.edit.kept_edits;
    try {
        list.SetRow(0);
    } catch (...) {
        if (!watch.ended()) {
            state_.edit.pending_before_copy.reset();
            put_back();
        }
        throw;
    }
    if (watch.ended()) {
        return false;
    }
    state_.edit.pending_before_copy.reset();
    if (state_.edit.kept_edits != kept_edits) {
        put_back();
        return false;
    }
    return true;
}

// --- Delete --------------------------------------------------------------------------------------

void RowCommands::Delete() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    bool cancel = false;
    state_.events.raise(&KarvoListEvents::DeleteClick, cancel);
    if (watch.ended()) {
        return;
    }
    if (cancel) {
        buttons_.EvidenziaFunzione(0);
        return;
    }
    if (parts.Grid.Row() == 0) {
        return;
    }
    buttons_.EvidenziaFunzione(number_of(Function::remove));
    const MessageAnswer answer = state_.host.application.MsgBox(
        "confermi eliminazione riga selezionata?", MessageButtons::yes_no);
    if (watch.ended() || answer == MessageAnswer::no || parts.Grid.Row() == 0) {
        return;
    }
    // Without a row in the input line, or with another one (chosen while the buttons were disabled),
    // the removed row counts when it is above.
    const std::int32_t removed = parts.Grid.Row() - 1;
    const std::int32_t row =
        state_.edit.EditRow == -1 ? removed : std::min(state_.edit.EditRow, removed);
    if (row < parts.Grid.Rows() - 2) {
        require_line_number_column(state_); // before anything is removed
    }
    commit_.close(); // its row goes away
    begin_line(state_);
    remove_row();
    if (watch.ended()) {
        return;
    }
    state_.commands->RowChanged();
    if (watch.ended()) {
        return;
    }
    std::int32_t current = parts.Grid.Row();
    state_.events.raise(&KarvoListEvents::AfterRowDelete, current);
    if (watch.ended()) {
        return;
    }
    if (row < parts.Grid.Rows() - 1) {
        renumber_from(state_, row);
    }
    state_.edit.Modified = true;
    state_.edit.Adding = false;
    state_.edit.Inserting = false;
    parts.GridIn.SetVisible(false);
    parts.InpFld.SetVisible(false);
    parts.btnOK.SetVisible(false);
    buttons_.EvidenziaFunzione(0);
}

void RowCommands::remove_row() {
    platform::Grid& list = state_.parts.Grid;
    if (list.Rows() == 2 && list.Row() == 1) {
        // The grid cannot remove its last row below the captions by itself.
        state_.edit.EditRow = -1;
        list.SetRows(1);
        list.SetRow(0);
    } else {
        list.RemoveItem(list.Row());
    }
}

// --- What they share -----------------------------------------------------------------------------

/// Found before anything is emptied, because the column may not be there.
std::string RowCommands::number_for_new_row() const {
    return has_line_numbers(state_) ? next_line_number(state_) : std::string();
}

void RowCommands::write_line_number(const std::string& number) const {
    if (has_line_numbers(state_)) {
        state_.parts.GridIn.SetTextMatrix(1, state_.LineNumberColumn, number);
    }
}

/// Neither applies to a row that does not exist yet.
void RowCommands::hide_copy_and_delete() const {
    state_.parts.btnCopy.SetVisible(false);
    state_.parts.btnDelete.SetVisible(false);
}

void RowCommands::open_first_field() {
    const platform::LifeWatch watch(state_.life);
    const bool stands = editor_.place(0, Search::forward);
    if (!stands && !watch.ended() && state_.parts.GridIn.Visible()) {
        state_.host.application.MsgBox("non ci sono colonne editabili", MessageButtons::ok);
    }
}

} // namespace krv::editing
