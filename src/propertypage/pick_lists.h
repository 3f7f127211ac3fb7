#pragma once

#include "krv/platform/dialog_controls.h"

#include <cstdint>

namespace krv::propertypage {

// The two fixed lists of the page.

/// Fills the list with the 37 named data types, each with its ADO code as item data.
void fill_data_types(platform::ComboBox& list);

/// Position of the first data type with the code, -1 when no type has it.
std::int16_t position_of_data_type(const platform::ComboBox& list, std::int32_t code);

void fill_alignments(platform::ComboBox& list);

/// Position of an alignment; an unknown one is shown as 0, "Auto align".
std::int16_t position_of_alignment(std::int32_t alignment);

/// Alignment at a position; `krvauto` at any but 1 to 3.
std::int32_t alignment_at(std::int16_t position);

} // namespace krv::propertypage
