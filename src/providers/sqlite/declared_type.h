#pragma once

#include <cstdint>
#include <string_view>

namespace krv::providers::sqlite {

struct ColumnType {
    std::int16_t type = 0; ///< data-type code
    std::int32_t size = 0; ///< `DefinedSize`

    friend bool operator==(ColumnType, ColumnType) = default;
};

/// What a column is by the type that its table declares; code 0 when there is none.
/// \param declared  as in CREATE TABLE: `VARCHAR(50)`, `double precision`, `INT UNSIGNED`
ColumnType declared_type(std::string_view declared);

/// What a column without a declared type is by its first value.
/// \param storage  SQLITE_INTEGER to SQLITE_NULL
/// \param whole    the value when it is an integer
ColumnType stored_type(int storage, std::int64_t whole);

} // namespace krv::providers::sqlite
