#pragma once

#include "companions/table_columns.h"
#include "krv/platform/formatter.h"
#include "krv/platform/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::companions {

/// How values of a data-type code are written as texts.
enum class CellKind { text, whole, exact, currency, single, real, boolean, date, bytes };

CellKind kind_of(std::int16_t type);

/// The text of a cell after a load: by the pattern, without one as converted, nothing for Null.
std::string shown_text(platform::ValueView value,
                       const std::string& pattern,
                       const platform::Formatter& formatter);

/// Whether two cells show the same; the list shows a tab as a blank in rows that it appended.
bool shows_the_same(std::string_view text, std::string_view other);

/// The value that a cell's text stands for, Null for a blank one. It is the only one that the
/// column's pattern shows as this text; without a pattern it is exact but for Singles and Doubles.
/// \throws Refusal for a text that is no value of the column's type, and for one that its pattern
///         does not give back
platform::Value value_of_cell(const TableColumn& column,
                              const std::string& text,
                              const platform::Formatter& formatter);

} // namespace krv::companions
