#pragma once

#include "krv/control/constituents.h"
#include "krv/platform/grid.h"

#include <cstdint>

namespace krv::standard {

/// Column of the input line over which the field editor stands, by its left edge; -1 for none.
inline std::int32_t editor_column(const platform::Grid& line, const platform::TextBox& editor) {
    for (std::int32_t col = 0; col < line.Cols(); ++col) {
        const auto left = static_cast<platform::TwipsSingle>(line.ColPos(col)) + editor_indent;
        if (line.ColWidth(col) > 0 && left == editor.Left()) {
            return col;
        }
    }
    return -1;
}

} // namespace krv::standard
