#include "control/keys.h"

#include "control/control_state.h"
#include "control/function_buttons.h"
#include "editing/commands.h"

#include "krv/platform/keys.h"

#include <array>

namespace krv {

namespace {

void run(editing::Commands& commands, Function function) {
    switch (function) {
    case Function::add:
        commands.Add();
        return;
    case Function::insert:
        commands.Insert();
        return;
    case Function::remove:
        commands.Delete();
        return;
    case Function::copy:
        commands.Copy();
        return;
    }
}

/// \return whether the key is a function key, its button shown or not
bool run_function(const ControlState& state, const FunctionButtons& buttons, std::int16_t key) {
    // The order counts: functions may share a key.
    for (const Function function :
         {Function::add, Function::insert, Function::remove, Function::copy}) {
        if (key == buttons.key(function)) {
            if (buttons.button(function).Visible()) {
                run(*state.commands, function);
            }
            return true;
        }
    }
    return false;
}

void move_to_row(const ControlState& state, std::int32_t row) {
    const platform::LifeWatch watch(state.life);
    platform::Grid& list = state.parts.Grid;
    state.parts.InpFld.SetVisible(false);
    list.SetRow(row);
    if (!watch.ended()) {
        list.SetColSel(list.Cols() - 1);
    }
}

} // namespace

void key_down(ControlState& state,
              const FunctionButtons& buttons,
              std::int16_t& key_code,
              std::int16_t& shift) {
    if (key_code == platform::key_tab) {
        key_code = 0;
        return;
    }
    const platform::Grid& list = state.parts.Grid;
    std::int32_t col = state.edit.Editing ? state.edit.ColInEdit : -1;
    if (run_function(state, buttons, key_code)) {
        return;
    }
    if (key_code == buttons.KeyOK) {
        if (state.edit.Editing || state.parts.btnOK.Visible()) {
            state.commands->Confirm();
        }
    } else if (key_code == platform::key_up) {
        if (list.Row() > 1) {
            move_to_row(state, list.Row() - 1);
        }
    } else if (key_code == platform::key_down) {
        if (list.Row() < list.Rows() - 1) {
            move_to_row(state, list.Row() + 1);
        }
    } else {
        state.events.raise(&KarvoListEvents::KeyDown, key_code, shift, col);
    }
}

} // namespace krv
