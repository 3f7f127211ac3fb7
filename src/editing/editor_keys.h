#pragma once

#include <cstdint>

namespace krv {

struct ControlState;
class FunctionButtons;

namespace editing {

class FieldCommit;
class FieldEditor;

/// The keys of the field editor: from field to field, the confirm, the escape, function keys.
class EditorKeys {
public:
    EditorKeys(ControlState& state,
               const FunctionButtons& buttons,
               FieldEditor& editor,
               FieldCommit& commit)
        : state_(state)
        , buttons_(buttons)
        , editor_(editor)
        , commit_(commit) {}

    /// A key on its way to the editor; 0 swallows it. The control may be gone when this returns.
    void key_down(std::int16_t& key_code, std::int16_t& shift);

    /// A character on its way to the editor: Tab and Enter have done their work as keys.
    static void key_press(std::int16_t& key_ascii);

private:
    void tab(std::int16_t& key_code, std::int16_t shift);
    void move_right();
    void move_left();
    void enter();
    void escape();
    void mark_line_as_modified(std::int16_t key_code) const;

    ControlState& state_;
    const FunctionButtons& buttons_;
    FieldEditor& editor_;
    FieldCommit& commit_;
};

} // namespace editing
} // namespace krv
