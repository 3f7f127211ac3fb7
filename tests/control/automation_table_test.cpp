// The interface as hosts know it, written out: names, order, types, parameters, numbers. Whoever
// changes a line here breaks hosts.

#include "krv/control/automation.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace krv::automation {
namespace {

using Lines = std::vector<std::string>;

std::string list_of(const std::vector<Parameter>& parameters) {
    std::ostringstream out;
    for (const Parameter& parameter : parameters) {
        out << (out.tellp() > 0 ? ", " : "") << (parameter.optional ? "[" : "")
            << (parameter.by_ref ? "&" : "") << parameter.name << ' ' << name_of(parameter.type)
            << (parameter.optional ? "]" : "");
    }
    return out.str();
}

/// "Caption(Col Long) String RW -> Caption": R get, W put, & when the put takes a variable, S put by
/// reference; behind the arrow what a put notifies.
std::string line_of(const Member& member) {
    std::ostringstream out;
    out << member.name << '(' << list_of(member.parameters) << ')';
    if (member.type != Type::none) {
        out << ' ' << name_of(member.type);
    }
    if (member.kind == Kind::property) {
        out << ' ' << (member.get ? "R" : "") << (member.put ? "W" : "")
            << (member.value_by_ref ? "&" : "") << (member.putref ? "S" : "");
    }
    if (!member.notification.empty()) {
        out << " -> " << member.notification;
    }
    return out.str();
}

Lines lines_of(Kind kind) {
    Lines lines;
    for (const Member& member : members()) {
        if (member.kind == kind) {
            lines.push_back(line_of(member));
        }
    }
    return lines;
}

TEST(AutomationTable, properties_in_interface_order) {
    EXPECT_EQ(lines_of(Kind::property),
              (Lines{"BackColor() OLE_COLOR RW -> BackColor",
                     "ButtonsHeight() Single RW -> ButtonsHeight",
                     "ButtonsWidth() Single R",
                     "Adding() Boolean R",
                     "Connect() String RW -> Connect",
                     "InputModified() Boolean R",
                     "KeyAdd() Integer RW& -> KeyAdd",
                     "KeyCopy() Integer RW& -> KeyCopy",
                     "KeyDelete() Integer RW& -> KeyDelete",
                     "KeyInsert() Integer RW& -> KeyInsert",
                     "KeyOK() Integer RW& -> KeyOK",
                     "MoveWithTab() Boolean RW& -> MoveWithTab",
                     "Modified() Boolean R",
                     "MsgTitle() String RW& -> MsgTitle",
                     "Editing() Boolean R",
                     "Inserting() Boolean R",
                     "Enabled() Boolean RW -> Enabled",
                     "Rows() Long RW -> Rows",
                     "Caption(Col Long) String RW -> Caption",
                     "ColEditable(Col Long) Boolean RW -> ColEditable",
                     "ColIsNecessary(Col Long) Boolean RW -> ColIsNecessary",
                     "ColFieldLength(Col Long) Integer RW -> ColFieldLength",
                     "ColFieldType(Col Long) Integer RW -> ColFieldType",
                     "ColFormat(Col Long) String RW -> ColFormat",
                     "LineNumberColumn() Long RW -> LineNumberColumn",
                     "ColDataField(Col Long) String RW -> ColDataField",
                     "ColFromRecord(Col Long) krvListRecords RW -> ColFromRecord",
                     "ColIsKey(Col Long) krvListRecords RW -> ColIsKey",
                     "Cols() Long RW -> Cols",
                     "ColPos(Col Long) Long R",
                     "RowPos(Row Long) Long R",
                     "Recordsource() String RW -> Recordsource",
                     "Recordset() Recordset RS -> Recordset",
                     "ReadOnlyRecordset() Boolean RW& -> ReadOnlyRecordset",
                     "DataBaseName() String RW -> DataBaseName",
                     "Row() Long RW -> Row",
                     "ColWidth(&Index Long) Long RW -> ColWidth",
                     "ColAlignment(&Index Long) Long RW -> ColAlignment",
                     "TopRow() Long RW",
                     "TextMatrix(&Row Long, &Col Long) String RW",
                     "GiveFocusTo() Object RS -> GiveFocusTo",
                     "InputArray(&Col Long) String RW -> InputArray",
                     "AddCaption() String RW -> AddCaption",
                     "AddColor() OLE_COLOR RW -> AddColor",
                     "InsertCaption() String RW -> InsertCaption",
                     "InsertColor() OLE_COLOR RW -> InserColor",
                     "DeleteCaption() String RW -> DeleteCaption",
                     "DeleteColor() OLE_COLOR RW -> DeleteColor",
                     "CopyCaption() String RW -> CopyCaption",
                     "CopyColor() OLE_COLOR RW -> CopyColor",
                     "EvidenziaColor() OLE_COLOR RW -> EvidenziaColor",
                     "OKCaption() String RW -> OKCaption",
                     "OkColor() OLE_COLOR RW -> OkColor",
                     "AddVisible() Boolean RW -> AddVisible",
                     "InsertVisible() Boolean RW -> InsertVisible",
                     "DeleteVisible() Boolean RW -> DeleteVisible",
                     "CopyVisible() Boolean RW -> CopyVisible",
                     "OkVisible() Boolean RW -> OkVisible",
                     "AutoAdd() Boolean RW -> AutoAdd",
                     "AutoStartInputOnClick() Boolean RW -> AutoStartInputOnClick"}));
}

TEST(AutomationTable, methods_in_interface_order) {
    EXPECT_EQ(lines_of(Kind::method),
              (Lines{"Refresh()",
                     "SendKeys(KeyCode Integer, Shift Integer)",
                     "Clear()",
                     "CloseAll()",
                     "Add() Boolean",
                     "Insert() Boolean",
                     "Delete() Boolean",
                     "Copy() Boolean",
                     "OK() Boolean",
                     "EvidenziaFunzione(Funzione Integer)",
                     "RowClick(&Row Long, &Button Integer, &Shift Integer)",
                     "SetInput(&Col Long) Boolean",
                     "SetFont(&FontSize Single)",
                     "CloseRecordset()",
                     "Svuota([&NeverAdd Boolean])"}));
}

TEST(AutomationTable, the_interface_has_127_procedures) {
    std::size_t procedures = 0;
    for (const Member& member : members()) {
        procedures +=
            member.kind == Kind::method ? 1u : std::size_t{member.get} + member.put + member.putref;
    }
    EXPECT_EQ(procedures, 127u);
}

TEST(AutomationTable, every_access_has_its_invoker) {
    for (const Member& member : members()) {
        EXPECT_EQ(member.read != nullptr, member.get) << member.name;
        EXPECT_EQ(member.write != nullptr, member.put || member.putref) << member.name;
        EXPECT_EQ(member.run != nullptr, member.kind == Kind::method) << member.name;
        EXPECT_FALSE(member.meaning.empty()) << member.name;
    }
}

TEST(AutomationTable, events_by_number) {
    Lines lines;
    for (const Event& event : events()) {
        lines.push_back(std::to_string(event.id) + " " + std::string(event.name) + "(" +
                        list_of(event.parameters) + ")");
        EXPECT_FALSE(event.meaning.empty()) << event.name;
    }
    EXPECT_EQ(lines,
              (Lines{"1 KeyDown(&KeyCode Integer, &Shift Integer, Col Long)",
                     "2 KeyPress(&KeyAscii Integer)",
                     "3 ListClick(&Button Integer, &Shift Integer, &x Single, &y Single, Row Long, "
                     "Col Long)",
                     "4 LineEditStart(Adding Boolean)",
                     "5 InputLineClick(&Button Integer, &Shift Integer, &x Single, &y Single, Col "
                     "Long)",
                     "6 InputLineDblClick(Col Long, &Value String)",
                     "7 InputFieldClick(&Button Integer, &Shift Integer, &x Single, &y Single, Col "
                     "Long)",
                     "8 InputFieldChange(Col Long, &Value String)",
                     "9 AfterRowDelete(DeletedRow Long)",
                     "10 AfterRowUpdated(UpdatedRow Long)",
                     "11 AddClick(&Cancel Boolean)",
                     "12 InsertClick(&Cancel Boolean)",
                     "13 DeleteClick(&Cancel Boolean)",
                     "14 BeforeFieldUpdate(ColInEdit Long, &Value String, &Cancel Boolean)",
                     "15 BeforeRowUpdate(RowInEdit Long, ColInEdit Long, &Cancel Boolean, "
                     "&ExternalHandling Boolean)",
                     "16 CopyClick(&Cancel Boolean)",
                     "17 OKClick(&Cancel Boolean)",
                     "18 RowSelect(&Row Long)"}));
}

TEST(AutomationTable, enumerations) {
    Lines lines;
    for (const Enumeration& enumeration : enumerations()) {
        for (const EnumerationValue& value : enumeration.values) {
            lines.push_back(std::string(enumeration.name) + "." + std::string(value.name) + " " +
                            std::to_string(value.value));
        }
    }
    EXPECT_EQ(lines,
              (Lines{"krvAlignment.krvauto 0",
                     "krvAlignment.krvleft 1",
                     "krvAlignment.krvcenter 4",
                     "krvAlignment.krvright 7",
                     "krvListRecords.krvListRecord 0",
                     "krvListRecords.krvRec1 1",
                     "krvListRecords.krvRec2 2"}));
}

} // namespace
} // namespace krv::automation
