#pragma once

#include <cstdint>
#include <string>

namespace krv {

struct ControlState;

namespace editing {

/// Whether a column carries line numbers.
bool has_line_numbers(const ControlState& state);

/// Nothing without line numbers.
/// \throws RuntimeError 381 when they stand in a column that the list does not have
void require_line_number_column(const ControlState& state);

/// The number for a row behind the last one, as text.
/// \throws RuntimeError 381 when the list has no such column
std::string next_line_number(const ControlState& state);

/// Numbers the rows from this public row on, one after the other, beginning behind the number of the
/// row above; row 0 has 1. Rows before it keep their texts. Does nothing without line numbers.
/// \throws RuntimeError 381 when the list has no such column
void renumber_from(const ControlState& state, std::int32_t row);

} // namespace editing
} // namespace krv
