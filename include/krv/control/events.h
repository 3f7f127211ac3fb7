#pragma once

#include <cstdint>
#include <string>

namespace krv {

/// What a `KarvoList` tells its host. Derive, override what matters, subscribe.
///
/// By-reference arguments may be changed: the next listener finds the changed value, and the control
/// acts on what the last one left. `Cancel` set to True cancels the action. Columns and public rows
/// count from 0; places are twips from the part's top left; buttons are 1 left, 2 right, 4 middle;
/// shift states 1 Shift, 2 Ctrl, 4 Alt, added together; texts are UTF-8.
///
/// A listener may call the control again, subscribe and unsubscribe anybody, or destroy the control.
/// What it throws ends the routine that raised the event and comes out of the call or the turn of the
/// message loop that it ran in; later listeners are not told. The text of a field and the texts of an
/// open row are kept then.
class KarvoListEvents {
public:
    /// A key went down that the control has no use for. `Col` is the column being edited, else -1.
    virtual void KeyDown(std::int16_t& /*KeyCode*/, std::int16_t& /*Shift*/, std::int32_t /*Col*/) {
    }

    /// Never raised; part of the interface for hosts that name it.
    virtual void KeyPress(std::int16_t& /*KeyAscii*/) {}

    /// A click on the list; `Col` is -1 left of the first column.
    virtual void ListClick(std::int16_t& /*Button*/,
                           std::int16_t& /*Shift*/,
                           float& /*x*/,
                           float& /*y*/,
                           std::int32_t /*Row*/,
                           std::int32_t /*Col*/) {}

    /// The input line starts editing a row; `Adding` is True also for an existing row that was
    /// opened from the list.
    virtual void LineEditStart(bool /*Adding*/) {}

    /// A click on the input line, or a press in the editor.
    virtual void InputLineClick(std::int16_t& /*Button*/,
                                std::int16_t& /*Shift*/,
                                float& /*x*/,
                                float& /*y*/,
                                std::int32_t /*Col*/) {}

    /// A double click on the input line or in the editor. `Value` is the editor's text, empty without
    /// an open field; what the host leaves in it is typed into the field, which is not stored yet.
    virtual void InputLineDblClick(std::int32_t /*Col*/, std::string& /*Value*/) {}

    /// A press in the editor, just after `InputLineClick`.
    virtual void InputFieldClick(std::int16_t& /*Button*/,
                                 std::int16_t& /*Shift*/,
                                 float& /*x*/,
                                 float& /*y*/,
                                 std::int32_t /*Col*/) {}

    /// The editor's text changed, by a person or by the control; a changed `Value` replaces it.
    virtual void InputFieldChange(std::int32_t /*Col*/, std::string& /*Value*/) {}

    /// A row was deleted; rows below have moved up. `DeletedRow` is the list's current row afterwards
    /// as the grid numbers it: 0 for none, 1 for public row 0.
    virtual void AfterRowDelete(std::int32_t /*DeletedRow*/) {}

    /// A row was confirmed: written into the list, or handled by the host. `UpdatedRow` is its public
    /// number, -1 for one that was appended. A host that opens another row in here keeps it open.
    virtual void AfterRowUpdated(std::int32_t /*UpdatedRow*/) {}

    /// The Add command starts.
    virtual void AddClick(bool& /*Cancel*/) {}

    /// The Insert command starts.
    virtual void InsertClick(bool& /*Cancel*/) {}

    /// The Delete command starts.
    virtual void DeleteClick(bool& /*Cancel*/) {}

    /// The editor leaves a field whose text is not that of its cell: `Value` goes into the input line
    /// unless the host cancels, which brings the editor back with the cell's text. An error of the host
    /// leaves the field open with what was typed. A row cannot be confirmed from in here.
    virtual void
    BeforeFieldUpdate(std::int32_t /*ColInEdit*/, std::string& /*Value*/, bool& /*Cancel*/) {}

    /// The confirm command is about to write the row into the list; with `ExternalHandling` the host
    /// does it instead. `RowInEdit` is its public number, -1 for one that is appended.
    virtual void BeforeRowUpdate(std::int32_t /*RowInEdit*/,
                                 std::int32_t /*ColInEdit*/,
                                 bool& /*Cancel*/,
                                 bool& /*ExternalHandling*/) {}

    /// The Copy command starts.
    virtual void CopyClick(bool& /*Cancel*/) {}

    /// The confirm command starts.
    virtual void OKClick(bool& /*Cancel*/) {}

    /// The list moved to another row, which is open in the input line now. A changed `Row` has no
    /// effect.
    virtual void RowSelect(std::int32_t& /*Row*/) {}

protected:
    ~KarvoListEvents() = default;
};

} // namespace krv
