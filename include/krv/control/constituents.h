#pragma once

#include "krv/platform/controls.h"
#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"
#include "krv/platform/grid.h"
#include "krv/platform/host.h"

#include <array>

namespace krv {

// The control raises a smaller size to this one, in twips.
inline constexpr platform::TwipsSingle least_width = 5055;
inline constexpr platform::TwipsSingle least_height = 1800;

/// The editor stands so far to the right of its column's left edge and is so much wider than the
/// column, in twips: room for the cell's grid line and padding.
inline constexpr platform::TwipsSingle editor_indent = 35;

/// The parts that a backend makes and a `KarvoList` works with. They outlive the control.
struct Constituents {
    platform::Grid& Grid;   ///< the list; row 0 holds the captions
    platform::Grid& GridIn; ///< the input line: row 0 repeats the captions, row 1 holds the values
    platform::TextBox& InpFld; ///< the field editor over one cell of `GridIn`
    platform::Button& btnAdd;
    platform::Button& btnInsert;
    platform::Button& btnDelete;
    platform::Button& btnCopy;
    platform::Button& btnOK;
    platform::Line& Line1; ///< the highlight line at the control's bottom edge

    /// Add, Insert, Delete, Copy, OK: the order in which settings reach them.
    std::array<platform::Button*, 5> buttons() const {
        return {&btnAdd, &btnInsert, &btnDelete, &btnCopy, &btnOK};
    }
};

/// What a control needs besides its parts. All of it outlives the control.
struct Surroundings {
    platform::Container& container;
    platform::Application& application;
    platform::DataAccess& data_access;
    const platform::Formatter& formatter;
};

} // namespace krv
