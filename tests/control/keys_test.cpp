#include "control/keys.h"

#include "control/control_state.h"
#include "control/function_buttons.h"
#include "editing/commands.h"

#include "krv/headless/headless_form.h"

#include "support/scripted_data.h"

#include "krv/standard/value_formatter.h"

#include <gtest/gtest.h>

namespace krv {
namespace {

using Told = std::vector<std::string>;

/// The key handling over headless parts; commands are noted instead of run.
struct KeysTest : ::testing::Test, editing::Commands, KarvoListEvents {
    void SetUp() override {
        state.commands = this;
        state.events.subscribe(*this);
        for (const Function function : all_functions) {
            buttons.set_visible(function, true);
        }
        state.parts.Grid.SetRows(4);
        state.parts.Grid.SetCols(3);
        state.parts.Grid.SetRow(1);
    }

    void Add() override { told.push_back("Add"); }

    void Insert() override { told.push_back("Insert"); }

    void Copy() override { told.push_back("Copy"); }

    void Delete() override { told.push_back("Delete"); }

    void Confirm() override { told.push_back("Confirm"); }

    void CloseField() override { told.push_back("CloseField"); }

    void RowChanged() override { told.push_back("RowChanged"); }

    void KeyDown(std::int16_t& code, std::int16_t& shift, std::int32_t col) override {
        told.push_back("KeyDown " + std::to_string(code) + " " + std::to_string(shift) + " " +
                       std::to_string(col));
        code = answer ? answer(code) : code;
    }

    std::int16_t down(std::int16_t code, std::int16_t shift = 0) {
        key_down(state, buttons, code, shift);
        return code;
    }

    Told told;
    std::function<std::int16_t(std::int16_t)> answer;
    headless::HeadlessForm form;
    headless::HeadlessControl& surface = form.add_control();
    testing::ScriptedData data;
    standard::ValueFormatter formatter{standard::regional_settings("it-IT")};
    ControlState state{surface.constituents(),
                       Surroundings{surface, form.application(), data, formatter}};
    FunctionButtons buttons{state};
};

TEST_F(KeysTest, Tab_is_swallowed_and_tells_nobody) {
    EXPECT_EQ(down(9), 0);
    EXPECT_EQ(down(9, 1), 0);
    EXPECT_EQ(told, Told{});
}

TEST_F(KeysTest, each_function_key_runs_its_command_with_any_modifier) {
    for (const std::int16_t code : {116, 117, 118, 119}) {
        EXPECT_EQ(down(code, 7), code);
    }
    EXPECT_EQ(told, (Told{"Add", "Insert", "Delete", "Copy"}));
}

TEST_F(KeysTest, a_shared_key_belongs_to_add_then_insert_then_delete_then_copy) {
    for (const Function function : all_functions) {
        buttons.set_key(function, 120);
    }
    for (const Function function : {Function::add, Function::insert, Function::remove}) {
        down(120);
        buttons.set_key(function, 112);
    }
    down(120);
    EXPECT_EQ(told, (Told{"Add", "Insert", "Delete", "Copy"}));
}

TEST_F(KeysTest, the_key_of_a_hidden_button_does_nothing_and_ends_the_search) {
    buttons.set_key(Function::insert, 116);
    buttons.set_visible(Function::add, false);
    down(116);
    EXPECT_EQ(told, Told{});
}

TEST_F(KeysTest, the_confirm_key_needs_its_button_or_an_open_field) {
    state.parts.btnOK.SetVisible(false);
    down(13);
    EXPECT_EQ(told, Told{});
    state.edit.Editing = true;
    down(13);
    state.edit.Editing = false;
    state.parts.btnOK.SetVisible(true);
    down(13);
    EXPECT_EQ(told, (Told{"Confirm", "Confirm"}));
}

TEST_F(KeysTest, the_confirm_key_comes_after_the_functions_and_before_the_arrows) {
    buttons.KeyOK = 116;
    down(116);
    buttons.KeyOK = 40;
    down(40);
    EXPECT_EQ(told, (Told{"Add", "Confirm"}));
    EXPECT_EQ(state.parts.Grid.Row(), 1);
}

TEST_F(KeysTest, down_moves_the_list_hides_the_editor_and_selects_to_the_last_column) {
    state.parts.InpFld.SetVisible(true);
    down(40);
    const platform::Grid& list = state.parts.Grid;
    EXPECT_EQ(std::tuple(list.Row(), list.RowSel(), list.Col(), list.ColSel()),
              std::tuple(2, 2, 0, 2));
    EXPECT_FALSE(state.parts.InpFld.Visible());
    EXPECT_EQ(told, Told{});
}

TEST_F(KeysTest, down_on_the_last_row_changes_nothing) {
    state.parts.Grid.SetRow(3);
    state.parts.InpFld.SetVisible(true);
    down(40);
    EXPECT_EQ(state.parts.Grid.Row(), 3);
    EXPECT_TRUE(state.parts.InpFld.Visible());
    EXPECT_EQ(told, Told{});
}

TEST_F(KeysTest, up_stops_at_the_first_data_row) {
    state.parts.Grid.SetRow(2);
    state.parts.InpFld.SetVisible(true);
    down(38);
    EXPECT_EQ(state.parts.Grid.Row(), 1);
    EXPECT_EQ(state.parts.Grid.ColSel(), 2);
    EXPECT_FALSE(state.parts.InpFld.Visible());
    state.parts.InpFld.SetVisible(true);
    down(38);
    EXPECT_EQ(state.parts.Grid.Row(), 1);
    EXPECT_TRUE(state.parts.InpFld.Visible());
    EXPECT_EQ(told, Told{});
}

TEST_F(KeysTest, every_other_key_reaches_the_host_with_the_column_being_edited) {
    state.edit.ColInEdit = 2;
    down(65, 3);
    state.edit.Editing = true;
    down(-5, 0);
    EXPECT_EQ(told, (Told{"KeyDown 65 3 -1", "KeyDown -5 0 2"}));
}

TEST_F(KeysTest, the_host_may_change_the_key) {
    answer = [](std::int16_t) { return std::int16_t{0}; };
    EXPECT_EQ(down(65), 0);
}

} // namespace
} // namespace krv
