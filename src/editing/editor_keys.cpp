#include "editing/editor_keys.h"

#include "control/control_state.h"
#include "control/function_buttons.h"
#include "control/keys.h"
#include "editing/commands.h"
#include "editing/field_commit.h"
#include "editing/field_editor.h"
#include "editing/input_line.h"

#include "krv/platform/keys.h"

namespace krv::editing {

using namespace platform;

namespace {

bool is_function_key(std::int16_t key_code) {
    return key_code >= key_f1 && key_code <= key_f12;
}

/// UTF-16 units, as caret positions count.
std::int32_t length_of(const std::string& utf8) {
    std::int32_t units = 0;
    for (const char byte : utf8) {
        const auto code = static_cast<unsigned char>(byte);
        const bool begins_character = (code & 0xC0) != 0x80;
        units += begins_character ? (code >= 0xF0 ? 2 : 1) : 0;
    }
    return units;
}

} // namespace

void EditorKeys::key_down(std::int16_t& key_code, std::int16_t& shift) {
    const LifeWatch watch(state_.life);
    const TextBox& editor = state_.parts.InpFld;
    const bool with_ctrl = shift == ctrl_key;
    switch (key_code) {
    case key_tab:
        tab(key_code, shift);
        break;
    case key_right:
        if (with_ctrl || editor.SelStart() == length_of(editor.Text())) {
            move_right();
        }
        break;
    case key_left:
        if (with_ctrl || editor.SelStart() == 0) {
            move_left();
        }
        break;
    case key_enter:
        key_code = 0;
        enter();
        break;
    case key_escape:
        escape();
        key_code = 0;
        break;
    default:
        if (is_function_key(key_code)) {
            krv::key_down(state_, buttons_, key_code, shift);
        }
    }
    if (!watch.ended()) {
        mark_line_as_modified(key_code);
    }
}

void EditorKeys::tab(std::int16_t& key_code, std::int16_t shift) {
    if (shift == 0) {
        key_code = key_right; // a movement, which leaves the line unmodified
        move_right();
    } else if (shift == shift_key) {
        key_code = 0;
        move_left();
    } else {
        key_code = 0;
    }
}

void EditorKeys::move_right() {
    const LifeWatch watch(state_.life);
    if (give_focus_away(state_) || watch.ended()) {
        return;
    }
    const std::int32_t col = state_.edit.ColInEdit;
    if (!editor_.place(col + 1, Search::forward) && !watch.ended()) {
        editor_.place(state_.edit.ColInEdit, Search::none);
    }
}

void EditorKeys::move_left() {
    const LifeWatch watch(state_.life);
    if (give_focus_away(state_) || watch.ended()) {
        return;
    }
    const std::int32_t col = state_.edit.ColInEdit;
    if (!editor_.place(col - 1, Search::backward) && !watch.ended()) {
        editor_.place(state_.edit.ColInEdit, Search::none);
    }
}

void EditorKeys::enter() {
    const LifeWatch watch(state_.life);
    const bool is_appended = state_.edit.EditRow < 0;
    const std::uint32_t refusals = state_.edit.refusals;
    state_.commands->Confirm();
    if (watch.ended()) {
        return;
    }
    const bool nothing_pending = state_.edit.refusals == refusals && !state_.parts.btnOK.Visible();
    if (state_.AutoAdd && is_appended && nothing_pending) {
        state_.commands->Add();
    }
}

void EditorKeys::escape() {
    const LifeWatch watch(state_.life);
    TextBox& editor = state_.parts.InpFld;
    const std::int32_t col = state_.edit.ColInEdit;
    editor.SetText(state_.parts.GridIn.TextMatrix(1, col));
    if (watch.ended()) {
        return;
    }
    commit_.close(); // offers nothing, whatever the pattern makes of the cell's text
    editor.SetVisible(false);
    state_.host.application.Yield();
    if (!watch.ended()) {
        show_editor_again(state_);
    }
}

void EditorKeys::mark_line_as_modified(std::int16_t key_code) const {
    const bool changes_nothing = (key_code >= 0 && key_code <= 18) || key_code == key_escape ||
                                 (key_code >= key_left && key_code <= platform::key_down) ||
                                 is_function_key(key_code);
    // Deliberate: the text before the key counts, so the first character typed into an empty field
    // leaves the row unmodified.
    if (!changes_nothing && !state_.parts.InpFld.Text().empty() && buttons_.OkVisible) {
        state_.parts.btnOK.SetVisible(true);
    }
}

void EditorKeys::key_press(std::int16_t& key_ascii) {
    if (key_ascii == key_tab || key_ascii == key_enter) {
        key_ascii = 0;
    }
}

} // namespace krv::editing
