#include "query.h"

#include "errors.h"
#include "sql_value.h"
#include "standard/ado/exact_number.h"
#include "standard/ado/field_types.h"
#include "standard/utf8.h"

#include <limits>

namespace krv::jet_reader {

namespace {

using platform::ValueView;
namespace field_type = standard::field_type;

template <class Small>
bool fits(std::int64_t value) {
    return value >= std::numeric_limits<Small>::min() && value <= std::numeric_limits<Small>::max();
}

/// A value that its column's type cannot mean comes out as what it is.
ValueView whole_value(std::int64_t value, std::int16_t type) {
    switch (type) {
    case field_type::boolean:
        return ValueView::boolean(value != 0);
    case field_type::unsigned_tiny_int:
        return fits<std::uint8_t>(value) ? ValueView::byte(static_cast<std::uint8_t>(value))
                                         : ValueView::long_long(value);
    case field_type::small_int:
        return fits<std::int16_t>(value) ? ValueView::integer(static_cast<std::int16_t>(value))
                                         : ValueView::long_long(value);
    case field_type::integer:
        return fits<std::int32_t>(value) ? ValueView::long_integer(static_cast<std::int32_t>(value))
                                         : ValueView::long_long(value);
    default:
        return ValueView::long_long(value);
    }
}

ValueView real_value(double value, std::int16_t type) {
    switch (type) {
    case field_type::currency:
        if (const auto currency = standard::currency_from_double(value)) {
            return ValueView::currency(*currency);
        }
        break;
    case field_type::numeric:
        if (const auto decimal = standard::decimal_from_double(value)) {
            return ValueView::decimal(*decimal);
        }
        break;
    case field_type::date:
    case field_type::db_time_stamp:
        return ValueView::date({value});
    case field_type::single:
        return ValueView::single(static_cast<float>(value));
    default:
        break;
    }
    return ValueView::double_float(value);
}

std::int16_t type_of_storage(int storage, std::int64_t whole) {
    switch (storage) {
    case SQLITE_INTEGER:
        return fits<std::int32_t>(whole) ? field_type::integer : field_type::big_int;
    case SQLITE_FLOAT:
        return field_type::double_float;
    case SQLITE_BLOB:
        return field_type::long_var_binary;
    default:
        return field_type::long_var_w_char;
    }
}

} // namespace

Query::Query(JetFile& file, std::string_view sql, Pulse pulse)
    : Query(file, translated_select(sql), std::move(pulse)) {}

Query::Query(JetFile& file, const TranslatedSelect& select, Pulse pulse)
    : database_(file, std::move(pulse))
    , statement_(database_.prepare(select.sql)) {
    if (sqlite3_bind_parameter_count(statement_.get()) > 0) {
        refuse_statement("The statement needs parameters, which a record source does not have.");
    }
    has_row_ = database_.step(statement_.get());
    for (int i = 0; i < sqlite3_column_count(statement_.get()); ++i) {
        columns_.push_back(describe(i));
    }
    name_columns(select.names);
}

/// Expressions without a name are called Expr1000, Expr1001 and so on, as Jet calls them.
void Query::name_columns(const std::set<std::string>& names) {
    int next = 1000;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const bool is_of_a_table =
            sqlite3_column_decltype(statement_.get(), static_cast<int>(i)) != nullptr;
        if (!is_of_a_table && !names.contains(columns_[i].name)) {
            columns_[i].name = "Expr" + std::to_string(next++);
        }
    }
}

standard::ColumnInfo Query::describe(int column) const {
    sqlite3_stmt* const statement = statement_.get();
    standard::ColumnInfo info = column_of_declared_type(sqlite3_column_decltype(statement, column));
    if (info.type == 0) {
        const int storage = has_row_ ? sqlite3_column_type(statement, column) : SQLITE_NULL;
        const bool is_date =
            sqlite3_value_subtype(sqlite3_column_value(statement, column)) == date_mark;
        const std::int64_t whole =
            storage == SQLITE_INTEGER ? sqlite3_column_int64(statement, column) : 0;
        info.type = is_date ? field_type::date : type_of_storage(storage, whole);
        info.defined_size = standard::fixed_size_of(info.type);
    }
    info.name = sqlite3_column_name(statement, column);
    return info;
}

bool Query::step() {
    if (is_before_first_) {
        is_before_first_ = false;
        return has_row_;
    }
    return database_.step(statement_.get());
}

ValueView Query::value(std::size_t index) {
    sqlite3_stmt* const statement = statement_.get();
    const int column = static_cast<int>(index);
    const std::int16_t type = columns_[index].type;
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: {
        const std::int64_t value = sqlite3_column_int64(statement, column);
        const bool is_whole = type == field_type::boolean || type == field_type::integer ||
                              type == field_type::small_int || type == field_type::big_int ||
                              type == field_type::unsigned_tiny_int;
        return is_whole ? whole_value(value, type) : real_value(static_cast<double>(value), type);
    }
    case SQLITE_FLOAT:
        return real_value(sqlite3_column_double(statement, column), type);
    case SQLITE_TEXT: {
        const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return ValueView::text(
            {data, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))});
    }
    case SQLITE_BLOB: {
        const auto* data = static_cast<const std::byte*>(sqlite3_column_blob(statement, column));
        return ValueView::bytes(
            {data, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))});
    }
    default:
        return ValueView::null();
    }
}

} // namespace krv::jet_reader
