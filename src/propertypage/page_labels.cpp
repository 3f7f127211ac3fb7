#include "krv/propertypage/property_page.h"

namespace krv {

namespace {

constexpr auto list = EditorScope::list;
constexpr auto column = EditorScope::column;

constexpr PageLabel labels[] = {
    {"txtDataBaseName", EditorKind::entry, list, "DataBaseName:"},
    {"txRecordSource", EditorKind::entry, list, "RecordSource:"},
    {"txConnection", EditorKind::entry, list, "Connection string"},
    {"txtCols", EditorKind::entry, list, "Cols:"},
    {"txtRows", EditorKind::entry, list, "Rows:"},
    {"txtLineNumberColumn", EditorKind::entry, list, "Line Number Column"},
    {"chkOkVisible", EditorKind::check, list, "OkVisible"},
    {"chkCopyVisible", EditorKind::check, list, "CopyVisible"},
    {"chkDeleteVisible", EditorKind::check, list, "DeleteVisible"},
    {"chkInsertVisible", EditorKind::check, list, "InsertVisible"},
    {"chkAddVisible", EditorKind::check, list, "AddVisible"},
    {"chkEnabled", EditorKind::check, list, "Enabled"},
    {"chkAutoAdd", EditorKind::check, list, "AutoAdd"},
    {"TabStrip1", EditorKind::tabs, column, ""},
    {"txtCaption", EditorKind::entry, column, "Caption:"},
    {"txtColWidth", EditorKind::entry, column, "ColWidth:"},
    {"cmbAlignment", EditorKind::list, column, "Alignment"},
    {"cmbDataField", EditorKind::combo, column, "DataField"},
    {"cmbDataType", EditorKind::list, column, "DataType"},
    {"txtFieldLength", EditorKind::entry, column, "FieldLength"},
    {"txtFormat", EditorKind::entry, column, "Format"},
    {"chkEditable", EditorKind::check, column, "Editable"},
    {"chkIsNecessary", EditorKind::check, column, "IsNecessary"},
};

} // namespace

std::span<const PageLabel> page_labels() {
    return labels;
}

} // namespace krv
