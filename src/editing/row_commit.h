#pragma once

#include <string>

namespace krv {

struct ControlState;
class FunctionButtons;

namespace editing {

class FieldEditor;

/// Confirms the row of the input line into the list: appends, inserts or overwrites.
class RowCommit {
public:
    RowCommit(ControlState& state, FunctionButtons& buttons, FieldEditor& editor)
        : state_(state)
        , buttons_(buttons)
        , editor_(editor) {}

    /// The control may be gone when this returns.
    void Confirm();

private:
    void give_focus_after_refusal();
    bool lacks_necessary_value();
    std::string row_text() const;
    void store();
    void insert();
    void overwrite();
    void close_row();

    ControlState& state_;
    FunctionButtons& buttons_;
    FieldEditor& editor_;
};

} // namespace editing
} // namespace krv
