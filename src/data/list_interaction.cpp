#include "data/list_interaction.h"

#include "control/control_state.h"
#include "control/failures.h"
#include "control/flag_scope.h"
#include "control/function_buttons.h"
#include "control/layout.h"
#include "editing/commands.h"
#include "editing/field_editor.h"
#include "editing/input_line.h"

#include <utility>

namespace krv::data {

// --- The current row -----------------------------------------------------------------------------

void ListInteraction::RowChanged() {
    EditState& edit = state_.edit;
    const Constituents& parts = state_.parts;
    if (!parts.btnAdd.Enabled()) {
        return;
    }
    // Deliberate: the remembered row moves on before the busy test, also when a run inside a run is
    // refused.
    const std::int32_t row_sel = parts.Grid.RowSel();
    if (std::exchange(edit.LastRowSel, row_sel) == row_sel || edit.RowChangeBusy) {
        return;
    }
    Leaving leaving = Leaving::control_is_gone;
    {
        const FlagScope busy(edit.RowChangeBusy, state_.life);
        leaving = leave_edited_row();
        if (leaving == Leaving::left) {
            parts.Grid.Row() == 0 ? hide_row_buttons() : open_row();
        }
    }
    if (leaving == Leaving::kept && state_.AutoStartInputOnClick) {
        editing::show_editor_again(state_);
    }
}

ListInteraction::Leaving ListInteraction::leave_edited_row() {
    const platform::LifeWatch watch(state_.life);
    try {
        return ask_about_edited_row();
    } catch (...) {
        // An error of the host is no answer: the row that is open stays the current one.
        if (!watch.ended() && state_.parts.GridIn.Visible()) {
            ++state_.edit.kept_edits;
            restore_edited_row();
        }
        throw;
    }
}

ListInteraction::Leaving ListInteraction::ask_about_edited_row() {
    const platform::LifeWatch watch(state_.life);
    EditState& edit = state_.edit;
    const std::uint32_t refusals = edit.refusals;
    state_.host.application.Yield();
    if (watch.ended()) {
        return Leaving::control_is_gone;
    }
    const bool is_refused = edit.refusals != refusals;
    if (!is_refused && !is_edit_pending()) {
        return Leaving::left;
    }
    if (!is_refused) {
        const platform::MessageAnswer answer = state_.host.application.MsgBox(
            "confermi annullamento modifiche?", platform::MessageButtons::yes_no);
        if (watch.ended()) {
            return Leaving::control_is_gone;
        }
        if (answer != platform::MessageAnswer::no) {
            drop_edit();
            return watch.ended() ? Leaving::control_is_gone : Leaving::left;
        }
    }
    ++edit.kept_edits;
    restore_edited_row();
    if (watch.ended()) {
        return Leaving::control_is_gone;
    }
    return is_refused ? Leaving::refused : Leaving::kept;
}

bool ListInteraction::is_edit_pending() const {
    return state_.parts.GridIn.Visible() &&
           state_.edit.pending_before_copy.value_or(editing::has_pending_edit(state_));
}

/// Nothing is restored when the row is no longer in the list.
void ListInteraction::restore_edited_row() const {
    platform::Grid& list = state_.parts.Grid;
    const std::int32_t row = state_.edit.EditRow + 1;
    if (list.Rows() == 1 || row > list.Rows() - 1) {
        return;
    }
    const platform::LifeWatch watch(state_.life);
    list.SetRow(row);
    if (watch.ended()) {
        return;
    }
    list.SetRowSel(row);
    if (row > 0) {
        list.SetColSel(list.Cols() - 1);
    }
}

void ListInteraction::drop_edit() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    {
        const FlagScope dropping(state_.edit.dropping, state_.life);
        if (state_.edit.pending_before_copy) {
            state_.commands->CloseField(); // another row's texts lie under it
        }
        parts.InpFld.SetVisible(false);
        state_.host.application.Yield();
    }
    if (watch.ended()) {
        return;
    }
    editing::begin_line(state_);
    parts.btnOK.SetVisible(false);
    parts.GridIn.SetVisible(false);
    buttons_.EvidenziaFunzione(0);
    // Else a row opened after this one would be appended as well.
    state_.edit.Adding = false;
    state_.edit.Inserting = false;
}

void ListInteraction::hide_row_buttons() const {
    for (platform::Button* button :
         {&state_.parts.btnInsert, &state_.parts.btnDelete, &state_.parts.btnCopy}) {
        button->SetVisible(false);
    }
}

void ListInteraction::open_row() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    state_.commands->CloseField(); // its cell gets another row's text
    parts.InpFld.SetVisible(false);
    editing::begin_line(state_);
    const std::int32_t row = parts.Grid.Row();
    state_.edit.EditRow = row - 1;
    state_.edit.Adding = false;
    state_.edit.Inserting = false;
    for (std::int32_t col = 0; col < parts.Grid.Cols(); ++col) {
        parts.GridIn.SetTextMatrix(1, col, parts.Grid.TextMatrix(row, col));
    }
    editing::show_input_line(state_);
    if (state_.AutoStartInputOnClick) {
        editor_.place(0, editing::Search::forward);
        if (watch.ended()) {
            return;
        }
        buttons_.EvidenziaFunzione(0);
    }
    if (parts.Grid.Row() >= 1) {
        tell_row_is_open();
    }
}

void ListInteraction::tell_row_is_open() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    std::int32_t row = parts.Grid.Row() - 1;
    state_.events.raise(&KarvoListEvents::RowSelect, row);
    if (watch.ended() || parts.Grid.Row() < 1) {
        return; // the host left the row again
    }
    if (buttons_.visible(Function::insert)) {
        parts.btnInsert.SetVisible(true);
    }
    if (buttons_.visible(Function::remove)) {
        parts.btnDelete.SetVisible(true);
    }
    if (buttons_.visible(Function::copy)) {
        parts.btnCopy.SetVisible(true);
        parts.btnCopy.SetEnabled(true);
    }
    bool adding = true; // Deliberate: also for this existing row
    state_.events.raise(&KarvoListEvents::LineEditStart, adding);
}

// --- The mouse -----------------------------------------------------------------------------------

void ListInteraction::collapse_selection() const {
    state_.parts.Grid.SetRowSel(state_.parts.Grid.Row());
}

void ListInteraction::click(std::int16_t& button, std::int16_t& shift, float x, float y) {
    const platform::Grid& list = state_.parts.Grid;
    if (list.Row() < 1) {
        return;
    }
    if (!state_.parts.GridIn.Visible()) {
        state_.edit.LastRowSel = 0; // no row is open: this one is opened also when it was the last
    }
    const platform::LifeWatch watch(state_.life);
    std::int32_t row = list.Row() - 1;
    std::int32_t col = column_at(list, x);
    state_.events.raise(&KarvoListEvents::ListClick, button, shift, x, y, row, col);
    if (!watch.ended()) {
        RowChanged();
    }
}

void ListInteraction::RowClick(std::int32_t row, std::int16_t& button, std::int16_t& shift) {
    const platform::LifeWatch watch(state_.life);
    platform::Grid& list = state_.parts.Grid;
    const std::int32_t grid_row = add_long(row, 1);
    // Deliberate: the row above the target is tested, the target itself scrolled to.
    if (!list.RowIsVisible(row)) {
        list.SetTopRow(grid_row);
    }
    constexpr platform::Twips inside_the_row = 100;
    const auto y = static_cast<float>(list.RowPos(grid_row) + inside_the_row);
    list.SetRow(grid_row);
    if (watch.ended() || list.Row() != grid_row) {
        return; // the pending edit was kept
    }
    list.SetCol(0);
    if (watch.ended()) {
        return;
    }
    list.SetRowSel(grid_row);
    list.SetColSel(list.Cols() - 1);
    constexpr float x = 500;
    click(button, shift, x, y);
}

} // namespace krv::data
