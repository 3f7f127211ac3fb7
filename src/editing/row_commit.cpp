#include "editing/row_commit.h"

#include "control/control_state.h"
#include "control/function_buttons.h"
#include "editing/commands.h"
#include "editing/field_editor.h"
#include "editing/input_line.h"
#include "editing/line_numbers.h"

#include <algorithm>
#include <string_view>

namespace krv::editing {

void RowCommit::Confirm() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    const std::uint32_t refusals = state_.edit.refusals;
    if (state_.edit.offering) {
        return; // the field's text is still on its way into the row
    }
    parts.InpFld.SetVisible(false);
    state_.host.application.Yield(); // the open field is committed, and may modify the row
    if (watch.ended() || state_.edit.refusals != refusals || !parts.btnOK.Visible()) {
        return;
    }
    const std::uint32_t lines = state_.edit.lines;
    bool cancel = false;
    state_.events.raise(&KarvoListEvents::OKClick, cancel);
    if (watch.ended() || cancel || state_.edit.lines != lines) {
        return; // refused, or the host has another row open now
    }
    std::int32_t row = state_.edit.EditRow;
    std::int32_t col = state_.edit.ColInEdit;
    bool external_handling = false;
    state_.events.raise(&KarvoListEvents::BeforeRowUpdate, row, col, cancel, external_handling);
    if (watch.ended() || state_.edit.lines != lines) {
        return;
    }
    if (cancel) {
        give_focus_after_refusal();
        return;
    }
    if (!external_handling) {
        if (lacks_necessary_value()) {
            return;
        }
        store();
    }
    close_row();
}

void RowCommit::give_focus_after_refusal() {
    const platform::LifeWatch watch(state_.life);
    if (give_focus_away(state_) || watch.ended()) {
        return;
    }
    if (editor_.place(state_.edit.ColInEdit, Search::forward) || watch.ended()) {
        return;
    }
    try {
        state_.parts.InpFld.SetFocus();
    } catch (const platform::RuntimeError&) {
        return; // nothing can take the focus: the row stays open all the same
    }
}

/// Shows the message for the first necessary column without a value and puts the editor there. The
/// control may be gone when this returns True.
bool RowCommit::lacks_necessary_value() {
    const platform::Grid& line = state_.parts.GridIn;
    for (std::int32_t col = 0; col < line.Cols(); ++col) {
        if (state_.columns.ColIsNecessary(col) && is_blank(line.TextMatrix(1, col))) {
            const platform::LifeWatch watch(state_.life);
            state_.host.application.MsgBox("il campo è necessario", platform::MessageButtons::ok);
            if (!watch.ended()) {
                editor_.place(col, Search::none);
            }
            return true;
        }
    }
    return false;
}

void RowCommit::store() {
    if (!state_.edit.Adding && state_.edit.Inserting) {
        require_line_number_column(state_); // before anything is stored
    }
    state_.edit.Modified = true;
    if (state_.edit.Adding) {
        state_.parts.Grid.AddItem(row_text());
    } else if (state_.edit.Inserting) {
        insert();
    } else {
        overwrite();
    }
}

/// The row in the form that the grid takes: a tab inside a value becomes a blank, so that no column
/// shifts.
std::string RowCommit::row_text() const {
    const platform::Grid& line = state_.parts.GridIn;
    std::string text;
    for (std::int32_t col = 0; col < line.Cols(); ++col) {
        if (col > 0) {
            text += '\t';
        }
        const std::size_t begin = text.size();
        text += line.TextMatrix(1, col);
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), '\t', ' ');
    }
    return text;
}

void RowCommit::insert() {
    platform::Grid& list = state_.parts.Grid;
    // The row before which it goes may be gone: the list was reloaded, or became shorter.
    const std::int32_t last = list.Rows() - 1;
    const std::int32_t before = state_.edit.EditRow;
    const std::int32_t row = before < 0 || before > last ? last : before;
    state_.edit.EditRow = row;
    list.AddItem(row_text(), row + 1);
    renumber_from(state_, row);
}

void RowCommit::overwrite() {
    platform::Grid& list = state_.parts.Grid;
    const platform::Grid& line = state_.parts.GridIn;
    const std::int32_t row = state_.edit.EditRow;
    if (row < 0 || row > list.Rows() - 2) {
        return; // there is no row to overwrite; the captions are none
    }
    for (std::int32_t col = 0; col < line.Cols(); ++col) {
        list.SetTextMatrix(row + 1, col, line.TextMatrix(1, col));
    }
}

void RowCommit::close_row() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    EditState& edit = state_.edit;
    parts.btnOK.SetVisible(false);
    buttons_.EvidenziaFunzione(0);
    const std::uint32_t lines = edit.lines;
    std::int32_t row = edit.EditRow;
    state_.events.raise(&KarvoListEvents::AfterRowUpdated, row);
    if (watch.ended() || (edit.lines != lines && parts.GridIn.Visible())) {
        return; // the host has opened another row: it stays open
    }
    edit.Adding = false;
    edit.Inserting = false;
    if (buttons_.visible(Function::add)) {
        parts.btnAdd.SetVisible(true);
    }
    if (edit.EditRow >= 0 && buttons_.visible(Function::insert)) {
        parts.btnInsert.SetVisible(true);
    }
    state_.commands->CloseField(); // one that the host opened inside an event
    parts.InpFld.SetVisible(false);
    parts.GridIn.SetVisible(false);
    begin_line(state_);
    if (edit.ColInEdit < parts.GridIn.Cols()) {
        parts.InpFld.SetText(parts.GridIn.TextMatrix(1, edit.ColInEdit));
    }
    if (!watch.ended() && state_.AutoAdd) {
        add_automatically(state_);
    }
}

} // namespace krv::editing
