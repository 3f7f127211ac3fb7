#include "control/function_buttons.h"

#include "control/control_state.h"
#include "control/failures.h"

#include "krv/platform/keys.h"

namespace krv {

namespace {

using platform::key_f1;
using platform::key_f12;

/// The digits in "F5" for a key code.
std::string function_number(std::int16_t key) {
    return std::to_string(narrow<std::int16_t>(std::int64_t{key} - (key_f1 - 1)));
}

} // namespace

FunctionButtons::FunctionButtons(ControlState& state)
    : state_(state)
    , settings_{{{116, "", false}, {117, "", false}, {118, "", false}, {119, "", false}}} {}

const FunctionButtons::Setting& FunctionButtons::setting(Function function) const {
    return settings_[static_cast<std::size_t>(function) - 1];
}

FunctionButtons::Setting& FunctionButtons::setting(Function function) {
    return settings_[static_cast<std::size_t>(function) - 1];
}

platform::Button& FunctionButtons::button(Function function) const {
    const Constituents& parts = state_.parts;
    switch (function) {
    case Function::add:
        return parts.btnAdd;
    case Function::insert:
        return parts.btnInsert;
    case Function::remove:
        return parts.btnDelete;
    case Function::copy:
        break;
    }
    return parts.btnCopy;
}

bool FunctionButtons::set_key(Function function, std::int16_t code) {
    if (code < key_f1 || code > key_f12) {
        state_.host.application.MsgBox("The value must be between vbKeyF1 and vbKeyF12.",
                                       platform::MessageButtons::ok);
        return false;
    }
    restore_key(function, code);
    return true;
}

void FunctionButtons::restore_key(Function function, std::int16_t code) {
    setting(function).key = code;
    compose_caption(function);
}

void FunctionButtons::set_caption(Function function, std::string_view caption) {
    setting(function).caption = caption;
    compose_caption(function);
}

void FunctionButtons::compose_caption(Function function) {
    const Setting& own = setting(function);
    button(function).SetCaption(own.caption + " (F" + function_number(own.key) + ")");
}

void FunctionButtons::set_visible(Function function, bool visible) {
    setting(function).visible = visible;
    button(function).SetVisible(visible);
}

void FunctionButtons::recaption_after_load() {
    compose_caption(Function::add);
    // Deliberate: after a load only the add button has its opening parenthesis; hosts show these
    // texts.
    for (const Function function : {Function::insert, Function::remove, Function::copy}) {
        const Setting& own = setting(function);
        button(function).SetCaption(own.caption + " F" + function_number(own.key) + ")");
    }
}

void FunctionButtons::EvidenziaFunzione(std::int16_t function) {
    if (function == 0) {
        clear_marks();
    }
    if (function < 1 || function > 4) {
        return;
    }
    const auto chosen = static_cast<Function>(function);
    if (static_cast<std::int32_t>(EvidenziaColor) <= 0) {
        marked_by_line_ = chosen;
        place_line();
    } else {
        mark_by_color(chosen);
    }
}

void FunctionButtons::mark_by_color(Function function) {
    for (const Function other : all_functions) {
        button(other).SetBackColor(other == function ? EvidenziaColor
                                                     : platform::button_face_color);
    }
    marked_by_color_ = function;
    hide_line();
}

void FunctionButtons::clear_marks() {
    if (marked_by_color_) {
        button(*marked_by_color_).SetBackColor(platform::button_face_color);
        marked_by_color_.reset();
    }
    if (marked_by_line_) {
        hide_line();
    }
}

void FunctionButtons::hide_line() {
    state_.parts.Line1.SetX1(-1);
    state_.parts.Line1.SetX2(-1);
    marked_by_line_.reset();
}

void FunctionButtons::place_line() {
    if (!marked_by_line_) {
        return;
    }
    const platform::Button& marked = button(*marked_by_line_);
    state_.parts.Line1.SetX1(marked.Left());
    state_.parts.Line1.SetX2(marked.Left() + marked.Width());
}

} // namespace krv
