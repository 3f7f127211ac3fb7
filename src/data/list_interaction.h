#pragma once

#include <cstdint>

namespace krv {

struct ControlState;
class FunctionButtons;

namespace editing {
class FieldEditor;
}

namespace data {

/// What happens when a person, or the host in their place, moves and clicks in the list. In every
/// member the host's code runs, and the control may be gone afterwards.
class ListInteraction {
public:
    ListInteraction(ControlState& state, FunctionButtons& buttons, editing::FieldEditor& editor)
        : state_(state)
        , buttons_(buttons)
        , editor_(editor) {}

    /// The list's current row may have changed: asks about a pending edit, then opens the row in the
    /// input line. Runs once at a time.
    void RowChanged();

    /// x and y in twips from the list's top left; the listeners may change all four.
    void click(std::int16_t& button, std::int16_t& shift, float x, float y);

    /// A drag over several rows leaves one selected.
    void collapse_selection() const;

    /// As a click on a public row, which is scrolled into view and made current first.
    /// \throws RuntimeError 30009 when there is no such row, 6 for the greatest number
    void RowClick(std::int32_t row, std::int16_t& button, std::int16_t& shift);

private:
    /// What became of the row that was open when another one was chosen.
    enum class Leaving : std::uint8_t { left, kept, refused, control_is_gone };

    Leaving leave_edited_row();
    Leaving ask_about_edited_row();
    bool is_edit_pending() const;
    void restore_edited_row() const;
    void drop_edit();
    void hide_row_buttons() const;
    void open_row();
    void tell_row_is_open();

    ControlState& state_;
    FunctionButtons& buttons_;
    editing::FieldEditor& editor_;
};

} // namespace data
} // namespace krv
