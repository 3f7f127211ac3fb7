#include "sql_translation.h"

#include "sql_tokens.h"

#include "krv/standard/data_error.h"
#include "support/errors.h"

#include <gtest/gtest.h>

namespace krv::jet_reader {
namespace {

std::string translated(const std::string& expression) {
    const std::string sql = translated_select("SELECT " + expression).sql;
    return sql.substr(std::string("SELECT ").size());
}

std::int32_t error_of(const std::string& sql) {
    return krv::testing::error_number_of([&] { translated_select(sql); });
}

TEST(SqlTokens, each_kind_is_told_apart) {
    using Kind = TokenKind;
    EXPECT_EQ(sql_tokens("a [b]]c] `d` \"e\"\"\" 'f''' 1.5E-3 .5 &H1F &HFFFF <= <> #1/1/1900# t!c"),
              (std::vector<Token>{{Kind::word, "a"},
                                  {Kind::name, "b]c"},
                                  {Kind::name, "d"},
                                  {Kind::text, "e\""},
                                  {Kind::text, "f'"},
                                  {Kind::number, "1.5E-3"},
                                  {Kind::number, ".5"},
                                  {Kind::number, "31"},
                                  {Kind::number, "-1"},
                                  {Kind::symbol, "<="},
                                  {Kind::symbol, "<>"},
                                  {Kind::date, "2"},
                                  {Kind::word, "t"},
                                  {Kind::symbol, "."},
                                  {Kind::word, "c"}}));
}

TEST(SqlTranslation, texts_stand_in_single_quotes_and_names_in_double_ones) {
    EXPECT_EQ(translated("\"it's \"\"x\"\"\" FROM t"), "'it''s \"x\"' FROM \"t\"");
    EXPECT_EQ(translated("[Order Details].[Unit \"Price\"]"),
              "\"Order Details\".\"Unit \"\"Price\"\"\"");
    EXPECT_EQ(translated("t!c, t.*"), "\"t\".\"c\" , \"t\".*");
}

TEST(SqlTranslation, what_stands_in_quotes_is_never_translated) {
    EXPECT_EQ(translated("'TOP 5 #1/1/2024# & True' AS [True], [Left]"),
              "'TOP 5 #1/1/2024# & True' AS \"True\" , \"Left\"");
}

TEST(SqlTranslation, top_becomes_a_limit_behind_its_own_select) {
    EXPECT_EQ(translated("TOP 3 a FROM t"), "\"a\" FROM \"t\" LIMIT 3");
    EXPECT_EQ(translated("DISTINCT TOP 3 a FROM (SELECT TOP 2 * FROM u) AS v;"),
              "DISTINCT \"a\" FROM (SELECT * FROM \"u\" LIMIT 2) AS \"v\" LIMIT 3");
    EXPECT_EQ(translated("DISTINCTROW a FROM t"), "\"a\" FROM \"t\"");
    EXPECT_EQ(translated("Top FROM t"), "\"Top\" FROM \"t\"");
}

TEST(SqlTranslation, true_and_false_are_numbers) {
    EXPECT_EQ(translated("a = True OR b = false"), "\"a\" = -1 OR \"b\" = 0");
    EXPECT_EQ(translated("True.a"), "\"True\".\"a\"");
}

TEST(SqlTranslation, dates_are_serials) {
    EXPECT_EQ(translated("#12/30/1899#"), "jet_date_literal(0)");
    EXPECT_EQ(translated("#1/31/2024 6:00 PM#"), "jet_date_literal(45322.75)");
    EXPECT_EQ(translated("#2024-01-31#"), "jet_date_literal(45322)");
    EXPECT_EQ(translated("#31/1/2024#"), "jet_date_literal(45322)");
    EXPECT_EQ(translated("#12:00#"), "jet_date_literal(0.5)");
}

TEST(SqlTranslation, a_division_never_rounds) {
    EXPECT_EQ(translated("1/2"), "1 * 1.0 / 2");
}

TEST(SqlTranslation, operators_of_Jet_become_calls_by_their_rank) {
    EXPECT_EQ(translated("2^3^a.b"), "jet_power(jet_power(2, 3), \"a\".\"b\")");
    EXPECT_EQ(translated("-2^-x"), "- jet_power(2, - \"x\")");
    EXPECT_EQ(translated("a*b\\c/d"), "jet_divide(\"a\" * \"b\", \"c\" * 1.0 / \"d\")");
    EXPECT_EQ(translated("a\\b Mod c\\d"),
              "jet_mod(jet_divide(\"a\", \"b\"), jet_divide(\"c\", \"d\"))");
    EXPECT_EQ(translated("1-a Mod -3+2"), "1 - jet_mod(\"a\", - 3) + 2");
    EXPECT_EQ(translated("a-1&b+2&'c'"), "jet_concat(jet_concat(\"a\" - 1, \"b\" + 2), 'c')");
    EXPECT_EQ(translated("f(a&b, (c)\\2)"), "f(jet_concat(\"a\", \"b\") , jet_divide((\"c\"), 2))");
    EXPECT_EQ(translated("a WHERE b & c = -d \\ 2"),
              "\"a\" WHERE jet_concat(\"b\", \"c\") = jet_divide(- \"d\", 2)");
}

TEST(SqlTranslation, functions_get_names_of_our_own) {
    EXPECT_EQ(translated("Left$(a, 2), MID(a, 1), Date(), Count(*), Sum(a)"),
              "jet_left(\"a\" , 2) , jet_mid(\"a\" , 1) , jet_date() , Count(*) , Sum(\"a\")");
    EXPECT_EQ(translated("a FROM t LEFT JOIN u ON t.a = u.a"),
              "\"a\" FROM \"t\" LEFT JOIN \"u\" ON \"t\".\"a\" = \"u\".\"a\"");
}

TEST(SqlTranslation, owner_access_is_dropped) {
    EXPECT_EQ(translated("a FROM t WITH OWNERACCESS OPTION;"), "\"a\" FROM \"t\"");
}

TEST(SqlTranslation, anything_but_one_select_is_refused) {
    constexpr std::int32_t bad = standard::data_error_number::bad_statement;
    for (const char* sql : {"",
                            ";",
                            "UPDATE t SET a = 1",
                            "(SELECT 1)",
                            "SELECT 1; DELETE FROM t",
                            "SELECT 'a",
                            "SELECT [a",
                            "SELECT #1/1/2024",
                            "SELECT #x#",
                            "SELECT (1",
                            "SELECT 1)",
                            "SELECT TOP 5 PERCENT a",
                            "SELECT TOP 1 a FROM t UNION SELECT b FROM u",
                            "SELECT \\ 2",
                            "SELECT 2 Mod",
                            "SELECT a & , b",
                            "SELECT &HFFFFFFFFF"}) {
        EXPECT_EQ(error_of(sql), bad) << sql;
    }
    EXPECT_EQ(error_of("SELECT " + std::string(10'000, '(')), bad);
    EXPECT_EQ(error_of("SELECT 1 ; ;"), 0);
}

} // namespace
} // namespace krv::jet_reader
