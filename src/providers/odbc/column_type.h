#pragma once

#include "providers/odbc/session.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::providers::odbc {

/// A column as the driver describes it.
struct DescribedColumn {
    std::string name;
    SQLSMALLINT sql_type = 0;
    SQLULEN size = 0; ///< characters of a text, bytes of a binary; 0 for unknown
    bool is_unsigned = false;
    std::string type_name; ///< the engine's, may be empty
};

/// \param column  counts from 1
DescribedColumn describe_column(const StatementHandle& statement, SQLUSMALLINT column);

struct ColumnType {
    std::int16_t type = 0; ///< data-type code
    std::int32_t size = 0; ///< `DefinedSize`

    friend bool operator==(ColumnType, ColumnType) = default;
};

/// The data-type code, with what is known to be told wrongly put right.
ColumnType column_type(const DescribedColumn& column, Engine engine);

} // namespace krv::providers::odbc
