#pragma once

#include <cstdint>
#include <string>

namespace krv {

struct ControlState;

namespace editing {

class FieldCommit;

/// Whether the editor goes to the column itself or nowhere, or on to the next usable one.
enum class Search : std::uint8_t { none, forward, backward };

/// Puts the field editor over the cells of the input line, fills it, and tells the host what the
/// mouse does with it. In every member the host's code may run, and the control be gone afterwards.
class FieldEditor {
public:
    FieldEditor(ControlState& state, FieldCommit& commit)
        : state_(state)
        , commit_(commit) {}

    /// Closes the open field, then puts the editor over a usable column and gives it the focus.
    /// \return false when there is no such column, no row is open, the open field could not be left,
    ///         or the host closed the new one at once
    bool place(std::int32_t col, Search search);

    /// `place` while the input line is shown. \return whether the editor stands there
    bool SetInput(std::int32_t col);

    /// The editor got the focus: a field is open.
    void focus_gained();

    void text_changed();

    // The mouse; x and y in twips from the part's top left.

    void mouse_down_on_editor(std::int16_t button, std::int16_t shift, float x, float y);
    void mouse_down_on_line(std::int16_t button, std::int16_t shift, float x, float y);
    void double_click_on_editor();
    void double_click_on_line();

private:
    enum class EditorPart : std::uint8_t { taken, left_alone };

    bool close_open_field();
    bool find_column(std::int32_t& col, Search search) const;
    void double_click(EditorPart editor_part);
    void show_with(const std::string& value);
    void reopen_with(const std::string& value);

    ControlState& state_;
    FieldCommit& commit_;
    int changes_under_way_ = 0;
};

} // namespace editing
} // namespace krv
