// The order in which loading and emptying call the rest of the control, seen by a spy in its place.

#include "control/control_state.h"
#include "control/function_buttons.h"
#include "data/list_loading.h"
#include "data/record_source.h"
#include "editing/commands.h"

#include "krv/headless/headless_form.h"
#include "krv/standard/value_formatter.h"

#include "support/scripted_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv {
namespace {

using ::testing::ElementsAre;

/// Writes down what it is asked to do and what the state was by then.
class SpiedCommands final : public editing::Commands {
public:
    explicit SpiedCommands(ControlState& state)
        : state_(state) {}

    void Add() override {
        note("Add");
        if (const auto handler = on_add) { // a copy: the handler may destroy this
            handler();
        }
    }

    void Insert() override { note("Insert"); }

    void Copy() override { note("Copy"); }

    void Delete() override { note("Delete"); }

    void Confirm() override { note("Confirm"); }

    void CloseField() override { note("CloseField"); }

    void RowChanged() override { note("RowChanged"); }

    void note(std::string what) {
        trace.push_back(std::move(what));
        held_off.push_back(state_.edit.RowChangeBusy);
    }

    std::vector<std::string> trace;
    std::vector<bool> held_off;
    std::function<void()> on_add;

private:
    ControlState& state_;
};

class SpiedLoading : public ::testing::Test {
protected:
    /// A control without its face.
    struct Control {
        Control(headless::HeadlessForm& form,
                headless::HeadlessControl& surface,
                platform::DataAccess& data,
                const platform::Formatter& formatter)
            : state(surface.constituents(), {surface, form.application(), data, formatter})
            , buttons(state)
            , source(state)
            , loading(state, source, buttons)
            , commands(state) {
            state.commands = &commands;
            state.columns.Resize(1);
        }

        ControlState state;
        FunctionButtons buttons;
        data::RecordSource source;
        data::ListLoading loading;
        SpiedCommands commands;
    };

    void SetUp() override {
        control_ = std::make_unique<Control>(form_, surface_, data_, formatter_);
        EditState& edit = state().edit;
        edit.Adding = edit.Inserting = edit.Editing = edit.Modified = true;
        edit.EditRow = 3;
        edit.ColInEdit = 1;
        state().AutoAdd = true;
    }

    ControlState& state() { return control_->state; }

    SpiedCommands& commands() { return control_->commands; }

    data::ListLoading& loading() { return control_->loading; }

    /// Notes "turn" in the next turn of the message loop.
    void post_turn() {
        form_.queue().post(life_, [this] { commands().note("turn"); });
    }

    platform::LifeToken life_;
    testing::ScriptedData data_;
    standard::ValueFormatter formatter_{standard::regional_settings("it-IT")};
    headless::HeadlessForm form_;
    headless::HeadlessControl& surface_ = form_.add_control();
    std::unique_ptr<Control> control_;
};

TEST_F(SpiedLoading, emptying_resets_handles_the_row_and_adds_twice_with_a_turn_between) {
    post_turn();
    loading().Svuota(false);
    EXPECT_THAT(commands().trace, ElementsAre("RowChanged", "Add", "turn", "Add"));
    EXPECT_THAT(commands().held_off, ElementsAre(false, false, false, false));
    EXPECT_FALSE(state().edit.Adding);
    EXPECT_FALSE(state().edit.Inserting);
    EXPECT_FALSE(state().edit.Modified);
    EXPECT_EQ(state().edit.EditRow, -1);
    EXPECT_EQ(state().edit.ColInEdit, 1); // only a load resets it
    EXPECT_TRUE(state().edit.Editing);
}

TEST_F(SpiedLoading, Clear_ends_alike) {
    post_turn();
    loading().Clear();
    EXPECT_THAT(commands().trace, ElementsAre("RowChanged", "Add", "turn", "Add"));
    EXPECT_EQ(state().edit.EditRow, -1);
}

TEST_F(SpiedLoading, Svuota_with_NeverAdd_starts_no_row_though_AutoAdd_is_True) {
    post_turn();
    loading().Svuota(true);
    EXPECT_THAT(commands().trace, ElementsAre("RowChanged"));
}

TEST_F(SpiedLoading, without_AutoAdd_no_row_is_started) {
    state().AutoAdd = false;
    post_turn();
    loading().Svuota(false);
    loading().Clear();
    EXPECT_THAT(commands().trace, ElementsAre("RowChanged", "RowChanged"));
}

TEST_F(SpiedLoading, the_host_may_destroy_the_control_in_the_first_Add) {
    commands().on_add = [this] {
        control_.reset();
        form_.remove_control(surface_);
    };
    loading().Svuota(false);
    EXPECT_EQ(control_, nullptr);
}

TEST_F(SpiedLoading, the_host_may_destroy_the_control_in_the_turn_between) {
    form_.queue().post(life_, [this] {
        control_.reset();
        form_.remove_control(surface_);
    });
    loading().Clear();
    EXPECT_EQ(control_, nullptr);
}

TEST_F(SpiedLoading, a_load_closes_the_field_and_holds_row_changes_off_until_it_is_done) {
    post_turn();
    loading().Refresh();
    EXPECT_THAT(commands().trace, ElementsAre("CloseField", "turn"));
    EXPECT_THAT(commands().held_off, ElementsAre(true, true));
    EXPECT_FALSE(state().edit.RowChangeBusy);
    EXPECT_EQ(state().edit.EditRow, -1);
    EXPECT_EQ(state().edit.ColInEdit, 0);
    EXPECT_FALSE(state().edit.Editing);
    EXPECT_FALSE(state().edit.Modified);
    EXPECT_TRUE(state().edit.Adding); // a load leaves it
}

TEST_F(SpiedLoading, a_load_inside_a_row_change_leaves_that_busy) {
    state().edit.RowChangeBusy = true;
    loading().Refresh();
    EXPECT_TRUE(state().edit.RowChangeBusy);
}

TEST_F(SpiedLoading, a_second_load_in_the_turn_of_the_first_keeps_row_changes_held_off) {
    bool held_off_after_inner = false;
    form_.queue().post(life_, [&] {
        loading().Refresh();
        held_off_after_inner = state().edit.RowChangeBusy;
    });
    loading().Refresh();
    EXPECT_TRUE(held_off_after_inner);
    EXPECT_FALSE(state().edit.RowChangeBusy);
}

TEST_F(SpiedLoading, an_error_out_of_a_handler_leaves_the_load_and_releases_row_changes) {
    form_.queue().post(life_, [] { throw platform::RuntimeError(1000, "host failed", "host"); });
    surface_.btnOK().SetVisible(true);
    EXPECT_THROW(loading().Refresh(), platform::RuntimeError);
    EXPECT_FALSE(state().edit.RowChangeBusy);
    EXPECT_EQ(state().edit.EditRow, -1);
    EXPECT_TRUE(state().edit.Modified);
    EXPECT_TRUE(surface_.btnOK().Visible());
}

} // namespace
} // namespace krv
