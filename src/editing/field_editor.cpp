#include "editing/field_editor.h"

#include "control/appearance.h"
#include "control/control_state.h"
#include "control/flag_scope.h"
#include "control/layout.h"
#include "editing/field_commit.h"
#include "editing/input_line.h"

#include "krv/platform/error.h"

#include <string>
#include <utility>

namespace krv::editing {

// --- Placing -------------------------------------------------------------------------------------

bool FieldEditor::SetInput(std::int32_t col) {
    return state_.parts.GridIn.Visible() && place(col, Search::none);
}

bool FieldEditor::place(std::int32_t col, Search search) {
    const platform::LifeWatch watch(state_.life);
    if (!close_open_field() || watch.ended()) {
        return false;
    }
    const platform::Grid& line = state_.parts.GridIn;
    if (!line.Visible() || col > line.Cols() - 1 || !find_column(col, search)) {
        return false; // without an open row there is nothing that the editor could stand over
    }
    state_.edit.editor_returns = false;
    state_.edit.ColInEdit = col;
    const std::uint32_t placements = ++state_.edit.placements;
    place_editor_over(state_.parts, col);
    platform::TextBox& editor = state_.parts.InpFld;
    editor.SetMaxLength(state_.columns.ColFieldLength(col));
    editor.SetVisible(true);
    if (!state_.parts.btnAdd.TabStop()) {
        // The focus may be there already, and would not be announced again.
        try {
            focus_gained();
        } catch (...) {
            if (!watch.ended() && editor.Visible()) {
                editor.SetFocus(); // the field is open all the same
            }
            throw;
        }
        if (watch.ended() || state_.edit.placements != placements || !editor.Visible()) {
            return false;
        }
    }
    editor.SetFocus();
    return true;
}

/// \return false when the host refused the field, or the control is gone
bool FieldEditor::close_open_field() {
    const platform::LifeWatch watch(state_.life);
    const std::uint32_t refusals = state_.edit.refusals;
    platform::TextBox& editor = state_.parts.InpFld;
    if (editor.Visible() && !state_.parts.btnAdd.TabStop()) {
        commit_.run(); // without tab stops the focus may stay: nothing would announce its loss
        if (watch.ended()) {
            return false;
        }
    } else {
        editor.SetVisible(false);
    }
    state_.host.application.Yield();
    return !watch.ended() && !editor.Visible() && state_.edit.refusals == refusals;
}

bool FieldEditor::find_column(std::int32_t& col, Search search) const {
    if (is_usable(state_, col)) {
        return true;
    }
    if (search == Search::backward) {
        while (col >= 0 && !is_usable(state_, col)) {
            --col;
        }
        return col >= 0;
    }
    if (search == Search::forward) {
        const std::int32_t cols = state_.parts.GridIn.Cols();
        while (col < cols && !is_usable(state_, col)) {
            ++col;
        }
        return col < cols;
    }
    return false;
}

// --- The open field ------------------------------------------------------------------------------

void FieldEditor::focus_gained() {
    EditState& edit = state_.edit;
    platform::TextBox& editor = state_.parts.InpFld;
    edit.editor_returns = false;
    if (edit.ColInEdit >= state_.parts.GridIn.Cols()) {
        return; // its column went away before the focus was announced
    }
    if (!state_.parts.btnAdd.TabStop()) {
        clear_tab_stops(state_);
    }
    const platform::LifeWatch watch(state_.life);
    const std::uint32_t placements = edit.placements;
    const std::uint32_t focus_gains = ++edit.focus_gains;
    edit.FieldHasFocus = true;
    const auto open = [&] {
        editor.SetSelStart(0);
        editor.SetSelLength(static_cast<std::int32_t>(editor.Text().size())); // clipped to the text
        edit.Editing = true;
    };
    if (!std::exchange(edit.keeps_typed_text, false)) {
        const bool was_visible = editor.Visible();
        try {
            editor.SetText(text_for_editor(state_, edit.ColInEdit));
        } catch (...) {
            if (!watch.ended() && edit.FieldHasFocus) {
                open();
            }
            throw;
        }
        if (watch.ended() || !edit.FieldHasFocus || edit.placements != placements ||
            edit.focus_gains != focus_gains) {
            return; // a handler of the change closed the field, or opened another
        }
        if (was_visible && !editor.Visible()) {
            commit_.close(); // hidden by a handler before the focus could leave it
            return;
        }
    }
    open();
}

void FieldEditor::text_changed() {
    // A host that changes the text at every change never comes to an end by itself.
    constexpr int most_changes_under_way = 100;
    if (changes_under_way_ == most_changes_under_way) {
        throw platform::RuntimeError(
            platform::error_number::out_of_stack_space, "Out of stack space", "krvList3");
    }
    const platform::LifeWatch watch(state_.life);
    const CountScope level(changes_under_way_, state_.life);
    const std::uint32_t placements = state_.edit.placements;
    const std::uint32_t lines = state_.edit.lines;
    platform::TextBox& editor = state_.parts.InpFld;
    std::int32_t col = state_.edit.ColInEdit;
    std::string value = editor.Text();
    state_.events.raise(&KarvoListEvents::InputFieldChange, col, value);
    if (!watch.ended() && state_.edit.placements == placements && state_.edit.lines == lines) {
        editor.SetText(value);
    }
}

// --- The mouse -----------------------------------------------------------------------------------

void FieldEditor::mouse_down_on_editor(std::int16_t button, std::int16_t shift, float x, float y) {
    const platform::LifeWatch watch(state_.life);
    std::int32_t col = state_.edit.ColInEdit;
    state_.events.raise(&KarvoListEvents::InputLineClick, button, shift, x, y, col);
    if (!watch.ended()) {
        col = state_.edit.ColInEdit;
        state_.events.raise(&KarvoListEvents::InputFieldClick, button, shift, x, y, col);
    }
}

void FieldEditor::mouse_down_on_line(std::int16_t button, std::int16_t shift, float x, float y) {
    const platform::LifeWatch watch(state_.life);
    std::int32_t col = column_at(state_.parts.GridIn, x);
    state_.events.raise(&KarvoListEvents::InputLineClick, button, shift, x, y, col);
    if (!watch.ended()) {
        // Deliberate: the pressed cell's column as the grid has it, not the one found from x.
        place(state_.parts.GridIn.Col(), Search::none);
    }
}

void FieldEditor::double_click_on_editor() {
    double_click(EditorPart::taken);
}

void FieldEditor::double_click_on_line() {
    double_click(state_.parts.InpFld.Visible() ? EditorPart::taken : EditorPart::left_alone);
}

void FieldEditor::double_click(EditorPart editor_part) {
    const platform::LifeWatch watch(state_.life);
    const EditState& edit = state_.edit;
    platform::TextBox& editor = state_.parts.InpFld;
    platform::Grid& line = state_.parts.GridIn;
    const bool takes_editor = editor_part == EditorPart::taken;
    std::int32_t col = edit.ColInEdit;
    if (col >= line.Cols()) {
        return;
    }
    const std::string cell(line.TextMatrix(1, col));
    const std::uint32_t lines = edit.lines;
    const std::uint32_t placements = edit.placements;
    std::string value = takes_editor ? editor.Text() : std::string();
    const std::string typed = value;
    bool was_modified = false;
    const auto put_back = [&] {
        if (watch.ended() || edit.lines != lines || col >= line.Cols()) {
            return false; // the row that it was about is gone
        }
        line.SetTextMatrix(1, col, cell); // undoes what the commit of the emptied field wrote
        state_.parts.btnOK.SetVisible(was_modified);
        return true;
    };
    try {
        if (takes_editor) {
            editor.SetText("");
        }
        if (watch.ended()) {
            return;
        }
        was_modified = state_.parts.btnOK.Visible();
        if (takes_editor) {
            editor.SetVisible(false);
            state_.host.application.Yield(); // the emptied field is committed now
        }
        if (watch.ended()) {
            return;
        }
        state_.events.raise(&KarvoListEvents::InputLineDblClick, col, value);
    } catch (...) {
        if (put_back() && takes_editor) {
            reopen_with(typed);
        }
        throw;
    }
    // A field that the host opened meanwhile is left alone.
    if (put_back() && takes_editor && edit.placements == placements) {
        show_with(value);
    }
}

/// Types a value into the field: it is stored when the field is left.
void FieldEditor::show_with(const std::string& value) {
    const platform::LifeWatch watch(state_.life);
    if (!show_editor_again(state_)) {
        return; // the host closed the row inside the event
    }
    const std::uint32_t lines = state_.edit.lines;
    state_.host.application.Yield();
    if (!watch.ended() && state_.edit.lines == lines) {
        state_.parts.InpFld.SetText(value);
    }
}

/// After an error of the host: the field as it was, with what was typed.
void FieldEditor::reopen_with(const std::string& value) {
    const platform::LifeWatch watch(state_.life);
    if (!show_editor_again(state_)) {
        return;
    }
    state_.edit.keeps_typed_text = true;
    state_.parts.InpFld.SetText(value);
}

} // namespace krv::editing
