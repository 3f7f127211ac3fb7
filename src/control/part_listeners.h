#pragma once

#include "control/control_state.h"
#include "data/list_interaction.h"
#include "editing/commands.h"
#include "editing/editor_keys.h"
#include "editing/field_commit.h"
#include "editing/field_editor.h"

#include "krv/platform/controls.h"
#include "krv/platform/grid.h"

#include <cstdint>

namespace krv {

// What the parts tell, handed to the routines that it concerns.

class ListListener final : public platform::GridEvents {
public:
    ListListener(platform::ContainerEvents& surface, data::ListInteraction& interaction)
        : surface_(surface)
        , interaction_(interaction) {}

    void KeyDown(std::int16_t& key_code, std::int16_t& shift) override {
        surface_.KeyDown(key_code, shift);
    }

    void MouseDown(std::int16_t, std::int16_t, float, float) override {
        interaction_.collapse_selection();
    }

    void MouseUp(std::int16_t, std::int16_t, float, float) override {
        interaction_.collapse_selection();
    }

    void Click(std::int16_t button, std::int16_t shift, float x, float y) override {
        interaction_.click(button, shift, x, y);
    }

    void RowColChange() override { interaction_.RowChanged(); }

private:
    platform::ContainerEvents& surface_;
    data::ListInteraction& interaction_;
};

class InputLineListener final : public platform::GridEvents {
public:
    explicit InputLineListener(editing::FieldEditor& editor)
        : editor_(editor) {}

    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override {
        editor_.mouse_down_on_line(button, shift, x, y);
    }

    void DblClick() override { editor_.double_click_on_line(); }

private:
    editing::FieldEditor& editor_;
};

class EditorListener final : public platform::TextBoxEvents {
public:
    EditorListener(editing::FieldEditor& editor,
                   editing::EditorKeys& keys,
                   editing::FieldCommit& commit)
        : editor_(editor)
        , keys_(keys)
        , commit_(commit) {}

    void Change() override { editor_.text_changed(); }

    void DblClick() override { editor_.double_click_on_editor(); }

    void GotFocus() override { editor_.focus_gained(); }

    void LostFocus() override { commit_.focus_lost(); }

    void KeyDown(std::int16_t& key_code, std::int16_t& shift) override {
        keys_.key_down(key_code, shift);
    }

    void KeyPress(std::int16_t& key_ascii) override { editing::EditorKeys::key_press(key_ascii); }

    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override {
        editor_.mouse_down_on_editor(button, shift, x, y);
    }

private:
    editing::FieldEditor& editor_;
    editing::EditorKeys& keys_;
    editing::FieldCommit& commit_;
};

/// Runs its command when its button is clicked.
class CommandListener final : public platform::ButtonEvents {
public:
    CommandListener(editing::Commands& commands, void (editing::Commands::*command)())
        : commands_(commands)
        , command_(command) {}

    void Click() override { (commands_.*command_)(); }

private:
    editing::Commands& commands_;
    void (editing::Commands::*command_)();
};

} // namespace krv
