#include "providers/sqlite/declared_type.h"
#include "providers/sqlite_fixture.h"

namespace krv::providers {
namespace {

using ::testing::ElementsAre;

class SqliteTypes : public SqliteTest {
protected:
    /// "type size" of a column declared so, in a table without rows.
    std::string type_of(const std::string& declared) {
        const std::string name = "t" + std::to_string(++count_) + ".db";
        make("CREATE TABLE t (v " + declared + ")", name);
        const auto records = open("t", connect("", name));
        return fields(*records).at(0).substr(2);
    }

    void expect(const std::string& expected, const Texts& declared) {
        for (const auto& text : declared) {
            EXPECT_EQ(type_of(text), expected) << text;
        }
    }

private:
    int count_ = 0;
};

TEST_F(SqliteTypes, numbers_have_the_code_and_size_of_their_name) {
    expect("11 2", {"BOOLEAN", "BOOL", "BIT", "YESNO", "LOGICAL", "boolean", "BIT(1)"});
    expect("17 1", {"BYTE"});
    expect("16 1", {"TINYINT", "TINYINT(1)", "UNSIGNED TINYINT"});
    expect("2 2", {"SMALLINT", "INT2", "SHORT", "smallint unsigned"});
    expect("3 4",
           {"INTEGER",
            "INT",
            "INT4",
            "MEDIUMINT",
            "LONG",
            "COUNTER",
            "INT(11)",
            "INT UNSIGNED",
            "unsigned int",
            "LONG INTEGER",
            "INTEGER PRIMARY KEY"});
    expect("20 8", {"BIGINT", "INT8", "BIGINT UNSIGNED"});
    expect("4 4", {"SINGLE", "FLOAT4"});
    expect("5 8", {"REAL", "FLOAT", "DOUBLE", "DOUBLE PRECISION", "Float(8)"});
    expect("6 8", {"CURRENCY", "MONEY", "SMALLMONEY"});
    expect("131 19", {"DECIMAL", "NUMERIC", "NUMBER", "DECIMAL(10,2)", "NUMERIC ( 5 )"});
}

TEST_F(SqliteTypes, dates_and_GUIDs_have_the_code_and_size_of_their_name) {
    expect("133 6", {"DATE"});
    expect("134 6", {"TIME"});
    expect("135 16", {"DATETIME", "TIMESTAMP", "TIMESTAMP WITH TIME ZONE"});
    expect("72 16", {"GUID", "UUID", "UNIQUEIDENTIFIER"});
}

TEST_F(SqliteTypes, texts_with_a_length_have_it_as_their_size) {
    expect("130 5", {"CHAR(5)", "NCHAR(5)", "char ( 5 )"});
    expect("202 50",
           {"VARCHAR(50)",
            "NVARCHAR(50)",
            "CHARACTER VARYING(50)",
            "TEXT(50)",
            "varchar( 50 )",
            "VARCHAR (50)",
            "VARCHAR(50, 2)"});
    expect("202 32767", {"VARCHAR(32767)"});
    expect("128 16", {"BINARY(16)"});
    expect("204 16", {"VARBINARY(16)"});
}

TEST_F(SqliteTypes, texts_without_a_length_or_with_too_large_a_one_are_long) {
    expect("203 536870910",
           {"TEXT",
            "CLOB",
            "MEMO",
            "NTEXT",
            "LONGTEXT",
            "JSON",
            "XML",
            "CHAR",
            "VARCHAR",
            "NCHAR",
            "VARCHAR(0)",
            "VARCHAR(32768)",
            "VARCHAR(99999999999999999999)",
            "CHAR(40000)",
            "CLOB(20)"});
    expect(
        "205 2147483647",
        {"BLOB", "IMAGE", "OLE", "LONGBINARY", "BINARY", "VARBINARY", "BLOB(16)", "BINARY(32768)"});
}

TEST_F(SqliteTypes, names_that_SQLite_would_not_parse_itself_are_known_all_the_same) {
    using sqlite::ColumnType;
    using sqlite::declared_type;
    EXPECT_EQ(declared_type("AUTOINCREMENT"), (ColumnType{3, 4}));
    EXPECT_EQ(declared_type("VARCHAR(MAX)"), (ColumnType{203, 536870910}));
    EXPECT_EQ(declared_type("VARCHAR("), (ColumnType{203, 536870910}));
    EXPECT_EQ(declared_type("varchar](50"), (ColumnType{202, 50}));
    EXPECT_EQ(declared_type("[nvarchar](50)"), (ColumnType{202, 50}));
    EXPECT_EQ(declared_type("\"money\""), (ColumnType{6, 8}));
    EXPECT_EQ(declared_type("UNSIGNED"), (ColumnType{131, 19}));
    EXPECT_EQ(declared_type("(5)"), (ColumnType{131, 19}));
    EXPECT_EQ(declared_type(" "), (ColumnType{}));
}

TEST_F(SqliteTypes, other_names_go_by_affinity) {
    expect("3 4", {"POINT", "HUGEINT"});
    expect("203 536870910", {"NATIVE CHARACTER(70)", "TINYTEXT", "MYCLOB"});
    expect("205 2147483647", {"TINYBLOB"});
    expect("5 8", {"REALLY", "FLOATING", "DOUBLED"});
    expect("131 19", {"STRING", "WHATEVER", "WHATEVER(5)"});
}

TEST_F(SqliteTypes, a_column_without_a_type_goes_by_its_first_row) {
    make("CREATE TABLE t (a, b, c, d, e, f); INSERT INTO t VALUES"
         "(1, 5000000000, 1.5, 'x', x'00', NULL), ('x', 'x', 'x', 1, 1, 1)");
    EXPECT_THAT(
        fields(*open("t")),
        ElementsAre(
            "a 3 4", "b 20 8", "c 5 8", "d 203 536870910", "e 205 2147483647", "f 203 536870910"));
}

TEST_F(SqliteTypes, without_a_row_a_column_without_a_type_is_a_long_text) {
    make("CREATE TABLE t (a, b INTEGER)");
    EXPECT_THAT(fields(*open("t")), ElementsAre("a 203 536870910", "b 3 4"));
    EXPECT_THAT(fields(*open("select count(*) as n from t")), ElementsAre("n 3 4"));
}

TEST_F(SqliteTypes, a_view_and_a_query_keep_the_types_of_their_columns) {
    make("CREATE TABLE t (a VARCHAR(7), d DATE); INSERT INTO t VALUES ('x', '2024-03-05');"
         "CREATE VIEW v AS SELECT d, a AS nome, a || 'y' AS zwei FROM t");
    const Texts expected{"d 133 6", "nome 202 7", "zwei 203 536870910"};
    EXPECT_EQ(fields(*open("v")), expected);
    EXPECT_EQ(fields(*open("select * from v order by 1")), expected);
    EXPECT_THAT(cells("v"), ElementsAre("Date 45356", "'x'", "'xy'"));
}

TEST_F(SqliteTypes, names_and_types_stay_at_the_end) {
    make("CREATE TABLE t (a INTEGER); INSERT INTO t VALUES (1)");
    auto records = open("t");
    records->MoveNext();
    EXPECT_TRUE(records->Eof());
    EXPECT_THAT(fields(*records), ElementsAre("a 3 4"));
}

} // namespace
} // namespace krv::providers
