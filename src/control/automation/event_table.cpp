#include "krv/control/automation.h"

#include <array>

namespace krv::automation {

namespace {

using enum Type;

constexpr Parameter button{"Button", Integer, true};
constexpr Parameter shift{"Shift", Integer, true};
constexpr Parameter x{"x", Single, true};
constexpr Parameter y{"y", Single, true};
constexpr Parameter col{"Col", Long};
constexpr Parameter row{"Row", Long};
constexpr Parameter col_in_edit{"ColInEdit", Long};
constexpr Parameter value{"Value", String, true};
constexpr Parameter cancel{"Cancel", Boolean, true};

} // namespace

std::span<const Event> events() {
    static const std::vector<Event> all = {
        {1, "KeyDown", {{"KeyCode", Integer, true}, shift, col}, "a key goes down on the control"},
        {2, "KeyPress", {{"KeyAscii", Integer, true}}, "never: declared only"},
        {3, "ListClick", {button, shift, x, y, row, col}, "a mouse click on the list grid"},
        {4,
         "LineEditStart",
         {{"Adding", Boolean}},
         "the input line starts editing a row, new or existing"},
        {5,
         "InputLineClick",
         {button, shift, x, y, col},
         "a click on the input line, or a mouse button goes down in the editor"},
        {6, "InputLineDblClick", {col, value}, "a double click on the input line or in the editor"},
        {7,
         "InputFieldClick",
         {button, shift, x, y, col},
         "a mouse button goes down in the editor"},
        {8, "InputFieldChange", {col, value}, "the editor's text changes"},
        {9, "AfterRowDelete", {{"DeletedRow", Long}}, "after a row was deleted"},
        {10,
         "AfterRowUpdated",
         {{"UpdatedRow", Long}},
         "after a confirmed row was written into the list"},
        {11, "AddClick", {cancel}, "the Add command starts"},
        {12, "InsertClick", {cancel}, "the Insert command starts"},
        {13, "DeleteClick", {cancel}, "the Delete command starts"},
        {14, "BeforeFieldUpdate", {col_in_edit, value, cancel}, "the editor leaves a field"},
        {15,
         "BeforeRowUpdate",
         {{"RowInEdit", Long}, col_in_edit, cancel, {"ExternalHandling", Boolean, true}},
         "the confirm command is about to write the row into the list"},
        {16, "CopyClick", {cancel}, "the Copy command starts"},
        {17, "OKClick", {cancel}, "the confirm command starts"},
        {18, "RowSelect", {{"Row", Long, true}}, "the list moves to another row"},
    };
    return all;
}

} // namespace krv::automation
