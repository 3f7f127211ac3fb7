#include "column.h"

#include "standard/ado/field_types.h"
#include "standard/utf8.h"

#include <cstdlib>

namespace krv::jet_reader {

namespace {

namespace field_type = standard::field_type;

/// Bytes that stand around the value of a calculated column.
constexpr int calculated_frame_size = 23;

std::int16_t code_of(int type, bool is_fixed) {
    switch (type) {
    case MDB_BOOL:
        return field_type::boolean;
    case MDB_BYTE:
        return field_type::unsigned_tiny_int;
    case MDB_INT:
        return field_type::small_int;
    case MDB_LONGINT:
    case MDB_COMPLEX:
        return field_type::integer;
    case MDB_MONEY:
        return field_type::currency;
    case MDB_FLOAT:
        return field_type::single;
    case MDB_DOUBLE:
        return field_type::double_float;
    case MDB_DATETIME:
        return field_type::date;
    case MDB_BINARY:
        return is_fixed ? field_type::binary : field_type::var_binary;
    case MDB_TEXT:
        return field_type::var_w_char;
    case MDB_OLE:
        return field_type::long_var_binary;
    case MDB_MEMO:
        return field_type::long_var_w_char;
    case MDB_REPID:
        return field_type::guid;
    case MDB_NUMERIC:
        return field_type::numeric;
    case type_big_int:
        return field_type::big_int;
    case type_extended_date:
        return field_type::db_time_stamp;
    default:
        return field_type::var_binary;
    }
}

std::int32_t size_of(const Column& column, const MdbColumn& raw, bool is_jet3) {
    if (const std::int32_t fixed = standard::fixed_size_of(column.info.type); fixed != 0) {
        return fixed;
    }
    const int bytes = column.is_calculated ? raw.col_size - calculated_frame_size : raw.col_size;
    const bool is_wide = column.type == MDB_TEXT && !is_jet3;
    return std::max(is_wide ? bytes / 2 : bytes, 0);
}

} // namespace

Column describe_column(const MdbColumn& raw, bool is_jet3) {
    Column column;
    std::string storage;
    column.info.name = standard::repaired_utf8(raw.name, storage);
    column.place = raw.col_num;
    column.is_calculated = mdb_col_get_prop(&raw, "Expression") != nullptr;
    const char* const result =
        column.is_calculated ? mdb_col_get_prop(&raw, "ResultType") : nullptr;
    column.type = result == nullptr ? raw.col_type : std::atoi(result);
    column.scale = raw.col_prec; // the library takes precision and scale for each other (1.0.0)
    column.info.type = code_of(column.type, raw.is_fixed != 0);
    column.info.defined_size = size_of(column, raw, is_jet3);
    return column;
}

} // namespace krv::jet_reader
