#pragma once

#include "krv/platform/grid.h"

#include <cstdint>

namespace krv {

struct Constituents;
struct ControlState;
class FunctionButtons;

/// Puts the field editor over the input line's cell in this column, 0 to `GridIn.Cols` - 1.
void place_editor_over(const Constituents& parts, std::int32_t col);

/// Column whose left edge is the last one at or left of x, in twips within the grid; -1 left of the
/// first.
std::int32_t column_at(const platform::Grid& grid, float x);

/// Places every part for the control's present size, which is first raised to 5055 x 1800 twips.
/// Hidden buttons keep their place in the row.
void lay_out(ControlState& state, FunctionButtons& buttons);

} // namespace krv
