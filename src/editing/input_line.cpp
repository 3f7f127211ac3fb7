#include "editing/input_line.h"

#include "control/control_state.h"
#include "control/failures.h"
#include "editing/commands.h"

namespace krv::editing {

namespace {

constexpr std::string_view date_pattern = "dd/mm/yyyy";

bool is_date_pattern(std::string_view pattern) {
    return pattern.starts_with('d'); // the small letter alone
}

/// A text that the pattern cannot take stays as it is.
std::string formatted(const ControlState& state, std::string_view text, std::string_view pattern) {
    try {
        return state.host.formatter.Format(platform::ValueView::text(text), pattern);
    } catch (const platform::RuntimeError&) {
        return std::string(text);
    }
}

std::string_view cell(const ControlState& state, std::int32_t col) {
    return state.parts.GridIn.TextMatrix(1, col);
}

} // namespace

void show_input_line(const ControlState& state) {
    if (!state.parts.GridIn.Visible()) {
        state.parts.btnOK.SetVisible(false);
    }
    state.parts.GridIn.SetVisible(true);
}

void begin_line(ControlState& state) {
    ++state.edit.lines;
}

bool show_editor_again(const ControlState& state) {
    if (!state.parts.GridIn.Visible() || !is_usable(state, state.edit.ColInEdit)) {
        return false;
    }
    state.parts.InpFld.SetVisible(true);
    state.parts.InpFld.SetFocus();
    return true;
}

void empty_input_line(ControlState& state) {
    platform::Grid& line = state.parts.GridIn;
    const auto last = narrow<std::int16_t>(std::int64_t{line.Cols()} - 1);
    begin_line(state);
    for (std::int32_t col = 0; col <= last; ++col) {
        line.SetTextMatrix(1, col, "");
    }
}

bool is_usable(const ControlState& state, std::int32_t col) {
    const platform::Grid& line = state.parts.GridIn;
    return col >= 0 && col < line.Cols() && line.ColWidth(col) != 0 &&
           state.columns.ColEditable(col);
}

std::string text_for_editor(const ControlState& state, std::int32_t col) {
    const std::string& pattern = state.columns.ColFormat(col);
    if (pattern.empty()) {
        return std::string(cell(state, col));
    }
    return formatted(
        state, cell(state, col), is_date_pattern(pattern) ? date_pattern : std::string_view());
}

bool field_differs(const ControlState& state) {
    const std::int32_t col = state.edit.ColInEdit;
    const std::string text = state.parts.InpFld.Text();
    const std::string& pattern = state.columns.ColFormat(col);
    if (pattern.empty() || is_date_pattern(pattern)) {
        return text_for_editor(state, col) != text;
    }
    return formatted(state, text, {}) != text_for_editor(state, col);
}

bool has_pending_edit(const ControlState& state) {
    return state.parts.btnOK.Visible() || state.edit.offering ||
           (state.edit.FieldHasFocus && field_differs(state));
}

void add_automatically(const ControlState& state) {
    const platform::LifeWatch watch(state.life);
    editing::Commands& commands = *state.commands;
    platform::Application& application = state.host.application;
    commands.Add();
    if (watch.ended()) {
        return;
    }
    application.Yield();
    if (!watch.ended()) {
        commands.Add();
    }
}

bool is_blank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

bool give_focus_away(const ControlState& state) {
    const std::shared_ptr<platform::Object> object = state.GiveFocusTo;
    if (!object) {
        return false;
    }
    try {
        object->SetFocus();
        return true;
    } catch (const platform::RuntimeError&) {
        return false;
    }
}

} // namespace krv::editing
