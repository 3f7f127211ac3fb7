// The same table on every database, and the same list from it.

#include "providers/shown.h"
#include "providers/test_engines.h"
#include "support/errors.h"
#include "support/list_test.h"

#include <gmock/gmock.h>

namespace krv {
namespace {

using platform::Value;
using platform::ValueView;
using testing::connected;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::error_number_of;
using ::testing::IsEmpty;
using testing::suite_columns;
using testing::TestEngine;
using Texts = std::vector<std::string>;

constexpr std::int32_t bad_statement = -2147217900;
constexpr std::int32_t no_such_table = -2147217865;

const std::string hostile = "x'; DROP TABLE tipi; --\" \\ % _ ` ] ? $$";

class ProviderSuite : public testing::ListTest, public ::testing::WithParamInterface<TestEngine> {
protected:
    void SetUp() override {
        if (const std::string why = GetParam().why_missing(); !why.empty()) {
            GTEST_SKIP() << GetParam().name << ": " << why;
        }
        place(*access);
        connection = connected(*access, GetParam().connection_string());
        connection->Execute("DROP TABLE IF EXISTS tipi", {});
        std::string sql;
        for (std::size_t i = 0; i < suite_columns.size(); ++i) {
            sql += (sql.empty() ? "CREATE TABLE tipi (" : ", ") + suite_columns[i] + " " +
                   GetParam().types[i];
        }
        connection->Execute(sql + ")", {});
    }

    /// Adds a record of these values, by parameters; columns without a value are left out.
    void add(const std::map<std::string, Value>& values) {
        std::string names;
        std::string marks;
        std::vector<Value> parameters;
        for (const auto& [name, value] : values) {
            names += (names.empty() ? "" : ", ") + name;
            marks += marks.empty() ? "?" : ", ?";
            parameters.push_back(value);
        }
        const auto result = connection->Execute(
            "INSERT INTO tipi (" + names + ") VALUES (" + marks + ")", parameters);
        EXPECT_EQ(result.affected, 1);
    }

    static Value currency(std::int64_t ten_thousandths) {
        return Value(ValueView::currency({ten_thousandths}));
    }

    static Value decimal(std::uint64_t digits, std::uint8_t scale, bool negative = false) {
        return Value(ValueView::decimal(platform::Decimal{digits, 0, scale, negative}));
    }

    static Value long_long(std::int64_t value) { return Value(ValueView::long_long(value)); }

    static Value truth(bool value) { return Value(ValueView::boolean(value)); }

    static Value bytes(const std::string& value) {
        return Value(ValueView::bytes(std::as_bytes(std::span(value))));
    }

    void add_records() {
        using testing::date;
        using testing::null;
        using testing::real;
        using testing::text;
        using testing::whole;
        add({{"id", whole(1)},
             {"b", truth(true)},
             {"si", whole(12)},
             {"i", whole(1234)},
             {"bi", long_long(5000000000)},
             {"r", real(1.5)},
             {"f", real(0.1)},
             {"m", currency(12345000)},
             {"n", decimal(1234567891, 2)},
             {"d", date(45356)},
             {"ts", date(45356.588298611111)},
             {"tm", date(0.25)},
             {"v", text("città 😀 日本")},
             {"c", text("ab")},
             {"tx", text("lungo")},
             {"g", text("00112233-4455-6677-8899-aabbccddeeff")}});
        add({{"id", whole(2)},
             {"b", truth(true)},
             {"si", whole(32767)},
             {"i", whole(2147483647)},
             {"bi", long_long(INT64_MAX)},
             {"r", real(3e38)},
             {"f", real(1.7e308)},
             {"m", currency(12345678901200)},
             {"n", decimal(9999999999999999999U, 3)},
             {"d", date(2958465)},
             {"ts", date(2958465.9999884259)}});
        add({{"id", whole(3)},
             {"b", truth(false)},
             {"si", whole(-32768)},
             {"i", whole(INT32_MIN)},
             {"bi", long_long(INT64_MIN)},
             {"r", real(-3e38)},
             {"f", real(-2.2250738585072014e-308)},
             {"m", currency(-12345678901200)},
             {"n", decimal(12345, 4, true)},
             {"d", date(-657434)},
             {"ts", date(-1.75)},
             {"tm", date(0)}});
        add({{"id", whole(4)}, {"tx", null()}, {"d", null()}, {"bl", null()}, {"g", null()}});
        add({{"id", whole(5)}, {"v", text("")}, {"c", text("")}, {"tx", text("")}});
        add({{"id", whole(6)},
             {"d", date(1132419)},
             {"ts", date(1132419.5)},
             {"v", text(hostile)},
             {"tx", text(hostile)}});
    }

    /// Every cell of a list that shows the table, row by row.
    std::vector<Texts> list_rows() {
        list().SetAutoAdd(false);
        list().SetConnect(GetParam().connection_string());
        list().SetRecordsource("SELECT * FROM tipi ORDER BY id");
        const auto count = static_cast<std::int32_t>(suite_columns.size()) - 1; // without bytes
        list().SetCols(static_cast<std::int16_t>(count));
        for (std::int32_t col = 0; col < count; ++col) {
            list().SetColDataField(col, suite_columns[static_cast<std::size_t>(col)]);
        }
        list().Refresh();
        std::vector<Texts> rows(static_cast<std::size_t>(list().Rows()));
        for (std::int32_t row = 0; row < list().Rows(); ++row) {
            for (std::int32_t col = 0; col < count; ++col) {
                rows[static_cast<std::size_t>(row)].push_back(list().TextMatrix(row, col));
            }
        }
        return rows;
    }

    std::vector<Texts> expected_rows() const {
        std::vector<Texts> rows = {
            {"1",
             "True",
             "12",
             "1234",
             "5000000000",
             "1,5",
             "0,1",
             "1234,5",
             "12345678,91",
             "05/03/2024",
             "05/03/2024 14:07:09",
             "06:00:00",
             "città 😀 日本",
             "ab",
             "lungo",
             "{00112233-4455-6677-8899-AABBCCDDEEFF}"},
            {"2",
             "True",
             "32767",
             "2147483647",
             "9223372036854775807",
             "3E+38",
             "1,7E+308",
             "1234567890,12",
             "9999999999999999,999",
             "31/12/9999",
             "31/12/9999 23:59:59",
             "",
             "",
             "",
             "",
             ""},
            {"3",
             "False",
             "-32768",
             "-2147483648",
             "-9223372036854775808",
             "-3E+38",
             "-2,2250738585072E-308",
             "-1234567890,12",
             "-1,2345",
             "01/01/0100",
             "29/12/1899 18:00:00",
             "00:00:00",
             "",
             "",
             "",
             ""},
            {"4", "", "", "", "", "", "", "", "", "", "", "", "", "", "", ""},
            {"5", "", "", "", "", "", "", "", "", "", "", "", "", "", "", ""},
            {"6",
             "",
             "",
             "",
             "",
             "",
             "",
             "",
             "",
             "15/06/5000",
             "15/06/5000 12:00:00",
             "",
             hostile,
             "",
             hostile,
             ""}};
        for (Texts& row : rows) {
            for (std::size_t col = 0; col < row.size(); ++col) {
                const auto other = GetParam().differences.find(row[0] + " " + suite_columns[col]);
                if (other != GetParam().differences.end()) {
                    row[col] = other->second;
                }
            }
        }
        return rows;
    }

    std::shared_ptr<platform::Recordset> open(const std::string& source,
                                              std::int32_t options = -1) {
        auto records = access->CreateRecordset();
        records->Open(source, connection, 2, 2, options);
        return records;
    }

    std::int32_t source_error(const std::string& source, std::int32_t options = -1) {
        return error_number_of([&] { open(source, options); });
    }

    /// Values of the first column.
    Texts values(const std::string& source) {
        Texts result;
        auto records = open(source);
        for (; !records->Eof(); records->MoveNext()) {
            result.push_back(providers::shown(records->Fields().Item(0).Value()));
        }
        return result;
    }

    std::shared_ptr<platform::DataAccess> access = testing::full_data_access();
    std::shared_ptr<platform::Connection> connection;
};

TEST_P(ProviderSuite, a_list_shows_the_same_texts) {
    add_records();
    const auto rows = list_rows();
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(rows, ElementsAreArray(expected_rows()));
}

TEST_P(ProviderSuite, columns_have_the_types_of_their_engine) {
    const auto records = open("tipi");
    std::vector<int> codes;
    Texts names;
    for (std::int32_t i = 0; i < records->Fields().Count(); ++i) {
        codes.push_back(records->Fields().Item(i).Type());
        names.emplace_back(records->Fields().Item(i).Name());
    }
    EXPECT_THAT(names, ElementsAreArray(suite_columns));
    EXPECT_THAT(codes, ElementsAreArray(GetParam().codes));
    EXPECT_EQ(records->Fields().Item("v").DefinedSize(), 40);
    EXPECT_EQ(records->Fields().Item("c").DefinedSize(), 5);
    EXPECT_EQ(records->Fields().Item("bi").DefinedSize(), 8);
    EXPECT_GT(records->Fields().Item("tx").DefinedSize(), 32767);
}

TEST_P(ProviderSuite, Null_is_not_the_empty_text) {
    add({{"id", testing::whole(1)}, {"v", testing::text("")}, {"tx", testing::text("")}});
    add({{"id", testing::whole(2)}});
    EXPECT_THAT(values("SELECT v FROM tipi ORDER BY id"), ElementsAre("''", "Null"));
    EXPECT_THAT(values("SELECT tx FROM tipi ORDER BY id"), ElementsAre("''", "Null"));
    EXPECT_THAT(values("SELECT bl FROM tipi ORDER BY id"), ElementsAre("Null", "Null"));
}

TEST_P(ProviderSuite, long_texts_and_bytes_come_whole) {
    std::string text;
    for (int i = 0; i < 20000; ++i) {
        text += "aà😀";
    }
    std::string blob(100000, '\0');
    for (std::size_t i = 0; i < blob.size(); ++i) {
        blob[i] = static_cast<char>(i * 7);
    }
    for (std::int32_t id = 1; id <= 3; ++id) {
        const auto size = static_cast<std::size_t>(id);
        add({{"id", testing::whole(id)},
             {"tx", id == 2 ? Value::text("kurz") : Value::text(text.substr(0, 7 * 900 * size))},
             {"bl", bytes(blob.substr(0, 30000 * size))}});
    }
    auto records = open("SELECT tx, bl, id FROM tipi ORDER BY id");
    for (std::int32_t id = 1; id <= 3; ++id, records->MoveNext()) {
        ASSERT_FALSE(records->Eof());
        const auto size = static_cast<std::size_t>(id);
        EXPECT_EQ(records->Fields().Item("id").Value().as_whole(), id);
        const auto read = records->Fields().Item("bl").Value().as_bytes();
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(read.data()), read.size()),
                  blob.substr(0, 30000 * size));
        EXPECT_EQ(records->Fields().Item("tx").Value().as_text(),
                  id == 2 ? "kurz" : text.substr(0, 7 * 900 * size));
        // A value that is asked for again is the same.
        EXPECT_EQ(records->Fields().Item("tx").Value().as_text().size(),
                  id == 2 ? 4U : 7 * 900 * size);
    }
    EXPECT_TRUE(records->Eof());
}

TEST_P(ProviderSuite, texts_around_the_size_of_a_block_come_whole) {
    std::int32_t id = 0;
    for (const std::size_t size :
         {1U, 126U, 127U, 128U, 254U, 255U, 256U, 257U, 511U, 512U, 513U}) {
        std::string text(size, 'x');
        text += "😀";
        add({{"id", testing::whole(++id)}, {"tx", Value::text(text)}, {"bl", bytes(text)}});
        auto records = open("SELECT tx, bl FROM tipi WHERE id = " + std::to_string(id));
        EXPECT_EQ(records->Fields().Item("tx").Value().as_text(), text);
        EXPECT_EQ(records->Fields().Item("bl").Value().as_bytes().size(), text.size());
    }
}

TEST_P(ProviderSuite, a_table_is_found_by_its_name_in_any_case_and_quotes) {
    add({{"id", testing::whole(7)}});
    EXPECT_THAT(values("tipi"), ElementsAre("Long 7"));
    EXPECT_THAT(values(" TIPI ; "), ElementsAre("Long 7"));
    EXPECT_THAT(values("[tipi]"), ElementsAre("Long 7"));
    EXPECT_THAT(values("\"tipi\""), ElementsAre("Long 7"));
    EXPECT_THAT(values("`tipi`"), ElementsAre("Long 7"));
    EXPECT_EQ(source_error("tip_"), no_such_table);
    EXPECT_EQ(source_error("t%"), bad_statement);
    EXPECT_EQ(source_error("manca"), no_such_table);
    EXPECT_EQ(source_error("[tipi"), bad_statement);
}

TEST_P(ProviderSuite, bad_statements_have_their_numbers) {
    EXPECT_EQ(source_error("SELECT * FROM manca"), no_such_table);
    EXPECT_EQ(source_error("SELECT FROM WHERE"), bad_statement);
    EXPECT_EQ(source_error("SELECT manca FROM tipi"), bad_statement);
    EXPECT_EQ(source_error("SELECT 1; SELECT 2"), bad_statement);
    EXPECT_EQ(source_error(" "), bad_statement);
    EXPECT_EQ(source_error("SELECT id FROM tipi WHERE id = ?"), bad_statement);
    EXPECT_EQ(error_number_of([&] { connection->Execute("SELEC", {}); }), bad_statement);
    EXPECT_EQ(error_number_of([&] { connection->Execute("DELETE FROM manca", {}); }),
              no_such_table);
    const Value one[] = {testing::whole(1)};
    EXPECT_EQ(error_number_of([&] { connection->Execute("DELETE FROM tipi", one); }), 3001);
    // The connection serves on.
    EXPECT_THAT(values("SELECT id FROM tipi"), IsEmpty());
}

TEST_P(ProviderSuite, a_recordset_at_its_end_keeps_its_fields_and_blocks_nobody) {
    add({{"id", testing::whole(1)}});
    auto records = open("tipi");
    records->MoveNext();
    EXPECT_TRUE(records->Eof());
    EXPECT_EQ(records->Fields().Count(), 17);
    testing::run(GetParam().connection_string(), "DELETE FROM tipi");
    testing::run(GetParam().connection_string(), "DROP TABLE tipi");
    EXPECT_TRUE(records->Eof());
}

TEST_P(ProviderSuite, PostgreSQL_has_no_transaction_open_behind_the_last_row) {
    if (GetParam().name != "Postgresql") {
        GTEST_SKIP() << "asks PostgreSQL what its sessions do";
    }
    add({{"id", testing::whole(1)}});
    const std::string sessions = "SELECT state FROM pg_stat_activity WHERE query NOT LIKE "
                                 "'%pg_stat_activity%' AND backend_type = 'client backend'";
    const auto others = [&] { return testing::texts(GetParam().connection_string(), sessions); };
    auto records = open("tipi");
    EXPECT_THAT(others(), ElementsAre("'idle in transaction'"));
    records->MoveNext();
    EXPECT_TRUE(records->Eof());
    EXPECT_THAT(others(), ElementsAre("'idle'"));
    EXPECT_EQ(source_error("SELECT 1/0"), -2147467259);
    EXPECT_THAT(others(), ElementsAre("'idle'"));
    records = open("tipi");
    records->Close();
    EXPECT_THAT(others(), ElementsAre("'idle'"));
}

TEST_P(ProviderSuite, a_half_read_recordset_lets_the_connection_do_other_things) {
    connection->BeginTrans();
    for (std::int32_t id = 1; id <= 700; ++id) {
        connection->Execute("INSERT INTO tipi (id, v) VALUES (" + std::to_string(id) + ", 'x')",
                            {});
    }
    connection->CommitTrans();
    auto records = open("SELECT id, v FROM tipi ORDER BY id");
    records->MoveNext();
    const auto text = records->Fields().Item("v").Value().as_text();
    connection->Execute("UPDATE tipi SET v = 'y' WHERE id = 1", {});
    auto other = open("SELECT id FROM tipi ORDER BY id");
    EXPECT_EQ(other->Fields().Item(0).Value().as_whole(), 1);
    EXPECT_EQ(text, "x");
    std::int64_t sum = 0;
    for (; !records->Eof(); records->MoveNext()) {
        sum += records->Fields().Item(0).Value().as_whole();
    }
    EXPECT_EQ(sum, 700 * 701 / 2 - 1);
    other->MoveNext();
    EXPECT_EQ(other->Fields().Item(0).Value().as_whole(), 2);
}

TEST_P(ProviderSuite, transactions_commit_and_roll_back) {
    connection->BeginTrans();
    add({{"id", testing::whole(1)}});
    EXPECT_THAT(values("SELECT id FROM tipi"), ElementsAre("Long 1"));
    connection->RollbackTrans();
    EXPECT_THAT(values("SELECT id FROM tipi"), IsEmpty());
    connection->BeginTrans();
    add({{"id", testing::whole(2)}});
    EXPECT_EQ(error_number_of([&] { connection->BeginTrans(); }), 3251);
    connection->CommitTrans();
    EXPECT_THAT(values("SELECT id FROM tipi"), ElementsAre("Long 2"));
    EXPECT_EQ(error_number_of([&] { connection->CommitTrans(); }), 3251);
    connection->BeginTrans();
    add({{"id", testing::whole(3)}});
    connection->Close();
    connection = connected(*access, GetParam().connection_string());
    EXPECT_THAT(values("SELECT id FROM tipi"), ElementsAre("Long 2"));
}

INSTANTIATE_TEST_SUITE_P(Every,
                         ProviderSuite,
                         ::testing::ValuesIn(testing::test_engines()),
                         [](const auto& param_info) { return param_info.param.name; });

} // namespace
} // namespace krv
