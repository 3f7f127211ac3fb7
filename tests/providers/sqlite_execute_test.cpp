#include "providers/sqlite_fixture.h"

#include <limits>

namespace krv::providers {
namespace {

using krv::testing::error_number_of;
using krv::testing::OtherProcess;
using platform::Value;
using platform::ValueView;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t bad_statement = -2147217900;

class SqliteExecute : public SqliteTest {
protected:
    SqliteExecute() {
        make("CREATE TABLE t (id INTEGER PRIMARY KEY, v)");
        connection = connect();
    }

    std::int64_t run(const std::string& sql, const std::vector<Value>& parameters = {}) {
        return connection->Execute(sql, parameters).affected;
    }

    std::int32_t error(const std::string& sql, const std::vector<Value>& parameters = {}) {
        return error_number_of([&] { run(sql, parameters); });
    }

    /// The value as SQLite stores it: its storage class and its literal.
    std::string stored(const Value& value) {
        run("DELETE FROM t");
        run("INSERT INTO t (v) VALUES (?)", {value});
        const auto records = open("select typeof(v) || ' ' || quote(v) from t", connection);
        return std::string(records->Fields().Item(0).Value().as_text());
    }

    Texts values() {
        auto records = open("select v from t order by id", connection);
        Texts result;
        for (; !records->Eof(); records->MoveNext()) {
            result.push_back(shown(records->Fields().Item(0).Value()));
        }
        return result;
    }

    std::shared_ptr<platform::Connection> connection;
};

TEST_F(SqliteExecute, it_tells_how_many_rows_were_changed) {
    EXPECT_EQ(run("INSERT INTO t (v) VALUES (1), (2), (3)"), 3);
    EXPECT_EQ(run("UPDATE t SET v = 5 WHERE v > 1"), 2);
    EXPECT_EQ(run("UPDATE t SET v = 5 WHERE v > 100"), 0);
    EXPECT_EQ(run("CREATE TABLE u (a)"), 0);
    EXPECT_EQ(run("DROP TABLE u"), 0);
    EXPECT_EQ(run("DELETE FROM t"), 3);
    EXPECT_EQ(run("PRAGMA user_version = 3"), 0);
}

TEST_F(SqliteExecute, whole_numbers_and_reals_are_bound_as_they_are) {
    EXPECT_EQ(stored(Value(ValueView::byte(255))), "integer 255");
    EXPECT_EQ(stored(Value(ValueView::integer(-7))), "integer -7");
    EXPECT_EQ(stored(Value(ValueView::long_integer(70000))), "integer 70000");
    EXPECT_EQ(stored(Value(ValueView::long_long(INT64_MIN))), "integer -9223372036854775808");
    EXPECT_EQ(stored(Value(ValueView::double_float(1.5))), "real 1.5");
    EXPECT_EQ(stored(Value(ValueView::single(0.25F))), "real 0.25");
}

TEST_F(SqliteExecute, True_is_1_Null_and_Empty_are_NULL) {
    EXPECT_EQ(stored(Value(ValueView::boolean(true))), "integer 1");
    EXPECT_EQ(stored(Value(ValueView::boolean(false))), "integer 0");
    EXPECT_EQ(stored(Value(ValueView::null())), "null NULL");
    EXPECT_EQ(stored(Value()), "null NULL");
}

TEST_F(SqliteExecute, texts_and_bytes_are_bound_whole) {
    EXPECT_EQ(stored(Value::text("l'età; DROP TABLE t")), "text 'l''età; DROP TABLE t'");
    EXPECT_EQ(stored(Value::text("")), "text ''");
    const std::byte bytes[] = {std::byte{0}, std::byte{255}};
    EXPECT_EQ(stored(Value(ValueView::bytes(bytes))), "blob X'00FF'");
    EXPECT_EQ(stored(Value(ValueView::bytes({}))), "blob X''");
    run("DELETE FROM t");
    run("INSERT INTO t (v) VALUES (?)", {Value::text(std::string("a\0b", 3))});
    EXPECT_THAT(values(), ElementsAre(std::string("'a\0b'", 5)));
}

TEST_F(SqliteExecute, amounts_lose_nothing) {
    const auto currency = [](std::int64_t value) {
        return Value(ValueView::currency(platform::Currency{value}));
    };
    EXPECT_EQ(stored(currency(12345000)), "real 1234.5");
    EXPECT_EQ(stored(currency(50000)), "integer 5");
    EXPECT_EQ(stored(currency(-1)), "real -0.0001");
    EXPECT_EQ(stored(currency(0)), "integer 0");
    EXPECT_EQ(stored(currency(INT64_MIN)), "text '-922337203685477.5808'");
    EXPECT_EQ(stored(currency(INT64_MAX)), "text '922337203685477.5807'");
}

TEST_F(SqliteExecute, decimals_lose_nothing) {
    const auto decimal = [](std::uint64_t low, std::uint32_t high, std::uint8_t scale, bool minus) {
        return Value(ValueView::decimal(platform::Decimal{low, high, scale, minus}));
    };
    EXPECT_EQ(stored(decimal(15, 0, 1, false)), "real 1.5");
    EXPECT_EQ(stored(decimal(1500, 0, 2, true)), "integer -15");
    EXPECT_EQ(stored(decimal(1, 0, 28, false)), "real 1.0e-28");
    EXPECT_EQ(stored(decimal(UINT64_MAX, UINT32_MAX, 0, false)),
              "text '79228162514264337593543950335'");
    EXPECT_EQ(stored(decimal(UINT64_MAX, UINT32_MAX, 28, true)),
              "text '-7.9228162514264337593543950335'");
}

TEST_F(SqliteExecute, dates_are_texts_that_are_read_back_the_same) {
    const auto date = [](double serial) { return Value(ValueView::date(platform::Date{serial})); };
    EXPECT_EQ(stored(date(45356)), "text '2024-03-05'");
    EXPECT_EQ(stored(date(45356.25)), "text '2024-03-05 06:00:00'");
    EXPECT_EQ(stored(date(0.5)), "text '1899-12-30 12:00:00'");
    EXPECT_EQ(stored(date(-1.75)), "text '1899-12-29 18:00:00'");
    EXPECT_EQ(stored(date(-657434)), "text '0100-01-01'");
    EXPECT_EQ(stored(date(45356.500005787035)), "text '2024-03-05 12:00:00.500'");
    EXPECT_EQ(stored(date(45355.9999999999)), "text '2024-03-05'");
    run("CREATE TABLE d (v DATETIME)");
    for (const double serial : {45356.25, -1.75, 0.5, -657434.0, 2958465.0}) {
        run("DELETE FROM d");
        run("INSERT INTO d VALUES (?)", {date(serial)});
        EXPECT_EQ(open("d", connection)->Fields().Item(0).Value().as_date().serial, serial);
    }
}

TEST_F(SqliteExecute, what_cannot_be_bound_is_13_and_runs_nothing) {
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (?)", {Value(std::make_shared<platform::Object>())}),
              13);
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (?)", {Value(ValueView::date({2958466}))}), 13);
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (?)", {Value(ValueView::date({-1e300}))}), 13);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (?)", {Value(ValueView::double_float(nan))}), 13);
    EXPECT_THAT(values(), IsEmpty());
}

TEST_F(SqliteExecute, a_wrong_number_of_parameters_is_3001_and_runs_nothing) {
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (?)"), 3001);
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (1)", {Value::text("x")}), 3001);
    EXPECT_THAT(values(), IsEmpty());
}

TEST_F(SqliteExecute, bad_SQL_and_a_second_statement_run_nothing) {
    EXPECT_EQ(error("INSRT INTO t"), bad_statement);
    EXPECT_EQ(error(""), bad_statement);
    EXPECT_EQ(error("INSERT INTO t (v) VALUES (1); DELETE FROM t"), bad_statement);
    EXPECT_EQ(error(std::string("INSERT INTO t (v) VALUES (1)\0;x", 31)), bad_statement);
    EXPECT_EQ(error("INSERT INTO manca VALUES (1)"), -2147217865);
    EXPECT_THAT(values(), IsEmpty());
}

TEST_F(SqliteExecute, a_broken_constraint_is_the_engines_failure) {
    run("INSERT INTO t VALUES (1, 'a')");
    try {
        run("INSERT INTO t VALUES (1, 'b')");
        FAIL();
    } catch (const standard::DataError& failure) {
        EXPECT_EQ(failure.number(), -2147467259);
        EXPECT_EQ(failure.native_code(), SQLITE_CONSTRAINT_PRIMARYKEY);
    }
    EXPECT_THAT(values(), ElementsAre("'a'"));
}

TEST_F(SqliteExecute, the_rows_of_a_SELECT_come_as_a_recordset) {
    run("INSERT INTO t VALUES (1, 'a'), (2, 'b')");
    const Value parameters[] = {Value(ValueView::long_integer(2))};
    const auto result = connection->Execute("SELECT v FROM t WHERE id = ?", parameters);
    EXPECT_EQ(result.affected, 0);
    ASSERT_NE(result.records, nullptr);
    EXPECT_EQ(shown(result.records->Fields().Item("v").Value()), "'b'");
    result.records->MoveNext();
    EXPECT_TRUE(result.records->Eof());
}

TEST_F(SqliteExecute, what_RETURNING_yields_is_there_and_everything_is_written) {
    auto result = connection->Execute("INSERT INTO t (v) VALUES ('a'), ('b') RETURNING id", {});
    EXPECT_EQ(result.affected, 2);
    ASSERT_NE(result.records, nullptr);
    EXPECT_THAT(fields(*result.records), ElementsAre("id 3 4"));
    EXPECT_EQ(shown(result.records->Fields().Item("id").Value()), "Long 1");
    OtherProcess(path()).run("BEGIN EXCLUSIVE; DELETE FROM t WHERE v = 'a'; COMMIT");
    result.records->MoveNext();
    EXPECT_EQ(shown(result.records->Fields().Item("id").Value()), "Long 2");
    result.records->MoveNext();
    EXPECT_TRUE(result.records->Eof());
    EXPECT_THAT(values(), ElementsAre("'b'"));
}

TEST_F(SqliteExecute, transactions_commit_and_roll_back) {
    connection->BeginTrans();
    run("INSERT INTO t (v) VALUES ('lost')");
    connection->RollbackTrans();
    EXPECT_THAT(values(), IsEmpty());
    connection->BeginTrans();
    run("INSERT INTO t (v) VALUES ('kept')");
    EXPECT_EQ(error_number_of([&] { connection->BeginTrans(); }), 3251);
    connection->CommitTrans();
    EXPECT_EQ(error_number_of([&] { connection->CommitTrans(); }), 3251);
    EXPECT_EQ(error_number_of([&] { connection->RollbackTrans(); }), 3251);
    EXPECT_THAT(values(), ElementsAre("'kept'"));
}

TEST_F(SqliteExecute, a_transaction_left_open_is_rolled_back_when_the_connection_closes) {
    connection->BeginTrans();
    run("INSERT INTO t (v) VALUES ('lost')");
    connection->Close();
    connection = connect();
    EXPECT_THAT(values(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(path("dati.db-journal")));
}

TEST_F(SqliteExecute, a_table_changed_while_a_recordset_is_at_its_end_leaves_its_fields) {
    run("INSERT INTO t VALUES (1, 'a')");
    auto records = open("t", connection);
    records->MoveNext();
    run("ALTER TABLE t ADD COLUMN w TEXT");
    EXPECT_THAT(fields(*records), ElementsAre("id 3 4", "v 203 536870910"));
    EXPECT_EQ(open("t", connection)->Fields().Count(), 3);
}

} // namespace
} // namespace krv::providers
