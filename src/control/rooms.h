#pragma once

#include "control/appearance.h"
#include "control/control_state.h"
#include "control/flag_scope.h"
#include "control/function_buttons.h"
#include "control/keys.h"
#include "control/layout.h"
#include "data/list_loading.h"
#include "data/record_source.h"
#include "editing/commands.h"

#include "krv/control/karvo_list.h"

#include <string_view>

namespace krv {

/// The routines of one control over its shared state.
class KarvoList::Rooms final : public editing::Commands, public platform::ContainerEvents {
public:
    Rooms(const Constituents& constituents, const Surroundings& surroundings)
        : state(constituents, surroundings)
        , buttons(state)
        , source(state)
        , loading(state, source, buttons) {
        state.commands = this;
    }

    ~Rooms() override { state.host.container.SetEvents(nullptr); }

    // The routines behind these are not part of the control yet; calling them changes nothing.
    void Add() override {}

    void Insert() override {}

    void Copy() override {}

    void Delete() override {}

    void Confirm() override {}

    void CommitField() override {}

    void CloseField() override {}

    void RowChanged() override {}

    void Resize() override {
        if (laying_out) {
            return; // the layout's own minimum size; it reads the size again
        }
        const FlagScope scope(laying_out, state.life);
        lay_out(state, buttons);
    }

    void KeyDown(std::int16_t& key_code, std::int16_t& shift) override {
        key_down(state, buttons, key_code, shift);
    }

    void ExitFocus() override { restore_tab_stops(state); }

    void put_color(platform::Button& button, platform::OleColor color, std::string_view property) {
        button.SetBackColor(color);
        changed(property);
    }

    void changed(std::string_view property) { state.host.container.PropertyChanged(property); }

    void put_key(Function function, std::int16_t code, std::string_view property) {
        if (buttons.set_key(function, code)) {
            changed(property);
        }
    }

    ControlState state;
    FunctionButtons buttons;
    data::RecordSource source;
    data::ListLoading loading;
    bool laying_out = false;
};

} // namespace krv
