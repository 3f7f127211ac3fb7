#include "data/list_loading.h"

#include "control/control_state.h"
#include "control/flag_scope.h"
#include "control/function_buttons.h"
#include "data/record_source.h"
#include "editing/commands.h"
#include "editing/input_line.h"

namespace krv::data {

ListLoading::ListLoading(ControlState& state, RecordSource& source, FunctionButtons& buttons)
    : state_(state)
    , source_(source)
    , buttons_(buttons) {}

void ListLoading::Refresh() {
    buttons_.recaption_after_load();
    const Opening opening = source_.open();
    if (opening == Opening::refused) {
        return;
    }
    if (opening == Opening::opened) {
        fill();
    }
    reset_after_refresh();
}

void ListLoading::fill() {
    platform::Grid& list = state_.parts.Grid;
    const std::shared_ptr<platform::Recordset> records = source_.recordset;
    list.SetRows(1);
    while (!records->Eof()) {
        list.AddItem("");
        fill_row(list.Rows() - 1, records->Fields());
        records->MoveNext();
    }
}

void ListLoading::fill_row(std::int32_t grid_row, const platform::Fields& fields) {
    platform::Grid& list = state_.parts.Grid;
    const std::int32_t cols = list.Cols();
    for (std::int32_t col = 0; col < cols; ++col) {
        const std::string& field_name = state_.columns.ColDataField(col);
        if (editing::is_blank(field_name)) {
            continue;
        }
        const platform::ValueView value = fields.Item(field_name).Value();
        list.SetTextMatrix(grid_row, col, cell_text(value, state_.columns.ColFormat(col)));
    }
}

// Valid until the next cell, or until the recordset moves.
std::string_view ListLoading::cell_text(platform::ValueView value, const std::string& pattern) {
    if (value.is_null()) {
        return {};
    }
    if (!pattern.empty()) {
        state_.host.formatter.Format(value, pattern, formatted_);
    } else if (value.kind() == platform::ValueKind::text) {
        return value.as_text(); // as converted, without the copy: most cells of a list are texts
    } else {
        state_.host.formatter.CStr(value, formatted_);
    }
    return formatted_;
}

void ListLoading::reset_after_refresh() {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    // A load asks nothing and offers nothing: what the user typed into a row that is gone has no
    // place.
    const FlagScope row_change_is_held_off(state_.edit.RowChangeBusy, state_.life);
    state_.commands->CloseField();
    editing::begin_line(state_);
    state_.host.container.Repaint();
    state_.edit.EditRow = -1;
    parts.Grid.SetRow(0);
    if (watch.ended()) {
        return;
    }
    state_.edit.ColInEdit = 0;
    state_.edit.Editing = false;
    parts.GridIn.SetVisible(false);
    parts.InpFld.SetVisible(false);
    parts.InpFld.SetText("");
    if (watch.ended()) {
        return;
    }
    state_.host.application.Yield();
    if (watch.ended()) {
        return;
    }
    buttons_.EvidenziaFunzione(0);
    for (platform::Button* button :
         {&parts.btnOK, &parts.btnInsert, &parts.btnDelete, &parts.btnCopy}) {
        button->SetVisible(false);
    }
    state_.edit.Modified = false;
}

void ListLoading::Clear() {
    state_.parts.Grid.Clear();
    state_.parts.GridIn.Clear();
    reset_after_emptying(AutomaticAdd::allowed);
}

void ListLoading::Svuota(bool never_add) {
    const Constituents& parts = state_.parts;
    parts.Grid.SetRows(1);
    parts.GridIn.SetRows(1); // dropped and made again, the input line comes back empty
    parts.GridIn.SetRows(2);
    reset_after_emptying(never_add ? AutomaticAdd::withheld : AutomaticAdd::allowed);
}

void ListLoading::reset_after_emptying(AutomaticAdd automatic_add) {
    const platform::LifeWatch watch(state_.life);
    const Constituents& parts = state_.parts;
    editing::begin_line(state_);
    parts.btnOK.SetVisible(false);
    state_.edit.EditRow = -1;
    buttons_.EvidenziaFunzione(0);
    state_.edit.Adding = false;
    state_.edit.Inserting = false;
    state_.edit.Modified = false;
    if (buttons_.visible(Function::add)) {
        parts.btnAdd.SetVisible(true);
    }
    parts.GridIn.SetVisible(false);
    parts.InpFld.SetText("");
    if (watch.ended()) {
        return;
    }
    state_.commands->RowChanged();
    if (!watch.ended() && state_.AutoAdd && automatic_add == AutomaticAdd::allowed) {
        editing::add_automatically(state_);
    }
}

} // namespace krv::data
