#include "editing/field_commit.h"

#include "control/appearance.h"
#include "control/control_state.h"
#include "control/flag_scope.h"
#include "editing/input_line.h"

#include <exception>

namespace krv::editing {

/// The field that a commit is about. The host may open another one meanwhile, or another row: this
/// one is over then, and what is new is left alone.
struct FieldCommit::Field {
    explicit Field(const ControlState& control)
        : state(control)
        , watch(control.life)
        , col(control.edit.ColInEdit)
        , placements(control.edit.placements)
        , focus_gains(control.edit.focus_gains)
        , lines(control.edit.lines)
        , value(control.parts.InpFld.Text()) {}

    /// The editor serves no other field.
    bool has_editor() const {
        return state.edit.placements == placements && state.edit.focus_gains == focus_gains;
    }

    /// The cell under it belongs to the same row.
    bool has_cell() const { return state.edit.lines == lines && col < state.parts.GridIn.Cols(); }

    const ControlState& state;
    platform::LifeWatch watch;
    const std::int32_t col;
    const std::uint32_t placements;
    const std::uint32_t focus_gains;
    const std::uint32_t lines;
    std::string value;
};

void FieldCommit::focus_lost() {
    if (!state_.edit.editor_returns) { // else an old report: the editor has the focus again
        run();
    }
}

void FieldCommit::run() {
    EditState& edit = state_.edit;
    state_.parts.InpFld.SetVisible(false);
    if (!edit.FieldHasFocus) {
        return;
    }
    edit.FieldHasFocus = false; // a commit inside this one finds nothing to do
    Field field(state_);
    std::exception_ptr error;
    if (field_differs(state_)) {
        const bool accepted = offer(field);
        if (field.watch.ended()) {
            return;
        }
        if (!accepted && !edit.dropping && field.has_cell()) {
            refuse(field);
            return;
        }
        if (accepted && field.has_cell()) {
            try {
                store(field);
            } catch (...) {
                error = std::current_exception();
            }
        }
    }
    if (!field.watch.ended() && field.has_editor()) {
        end();
    }
    if (error) {
        std::rethrow_exception(error);
    }
}

/// \return whether the host lets the value, as it left it, into the input line
bool FieldCommit::offer(Field& field) {
    std::int32_t col = field.col;
    bool cancel = false;
    try {
        const FlagScope offering(state_.edit.offering, state_.life);
        state_.events.raise(&KarvoListEvents::BeforeFieldUpdate, col, field.value, cancel);
    } catch (...) {
        if (!field.watch.ended() && field.has_editor() && field.has_cell()) {
            state_.edit.FieldHasFocus = true;
            state_.edit.keeps_typed_text = true;
            bring_editor_back();
        }
        throw;
    }
    return !cancel;
}

void FieldCommit::refuse(const Field& field) {
    EditState& edit = state_.edit;
    ++edit.refusals;
    if (!field.has_editor()) {
        return;
    }
    edit.FieldHasFocus = false;
    edit.Editing = false;
    if (!give_focus_away(state_) && !field.watch.ended()) {
        bring_editor_back();
    }
}

void FieldCommit::bring_editor_back() {
    platform::TextBox& editor = state_.parts.InpFld;
    if (!state_.parts.GridIn.Visible()) {
        return; // the row went meanwhile
    }
    editor.SetVisible(true);
    if (!state_.parts.btnAdd.TabStop()) {
        editor.SetTabStop(true);
    }
    try {
        editor.SetFocus();
        state_.edit.editor_returns = true;
    } catch (const platform::RuntimeError&) {
        return; // shown all the same; a person's press gives it the focus
    }
}

void FieldCommit::store(const Field& field) {
    std::string text = field.value;
    std::exception_ptr error;
    if (field.has_editor()) {
        try {
            state_.parts.InpFld.SetText(text); // its change is told: the host may rewrite it again
        } catch (...) {
            error = std::current_exception();
        }
        if (!field.watch.ended() && field.has_editor()) {
            text = state_.parts.InpFld.Text();
        }
    }
    if (!field.watch.ended() && field.has_cell()) {
        state_.parts.btnOK.SetVisible(true);
        write_cell(field.col, text);
        if (state_.edit.FieldHasFocus && state_.edit.ColInEdit == field.col) {
            // Opened again meanwhile: it shows the cell's old text, which must not come back.
            state_.parts.InpFld.SetText(text_for_editor(state_, field.col));
        }
    }
    if (error) {
        std::rethrow_exception(error);
    }
}

void FieldCommit::write_cell(std::int32_t col, const std::string& text) const {
    platform::Grid& line = state_.parts.GridIn;
    const std::string& pattern = state_.columns.ColFormat(col);
    line.SetTextMatrix(1, col, text); // not lost when the pattern cannot take it
    if (!pattern.empty()) {
        line.SetTextMatrix(
            1, col, state_.host.formatter.Format(platform::ValueView::text(text), pattern));
    }
}

void FieldCommit::end() {
    if (!state_.parts.btnAdd.TabStop()) {
        restore_tab_stops(state_);
    }
    state_.edit.FieldHasFocus = false;
    state_.edit.Editing = false;
}

void FieldCommit::close() {
    state_.edit.editor_returns = false;
    state_.edit.keeps_typed_text = false;
    if (!state_.edit.FieldHasFocus) {
        return;
    }
    state_.parts.InpFld.SetVisible(false);
    end();
}

} // namespace krv::editing
