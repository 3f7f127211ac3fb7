// Names and statements that mean harm, on every database.

#include "krv/standard/data_error.h"
#include "providers/shown.h"
#include "providers/test_engines.h"
#include "support/errors.h"

#include <gmock/gmock.h>

namespace krv {
namespace {

using testing::connected;
using testing::TestEngine;
using Texts = std::vector<std::string>;

class Hostile : public ::testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override {
        if (const std::string why = GetParam().why_missing(); !why.empty()) {
            GTEST_SKIP() << GetParam().name << ": " << why;
        }
        connection = connected(*access, GetParam().connection_string());
        if (GetParam().name == "Mariadb") { // faster by far
            connection->Execute("SET SESSION default_storage_engine = MEMORY", {});
        } else if (GetParam().name.starts_with("Sqlite")) {
            connection->Execute("PRAGMA synchronous = OFF", {});
        }
        for (const char* sql : {"DROP TABLE IF EXISTS canary",
                                "CREATE TABLE canary (id INTEGER PRIMARY KEY, v VARCHAR(20))",
                                "INSERT INTO canary VALUES (1, 'canta')"}) {
            connection->Execute(sql, {});
        }
    }

    std::string quoted(const std::string& name) const {
        std::string result(1, GetParam().quote);
        for (const char c : name) {
            result.append(c == GetParam().quote ? 2 : 1, c);
        }
        return result + GetParam().quote;
    }

    /// SQLite's driver takes what stands before a dot for the table's name.
    std::string shown_name(const std::string& name) const {
        const bool is_cut = GetParam().name == "SqliteOverOdbc";
        const std::size_t dot = is_cut ? name.find('.') : std::string::npos;
        return dot == std::string::npos ? name : name.substr(dot + 1);
    }

    void expect_canary() {
        EXPECT_THAT(
            testing::texts(GetParam().connection_string(), "SELECT v FROM canary ORDER BY id"),
            ::testing::ElementsAre("'canta'"));
    }

    /// The one value of a source, or the error's number.
    std::string opened(const std::string& source, std::int32_t options = -1) {
        auto records = access->CreateRecordset();
        try {
            records->Open(source, connection, 2, 2, options);
            std::string result =
                records->Eof() ? "empty" : providers::shown(records->Fields().Item(0).Value());
            result += " ";
            result += records->Fields().Item(0).Name();
            return result;
        } catch (const platform::RuntimeError& error) {
            return std::to_string(error.number());
        }
    }

    std::shared_ptr<platform::DataAccess> access = testing::full_data_access();
    std::shared_ptr<platform::Connection> connection;
};

/// Every pair of a beginning and an end that some engine or driver might take for its own.
Texts hostile_names() {
    const Texts parts = {"\"",  "'",  "`", "]", "[", ";",   "--",  "/*", "\\", "?",
                         "{d ", "$$", "%", "_", ".", "a\t", "a\n", "#",  "é",  "😀"};
    Texts names;
    for (const std::string& first : parts) {
        for (const std::string& second : Texts{"x",
                                               "\"; DROP TABLE canary; --",
                                               "'; DROP TABLE canary; --",
                                               "` DROP TABLE canary",
                                               "] DROP TABLE canary",
                                               "\\\" x",
                                               "\\' x",
                                               "}x{",
                                               "''",
                                               "\"\""}) {
            names.push_back(first + second);
        }
    }
    return names;
}

TEST_P(Hostile, two_hundred_names_are_opened_as_tables_or_refused) {
    const Texts names = hostile_names();
    ASSERT_EQ(names.size(), 200U);
    int made = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        const auto create =
            "CREATE TABLE " + quoted(name) + " (" + quoted("c" + name) + " INTEGER)";
        const auto insert = "INSERT INTO " + quoted(name) + " VALUES (" + std::to_string(i) + ")";
        try {
            connection->Execute(create, {});
            connection->Execute(insert, {});
        } catch (const platform::RuntimeError&) {
            // The engine or its driver does not take such a name, even in quotes.
            const std::string refused = opened(name, platform::ado::command_table);
            EXPECT_TRUE(refused.starts_with("-") || refused.starts_with("empty")) << refused;
            continue;
        }
        ++made;
        const std::string value = opened(name, platform::ado::command_table);
        EXPECT_EQ(value, "Long " + std::to_string(i) + " " + shown_name("c" + name)) << name;
        const std::string by_search = opened(name);
        EXPECT_TRUE(by_search == value || by_search.starts_with("-")) << name << ": " << by_search;
        try {
            connection->Execute("DROP TABLE " + quoted(name), {});
        } catch (const platform::RuntimeError& error) {
            ADD_FAILURE() << name << ": " << error.description();
        }
    }
    EXPECT_GT(made, 100);
    expect_canary();
}

TEST_P(Hostile, names_that_are_no_tables_are_refused) {
    for (const std::string& name : hostile_names()) {
        const std::string result = opened(name, platform::ado::command_table);
        EXPECT_EQ(result, "-2147217865") << name;
        const std::string searched = opened(name);
        EXPECT_TRUE(searched.starts_with("-")) << name << ": " << searched;
    }
    expect_canary();
}

/// A hundred statements that would write, on some engine at least.
Texts writing_statements() {
    const Texts acts = {"DELETE FROM canary",
                        "UPDATE canary SET v = 'muta'",
                        "INSERT INTO canary VALUES (2, 'due')",
                        "DROP TABLE canary",
                        "CREATE TABLE nuova (id INTEGER)",
                        "ALTER TABLE canary ADD COLUMN w INTEGER",
                        "TRUNCATE TABLE canary",
                        "DELETE FROM canary RETURNING id",
                        "INSERT INTO canary VALUES (3, 'tre') RETURNING id",
                        "REPLACE INTO canary VALUES (1, 'altra')",
                        "CREATE VIEW vista AS SELECT 1",
                        "ALTER TABLE canary RENAME TO muta"};
    const Texts frames = {"@",
                          "@;",
                          "SELECT 1; @",
                          " /* SELECT */ @",
                          "-- SELECT\n@",
                          "WITH x AS (SELECT 1) @",
                          "EXPLAIN ANALYZE @",
                          "SELECT 'a\\'; @; --'; @"};
    Texts statements;
    for (const std::string& frame : frames) {
        for (const std::string& act : acts) {
            std::string text = frame;
            for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@')) {
                text.replace(at, 1, act);
            }
            statements.push_back(text);
        }
    }
    for (const char* own : {"WITH x AS (DELETE FROM canary RETURNING *) SELECT * FROM x",
                            "SELECT * INTO nuova FROM canary",
                            "SELECT v FROM canary INTO OUTFILE '/tmp/krv_canary'",
                            "CREATE TABLE nuova AS SELECT * FROM canary",
                            "SELECT setval('s', 5)",
                            "PRAGMA user_version = 7",
                            "/*! DELETE FROM canary */",
                            "SELECT 1 /*! INTO OUTFILE '/tmp/krv_canary' */",
                            "DO $$ BEGIN DELETE FROM canary; END $$",
                            "CALL muta()",
                            "EXECUTE IMMEDIATE 'DELETE FROM canary'",
                            "{call muta()}",
                            "SELECT muta()",
                            "SELECT v FROM canary FOR UPDATE",
                            "COMMIT; DELETE FROM canary",
                            "BEGIN"}) {
        statements.emplace_back(own);
    }
    return statements;
}

TEST_P(Hostile, statements_that_would_write_change_nothing) {
    if (GetParam().name == "Postgresql") {
        connection->Execute("CREATE OR REPLACE FUNCTION muta() RETURNS integer LANGUAGE SQL AS "
                            "$$ DELETE FROM canary; SELECT 1 $$",
                            {});
    } else if (GetParam().name == "Mariadb") {
        connection->Execute("DROP FUNCTION IF EXISTS muta", {});
        connection->Execute("CREATE FUNCTION muta() RETURNS INTEGER MODIFIES SQL DATA "
                            "BEGIN DELETE FROM canary; RETURN 1; END",
                            {});
    }
    Texts statements = writing_statements();
    if (GetParam().name != "Mariadb") { // a comment to the others
        std::erase(statements, "SELECT 1 /*! INTO OUTFILE '/tmp/krv_canary' */");
    }
    EXPECT_GE(statements.size(), 100U);
    for (const std::string& statement : statements) {
        for (const std::int32_t options : {-1, 1}) {
            const std::string result = opened(statement, options);
            EXPECT_TRUE(result.starts_with("-")) << statement << ": " << result;
        }
    }
    expect_canary();
    EXPECT_EQ(opened("nuova"), "-2147217865");
    EXPECT_EQ(opened("vista"), "-2147217865");
    EXPECT_EQ(opened("muta"), "-2147217865");
    // The host itself may write on the same connection.
    connection->Execute("UPDATE canary SET v = 'canta' WHERE id = 1", {});
}

TEST_P(Hostile, a_text_of_a_hundred_kilobytes_is_refused) {
    const std::string long_name(100000, 'x');
    EXPECT_EQ(opened(long_name), "-2147217865");
    EXPECT_EQ(opened(long_name, platform::ado::command_table), "-2147217865");
    EXPECT_TRUE(opened("SELECT " + long_name).starts_with("-"));
    EXPECT_EQ(opened(std::string("can\0ary", 7)), "-2147217900");
    expect_canary();
}

TEST_P(Hostile, text_in_a_wrong_encoding_is_repaired_or_refused) {
    EXPECT_TRUE(opened("SELECT v FROM canary WHERE v = '\xFF\xC3'").starts_with("empty"));
    EXPECT_EQ(opened("\xFF\xC3"), "-2147217865");
}

INSTANTIATE_TEST_SUITE_P(Every,
                         Hostile,
                         ::testing::ValuesIn(testing::test_engines()),
                         [](const auto& param_info) { return param_info.param.name; });

} // namespace
} // namespace krv
