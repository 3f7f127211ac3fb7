#include "providers/sqlite_fixture.h"

namespace krv::providers {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;

using SqliteValues = SqliteTest;

TEST_F(SqliteValues, Null_is_Null_in_a_column_of_every_type) {
    for (const char* declared : {"",
                                 "INTEGER",
                                 "BOOLEAN",
                                 "BYTE",
                                 "SMALLINT",
                                 "BIGINT",
                                 "SINGLE",
                                 "REAL",
                                 "CURRENCY",
                                 "DECIMAL",
                                 "DATE",
                                 "TIME",
                                 "DATETIME",
                                 "CHAR(5)",
                                 "VARCHAR(5)",
                                 "TEXT",
                                 "BLOB",
                                 "GUID"}) {
        EXPECT_THAT(column(declared, {"NULL"}), ElementsAre("Null")) << declared;
    }
}

TEST_F(SqliteValues, texts_are_neither_trimmed_nor_taken_for_Null) {
    EXPECT_THAT(column("VARCHAR(50)", {"''", "' a '", "'città'"}),
                ElementsAre("''", "' a '", "'città'"));
}

TEST_F(SqliteValues, whole_numbers_have_the_width_of_their_column_or_what_they_need) {
    EXPECT_THAT(column("BYTE", {"0", "255", "256", "-1"}),
                ElementsAre("Byte 0", "Byte 255", "Long 256", "Long -1"));
    EXPECT_THAT(column("TINYINT", {"-128", "200"}), ElementsAre("Integer -128", "Integer 200"));
    EXPECT_THAT(column("SMALLINT", {"-32768", "32767", "32768"}),
                ElementsAre("Integer -32768", "Integer 32767", "Long 32768"));
    EXPECT_THAT(column("INTEGER", {"-2147483648", "2147483647", "2147483648"}),
                ElementsAre("Long -2147483648", "Long 2147483647", "LongLong 2147483648"));
    EXPECT_THAT(
        column("BIGINT", {"1", "9223372036854775807", "-9223372036854775808"}),
        ElementsAre("LongLong 1", "LongLong 9223372036854775807", "LongLong -9223372036854775808"));
}

TEST_F(SqliteValues, reals_are_native) {
    EXPECT_THAT(
        column("REAL", {"1.5", "2", "0.1", "1e308"}),
        ElementsAre("Double 1.5", "Double 2", "Double 0.10000000000000001", "Double 1e+308"));
    EXPECT_THAT(
        column("SINGLE", {"0.1", "2", "1e300", "16777217"}),
        ElementsAre(
            "Single 0.100000001", "Single 2", "Double 1.0000000000000001e+300", "Long 16777217"));
    EXPECT_THAT(column("REAL", {"9e999", "-9e999"}), ElementsAre("Double inf", "Double -inf"));
}

TEST_F(SqliteValues, booleans_are_numbers_and_words) {
    EXPECT_THAT(column("BOOLEAN", {"1", "-1", "0", "'true'", "'T'", "'Yes'", "'y'", "'on'"}),
                ElementsAre("True", "True", "False", "True", "True", "True", "True", "True"));
    EXPECT_THAT(column("BIT", {"'FALSE'", "'f'", "'no'", "'N'", "'off'"}),
                AllOf(SizeIs(5), Each("False")));
    EXPECT_THAT(column("YESNO", {"2", "'vero'", "0.5", "x'01'"}),
                ElementsAre("Long 2", "'vero'", "Double 0.5", "bytes 1"));
}

TEST_F(SqliteValues, currency_is_exact) {
    EXPECT_THAT(column("CURRENCY", {"1234.5", "0", "-0.0001", "19.99", "1.00005", "1.00015"}),
                ElementsAre("Currency 12345000",
                            "Currency 0",
                            "Currency -1",
                            "Currency 199900",
                            "Currency 10000",
                            "Currency 10002"));
    EXPECT_THAT(column("MONEY", {"922337203685477", "922337203685478", "900000000000.1234"}),
                ElementsAre("Currency 9223372036854770000",
                            "LongLong 922337203685478",
                            "Currency 9000000000001234"));
    EXPECT_THAT(column("CURRENCY", {"'molto'", "1e300"}),
                ElementsAre("'molto'", "Double 1.0000000000000001e+300"));
}

TEST_F(SqliteValues, decimals_are_exact) {
    EXPECT_THAT(column("DECIMAL(10,2)", {"0.1", "-12.34", "7", "1234567.891", "0.000001", "0"}),
                ElementsAre("Decimal 0:1e-1",
                            "Decimal -0:1234e-2",
                            "Decimal 0:7e-0",
                            "Decimal 0:1234567891e-3",
                            "Decimal 0:1e-6",
                            "Decimal 0:0e-0"));
    EXPECT_THAT(column("NUMERIC", {"-9223372036854775808", "1e300", "'n/d'"}),
                ElementsAre("Decimal -0:9223372036854775808e-0",
                            "Double 1.0000000000000001e+300",
                            "'n/d'"));
}

TEST_F(SqliteValues, dates_are_read_from_texts) {
    EXPECT_THAT(column("DATE", {"'2024-03-05'", "'1899-12-30'", "'1899-12-31'"}),
                ElementsAre("Date 45356", "Date 0", "Date 1"));
    EXPECT_THAT(
        column("DATETIME",
               {"'2024-03-05 06:00'", "'2024-03-05T18:00:00'", "'2024-03-05 12:00:00.000'"}),
        ElementsAre("Date 45356.25", "Date 45356.75", "Date 45356.5"));
    EXPECT_THAT(column("DATETIME", {"'1970-01-01 00:00:00.125'"}),
                ElementsAre("Date 25569.000001446759"));
}

TEST_F(SqliteValues, before_1899_12_30_the_time_of_day_counts_forward_in_size) {
    EXPECT_THAT(column("DATETIME",
                       {"'1899-12-29 18:00'",
                        "'1899-12-29'",
                        "'1899-12-28 06:00'",
                        "'1899-12-29 23:59:59.999'"}),
                ElementsAre("Date -1.75", "Date -1", "Date -2.25", "Date -1.9999999884259259"));
}

TEST_F(SqliteValues, dates_reach_from_the_year_100_to_9999) {
    EXPECT_THAT(column("DATE", {"'0100-01-01'", "'9999-12-31'", "'0099-12-31'", "'0000-00-00'"}),
                ElementsAre("Date -657434", "Date 2958465", "'0099-12-31'", "'0000-00-00'"));
    EXPECT_THAT(column("DATETIME", {"'9999-12-31 23:59'", "'9999-12-31 23:59-01:00'"}),
                ElementsAre("Date 2958465.9993055556", "'9999-12-31 23:59-01:00'"));
}

TEST_F(SqliteValues, an_offset_takes_the_time_to_UTC) {
    EXPECT_THAT(
        column("TIMESTAMP",
               {"'2024-03-05 12:00Z'",
                "'2024-03-05 12:00:00+06:00'",
                "'2024-03-05 18:00 -06:00'",
                "'1899-12-30 05:00+06:00'"}),
        ElementsAre("Date 45356.5", "Date 45356.25", "Date 45357", "Date -1.9583333333333335"));
}

TEST_F(SqliteValues, texts_that_are_no_dates_stay_texts) {
    for (const char* text : {"2024-02-30",
                             "2024-13-01",
                             "2024-3-5",
                             "05/03/2024",
                             "2024-03-05 24:00",
                             "2024-03-05 12:60",
                             "2024-03-05 1:00",
                             "2024-03-05 12:00:00.",
                             "2024-03-05 12:00+6:00",
                             "2024-03-05x",
                             "2024-03-05 12:00 x",
                             "",
                             "12:00",
                             "-2024-03-05",
                             "infinity"}) {
        const std::string quoted = "'" + std::string(text) + "'";
        EXPECT_THAT(column("DATETIME", {quoted}), ElementsAre(quoted));
    }
}

TEST_F(SqliteValues, numbers_in_date_columns_are_Julian_days_or_seconds_since_1970) {
    EXPECT_THAT(column("DATE", {"2415018.5", "2415018.25", "2460374.5", "5373484.4"}),
                ElementsAre("Date 0", "Date -1.75", "Date 45356", "Date 2958465.8999999999"));
    EXPECT_THAT(column("DATETIME", {"5373485", "1709640000", "1709640000.5", "253402300799"}),
                ElementsAre("Date 25631.193113425925",
                            "Date 45356.5",
                            "Date 45356.500005787035",
                            "Date 2958465.999988426"));
    EXPECT_THAT(
        column("DATETIME", {"0", "-5", "253402300800", "1.5", "9e999"}),
        ElementsAre("Long 0", "Long -5", "LongLong 253402300800", "Double 1.5", "Double inf"));
}

TEST_F(SqliteValues, times_are_times_of_day_0) {
    EXPECT_THAT(column("TIME", {"'06:00'", "'18:00:00'", "'00:00'", "'23:59:59.5'"}),
                ElementsAre("Date 0.25", "Date 0.75", "Date 0", "Date 0.99999421296296298"));
    EXPECT_THAT(column("TIME", {"'24:00'", "'-838:59:59'", "'2024-03-05 12:00'"}),
                ElementsAre("'24:00'", "'-838:59:59'", "Date 45356.5"));
}

TEST_F(SqliteValues, the_last_instant_of_a_day_stays_a_date_of_that_day_or_begins_the_next) {
    EXPECT_THAT(column("DATETIME",
                       {"'9999-12-31 23:59:59.999999'",
                        "'1899-12-29 23:59:59.999999999999'",
                        "'1850-01-01 23:59:59.9999999'"}),
                ElementsAre("Date 2958465.9999999995", "Date 0", "Date -18259"));
}

TEST_F(SqliteValues, GUIDs_have_braces_hyphens_and_capitals) {
    EXPECT_THAT(column("GUID",
                       {"'00112233-4455-6677-8899-aabbccddeeff'",
                        "'{00112233-4455-6677-8899-AABBCCDDEEFF}'",
                        "'00112233445566778899aabbccddeeff'",
                        "x'00112233445566778899AABBCCDDEEFF'"}),
                AllOf(SizeIs(4), Each("'{00112233-4455-6677-8899-AABBCCDDEEFF}'")));
    EXPECT_THAT(column("UUID", {"'nessuno'", "'{0011}'", "x'0011'"}),
                ElementsAre("'nessuno'", "'{0011}'", "bytes 0 17"));
}

TEST_F(SqliteValues, binaries_are_bytes) {
    EXPECT_THAT(column("BLOB", {"x'00FF10'", "x''", "'testo'", "7"}),
                ElementsAre("bytes 0 255 16", "bytes", "'testo'", "Long 7"));
}

TEST_F(SqliteValues, a_value_that_its_column_cannot_mean_has_its_own_type) {
    EXPECT_THAT(column("INTEGER", {"'two'", "x'0102'", "1.5", "3"}),
                ElementsAre("'two'", "bytes 1 2", "Double 1.5", "Long 3"));
    EXPECT_THAT(column("", {"1", "'a'", "2.5", "x'01'", "5000000000"}),
                ElementsAre("Long 1", "'a'", "Double 2.5", "bytes 1", "LongLong 5000000000"));
}

TEST_F(SqliteValues, a_broken_sequence_becomes_one_replacement_character) {
    EXPECT_THAT(
        column("TEXT",
               {"CAST(x'61FF62' AS TEXT)", "CAST(x'E282' AS TEXT)", "CAST(x'EDA08078' AS TEXT)"}),
        ElementsAre("'a\uFFFDb'", "'\uFFFD'", "'\uFFFDx'"));
}

TEST_F(SqliteValues, a_NUL_inside_a_text_is_kept) {
    EXPECT_THAT(column("TEXT", {"'a' || char(0) || 'b'", "char(0)"}),
                ElementsAre(std::string("'a\0b'", 5), std::string("'\0'", 3)));
}

TEST_F(SqliteValues, a_database_in_UTF_16_reads_alike_lone_surrogates_replaced) {
    make("PRAGMA encoding = 'UTF-16le'; CREATE TABLE t (v TEXT, d DATE);"
         "INSERT INTO t VALUES ('città 😀' || char(0) || 'x', '2024-03-05');"
         "INSERT INTO t VALUES (CAST(x'3DD86100' AS TEXT), NULL);");
    EXPECT_THAT(cells("t"),
                ElementsAre(std::string("'città 😀\0x'", 15), "Date 45356", "'\uFFFDa'", "Null"));
}

TEST_F(SqliteValues, a_value_asked_for_again_is_the_same_view) {
    make("CREATE TABLE t (a TEXT, b DATE); INSERT INTO t VALUES ('uno', '2024-03-05'),"
         "('due', '2024-03-06')");
    auto records = open("t");
    const auto& a = records->Fields().Item("a");
    const char* first = a.Value().as_text().data();
    EXPECT_EQ(shown(records->Fields().Item("b").Value()), "Date 45356");
    EXPECT_EQ(a.Value().as_text().data(), first);
    records->MoveNext();
    EXPECT_EQ(shown(a.Value()), "'due'");
}

} // namespace
} // namespace krv::providers
