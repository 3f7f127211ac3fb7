#include "control/automation/member_binding.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace krv::automation {

namespace {

using List = KarvoList;

constexpr NamedParameter col{"Col"};
constexpr NamedParameter col_by_ref{"Col", true};
constexpr NamedParameter row{"Row"};
constexpr NamedParameter row_by_ref{"Row", true};
constexpr NamedParameter index_by_ref{"Index", true};

// The order is that of the interface and is kept for hosts that count members.

std::vector<Member> appearance_and_state() {
    return {
        property<&List::BackColor, &List::SetBackColor>("BackColor",
                                                        "background colour of the control"),
        property<&List::ButtonsHeight, &List::SetButtonsHeight>(
            "ButtonsHeight", "height of the function buttons, twips"),
        read_only<&List::ButtonsWidth>("ButtonsWidth", {}, "width of the function buttons, twips"),
        read_only<&List::Adding>("Adding", {}, "a new row is being entered"),
        property<&List::Connect, &List::SetConnect>("Connect",
                                                    "connection string of the record source"),
        read_only<&List::InputModified>(
            "InputModified", {}, "the input line holds unconfirmed changes"),
        takes_variable(
            property<&List::KeyAdd, &List::SetKeyAdd>("KeyAdd", "function key of the Add command")),
        takes_variable(property<&List::KeyCopy, &List::SetKeyCopy>(
            "KeyCopy", "function key of the Copy command")),
        takes_variable(property<&List::KeyDelete, &List::SetKeyDelete>(
            "KeyDelete", "function key of the Delete command")),
        takes_variable(property<&List::KeyInsert, &List::SetKeyInsert>(
            "KeyInsert", "function key of the Insert command")),
        takes_variable(
            property<&List::KeyOK, &List::SetKeyOK>("KeyOK", "key of the confirm command")),
        takes_variable(property<&List::MoveWithTab, &List::SetMoveWithTab>(
            "MoveWithTab", "Tab skips the Add button")),
        read_only<&List::Modified>("Modified", {}, "list data changed since the last load"),
        takes_variable(
            property<&List::MsgTitle, &List::SetMsgTitle>("MsgTitle", "application title")),
        read_only<&List::Editing>("Editing", {}, "the field editor has the focus"),
        read_only<&List::Inserting>("Inserting", {}, "the new row will be inserted"),
        property<&List::Enabled, &List::SetEnabled>("Enabled", "the function buttons are enabled"),
        property<&List::Rows, &List::SetRows>("Rows", "number of data rows"),
    };
}

std::vector<Member> columns() {
    return {
        property<&List::Caption, &List::SetCaption>("Caption", {col}, "column caption"),
        property<&List::ColEditable, &List::SetColEditable>(
            "ColEditable", {col}, "column may be edited"),
        property<&List::ColIsNecessary, &List::SetColIsNecessary>(
            "ColIsNecessary", {col}, "column is mandatory"),
        property<&List::ColFieldLength, &List::SetColFieldLength>(
            "ColFieldLength", {col}, "maximum field length, characters; 0 for any"),
        property<&List::ColFieldType, &List::SetColFieldType>(
            "ColFieldType", {col}, "data-type code of the field, stored for the host"),
        property<&List::ColFormat, &List::SetColFormat>("ColFormat", {col}, "display format"),
        property<&List::LineNumberColumn, &List::SetLineNumberColumn>(
            "LineNumberColumn", "column carrying line numbers, -1 none"),
        property<&List::ColDataField, &List::SetColDataField>(
            "ColDataField", {col}, "bound field name"),
        property<&List::ColFromRecord, &List::SetColFromRecord>(
            "ColFromRecord", {col}, "record the value belongs to, stored for the host"),
        property<&List::ColIsKey, &List::SetColIsKey>(
            "ColIsKey", {col}, "key marker, stored for the host"),
        property<&List::Cols, &List::SetCols>("Cols", "number of columns"),
        read_only<&List::ColPos>("ColPos", {col}, "left position of a column, twips"),
        read_only<&List::RowPos>("RowPos", {row}, "top position of a row, twips"),
    };
}

std::vector<Member> source_and_cells() {
    return {
        property<&List::Recordsource, &List::SetRecordsource>(
            "Recordsource", "source of the records, a table or a query"),
        referring<&List::Recordset, &List::SetRecordset>("Recordset", "the open recordset"),
        takes_variable(property<&List::ReadOnlyRecordset, &List::SetReadOnlyRecordset>(
            "ReadOnlyRecordset", "the source may not be written")),
        property<&List::DataBaseName, &List::SetDataBaseName>("DataBaseName", "database file"),
        property<&List::Row, &List::SetRow>("Row", "current list row"),
        property<&List::ColWidth, &List::SetColWidth>(
            "ColWidth", {index_by_ref}, "column width, twips"),
        property<&List::ColAlignment, &List::SetColAlignment>(
            "ColAlignment", {index_by_ref}, "column alignment"),
        notifies("", property<&List::TopRow, &List::SetTopRow>("TopRow", "first visible list row")),
        notifies("",
                 property<&List::TextMatrix, &List::SetTextMatrix>(
                     "TextMatrix", {row_by_ref, col_by_ref}, "text of a list cell")),
        referring<&List::GiveFocusTo, &List::SetGiveFocusTo>(
            "GiveFocusTo", "object that receives the focus on leaving"),
        property<&List::InputArray, &List::SetInputArray>(
            "InputArray", {col_by_ref}, "value of an input-line cell"),
    };
}

std::vector<Member> buttons() {
    return {
        property<&List::AddCaption, &List::SetAddCaption>("AddCaption", "caption of btnAdd"),
        property<&List::AddColor, &List::SetAddColor>("AddColor", "colour of btnAdd"),
        property<&List::InsertCaption, &List::SetInsertCaption>("InsertCaption",
                                                                "caption of btnInsert"),
        notifies("InserColor",
                 property<&List::InsertColor, &List::SetInsertColor>("InsertColor",
                                                                     "colour of btnInsert")),
        property<&List::DeleteCaption, &List::SetDeleteCaption>("DeleteCaption",
                                                                "caption of btnDelete"),
        property<&List::DeleteColor, &List::SetDeleteColor>("DeleteColor", "colour of btnDelete"),
        property<&List::CopyCaption, &List::SetCopyCaption>("CopyCaption", "caption of btnCopy"),
        property<&List::CopyColor, &List::SetCopyColor>("CopyColor", "colour of btnCopy"),
        property<&List::EvidenziaColor, &List::SetEvidenziaColor>(
            "EvidenziaColor", "highlight colour of the active button"),
        property<&List::OKCaption, &List::SetOKCaption>("OKCaption", "caption of btnOK"),
        property<&List::OkColor, &List::SetOkColor>("OkColor", "colour of btnOK"),
        property<&List::AddVisible, &List::SetAddVisible>("AddVisible", "btnAdd shown"),
        property<&List::InsertVisible, &List::SetInsertVisible>("InsertVisible", "btnInsert shown"),
        property<&List::DeleteVisible, &List::SetDeleteVisible>("DeleteVisible", "btnDelete shown"),
        property<&List::CopyVisible, &List::SetCopyVisible>("CopyVisible", "btnCopy shown"),
        property<&List::OkVisible, &List::SetOkVisible>("OkVisible", "btnOK shown"),
        property<&List::AutoAdd, &List::SetAutoAdd>("AutoAdd", "automatic new row"),
        property<&List::AutoStartInputOnClick, &List::SetAutoStartInputOnClick>(
            "AutoStartInputOnClick", "a click on the list starts the input"),
    };
}

std::vector<Member> methods() {
    return {
        method<&List::Refresh>("Refresh", {}, "reloads the list from the record source"),
        method<&List::SendKeys>(
            "SendKeys", {{"KeyCode"}, {"Shift"}}, "handles a key as if pressed on the control"),
        method<&List::Clear>("Clear", {}, "empties the list"),
        method<&List::CloseAll>("CloseAll", {}, "closes recordset and connection"),
        method<&List::Add>("Add", {}, "if btnAdd is visible, runs the Add command"),
        method<&List::Insert>("Insert", {}, "if btnInsert is visible, runs the Insert command"),
        method<&List::Delete>("Delete", {}, "runs the Delete command"),
        method<&List::Copy>("Copy", {}, "runs the Copy command"),
        method<&List::OK>("OK", {}, "runs the confirm command"),
        method<&List::EvidenziaFunzione>(
            "EvidenziaFunzione", {{"Funzione"}}, "highlights one function button"),
        method<&List::RowClick>(
            "RowClick", {row_by_ref, {"Button"}, {"Shift"}}, "acts as a click on a list row"),
        method<&List::SetInput>(
            "SetInput", {col_by_ref}, "puts the editor on a column of the input line"),
        method<&List::SetFont>("SetFont", {{"FontSize", true}}, "sets the font size of every part"),
        method<&List::CloseRecordset>("CloseRecordset", {}, "closes the recordset"),
        method<&List::Svuota>("Svuota", {{"NeverAdd", true, true}}, "empties the list"),
    };
}

} // namespace

std::span<const Member> members() {
    static const std::vector<Member> all = [] {
        std::vector<Member> table;
        for (std::vector<Member>& part : std::array{
                 appearance_and_state(), columns(), source_and_cells(), buttons(), methods()}) {
            std::move(part.begin(), part.end(), std::back_inserter(table));
        }
        return table;
    }();
    return all;
}

std::span<const Enumeration> enumerations() {
    static const std::vector<Enumeration> all = {
        {"krvAlignment",
         {{"krvauto", krvauto},
          {"krvleft", krvleft},
          {"krvcenter", krvcenter},
          {"krvright", krvright}}},
        {"krvListRecords",
         {{"krvListRecord", krvListRecord}, {"krvRec1", krvRec1}, {"krvRec2", krvRec2}}},
    };
    return all;
}

std::string_view name_of(Type type) {
    switch (type) {
    case Type::none:
        break;
    case Type::Boolean:
        return "Boolean";
    case Type::Integer:
        return "Integer";
    case Type::Long:
        return "Long";
    case Type::Single:
        return "Single";
    case Type::String:
        return "String";
    case Type::OLE_COLOR:
        return "OLE_COLOR";
    case Type::Object:
        return "Object";
    case Type::Recordset:
        return "Recordset";
    case Type::krvListRecords:
        return "krvListRecords";
    }
    return "";
}

} // namespace krv::automation
