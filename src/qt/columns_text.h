#pragma once

#include "krv/standard/memory_bag.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krv {
class KarvoList;
}

namespace krv::qt {

// The columns of a control as one text, for files that keep a property as a text: a line a column,
// in it the settings of that column as bag files write them, without the column's number:
//
//     ColWidth=1200 ColAlignment=7 ColEditable=false ColDataField="total"
//
// Captions are not among them: they are for translators.

/// What is wrong with a text of columns.
struct ColumnsFault {
    std::size_t line; ///< from 1
    std::string text;
};

/// The settings of columns, each by its keys without the column's number; at least one column.
struct ColumnSettings {
    std::vector<standard::MemoryBag> columns;
    std::vector<std::size_t> lines; ///< the line that each column stands in
    std::optional<ColumnsFault> fault;
};

/// What a new control's column has.
standard::MemoryBag new_column();

/// Blank lines are passed over; a text of nothing else is one column as of a new control. From the
/// first fault on, columns are as those of a new control. Never fails.
ColumnSettings read_columns(std::string_view text);

/// \param bag  the settings of a control
std::string columns_text(const standard::MemoryBag& bag);

/// Number of columns in the settings of a control.
std::int32_t column_count(const standard::MemoryBag& bag);

/// Puts the columns into the settings of a control, in place of those that are there. Captions stay
/// with their columns.
void replace_columns(const std::vector<standard::MemoryBag>& columns, standard::MemoryBag& bag);

} // namespace krv::qt
