// A list over a real database file: good input as a host sets it up, and input that should not be.

#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"

#include "support/errors.h"
#include "support/list_test.h"
#include "support/sqlite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv {
namespace {

using ::testing::ElementsAre;
using testing::error_number_of;
using ::testing::IsEmpty;
using testing::ListTest;
using testing::OtherProcess;
using testing::read_file;

const std::string no_connection = "Errore nella stringa di connessione al database|ok|Rolda";
const std::string no_source = "Errore in RecordSource|ok|Rolda";

class SqliteList : public ListTest {
protected:
    void SetUp() override {
        path_ = folder_.file("dati.db");
        OtherProcess(path_).run(
            "CREATE TABLE persone (id INTEGER, nome VARCHAR(50), nato DATE, peso REAL,"
            " attivo BOOLEAN, prezzo CURRENCY, quando DATETIME, foto BLOB);"
            "INSERT INTO persone VALUES"
            " (2,'Bruno','2024-03-05',1.5,1,1234.5,'2024-03-05 14:07:09',x'00ff'),"
            " (1,'Anna',NULL,NULL,NULL,NULL,NULL,NULL),"
            " (3,'',' 31 brumaio ',0.0,0,0,'non una data',NULL);"
            "CREATE TABLE vuota (id INTEGER);"
            "CREATE TABLE \"due parole\" (id INTEGER); INSERT INTO \"due parole\" VALUES (9);"
            "CREATE TABLE \"a\"\"b]; DROP TABLE persone; --\" (id INTEGER);"
            "INSERT INTO \"a\"\"b]; DROP TABLE persone; --\" VALUES (77);");
        place(data_access_);
        list().SetAutoAdd(false);
        list().SetDataBaseName(path_);
        list().SetRecordsource("persone");
    }

    void bind(const std::vector<std::pair<std::string, std::string>>& columns) {
        list().SetCols(static_cast<std::int32_t>(columns.size()));
        for (std::int32_t col = 0; col < list().Cols(); ++col) {
            list().SetColDataField(col, columns[static_cast<std::size_t>(col)].first);
            list().SetColFormat(col, columns[static_cast<std::size_t>(col)].second);
        }
    }

    std::vector<std::string> column(const std::string& field, const std::string& format = "") {
        bind({{field, format}});
        list().Refresh();
        EXPECT_THAT(messages(), IsEmpty());
        std::vector<std::string> texts;
        for (std::int32_t row = 0; row < list().Rows(); ++row) {
            texts.push_back(list().TextMatrix(row, 0));
        }
        return texts;
    }

    /// Refreshes a list of two hand-made rows and expects this message and the rows as they were.
    void expect_refused(const std::string& message) {
        list().SetRows(2);
        list().SetTextMatrix(1, 0, "resta");
        list().Refresh();
        EXPECT_THAT(messages(), ElementsAre(message));
        EXPECT_EQ(list().Rows(), 2);
        EXPECT_EQ(list().TextMatrix(1, 0), "resta");
    }

    testing::TemporaryFolder folder_;
    std::string path_;
    standard::AdoDataAccess data_access_{
        std::make_shared<standard::ProviderRegistry>(standard::ProviderRegistry::Providers{
            providers::make_sqlite_provider(), nullptr, nullptr})};
};

TEST_F(SqliteList, the_default_provider_text_opens_a_SQLite_file_by_its_content) {
    EXPECT_THAT(column("nome"), ElementsAre("Bruno", "Anna", ""));
    EXPECT_EQ(list().Connect(), "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=" + path_ + ";");
}

TEST_F(SqliteList, columns_format_their_values) {
    EXPECT_THAT(column("id"), ElementsAre("2", "1", "3"));
    EXPECT_THAT(column("prezzo", "#,##0.00"), ElementsAre("1.234,50", "", "0,00"));
    EXPECT_THAT(column("prezzo"), ElementsAre("1234,5", "", "0"));
    EXPECT_THAT(column("peso", "0;-0;zero;nullo"), ElementsAre("2", "", "zero"));
    EXPECT_THAT(column("quando", "hh:nn")[0], "14:07");
    EXPECT_THAT(column("attivo"), ElementsAre("True", "", "False"));
    EXPECT_THAT(column("attivo", "Yes/No"), ElementsAre("Yes", "", "No"));
}

TEST_F(SqliteList, a_date_that_is_no_date_is_shown_as_it_stands) {
    EXPECT_THAT(column("nato", "dd/mm/yyyy"), ElementsAre("05/03/2024", "", " 31 brumaio "));
    EXPECT_THAT(column("quando", "dd/mm/yyyy")[2], "non una data");
}

TEST_F(SqliteList, letter_case_of_a_field_name_does_not_count) {
    EXPECT_THAT(column("NOME"), ElementsAre("Bruno", "Anna", ""));
}

TEST_F(SqliteList, a_field_that_the_table_lacks_is_error_3265) {
    bind({{"manca", ""}});
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), 3265);
}

TEST_F(SqliteList, bytes_in_a_bound_column_are_a_type_mismatch) {
    bind({{"nome", ""}, {"foto", ""}});
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), 13);
    EXPECT_EQ(list().Rows(), 1);
    EXPECT_EQ(list().TextMatrix(0, 0), "Bruno");
}

TEST_F(SqliteList, a_query_is_a_source_too) {
    list().SetRecordsource("SELECT nome FROM persone WHERE id < 3 ORDER BY id");
    EXPECT_THAT(column("nome"), ElementsAre("Anna", "Bruno"));
}

TEST_F(SqliteList, an_empty_table_and_a_table_with_blanks_in_its_name_open) {
    list().SetRecordsource("vuota");
    EXPECT_THAT(column("id"), IsEmpty());
    list().SetRecordsource("due parole");
    EXPECT_THAT(column("id"), ElementsAre("9"));
}

TEST_F(SqliteList, a_hostile_name_is_a_name_and_is_never_run) {
    list().SetRecordsource("a\"b]; DROP TABLE persone; --");
    EXPECT_THAT(column("id"), ElementsAre("77"));
    EXPECT_EQ(OtherProcess(path_).number("SELECT count(*) FROM persone"), 3);
}

TEST_F(SqliteList, a_source_that_is_not_there_is_refused) {
    list().SetRecordsource("nontabella");
    expect_refused(no_source);
}

TEST_F(SqliteList, a_query_with_a_syntax_error_is_refused) {
    list().SetRecordsource("SELEC * FROM persone");
    expect_refused(no_source);
}

TEST_F(SqliteList, a_single_blank_is_refused) {
    list().SetRecordsource(" ");
    expect_refused(no_source);
}

TEST_F(SqliteList, statements_that_would_write_are_refused_and_write_nothing) {
    const std::string before = read_file(path_);
    for (const char* source : {"DELETE FROM persone",
                               "SELECT 1; DELETE FROM persone",
                               "DROP TABLE persone",
                               "INSERT INTO vuota VALUES (1) RETURNING id",
                               "VACUUM",
                               "PRAGMA user_version = 7",
                               "ATTACH 'x.db' AS x"}) {
        list().SetRecordsource(source);
        list().Refresh();
    }
    list().CloseAll();
    EXPECT_THAT(messages(), ::testing::Each(no_source));
    EXPECT_EQ(messages().size(), 7U);
    EXPECT_EQ(read_file(path_), before);
}

TEST_F(SqliteList, loading_never_writes_the_file) {
    const std::string before = read_file(path_);
    column("nome");
    list().Svuota(true);
    list().CloseAll();
    EXPECT_EQ(read_file(path_), before);
}

TEST_F(SqliteList, a_text_file_named_mdb_is_refused_and_left_alone) {
    const std::string text = folder_.write("lettera.mdb", "Gentile signora,\n");
    list().SetDataBaseName(text);
    expect_refused(no_connection);
    EXPECT_EQ(read_file(text), "Gentile signora,\n");
}

TEST_F(SqliteList, an_empty_file_is_refused_and_left_empty) {
    list().SetDataBaseName(folder_.write("vuoto.mdb", ""));
    expect_refused(no_connection);
    EXPECT_EQ(read_file(folder_.file("vuoto.mdb")), "");
}

TEST_F(SqliteList, a_missing_file_is_refused_and_not_made) {
    list().SetDataBaseName(folder_.file("manca.mdb"));
    expect_refused(no_connection);
    EXPECT_FALSE(std::filesystem::exists(folder_.file("manca.mdb")));
}

TEST_F(SqliteList, a_folder_is_refused) {
    list().SetDataBaseName(folder_.file(""));
    expect_refused(no_connection);
}

TEST_F(SqliteList, a_path_with_a_semicolon_or_quotes_in_it_cannot_add_keywords) {
    list().SetDataBaseName(folder_.file("x;Provider=SQLite;Data Source=\"dati.db\""));
    expect_refused(no_connection);
}

TEST_F(SqliteList, a_database_locked_by_another_process_is_refused) {
    OtherProcess other(path_);
    other.run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM vuota");
    list().SetConnect("Provider=SQLite;Data Source=" + path_ + ";Busy Timeout=20");
    list().SetRows(1);
    list().Refresh();
    EXPECT_THAT(messages(), ElementsAre(no_connection));
    EXPECT_EQ(list().Rows(), 1);
}

TEST_F(SqliteList, the_writer_is_free_again_after_a_load) {
    column("nome");
    OtherProcess other(path_);
    other.run("BEGIN EXCLUSIVE; INSERT INTO vuota VALUES (5); COMMIT");
    EXPECT_EQ(list().Recordset()->State(), 1);
    EXPECT_TRUE(list().Recordset()->Eof());
}

TEST_F(SqliteList, invalid_UTF_8_shows_replacement_characters) {
    OtherProcess(path_).run("CREATE TABLE rotta (t TEXT); INSERT INTO rotta VALUES"
                            " (CAST(x'61ff62' AS TEXT)), (CAST(x'c3' AS TEXT)),"
                            " ('perché'), (CAST(x'eda080' AS TEXT))");
    list().SetRecordsource("rotta");
    const auto texts = column("t");
    EXPECT_EQ(texts[0], "a\uFFFDb");
    EXPECT_EQ(texts[1], "\uFFFD");
    EXPECT_EQ(texts[2], "perché");
    EXPECT_EQ(texts[3].substr(0, 3), "\uFFFD");
}

TEST_F(SqliteList, a_NULL_everywhere_gives_rows_of_empty_cells) {
    OtherProcess(path_).run("CREATE TABLE nulla (a, b DATE, c CURRENCY);"
                            "INSERT INTO nulla VALUES (NULL,NULL,NULL),(NULL,NULL,NULL)");
    list().SetRecordsource("nulla");
    bind({{"a", "0"}, {"b", "dd/mm/yyyy"}, {"c", ""}});
    list().Refresh();
    EXPECT_EQ(list().Rows(), 2);
    for (std::int32_t col = 0; col < 3; ++col) {
        EXPECT_EQ(list().TextMatrix(1, col), "");
    }
}

TEST_F(SqliteList, a_pattern_that_cannot_take_the_text_leaves_it) {
    EXPECT_THAT(column("nome", "#,##0.00"), ElementsAre("Bruno", "Anna", ""));
}

TEST_F(SqliteList, a_number_outside_the_dates_under_a_date_pattern_is_an_overflow) {
    OtherProcess(path_).run("CREATE TABLE grandi (n INTEGER); INSERT INTO grandi VALUES (9999999)");
    list().SetRecordsource("grandi");
    bind({{"n", "dd/mm/yyyy"}});
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), 6);
    EXPECT_EQ(list().Rows(), 1);
}

TEST_F(SqliteList, the_hosts_recordset_is_closed_by_the_next_Refresh) {
    auto connection = data_access_.CreateConnection();
    connection->Open("Provider=SQLite;Data Source=" + path_, "", "", -1);
    auto hosts = data_access_.CreateRecordset();
    hosts->Open("persone", connection, 0, 1, -1);
    list().SetRecordset(hosts);
    EXPECT_EQ(list().Recordset(), hosts);
    column("nome");
    EXPECT_EQ(hosts->State(), 0);
    EXPECT_EQ(connection->State(), 1);
}

} // namespace
} // namespace krv
