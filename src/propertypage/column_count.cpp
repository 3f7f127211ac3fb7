#include "propertypage/column_count.h"

#include "propertypage/page_columns.h"
#include "propertypage/refused_editor.h"

#include <cmath>
#include <limits>
#include <string>

namespace krv::propertypage {

using platform::MessageAnswer;
using platform::MessageButtons;

std::int32_t ColumnCount::wanted() const {
    const double number =
        std::nearbyint(page_.host.formatter.Val(page_.editors.txtCols.Text())); // half to even
    if (number > std::numeric_limits<std::int16_t>::max()) {
        fail_overflow();
    }
    return number < 1 ? 1 : static_cast<std::int32_t>(number);
}

void ColumnCount::synchronise() {
    const SameSelection same(page_);
    platform::TabStrip& tabs = page_.editors.TabStrip1;
    const std::int32_t count = wanted();
    if (count > tabs.Count()) {
        add_tabs(count);
    } else if (count < tabs.Count()) {
        const MessageAnswer answer = page_.host.application.MsgBox(
            "this will erase some of the existing columns. confirm?", MessageButtons::yes_no);
        if (!same.holds()) {
            return;
        }
        if (answer == MessageAnswer::yes) {
            return remove_tabs(count);
        }
    }
    resize(page_.columns, static_cast<std::size_t>(tabs.Count()));
    page_.editors.txtCols.SetText(std::to_string(tabs.Count()));
}

void ColumnCount::add_tabs(std::int32_t count) {
    platform::TabStrip& tabs = page_.editors.TabStrip1;
    while (tabs.Count() < count) {
        tabs.Add("col" + std::to_string(tabs.Count()));
    }
}

void ColumnCount::remove_tabs(std::int32_t count) {
    const SameSelection same(page_);
    platform::TabStrip& tabs = page_.editors.TabStrip1;
    const bool is_selected_removed = tabs.SelectedIndex() > count;
    while (tabs.Count() > count) {
        tabs.Remove(tabs.Count());
    }
    resize(page_.columns, static_cast<std::size_t>(tabs.Count()));
    page_.editors.txtCols.SetText(std::to_string(tabs.Count()));
    if (is_selected_removed && same.holds()) {
        editors_.show();
    }
}

void ColumnCount::tab_selected() {
    const SameSelection same(page_);
    synchronise();
    if (same.holds()) {
        editors_.show();
    }
}

void ColumnCount::check_line_number_column() {
    platform::EntryBox& box = page_.editors.txtLineNumberColumn;
    if (is_left_for_refused(page_, box)) {
        return;
    }
    const platform::Formatter& formatter = page_.host.formatter;
    // Deliberate: no lower bound, any number below 0 means that no column has the line numbers.
    if (formatter.Val(page_.editors.txtCols.Text()) - 1 >= formatter.Val(box.Text())) {
        return;
    }
    const SameSelection same(page_);
    page_.host.application.MsgBox("the value is out of range", MessageButtons::ok);
    if (same.holds()) {
        give_focus_back(page_, box);
    }
}

} // namespace krv::propertypage
