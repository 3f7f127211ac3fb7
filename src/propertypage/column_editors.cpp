#include "propertypage/column_editors.h"

#include "propertypage/numbers.h"
#include "propertypage/page_columns.h"
#include "propertypage/pick_lists.h"

#include <string>

namespace krv::propertypage {

namespace {

/// Puts one entry of a column into its editor, which tells as the last thing it does: the page may
/// be gone then.
using Show = void (*)(const PageState& page, std::int32_t col);

constexpr Show steps[] = {
    [](const PageState& page, std::int32_t col) {
        page.editors.txtColWidth.SetText(std::to_string(entry(page.columns.colWidths, col)));
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.cmbAlignment.SetListIndex(
            position_of_alignment(entry(page.columns.colAlignments, col)));
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.txtCaption.SetText(std::string(entry(page.columns.colCaptions, col)));
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.chkEditable.SetValue(entry(page.columns.colEditable, col) ? 1 : 0);
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.chkIsNecessary.SetValue(entry(page.columns.colNecessary, col) ? 1 : 0);
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.cmbDataField.SetText(std::string(entry(page.columns.colDataFields, col)));
    },
    // The type of a field of the record source is not the developer's to choose.
    [](const PageState& page, std::int32_t /*col*/) {
        page.editors.cmbDataType.SetEnabled(page.editors.cmbDataField.ListIndex() < 0);
    },
    [](const PageState& page, std::int32_t col) {
        platform::ComboBox& types = page.editors.cmbDataType;
        types.SetListIndex(position_of_data_type(types, entry(page.columns.colFieldTypes, col)));
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.txtFormat.SetText(std::string(entry(page.columns.colFormats, col)));
    },
    [](const PageState& page, std::int32_t col) {
        page.editors.txtFieldLength.SetText(
            std::to_string(entry(page.columns.colFieldLengths, col)));
    },
};

} // namespace

/// Marks the page as changed, then reads the value and stores it for the selected column.
template <class Element, class Array, class Read>
void ColumnEditors::store(Array PageColumns::*array, Read read) {
    const SameSelection same(page_);
    page_.mark_changed();
    if (same.holds()) {
        const Element value = read(page_);
        entry(page_.columns.*array, page_.selected_column()) = value;
    }
}

void ColumnEditors::caption_changed() {
    store<std::string>(&PageColumns::colCaptions,
                       [](const PageState& page) { return page.editors.txtCaption.Text(); });
}

void ColumnEditors::width_changed() {
    store<std::int16_t>(&PageColumns::colWidths, [](const PageState& page) {
        return whole_number(page.host.formatter, page.editors.txtColWidth.Text());
    });
}

void ColumnEditors::field_length_changed() {
    store<std::int16_t>(&PageColumns::colFieldLengths, [](const PageState& page) {
        return whole_number(page.host.formatter, page.editors.txtFieldLength.Text());
    });
}

void ColumnEditors::format_changed() {
    store<std::string>(&PageColumns::colFormats,
                       [](const PageState& page) { return page.editors.txtFormat.Text(); });
}

void ColumnEditors::data_field_changed() {
    const SameSelection same(page_);
    store<std::string>(&PageColumns::colDataFields,
                       [](const PageState& page) { return page.editors.cmbDataField.Text(); });
    if (same.holds()) {
        page_.editors.cmbDataType.SetEnabled(true);
    }
}

void ColumnEditors::data_type_clicked() {
    store<std::int16_t>(&PageColumns::colFieldTypes, [](const PageState& page) {
        const platform::ComboBox& types = page.editors.cmbDataType;
        return narrow<std::int16_t>(types.ItemData(types.ListIndex()));
    });
}

void ColumnEditors::alignment_clicked() {
    store<std::int32_t>(&PageColumns::colAlignments, [](const PageState& page) {
        return alignment_at(page.editors.cmbAlignment.ListIndex());
    });
}

void ColumnEditors::editable_clicked() {
    store<bool>(&PageColumns::colEditable,
                [](const PageState& page) { return page.editors.chkEditable.Value() == 1; });
}

void ColumnEditors::necessary_clicked() {
    store<bool>(&PageColumns::colNecessary,
                [](const PageState& page) { return page.editors.chkIsNecessary.Value() == 1; });
}

void ColumnEditors::show() {
    const SameSelection same(page_);
    const std::int32_t col = page_.selected_column();
    for (const Show step : steps) {
        step(page_, col);
        if (!same.holds() || page_.selected_column() != col) {
            return;
        }
    }
}

} // namespace krv::propertypage
