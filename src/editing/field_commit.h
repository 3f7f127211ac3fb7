#pragma once

#include <cstdint>
#include <string>

namespace krv {

struct ControlState;

namespace editing {

/// What happens to the open field when it is left: its text is offered to the host, then stored in
/// the input line or refused.
class FieldCommit {
public:
    explicit FieldCommit(ControlState& state)
        : state_(state) {}

    /// Hides the editor and commits the open field, if there is one. The control may be gone when
    /// this returns.
    /// \throws RuntimeError what a handler raises; one of `BeforeFieldUpdate` leaves the field open
    ///         with its text, others come after the text was stored; what the column's pattern
    ///         raises, after the text was stored as it was typed
    void run();

    /// The editor was reported to have lost the focus.
    void focus_lost();

    /// Closes the open field without offering or storing its text.
    void close();

private:
    struct Field;

    bool offer(Field& field);
    void refuse(const Field& field);
    void store(const Field& field);
    void write_cell(std::int32_t col, const std::string& text) const;
    void bring_editor_back();
    void end();

    ControlState& state_;
};

} // namespace editing
} // namespace krv
