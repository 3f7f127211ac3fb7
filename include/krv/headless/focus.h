#pragma once

#include <vector>

namespace krv::headless {

class FormPart;
class HeadlessControl;

enum class TabDirection { forward, backward };

/// Which part of a form has the focus, and the order in which Tab walks through the parts.
///
/// The focus moves at once; what the parts and controls are told about it is queued: `LostFocus` of
/// the old part, the leaving of the old control, `GotFocus` of the new part.
class Focus {
public:
    /// The part that has the focus; null for none.
    FormPart* current() const noexcept { return current_; }

    /// Whether a part of the control has the focus.
    bool is_inside(const HeadlessControl& control) const noexcept;

    /// Moves the focus; nothing happens when it is there already.
    /// \throws RuntimeError 5 when the part cannot take it
    void set(FormPart& part);

    /// Moves the focus to the next tab stop, wrapping around; to none when there is no such part.
    void pass_on();

    /// The next part in tab order that Tab stops at, wrapping around; `from` itself comes last.
    /// \param from  null: as if Tab came from outside the form
    /// \return      null when there is none
    FormPart* next(const FormPart* from, TabDirection direction) const;

    /// Whether Tab moves the focus away from the part instead of reaching its key handling: in a
    /// control as long as the part and another one beside it are tab stops, elsewhere always.
    bool tab_moves_from(const FormPart& part) const;

    /// Appends the part to the tab order.
    void add(FormPart& part) { order_.push_back(&part); }

    /// The part that is being destroyed or retired: it and everybody else are told nothing.
    void remove(const FormPart& part) noexcept;

    /// Takes the parts of a control that goes away out of the tab order. The focus, if it was
    /// inside, moves on; only the part that gets it is told.
    void remove(const HeadlessControl& control);

private:
    template <class Accepts>
    FormPart* find(const FormPart* from, TabDirection direction, Accepts accepts) const;
    void move_to(FormPart* part);

    std::vector<FormPart*> order_;
    FormPart* current_ = nullptr;
};

} // namespace krv::headless
