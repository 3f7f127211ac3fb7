#pragma once

#include <string>

namespace krv {

struct ControlState;
class FunctionButtons;

namespace editing {

class FieldCommit;
class FieldEditor;

/// The commands that open a new row in the input line or delete the list's current one. In every
/// member the host's code runs, and the control may be gone afterwards.
class RowCommands {
public:
    RowCommands(ControlState& state,
                FunctionButtons& buttons,
                FieldEditor& editor,
                FieldCommit& commit)
        : state_(state)
        , buttons_(buttons)
        , editor_(editor)
        , commit_(commit) {}

    void Add();
    void Insert();
    void Copy();
    void Delete();

private:
    bool leave_current_row();
    bool copy_row_into_line();
    std::string number_for_new_row() const;
    void write_line_number(const std::string& number) const;
    void hide_copy_and_delete() const;
    void open_first_field();
    void remove_row();

    ControlState& state_;
    FunctionButtons& buttons_;
    FieldEditor& editor_;
    FieldCommit& commit_;
};

} // namespace editing
} // namespace krv
