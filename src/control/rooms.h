#pragma once

#include "control/appearance.h"
#include "control/control_state.h"
#include "control/flag_scope.h"
#include "control/function_buttons.h"
#include "control/keys.h"
#include "control/layout.h"
#include "control/part_listeners.h"
#include "data/list_interaction.h"
#include "data/list_loading.h"
#include "data/record_source.h"
#include "editing/commands.h"
#include "editing/editor_keys.h"
#include "editing/field_commit.h"
#include "editing/field_editor.h"
#include "editing/row_commands.h"
#include "editing/row_commit.h"
#include "persistence/property_bag.h"

#include "krv/control/karvo_list.h"

#include <string_view>

namespace krv {

/// The routines of one control over its shared state.
class KarvoList::Rooms final : public editing::Commands, public platform::ContainerEvents {
public:
    Rooms(const Constituents& constituents, const Surroundings& surroundings)
        : state(constituents, surroundings) {
        state.commands = this;
    }

    ~Rooms() override { listen(Listening::off); }

    /// From here on the control reacts to its surface and its parts.
    void start_listening() { listen(Listening::on); }

    void stop_listening() { listen(Listening::off); }

    persistence::Settings settings() { return {state, buttons, source}; }

    // --- What the routines call sideways ---------------------------------------------------------

    void Add() override { rows.Add(); }

    void Insert() override { rows.Insert(); }

    void Copy() override { rows.Copy(); }

    void Delete() override { rows.Delete(); }

    void Confirm() override { row_commit.Confirm(); }

    void CloseField() override { field_commit.close(); }

    void RowChanged() override { interaction.RowChanged(); }

    // --- What the surface tells ------------------------------------------------------------------

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

    // --- What the face's members share -----------------------------------------------------------

    void changed(std::string_view property) { state.host.container.PropertyChanged(property); }

    void put_key(Function function, std::int16_t code, std::string_view property) {
        if (buttons.set_key(function, code)) {
            changed(property);
        }
    }

    void put_color(platform::Button& button, platform::OleColor color, std::string_view property) {
        button.SetBackColor(color);
        changed(property);
    }

    ControlState state;
    FunctionButtons buttons{state};
    data::RecordSource source{state};
    data::ListLoading loading{state, source, buttons};
    editing::FieldCommit field_commit{state};
    editing::FieldEditor editor{state, field_commit};
    editing::EditorKeys editor_keys{state, buttons, editor, field_commit};
    editing::RowCommands rows{state, buttons, editor, field_commit};
    editing::RowCommit row_commit{state, buttons, editor};
    data::ListInteraction interaction{state, buttons, editor};
    bool laying_out = false;

private:
    enum class Listening : std::uint8_t { on, off };

    void listen(Listening listening) {
        const bool on = listening == Listening::on;
        const Constituents& parts = state.parts;
        state.host.container.SetEvents(on ? this : nullptr);
        parts.Grid.SetEvents(on ? &on_list_ : nullptr);
        parts.GridIn.SetEvents(on ? &on_input_line_ : nullptr);
        parts.InpFld.SetEvents(on ? &on_editor_ : nullptr);
        parts.btnAdd.SetEvents(on ? &on_add_ : nullptr);
        parts.btnInsert.SetEvents(on ? &on_insert_ : nullptr);
        parts.btnDelete.SetEvents(on ? &on_delete_ : nullptr);
        parts.btnCopy.SetEvents(on ? &on_copy_ : nullptr);
        parts.btnOK.SetEvents(on ? &on_ok_ : nullptr);
    }

    ListListener on_list_{*this, interaction};
    InputLineListener on_input_line_{editor};
    EditorListener on_editor_{editor, editor_keys, field_commit};
    CommandListener on_add_{*this, &editing::Commands::Add};
    CommandListener on_insert_{*this, &editing::Commands::Insert};
    CommandListener on_delete_{*this, &editing::Commands::Delete};
    CommandListener on_copy_{*this, &editing::Commands::Copy};
    CommandListener on_ok_{*this, &editing::Commands::Confirm};
};

} // namespace krv
