#include "providers/odbc/column_type.h"

#include "standard/ado/field_types.h"
#include "standard/ascii.h"

#include <array>
#include <vector>

namespace krv::providers::odbc {

namespace {

namespace field_type = standard::field_type;
using standard::same_keyword;

std::string
column_name(const StatementHandle& statement, SQLUSMALLINT column, DescribedColumn& described) {
    std::vector<char16_t> name(256);
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    const auto read = [&] {
        statement.check(SQLDescribeColW(statement.get(),
                                        column,
                                        as_sql(name),
                                        static_cast<SQLSMALLINT>(name.size()),
                                        &length,
                                        &described.sql_type,
                                        &described.size,
                                        &digits,
                                        &nullable),
                        Phase::running);
    };
    read();
    if (length >= std::ssize(name)) {
        name.assign(static_cast<std::size_t>(length) + 1, u'\0');
        read();
    }
    const std::u16string_view whole(name.data(), name.size());
    return narrow_text(whole.substr(0, whole.find(u'\0')));
}

std::string type_name(const StatementHandle& statement, SQLUSMALLINT column) {
    std::array<char16_t, 129> text{};
    SQLSMALLINT length = 0;
    SQLLEN number = 0;
    ignore(SQLColAttributeW(statement.get(),
                            column,
                            SQL_DESC_TYPE_NAME,
                            text.data(),
                            static_cast<SQLSMALLINT>(sizeof text - sizeof text[0]),
                            &length,
                            &number));
    return narrow_text(std::u16string_view(text.data()));
}

bool is_unsigned(const StatementHandle& statement, SQLUSMALLINT column) {
    SQLLEN number = SQL_FALSE;
    ignore(
        SQLColAttributeW(statement.get(), column, SQL_DESC_UNSIGNED, nullptr, 0, nullptr, &number));
    return number == SQL_TRUE;
}

ColumnType of_fixed_size(std::int16_t type) {
    return {type, standard::fixed_size_of(type)};
}

ColumnType with_length(std::int16_t type, std::int16_t long_type, SQLULEN size) {
    constexpr SQLULEN most = standard::longest_sized_field;
    return size == 0 || size > most ? of_fixed_size(long_type)
                                    : ColumnType{type, static_cast<std::int32_t>(size)};
}

bool is_wide(SQLSMALLINT type) {
    return type == SQL_WCHAR || type == SQL_WVARCHAR || type == SQL_WLONGVARCHAR;
}

bool is_text(SQLSMALLINT type) {
    return is_wide(type) || type == SQL_CHAR || type == SQL_VARCHAR || type == SQL_LONGVARCHAR;
}

struct NamedType {
    std::string_view name;
    std::int16_t type;
};

template <std::size_t Count>
std::int16_t type_named(const std::string& name, const NamedType (&types)[Count]) {
    for (const NamedType& known : types) {
        if (same_keyword(name, known.name)) {
            return known.type;
        }
    }
    return 0;
}

std::int16_t type_of_postgresql(const DescribedColumn& column) {
    constexpr NamedType corrected[] = {{"bool", field_type::boolean},
                                       {"money", field_type::currency}};
    constexpr NamedType with_lengths[] = {{"varchar", field_type::var_w_char},
                                          {"bpchar", field_type::w_char},
                                          {"char", field_type::w_char},
                                          {"name", field_type::var_w_char}};
    if (const std::int16_t type = type_named(column.type_name, corrected); type != 0) {
        return type;
    }
    const bool has_length = type_named(column.type_name, with_lengths) != 0;
    return is_text(column.sql_type) && !has_length ? field_type::long_var_w_char : std::int16_t{0};
}

/// SQLite's driver hands on the declared type, and calls what it does not know a text.
std::int16_t type_of_sqlite(const DescribedColumn& column) {
    constexpr NamedType corrected[] = {{"decimal", field_type::numeric},
                                       {"numeric", field_type::numeric},
                                       {"number", field_type::numeric},
                                       {"currency", field_type::currency},
                                       {"money", field_type::currency},
                                       {"smallmoney", field_type::currency},
                                       {"single", field_type::single},
                                       {"float4", field_type::single},
                                       {"guid", field_type::guid},
                                       {"uuid", field_type::guid},
                                       {"uniqueidentifier", field_type::guid},
                                       {"blob", field_type::long_var_binary}};
    return type_named(column.type_name, corrected);
}

/// By the engines' own names, for types that drivers report as something else; 0 for none.
std::int16_t type_by_name(const DescribedColumn& column, Engine engine) {
    switch (engine) {
    case Engine::postgresql:
        return type_of_postgresql(column);
    case Engine::sqlite:
        return type_of_sqlite(column);
    default:
        return 0;
    }
}

std::int16_t whole_type(SQLSMALLINT sql_type, bool is_unsigned_column) {
    switch (sql_type) {
    case SQL_TINYINT:
        return is_unsigned_column ? field_type::unsigned_tiny_int : field_type::tiny_int;
    case SQL_SMALLINT:
        return is_unsigned_column ? field_type::unsigned_small_int : field_type::small_int;
    case SQL_INTEGER:
        return is_unsigned_column ? field_type::unsigned_int : field_type::integer;
    case SQL_BIGINT:
        return is_unsigned_column ? field_type::unsigned_big_int : field_type::big_int;
    default:
        return 0;
    }
}

std::int16_t fixed_type(SQLSMALLINT sql_type) {
    switch (sql_type) {
    case SQL_BIT:
        return field_type::boolean;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return field_type::numeric;
    case SQL_REAL:
        return field_type::single;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return field_type::double_float;
    case SQL_DATE: // of ODBC 2
    case SQL_TYPE_DATE:
        return field_type::db_date;
    case SQL_TIME:
    case SQL_TYPE_TIME:
        return field_type::db_time;
    case SQL_TIMESTAMP:
    case SQL_TYPE_TIMESTAMP:
        return field_type::db_time_stamp;
    case SQL_GUID:
        return field_type::guid;
    default:
        return 0;
    }
}

ColumnType sized_type(SQLSMALLINT sql_type, SQLULEN size) {
    switch (sql_type) {
    case SQL_CHAR:
        return with_length(field_type::char_type, field_type::long_var_char, size);
    case SQL_VARCHAR:
        return with_length(field_type::var_char, field_type::long_var_char, size);
    case SQL_LONGVARCHAR:
        return of_fixed_size(field_type::long_var_char);
    case SQL_WCHAR:
        return with_length(field_type::w_char, field_type::long_var_w_char, size);
    case SQL_WLONGVARCHAR:
        return of_fixed_size(field_type::long_var_w_char);
    case SQL_BINARY:
        return with_length(field_type::binary, field_type::long_var_binary, size);
    case SQL_VARBINARY:
        return with_length(field_type::var_binary, field_type::long_var_binary, size);
    case SQL_LONGVARBINARY:
        return of_fixed_size(field_type::long_var_binary);
    default: // wide text, intervals and what nobody knows
        return with_length(field_type::var_w_char, field_type::long_var_w_char, size);
    }
}

} // namespace

DescribedColumn describe_column(const StatementHandle& statement, SQLUSMALLINT column) {
    DescribedColumn described;
    described.name = column_name(statement, column, described);
    described.type_name = type_name(statement, column);
    described.is_unsigned = is_unsigned(statement, column);
    return described;
}

ColumnType column_type(const DescribedColumn& column, Engine engine) {
    if (const std::int16_t type = type_by_name(column, engine); type != 0) {
        return of_fixed_size(type);
    }
    if (const std::int16_t type = whole_type(column.sql_type, column.is_unsigned); type != 0) {
        return of_fixed_size(type);
    }
    if (const std::int16_t type = fixed_type(column.sql_type); type != 0) {
        return of_fixed_size(type);
    }
    return sized_type(column.sql_type, column.size);
}

} // namespace krv::providers::odbc
