#include "providers/odbc/column_type.h"

#include <gmock/gmock.h>

namespace krv::providers::odbc {

void PrintTo(ColumnType type, std::ostream* out) {
    *out << type.type << "/" << type.size;
}

namespace {

ColumnType type_of(SQLSMALLINT sql_type,
                   SQLULEN size = 10,
                   bool is_unsigned = false,
                   const char* name = "",
                   Engine engine = Engine::other) {
    return column_type({"c", sql_type, size, is_unsigned, name}, engine);
}

TEST(OdbcTypes, texts_and_bytes_keep_a_length_up_to_32767) {
    EXPECT_EQ(type_of(SQL_CHAR), (ColumnType{129, 10}));
    EXPECT_EQ(type_of(SQL_VARCHAR, 32767), (ColumnType{200, 32767}));
    EXPECT_EQ(type_of(SQL_VARCHAR, 32768), (ColumnType{201, 2147483647}));
    EXPECT_EQ(type_of(SQL_VARCHAR, 0), (ColumnType{201, 2147483647}));
    EXPECT_EQ(type_of(SQL_LONGVARCHAR), (ColumnType{201, 2147483647}));
    EXPECT_EQ(type_of(SQL_WCHAR), (ColumnType{130, 10}));
    EXPECT_EQ(type_of(SQL_WVARCHAR), (ColumnType{202, 10}));
    EXPECT_EQ(type_of(SQL_WVARCHAR, 40000), (ColumnType{203, 536870910}));
    EXPECT_EQ(type_of(SQL_WLONGVARCHAR), (ColumnType{203, 536870910}));
    EXPECT_EQ(type_of(SQL_BINARY), (ColumnType{128, 10}));
    EXPECT_EQ(type_of(SQL_VARBINARY), (ColumnType{204, 10}));
    EXPECT_EQ(type_of(SQL_VARBINARY, 0), (ColumnType{205, 2147483647}));
    EXPECT_EQ(type_of(SQL_LONGVARBINARY), (ColumnType{205, 2147483647}));
}

TEST(OdbcTypes, numbers_have_sizes_of_their_own) {
    EXPECT_EQ(type_of(SQL_BIT), (ColumnType{11, 2}));
    EXPECT_EQ(type_of(SQL_TINYINT), (ColumnType{16, 1}));
    EXPECT_EQ(type_of(SQL_TINYINT, 3, true), (ColumnType{17, 1}));
    EXPECT_EQ(type_of(SQL_SMALLINT), (ColumnType{2, 2}));
    EXPECT_EQ(type_of(SQL_SMALLINT, 5, true), (ColumnType{18, 2}));
    EXPECT_EQ(type_of(SQL_INTEGER), (ColumnType{3, 4}));
    EXPECT_EQ(type_of(SQL_INTEGER, 10, true), (ColumnType{19, 4}));
    EXPECT_EQ(type_of(SQL_BIGINT), (ColumnType{20, 8}));
    EXPECT_EQ(type_of(SQL_BIGINT, 20, true), (ColumnType{21, 8}));
    EXPECT_EQ(type_of(SQL_DECIMAL), (ColumnType{131, 19}));
    EXPECT_EQ(type_of(SQL_NUMERIC, 10, true), (ColumnType{131, 19}));
    EXPECT_EQ(type_of(SQL_REAL), (ColumnType{4, 4}));
    EXPECT_EQ(type_of(SQL_FLOAT), (ColumnType{5, 8}));
    EXPECT_EQ(type_of(SQL_DOUBLE), (ColumnType{5, 8}));
}

TEST(OdbcTypes, dates_of_both_versions_of_ODBC_are_the_same) {
    EXPECT_EQ(type_of(SQL_TYPE_DATE), (ColumnType{133, 6}));
    EXPECT_EQ(type_of(9), (ColumnType{133, 6}));
    EXPECT_EQ(type_of(SQL_TYPE_TIME), (ColumnType{134, 6}));
    EXPECT_EQ(type_of(10), (ColumnType{134, 6}));
    EXPECT_EQ(type_of(SQL_TYPE_TIMESTAMP), (ColumnType{135, 16}));
    EXPECT_EQ(type_of(11), (ColumnType{135, 16}));
    EXPECT_EQ(type_of(SQL_GUID), (ColumnType{72, 16}));
}

TEST(OdbcTypes, what_nobody_knows_is_a_text) {
    EXPECT_EQ(type_of(SQL_INTERVAL_DAY), (ColumnType{202, 10}));
    EXPECT_EQ(type_of(-9999, 5), (ColumnType{202, 5}));
    EXPECT_EQ(type_of(-9999, 0), (ColumnType{203, 536870910}));
}

TEST(OdbcTypes, PostgreSQL_has_its_corrections) {
    const auto type = [](SQLSMALLINT sql_type, SQLULEN size, const char* name) {
        return type_of(sql_type, size, false, name, Engine::postgresql);
    };
    EXPECT_EQ(type(SQL_VARCHAR, 5, "bool"), (ColumnType{11, 2}));
    EXPECT_EQ(type(SQL_FLOAT, 15, "money"), (ColumnType{6, 8}));
    EXPECT_EQ(type(SQL_WVARCHAR, 8190, "text"), (ColumnType{203, 536870910}));
    EXPECT_EQ(type(SQL_WVARCHAR, 255, "jsonb"), (ColumnType{203, 536870910}));
    EXPECT_EQ(type(SQL_WVARCHAR, 255, "_int4"), (ColumnType{203, 536870910}));
    EXPECT_EQ(type(SQL_WVARCHAR, 255, "varchar"), (ColumnType{202, 255}));
    EXPECT_EQ(type(SQL_WCHAR, 5, "bpchar"), (ColumnType{130, 5}));
    EXPECT_EQ(type(SQL_INTEGER, 10, "int4"), (ColumnType{3, 4}));
}

TEST(OdbcTypes, SQLite_has_its_declared_types) {
    const auto type = [](const char* name) {
        return type_of(SQL_VARCHAR, 255, false, name, Engine::sqlite);
    };
    EXPECT_EQ(type("CURRENCY"), (ColumnType{6, 8}));
    EXPECT_EQ(type("decimal"), (ColumnType{131, 19}));
    EXPECT_EQ(type("guid"), (ColumnType{72, 16}));
    EXPECT_EQ(type("varchar"), (ColumnType{200, 255}));
}

} // namespace
} // namespace krv::providers::odbc
