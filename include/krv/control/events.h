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
/// What it throws ends the routine that raised the event; later listeners are not told.
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

    /// A double click on the input line or in the editor.
    virtual void InputLineDblClick(std::int32_t /*Col*/, std::string& /*Value*/) {}

    /// A press in the editor, just after `InputLineClick`.
    virtual void InputFieldClick(std::int16_t& /*Button*/,
                                 std::int16_t& /*Shift*/,
                                 float& /*x*/,
                                 float& /*y*/,
                                 std::int32_t /*Col*/) {}

    /// The editor's text changed.
    virtual void InputFieldChange(std::int32_t /*Col*/, std::string& /*Value*/) {}

    /// A row was deleted; rows below have moved up.
    virtual void AfterRowDelete(std::int32_t /*DeletedRow*/) {}

    /// A confirmed row was written into the list.
    virtual void AfterRowUpdated(std::int32_t /*UpdatedRow*/) {}

    /// The Add command starts.
    virtual void AddClick(bool& /*Cancel*/) {}

    /// The Insert command starts.
    virtual void InsertClick(bool& /*Cancel*/) {}

    /// The Delete command starts.
    virtual void DeleteClick(bool& /*Cancel*/) {}

    /// The editor leaves a field: `Value` goes into the input line unless the host cancels.
    virtual void
    BeforeFieldUpdate(std::int32_t /*ColInEdit*/, std::string& /*Value*/, bool& /*Cancel*/) {}

    /// The confirm command is about to write the row into the list; with `ExternalHandling` the host
    /// does it instead.
    virtual void BeforeRowUpdate(std::int32_t /*RowInEdit*/,
                                 std::int32_t /*ColInEdit*/,
                                 bool& /*Cancel*/,
                                 bool& /*ExternalHandling*/) {}

    /// The Copy command starts.
    virtual void CopyClick(bool& /*Cancel*/) {}

    /// The confirm command starts.
    virtual void OKClick(bool& /*Cancel*/) {}

    /// The list moved to another row.
    virtual void RowSelect(std::int32_t& /*Row*/) {}

protected:
    ~KarvoListEvents() = default;
};

} // namespace krv
