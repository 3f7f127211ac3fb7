#pragma once

#include "walk/dice.h"

#include <string>

namespace krv::walk {

/// How the host behaves: one that lets the control work, or one that meddles inside every event.
enum class Manners { polite, wild };

/// One thing that a person or the host does.
struct Act {
    enum class Kind {
        key,
        text,
        click,
        double_click,
        drag,
        focus,
        focus_outside,
        call,
        put,
        resize
    };

    Kind kind = Kind::key;
    std::string name; ///< of the part, the method or the property
    std::string text; ///< what is typed or put
    int a = 0;        ///< key code, column, row, x
    int b = 0;        ///< shift state, column, y

    std::string describe() const;
};

/// \param rows, cols  of the list as it stands
Act next_act(Dice& dice, Manners manners, int rows, int cols);

} // namespace krv::walk
