#include "providers/sqlite_fixture.h"

namespace krv::providers {
namespace {

using krv::testing::read_file;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::int32_t no_such_table = -2147217865;
constexpr std::int32_t bad_statement = -2147217900;

class SqliteSource : public SqliteTest {
protected:
    SqliteSource() { make("CREATE TABLE persone (id INTEGER); INSERT INTO persone VALUES (1)"); }

    void add(const std::string& sql) { make(sql); }
};

TEST_F(SqliteSource, a_table_is_found_by_its_bare_name_in_any_letter_case) {
    EXPECT_THAT(cells("persone"), ElementsAre("Long 1"));
    EXPECT_THAT(cells(" PERSONE ; "), ElementsAre("Long 1"));
    EXPECT_THAT(cells("[Persone]"), ElementsAre("Long 1"));
    EXPECT_THAT(cells("main.persone"), ElementsAre("Long 1"));
    EXPECT_THAT(cells("\"MAIN\".`persone`"), ElementsAre("Long 1"));
}

TEST_F(SqliteSource, blanks_keywords_and_capitals_beyond_ASCII_are_part_of_a_name) {
    add("CREATE TABLE \"Order Details\" (a); INSERT INTO \"Order Details\" VALUES ('d');"
        "CREATE TABLE \"order\" (a); INSERT INTO \"order\" VALUES ('o');"
        "CREATE TABLE Città (a); INSERT INTO Città VALUES ('c')");
    EXPECT_THAT(cells("Order Details"), ElementsAre("'d'"));
    EXPECT_THAT(cells("order details"), ElementsAre("'d'"));
    EXPECT_THAT(cells("order"), ElementsAre("'o'"));
    EXPECT_THAT(cells("CITTÀ"), ElementsAre("'c'"));
}

TEST_F(SqliteSource, an_exact_match_wins_and_of_several_others_none) {
    add("CREATE TABLE \"à\" (a); INSERT INTO \"à\" VALUES ('small');"
        "CREATE TABLE \"À\" (a); INSERT INTO \"À\" VALUES ('capital');"
        "CREATE TABLE \"èX\" (a); CREATE TABLE \"Èx\" (a)");
    EXPECT_THAT(cells("à"), ElementsAre("'small'"));
    EXPECT_THAT(cells("À"), ElementsAre("'capital'"));
    EXPECT_EQ(source_error("èx"), no_such_table);
}

TEST_F(SqliteSource, names_that_look_like_SQL_are_names) {
    const std::string hostile[] = {"x\"; DROP TABLE persone; --",
                                   "select 1",
                                   "a.b",
                                   "[a]",
                                   "a]b",
                                   "'quoted'",
                                   "`back`tick",
                                   "persone; DELETE FROM persone",
                                   "(select 1)",
                                   "%_",
                                   "/*"};
    for (const std::string& name : hostile) {
        std::string quoted;
        for (const char c : name) {
            quoted.append(c == '"' ? 2 : 1, c);
        }
        add("CREATE TABLE \"" + quoted + "\" (v TEXT); INSERT INTO \"" + quoted +
            "\" VALUES ('here')");
        EXPECT_THAT(cells(name), ElementsAre("'here'")) << name;
        EXPECT_THAT(cells("main.\"" + quoted + "\""), ElementsAre("'here'")) << name;
        EXPECT_THAT(cells("persone"), ElementsAre("Long 1")) << name;
    }
}

TEST_F(SqliteSource, a_missing_table_is_told_from_bad_SQL) {
    for (const char* source : {"manca", "[manca]", "\"manca manca\"", "select * from manca"}) {
        EXPECT_EQ(source_error(source), no_such_table) << source;
    }
    for (const char* source : {"",
                               " ",
                               ";",
                               "-- nothing",
                               "selec 1",
                               "select * form persone",
                               "select manca from persone",
                               "select 'open",
                               "manca manca"}) {
        EXPECT_EQ(source_error(source), bad_statement) << source;
    }
    EXPECT_EQ(source_error("select 1", 2), no_such_table);
    EXPECT_EQ(source_error("persone", 1), bad_statement);
}

TEST_F(SqliteSource, the_engines_text_and_code_come_with_the_error) {
    try {
        open("select * form persone");
        FAIL();
    } catch (const standard::DataError& error) {
        EXPECT_THAT(error.description(), HasSubstr("syntax error"));
        EXPECT_EQ(error.native_code(), SQLITE_ERROR);
        EXPECT_EQ(error.sql_state(), "");
        EXPECT_EQ(error.source(), "SQLite");
    }
}

TEST_F(SqliteSource, statements_that_read_are_read) {
    EXPECT_THAT(cells("select id + 1 from persone"), ElementsAre("Long 2"));
    EXPECT_THAT(cells("values(1)"), ElementsAre("Long 1"));
    EXPECT_THAT(cells("select 7 ; -- comment\n /* and more */ ;"), ElementsAre("Long 7"));
    EXPECT_THAT(cells("with recursive n(i) as (select 1 union all select i + 1 from n where i < 3)"
                      " select i from n"),
                ElementsAre("Long 1", "Long 2", "Long 3"));
    EXPECT_THAT(cells("select name from pragma_table_info('persone')"), ElementsAre("'id'"));
    EXPECT_THAT(cells("select [id] from `persone`"), ElementsAre("Long 1"));
    EXPECT_THAT(cells("select name from sqlite_master"), ElementsAre("'persone'"));
}

TEST_F(SqliteSource, a_pragma_that_would_run_inside_a_select_changes_nothing) {
    krv::testing::OtherProcess(path()).run(
        "CREATE TABLE cercata (a, b); INSERT INTO cercata VALUES (1, 2);"
        "CREATE INDEX per_a ON cercata (a); CREATE INDEX per_b ON cercata (b)");
    const auto before = read_file(path());
    for (const char* sql :
         {"SELECT * FROM pragma_optimize, (SELECT 1 FROM cercata WHERE a = 5 AND b = 3 LIMIT 1)",
          "SELECT (SELECT count(*) FROM cercata WHERE a = 5 AND b = 3) x, o.* FROM"
          " pragma_optimize o",
          "SELECT * FROM pragma_user_version"}) {
        EXPECT_EQ(source_error(sql), bad_statement) << sql;
    }
    EXPECT_EQ(read_file(path()), before);
}

TEST_F(SqliteSource, a_statement_that_acts_is_refused_and_does_nothing) {
    const std::string other = path("altro.db");
    const auto before = read_file(path());
    for (const std::string& sql : {
             std::string("DELETE FROM persone"),
             std::string("UPDATE persone SET id = 2"),
             std::string("INSERT INTO persone VALUES (2)"),
             std::string("INSERT INTO persone VALUES (2) RETURNING id"),
             std::string("WITH x AS (SELECT 1) DELETE FROM persone RETURNING id"),
             std::string("CREATE TABLE nuova (a)"),
             std::string("CREATE TABLE IF NOT EXISTS persone (a)"),
             std::string("CREATE TEMP TABLE nuova (a)"),
             std::string("DROP TABLE persone"),
             std::string("DROP TABLE IF EXISTS manca"),
             std::string("ALTER TABLE persone RENAME TO altre"),
             std::string("BEGIN"),
             std::string("BEGIN IMMEDIATE"),
             std::string("COMMIT"),
             std::string("ROLLBACK"),
             std::string("SAVEPOINT s"),
             std::string("VACUUM"),
             std::string("REINDEX"),
             std::string("ANALYZE"),
             "VACUUM INTO '" + other + "'",
             "ATTACH '" + other + "' AS altro",
             std::string("DETACH main"),
             std::string("PRAGMA user_version = 7"),
             std::string("PRAGMA user_version"),
             std::string("PRAGMA journal_mode = WAL"),
             std::string("PRAGMA journal_mode"),
             std::string("PRAGMA wal_checkpoint"),
             std::string("PRAGMA writable_schema = 1"),
             std::string("PRAGMA incremental_vacuum"),
             std::string("SELECT load_extension('" + other + "')"),
             std::string("SELECT fts3_tokenizer('x')"),
         }) {
        EXPECT_EQ(source_error(sql, 1), bad_statement) << sql;
        // A single word that may be a table's name is taken for one.
        const bool is_word = sql.find(' ') == std::string::npos;
        EXPECT_EQ(source_error(sql), is_word ? no_such_table : bad_statement) << sql;
    }
    EXPECT_EQ(read_file(path()), before);
    EXPECT_FALSE(std::filesystem::exists(other));
}

TEST_F(SqliteSource, a_second_statement_is_refused_before_the_first_runs) {
    for (const char* sql : {"select 1; delete from persone",
                            "select 1; select 2",
                            "select 1;/* */ drop table persone",
                            "select 1;x"}) {
        EXPECT_EQ(source_error(sql), bad_statement) << sql;
    }
    EXPECT_THAT(cells("persone"), ElementsAre("Long 1"));
}

TEST_F(SqliteSource, a_refused_statement_leaves_the_connection_usable_and_outside_a_transaction) {
    const auto connection = connect();
    EXPECT_EQ(krv::testing::error_number_of([&] { open("BEGIN", connection, 1); }), bad_statement);
    connection->BeginTrans();
    connection->RollbackTrans();
    EXPECT_EQ(open("persone", connection)->Fields().Count(), 1);
}

TEST_F(SqliteSource, parameters_and_double_quoted_texts_are_refused) {
    EXPECT_EQ(source_error("select ?"), bad_statement);
    EXPECT_EQ(source_error("select * from persone where id = :id"), bad_statement);
    EXPECT_EQ(source_error("select \"no column\" from persone"), bad_statement);
}

TEST_F(SqliteSource, virtual_tables_can_be_read) {
    add("CREATE VIRTUAL TABLE r USING rtree(id, x0, x1); INSERT INTO r VALUES (1, 2, 3);"
        "CREATE VIRTUAL TABLE f USING fts5(body); INSERT INTO f VALUES ('una nota')");
    EXPECT_THAT(cells("select id from r"), ElementsAre("Long 1"));
    EXPECT_THAT(cells("f"), ElementsAre("'una nota'"));
    EXPECT_THAT(cells("select body from f where f match 'nota'"), ElementsAre("'una nota'"));
}

TEST_F(SqliteSource, a_function_that_writes_is_refused) {
    add("CREATE VIRTUAL TABLE f4 USING fts4(body); INSERT INTO f4 VALUES ('una nota')");
    EXPECT_EQ(source_error("select optimize(f4) from f4"), bad_statement);
}

TEST_F(SqliteSource, a_table_without_rows_is_at_its_end_at_once) {
    add("CREATE TABLE vuota (id INTEGER, nome VARCHAR(50))");
    auto records = open("vuota");
    EXPECT_TRUE(records->Eof());
    EXPECT_THAT(fields(*records), ElementsAre("id 3 4", "nome 202 50"));
    EXPECT_THAT(cells("vuota"), IsEmpty());
}

TEST_F(SqliteSource, fields_are_found_by_name_and_equal_names_mean_the_first) {
    auto records = open("select 1 as a, 2 as b, 3 as A from persone");
    EXPECT_EQ(shown(records->Fields().Item("A").Value()), "Long 1");
    EXPECT_EQ(shown(records->Fields().Item("B").Value()), "Long 2");
}

} // namespace
} // namespace krv::providers
