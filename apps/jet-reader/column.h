#pragma once

#include "krv/standard/provider.h"

#include <glib.h>
#include <mdbtools.h>

namespace krv::jet_reader {

/// Type numbers of the format that the library has no names for.
inline constexpr int type_big_int = 0x13;
inline constexpr int type_extended_date = 0x14;

/// A column of a table, as far as its values depend on it.
struct Column {
    standard::ColumnInfo info;
    int type = 0;  ///< type number of the format; of the result for a calculated column
    int scale = 0; ///< of a Decimal
    int place = 0; ///< in a row, deleted columns counted
    bool is_calculated = false;
};

/// \param is_jet3  texts have one byte a character
Column describe_column(const MdbColumn& column, bool is_jet3);

} // namespace krv::jet_reader
