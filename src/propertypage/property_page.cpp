#include "krv/propertypage/property_page.h"

#include "propertypage/column_count.h"
#include "propertypage/column_editors.h"
#include "propertypage/data_editors.h"
#include "propertypage/editor_listener.h"
#include "propertypage/field_choice.h"
#include "propertypage/page_state.h"
#include "propertypage/pick_lists.h"
#include "propertypage/refused_editor.h"
#include "propertypage/selection.h"

#include <memory>
#include <utility>
#include <vector>

namespace krv {

using namespace propertypage;

struct pKrvList::Rooms {
    Rooms(const PageEditors& editors, const PageSurroundings& surroundings)
        : page(editors, surroundings) {
        editors.TabStrip1.Clear();
        fill_data_types(editors.cmbDataType);
        fill_alignments(editors.cmbAlignment);
        listen_to_list_editors();
        listen_to_data_editors();
        listen_to_column_editors();
        listen_to_column_lists();
    }

    void listen(platform::Editor& editor, Reactions reactions) {
        listeners.push_back(std::make_unique<EditorListener>(editor, std::move(reactions)));
    }

    void listen_to_list_editors() {
        const PageEditors& editors = page.editors;
        const auto mark = [this] { page.mark_changed(); };
        for (platform::CheckBox* box : {&editors.chkOkVisible,
                                        &editors.chkCopyVisible,
                                        &editors.chkDeleteVisible,
                                        &editors.chkInsertVisible,
                                        &editors.chkAddVisible,
                                        &editors.chkEnabled,
                                        &editors.chkAutoAdd}) {
            listen(*box, {.Click = mark});
        }
        listen(editors.txtCols, {.Change = mark, .LostFocus = [this] { count.synchronise(); }});
        listen(editors.txtRows, {.Change = mark});
        listen(editors.txtLineNumberColumn,
               {.Change = mark,
                .GotFocus = [this] { forget_refusal(page, page.editors.txtLineNumberColumn); },
                .LostFocus =
                    [this] {
                        forget_refusal(page, page.editors.txtLineNumberColumn);
                        count.check_line_number_column();
                    }});
    }

    void listen_to_data_editors() {
        const PageEditors& editors = page.editors;
        const auto mark = [this] { page.mark_changed(); };
        listen(editors.txtDataBaseName,
               {.Change = mark,
                .DblClick = [this] { data.choose_database(); },
                .LostFocus = [this] { data.derive_connection(); }});
        listen(editors.txConnection, {.Change = mark});
        listen(editors.txRecordSource,
               {.Change = mark,
                .GotFocus = [this] { forget_refusal(page, page.editors.txRecordSource); },
                .LostFocus =
                    [this] {
                        forget_refusal(page, page.editors.txRecordSource);
                        data.open_record_source();
                    }});
    }

    void listen_to_column_editors() {
        const PageEditors& editors = page.editors;
        listen(editors.TabStrip1, {.Click = [this] { count.tab_selected(); }});
        listen(editors.txtCaption, {.Change = [this] { columns.caption_changed(); }});
        listen(editors.txtColWidth, {.Change = [this] { columns.width_changed(); }});
        listen(editors.txtFieldLength, {.Change = [this] { columns.field_length_changed(); }});
        listen(editors.txtFormat, {.Change = [this] { columns.format_changed(); }});
        listen(editors.chkEditable, {.Click = [this] { columns.editable_clicked(); }});
        listen(editors.chkIsNecessary, {.Click = [this] { columns.necessary_clicked(); }});
    }

    void listen_to_column_lists() {
        const PageEditors& editors = page.editors;
        listen(editors.cmbAlignment, {.Click = [this] { columns.alignment_clicked(); }});
        listen(editors.cmbDataType, {.Click = [this] { columns.data_type_clicked(); }});
        listen(editors.cmbDataField,
               {.Change = [this] { columns.data_field_changed(); },
                .Click = [this] { fields.choose(); },
                .GotFocus = [this] { fields.list_fields(); }});
    }

    PageState page;
    ColumnEditors columns{page};
    ColumnCount count{page, columns};
    FieldChoice fields{page};
    DataEditors data{page, count, fields};
    Selection selection{page, count};
    std::vector<std::unique_ptr<EditorListener>> listeners;
};

pKrvList::pKrvList(const PageEditors& editors, const PageSurroundings& surroundings)
    : rooms_(std::make_unique<Rooms>(editors, surroundings)) {}

pKrvList::~pKrvList() = default;

void pKrvList::SelectionChanged() {
    rooms_->selection.load();
}

void pKrvList::ApplyChanges() {
    rooms_->selection.apply();
}

const PageColumns& pKrvList::columns() const noexcept {
    return rooms_->page.columns;
}

bool pKrvList::pageDataOpen() const noexcept {
    return rooms_->page.pageDataOpen;
}

} // namespace krv
