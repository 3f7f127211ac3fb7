#include "providers/odbc/statement_text.h"

#include "providers/odbc/money_text.h"
#include "support/errors.h"

#include <gmock/gmock.h>

#include <string>

namespace krv::providers::odbc {
namespace {

using krv::testing::error_number_of;

constexpr std::int32_t bad_statement = -2147217900;

std::int32_t error(const std::string& sql, Engine engine = Engine::other) {
    return error_number_of([&] { single_statement(sql, engine); });
}

TEST(SingleStatement, what_stands_behind_a_statement_is_cut) {
    EXPECT_EQ(single_statement("select 1", Engine::other), "select 1");
    EXPECT_EQ(single_statement("select 1 ; ", Engine::other), "select 1");
    EXPECT_EQ(single_statement("select ';' ; -- x; y\n;/* ; */", Engine::other), "select ';'");
    EXPECT_EQ(single_statement("select \"a;b\", `c;d`", Engine::other), "select \"a;b\", `c;d`");
    EXPECT_EQ(single_statement("select 'it''s; x'", Engine::other), "select 'it''s; x'");
}

TEST(SingleStatement, a_second_one_and_none_are_refused) {
    for (const char* text : {"select 1; select 2",
                             "select 1;;select 2",
                             "select '';select 2 --'",
                             "select 1 -- x\n; select 2",
                             "",
                             " ; ;",
                             "-- select 1",
                             "/* select 1 */"}) {
        EXPECT_EQ(error(text), bad_statement) << text;
    }
}

TEST(SingleStatement, quotes_and_comments_end_where_the_engine_ends_them) {
    EXPECT_EQ(error("select '\\'; delete from t; --'", Engine::mariadb), 0);
    EXPECT_EQ(error("select '\\'; delete from t; --'", Engine::postgresql), bad_statement);
    EXPECT_EQ(error("select E'\\'; delete from t; --'", Engine::postgresql), 0);
    EXPECT_EQ(error("select $$a;b$$", Engine::postgresql), 0);
    EXPECT_EQ(error("select $x$a;$$b$x$; x", Engine::postgresql), bad_statement);
    EXPECT_EQ(error("select $1;x", Engine::postgresql), bad_statement);
    EXPECT_EQ(error("select 1 /* /* */ ; */", Engine::postgresql), 0);
    EXPECT_EQ(error("select 1 /* /* */ ; x */", Engine::mariadb), bad_statement);
    EXPECT_EQ(error("select 1 # ; x", Engine::mariadb), 0);
    EXPECT_EQ(error("select 1 # ; x", Engine::postgresql), bad_statement);
    EXPECT_EQ(error("select 1--;x", Engine::mariadb), bad_statement);
    EXPECT_EQ(error("select 1--;x", Engine::postgresql), 0);
    EXPECT_EQ(error("select [a;b]", Engine::sqlite), 0);
    EXPECT_EQ(error("select [a;b]", Engine::postgresql), bad_statement);
}

TEST(SingleStatement, an_open_quote_or_comment_takes_the_rest) {
    EXPECT_EQ(error("select 'a; delete from t"), 0);
    EXPECT_EQ(error("select 1 /* a; delete from t"), 0);
    EXPECT_EQ(error("select $$a; delete from t", Engine::postgresql), 0);
    EXPECT_EQ(error("select 'a\\", Engine::mariadb), 0);
}

TEST(SingleStatement, a_trigger_with_statements_of_its_own_is_one) {
    const std::string trigger = "create trigger x after insert on t begin delete from u; end;";
    EXPECT_EQ(single_statement(trigger, Engine::sqlite), trigger);
    EXPECT_EQ(error("create table t (begin_day integer); drop table u"), bad_statement);
}

TEST(OnlyReads, by_the_word_it_begins_with) {
    for (const char* sql : {"select 1",
                            " ( SELECT 1)",
                            "/* x */ with a as (select 1) select * from a",
                            "values (1)",
                            "table t",
                            "show tables",
                            "explain select 1",
                            "select insert('a', 1, 1, 'b')",
                            "select t.delete, \"update\", `into` from t",
                            "select 'delete from t' -- update"}) {
        EXPECT_TRUE(only_reads(sql, Engine::mariadb)) << sql;
    }
    for (const char* sql : {"delete from t",
                            "insert into t values (1)",
                            "with a as (delete from t returning *) select * from a",
                            "with a as (select 1) update t set b = 1",
                            "select * into u from t",
                            "select 1 into outfile 'x'",
                            "select * from t for update",
                            "explain analyze delete from t",
                            "explain analyze select 1",
                            "pragma user_version = 1",
                            "call x()",
                            "{call x()}",
                            "\"select\" 1",
                            "selection",
                            "",
                            ";select 1",
                            "merge into t using u on 1 = 1",
                            "select 1 /*! into outfile 'x' */",
                            "/*!50000 delete from t */"}) {
        EXPECT_FALSE(only_reads(sql, Engine::mariadb)) << sql;
    }
}

TEST(MoneyText, amounts_are_exact_in_the_customs_of_their_servers) {
    const auto amount = [](const char* text) {
        const auto currency = currency_from_money_text(text);
        return currency ? currency->ten_thousandths : -1;
    };
    EXPECT_EQ(amount("$1,234.50"), 12345000);
    EXPECT_EQ(amount("-$1,234.50"), -12345000);
    EXPECT_EQ(amount("($1,234.50)"), -12345000);
    EXPECT_EQ(amount("1.234,50 \u20ac"), 12345000);
    EXPECT_EQ(amount("$92,233,720,368,547.75"), 922337203685477500);
    EXPECT_EQ(amount("-1 234,50"), -12345000);
    EXPECT_EQ(amount("5"), 50000);
    EXPECT_EQ(amount("1,234,567"), 12345670000);
}

TEST(MoneyText, what_could_mean_two_amounts_is_none) {
    EXPECT_FALSE(currency_from_money_text("\u00a51,234"));
    EXPECT_FALSE(currency_from_money_text("nothing"));
    EXPECT_FALSE(currency_from_money_text(""));
    EXPECT_FALSE(currency_from_money_text("1a2"));
    EXPECT_FALSE(currency_from_money_text("$99,233,720,368,547,758.08"));
}

} // namespace
} // namespace krv::providers::odbc
