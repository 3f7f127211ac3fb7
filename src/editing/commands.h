#pragma once

namespace krv::editing {

/// What the routines of the control call sideways: the row commands, the field commit, the handling
/// of a changed list row. One narrow interface at the bottom keeps those who call each other in
/// loops from including each other.
class Commands {
public:
    virtual ~Commands() = default;

    virtual void Add() = 0;
    virtual void Insert() = 0;
    virtual void Copy() = 0;
    virtual void Delete() = 0;
    virtual void Confirm() = 0;

    /// Closes the open field without offering or storing its text: editor hidden, `Editing` False,
    /// tab stops given back, no event. Nothing happens when no field is open.
    virtual void CloseField() = 0;

    /// The list's current row may have changed.
    virtual void RowChanged() = 0;
};

} // namespace krv::editing
