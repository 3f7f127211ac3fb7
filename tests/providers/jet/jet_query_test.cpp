#include "jet_fixture.h"

namespace krv::providers {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class JetQueryTest : public JetTest {
protected:
    std::vector<Texts> select(const std::string& sql) { return rows(*connection->open_query(sql)); }

    /// The only row.
    Texts values(const std::string& expressions) { return select("SELECT " + expressions).at(0); }

    Texts select_fields(const std::string& sql) { return fields(*connection->open_query(sql)); }

    std::string error(const std::string& sql) {
        return error_of([&] { connection->open_query(sql); });
    }

    std::unique_ptr<standard::ProviderConnection> connection = open(sample());
};

TEST_F(JetQueryTest, columns_of_a_table_keep_their_types_and_values) {
    const auto cursor = connection->open_query("SELECT * FROM Tipi WHERE fByte = 127");
    EXPECT_EQ(fields(*cursor), fields(*connection->open_table({"Tipi"})));
    const auto found = rows(*cursor);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(Texts(found[0].begin(), found[0].begin() + 5),
              (Texts{"Byte 127",
                     "Integer 32767",
                     "Long 2147483647",
                     "Single 3.40282347e+38",
                     "Double 1.7976931348623157e+308"}));
    EXPECT_EQ(found[0][6], "Decimal -0:1e-10");
    EXPECT_EQ(found[0][9], "'Ā一😀'");
    EXPECT_EQ(found[0][11], "True");
}

TEST_F(JetQueryTest, nested_joins_in_parentheses_work) {
    EXPECT_EQ(
        select(
            "SELECT a.Codice, o.[Order No], b.ID FROM ([Order Lines] AS o INNER JOIN Articoli AS "
            "a ON o.[Article ID] = a.ID) INNER JOIN Articoli AS b ON b.ID = a.ID + 1 "
            "WHERE o.[Order No] = 1000 ORDER BY a.Codice"),
        (std::vector<Texts>{{"'A-0001'", "Long 1000", "Long 2"},
                            {"'A-0012'", "Long 1000", "Long 13"},
                            {"'A-0023'", "Long 1000", "Long 24"},
                            {"'A-0034'", "Long 1000", "Long 35"}}));
}

TEST_F(JetQueryTest, groups_and_their_conditions_work) {
    EXPECT_EQ(select("SELECT [Order No], Sum(Qty) AS q, Count(*) AS n FROM [Order Lines] WHERE "
                     "[Order No] < 1005 GROUP BY [Order No] HAVING Sum(Qty) > 9 ORDER BY Sum(Qty) "
                     "DESC"),
              (std::vector<Texts>{{"Long 1004", "Double 11", "Long 4"},
                                  {"Long 1003", "Double 10", "Long 4"}}));
}

TEST_F(JetQueryTest, texts_are_compared_without_letter_case_in_all_alphabets) {
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE Descrizione = 'CAFFÈ MACINATO 250 G "
                     "1'"),
              std::vector<Texts>{{"Long 1"}});
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE Descrizione = 'МИР (КНИГА) 1'"),
              std::vector<Texts>{{"Long 0"}});
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE Descrizione = 'мир (LIBRO) 1'"),
              std::vector<Texts>{{"Long 1"}});
}

TEST_F(JetQueryTest, like_takes_the_wildcards_of_the_OLE_DB_provider) {
    EXPECT_EQ(select("SELECT Codice FROM Articoli WHERE Descrizione LIKE \"emoji%\" AND ID < 10"),
              std::vector<Texts>{{"'A-0007'"}});
    EXPECT_EQ(select("SELECT Codice FROM Articoli WHERE Codice LIKE 'A-000_' AND ID > 8"),
              std::vector<Texts>{{"'A-0009'"}});
}

TEST_F(JetQueryTest, dates_are_compared_as_dates) {
    EXPECT_EQ(select("SELECT ID FROM Articoli WHERE Inserito > #12/1/2024# ORDER BY ID"),
              (std::vector<Texts>{{"Long 12"}, {"Long 24"}, {"Long 36"}}));
    EXPECT_EQ(select("SELECT fByte FROM Tipi WHERE fDate < #1/1/1600#"),
              std::vector<Texts>{{"Byte 0"}});
}

TEST_F(JetQueryTest, money_is_compared_and_added_up) {
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE Prezzo > 100"),
              std::vector<Texts>{{"Long 2"}});
    EXPECT_EQ(select("SELECT Prezzo FROM Articoli WHERE ID = 3"),
              std::vector<Texts>{{"Currency 2900"}});
}

TEST_F(JetQueryTest, Null_and_truth_are_found) {
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE Descrizione IS NULL"),
              std::vector<Texts>{{"Long 3"}});
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE Attivo = True"),
              std::vector<Texts>{{"Long 26"}});
    EXPECT_EQ(select("SELECT Count(*) AS n FROM Articoli WHERE NOT Attivo"),
              std::vector<Texts>{{"Long 14"}});
}

TEST_F(JetQueryTest, top_takes_the_first_rows) {
    EXPECT_EQ(select("SELECT TOP 2 ID FROM Articoli ORDER BY ID DESC"),
              (std::vector<Texts>{{"Long 40"}, {"Long 39"}}));
    EXPECT_EQ(select("SELECT Codice FROM Articoli WHERE ID IN (SELECT TOP 1 [Article ID] FROM "
                     "[Order Lines] ORDER BY [Article ID] DESC)"),
              std::vector<Texts>{{"'A-0040'"}});
}

TEST_F(JetQueryTest, operators_rank_and_round_as_in_Jet) {
    EXPECT_THAT(values("7 / 2, 7 \\ 2, 7.5 \\ 2, -7 \\ 2, 7 Mod 4, 2 ^ 3 ^ 2, -2 ^ 2, 10 \\ 3 * 2"),
                ElementsAre("Double 3.5",
                            "Long 3",
                            "Long 4",
                            "Long -3",
                            "Long 3",
                            "Double 64",
                            "Double -4",
                            "Long 1"));
    EXPECT_THAT(values("'a' & 1 + 1 & Null & 0.5, Null & Null, 5 \\ 0, 5 Mod 0"),
                ElementsAre("'a20.5'", "Null", "Null", "Null"));
}

TEST_F(JetQueryTest, functions_do_what_they_do_in_Jet) {
    EXPECT_THAT(
        values("Left('città', 4), Right('città', 2), Mid('città', 2, 3), Mid('abc', 2), "
               "Len('città'), UCase('città'), LCase('CITTÀ'), Trim('  a b ')"),
        ElementsAre("'citt'", "'tà'", "'itt'", "'bc'", "Long 5", "'CITTÀ'", "'città'", "'a b'"));
    EXPECT_THAT(
        values("InStr('Banana', 'AN'), InStr(3, 'Banana', 'an'), InStr('a', 'x'), "
               "Nz(Null, 7), Nz(Null), Nz(3, 7), IIf(1 > 2, 'si', 'no'), IsNull(Null)"),
        ElementsAre("Long 2", "Long 4", "Long 0", "Long 7", "''", "Long 3", "'no'", "Long -1"));
    EXPECT_THAT(values("Year(#2/3/2024#), Month(#2/3/2024#), Day(#2/3/2024#), Hour(#13:14:15#), "
                       "Weekday(#11/22/2026#), DateSerial(2024, 13, 31)"),
                ElementsAre("Long 2024", "Long 2", "Long 3", "Long 13", "Long 1", "Date 45688"));
    EXPECT_THAT(
        values("CCur('1.23456'), CDbl('2.5'), CLng(2.5), CLng(3.5), CStr(1.0), Val('12ab'), "
               "Int(-1.5), Fix(-1.5), Round(2.5), Sgn(-3)"),
        ElementsAre("Double 1.2345999999999999",
                    "Double 2.5",
                    "Long 2",
                    "Long 4",
                    "'1'",
                    "Double 12",
                    "Double -2",
                    "Double -1",
                    "Double 2",
                    "Long -1"));
    EXPECT_THAT(values("Format(1234.5, '#,##0.00'), Format(#1/31/2024#, 'yyyy-mm-dd'), "
                       "DateAdd('m', 1, #1/31/2024#), DateDiff('d', #1/1/2024#, #3/1/2024#), "
                       "DateDiff('yyyy', #12/31/2023#, #1/1/2024#)"),
                ElementsAre("'1,234.50'", "'2024-01-31'", "Date 45351", "Long 60", "Long 1"));
}

TEST_F(JetQueryTest, Null_in_gives_Null_out) {
    EXPECT_THAT(values("Left(Null, 2), Year(Null), CLng(Null), Len(Null), Null + 1"),
                ElementsAre("Null", "Null", "Null", "Null", "Null"));
}

TEST_F(JetQueryTest, expressions_without_a_name_are_numbered) {
    EXPECT_THAT(select_fields("SELECT ID, ID + 1, Count(*) AS Quanti, 'x' & ID FROM Articoli"),
                ElementsAre("ID 3 4", "Expr1000 3 4", "Quanti 3 4", "Expr1001 203 536870910"));
}

TEST_F(JetQueryTest, a_date_that_a_function_makes_is_a_date) {
    EXPECT_THAT(select_fields("SELECT Date() AS d, Now() AS n, #1/2/2024# AS l, Year(Date()) AS y"),
                ElementsAre("d 7 8", "n 7 8", "l 7 8", "y 3 4"));
    EXPECT_THAT(values("'il ' & #1/2/2024#"), ElementsAre("'il 1/2/2024'"));
}

TEST_F(JetQueryTest, names_may_be_joined_by_an_exclamation_mark) {
    EXPECT_EQ(
        select("SELECT [Order Lines]![Line] FROM [order lines] WHERE [Order Lines]![Order No] "
               "= 1029 AND [Order Lines].Line > 3"),
        std::vector<Texts>{{"Byte 4"}});
}

TEST_F(JetQueryTest, a_query_without_rows_has_its_columns) {
    const auto cursor = connection->open_query("SELECT Nome, ID * 2 AS doppio FROM Vuota");
    EXPECT_THAT(fields(*cursor), ElementsAre("Nome 202 50", "doppio 203 536870910"));
    EXPECT_FALSE(cursor->step());
}

TEST_F(JetQueryTest, only_one_SELECT_is_run) {
    for (const char* sql : {"DELETE FROM Articoli",
                            "DROP TABLE Articoli",
                            "PRAGMA user_version",
                            "ATTACH 'x' AS y",
                            "SELECT 1; SELECT 2",
                            "SELECT * INTO Nuova FROM Articoli",
                            "TRANSFORM Sum(a) SELECT b FROM c",
                            "SELECT TOP 5 PERCENT ID FROM Articoli",
                            "SELECT load_extension('x')",
                            "SELECT * FROM sqlite_master",
                            "SELECT ? FROM Articoli",
                            "SELECT (1",
                            "SELECT 1)",
                            "SELECT 'a",
                            "SELECT #no date#",
                            "SELECT 1 \\",
                            "SELECT Niente FROM Articoli"}) {
        EXPECT_THAT(error(sql), StartsWith("-2147217900: ")) << sql;
    }
    EXPECT_EQ(select("SELECT 1;"), std::vector<Texts>{{"Long 1"}});
}

TEST_F(JetQueryTest, a_table_that_is_not_there_is_named) {
    EXPECT_EQ(error("SELECT * FROM Niente"), "-2147217865: no such table: Niente");
    EXPECT_EQ(error("SELECT * FROM MSysObjects"), "-2147217865: no such table: MSysObjects");
}

TEST_F(JetQueryTest, a_value_that_a_function_cannot_take_is_the_statements_error) {
    EXPECT_THAT(error("SELECT CLng('abc') FROM Articoli"), HasSubstr("Type mismatch"));
    EXPECT_THAT(error("SELECT Mid('abc', 0) FROM Articoli"), StartsWith("-2147217900: "));
}

TEST_F(JetQueryTest, an_endless_statement_ends_with_the_time_that_is_given) {
    options.answer = std::chrono::milliseconds(700);
    const auto hurried = open(sample());
    const std::string table = "[Order Lines] AS ";
    EXPECT_THAT(error_of([&] {
                    hurried->open_query("SELECT Count(*) FROM " + table + "a, " + table + "b, " +
                                        table + "c, " + table + "d, " + table + "e, " + table +
                                        "f");
                }),
                StartsWith("-2147217871: "));
    EXPECT_THAT(error_of([&] { hurried->open_table({"Vuota"}); }), StartsWith("-2147467259: "));
}

TEST_F(JetQueryTest, work_that_takes_longer_than_the_silence_is_waited_for) {
    options.silence = std::chrono::milliseconds(400);
    const auto patient = open(sample());
    // About 9 million combinations: more than the silence, on any machine.
    const std::string sql =
        "SELECT Count(*) AS n FROM [Order Lines] AS a, [Order Lines] AS b, "
        "[Order Lines] AS c, Articoli AS d WHERE a.Qty + b.Qty + c.Qty < d.ID AND d.ID < 6";
    EXPECT_EQ(rows(*patient->open_query(sql)).size(), 1U);
}

} // namespace
} // namespace krv::providers
