// What a user confirms and deletes in a list, on every database that can write.

#include "krv/companions/record_writer.h"
#include "krv/headless/headless_application.h"

#include "providers/test_engines.h"
#include "support/list_test.h"

#include <gmock/gmock.h>

namespace krv::companions {
namespace {

using krv::testing::TestEngine;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

class ServerWriter : public krv::testing::ListTest,
                     public ::testing::WithParamInterface<TestEngine> {
protected:
    enum Column { id, code, price, day, notes };

    void SetUp() override {
        if (const std::string why = GetParam().why_missing(); !why.empty()) {
            GTEST_SKIP() << GetParam().name << ": " << why;
        }
        connect = GetParam().connection_string();
        run("DROP TABLE IF EXISTS articoli");
        run("CREATE TABLE articoli (" + key_type() +
            ", codice VARCHAR(12) UNIQUE, prezzo DECIMAL(12,2) CHECK (prezzo >= 0), giorno DATE,"
            " note " +
            (is_sqlite() ? "VARCHAR(40)" : "TEXT") + ")");
        run("INSERT INTO articoli (codice, prezzo, giorno, note) VALUES"
            " ('A', 1234.5, '2024-03-05', NULL), ('B', 20, NULL, 'vecchia'), ('C', 300, NULL, '')");
        place(*access);
        dynamic_cast<headless::HeadlessApplication&>(application())
            .set_ask([this](const headless::ShownMessage& message) {
                if (on_message) {
                    on_message(message.text);
                }
                return message.buttons == platform::MessageButtons::ok
                           ? platform::MessageAnswer::ok
                           : platform::MessageAnswer::yes;
            });
        set_up_list();
        RecordWriterSettings settings{.table = "articoli"};
        settings.quotes = is_mariadb() ? NameQuotes::backticks : NameQuotes::double_quotes;
        settings.lock_clause = is_sqlite() ? "" : "FOR UPDATE";
        if (GetParam().name == "SqliteOverOdbc") { // its driver has no rows of an INSERT
            settings.identity_query = "SELECT last_insert_rowid()";
        }
        writer = std::make_unique<RecordWriter>(list(), *access, application(), settings);
    }

    void TearDown() override { writer.reset(); }

    bool is_sqlite() const { return GetParam().name.starts_with("Sqlite"); }

    bool is_mariadb() const { return GetParam().name == "Mariadb"; }

    std::string key_type() const {
        if (is_sqlite()) {
            return "id INTEGER PRIMARY KEY";
        }
        return is_mariadb() ? "id INTEGER AUTO_INCREMENT PRIMARY KEY" : "id serial PRIMARY KEY";
    }

    void set_up_list() {
        list().SetAutoAdd(false);
        list().SetConnect(connect);
        list().SetRecordsource("SELECT * FROM articoli ORDER BY id");
        list().SetCols(5);
        bind(id, "id", 3);
        bind(code, "codice", 202);
        bind(price, "prezzo", 131, "#,##0.00");
        bind(day, "giorno", 133, "dd/mm/yyyy");
        bind(notes, "note", 203);
        list().SetColIsKey(id, krvRec1);
        list().SetColEditable(id, false);
        list().Refresh();
        ASSERT_EQ(list().Rows(), 3);
    }

    void bind(std::int32_t col, const char* field, std::int16_t type, const char* pattern = "") {
        list().SetCaption(col, field);
        list().SetColDataField(col, field);
        list().SetColFieldType(col, type);
        list().SetColFormat(col, pattern);
        list().SetColEditable(col, true);
    }

    void run(const std::string& sql) { krv::testing::run(connect, sql); }

    void open(std::int32_t row) {
        std::int16_t button = 1;
        std::int16_t shift = 0;
        list().RowClick(row, button, shift);
    }

    void confirm(const std::vector<std::pair<std::int32_t, std::string>>& texts) {
        for (const auto& [col, text] : texts) {
            list().SetInputArray(col, text);
        }
        list().OK();
    }

    Texts row(std::int32_t index) {
        Texts texts;
        for (std::int32_t col = 0; col < list().Cols(); ++col) {
            texts.push_back(list().TextMatrix(index, col));
        }
        return texts;
    }

    /// Codes with their notes as the database has them now.
    Texts stored() {
        return krv::testing::texts(connect,
                                   is_mariadb() ? "SELECT concat(codice, '|', coalesce(note, '-'))"
                                                  " FROM articoli ORDER BY id"
                                                : "SELECT codice || '|' || coalesce(note, '-')"
                                                  " FROM articoli ORDER BY id");
    }

    std::string connect;
    std::shared_ptr<platform::DataAccess> access = krv::testing::full_data_access();
    std::unique_ptr<RecordWriter> writer;
};

TEST_P(ServerWriter, a_confirmed_row_is_in_the_database) {
    open(0);
    confirm({{price, "99,95"}, {day, "31/12/1899"}, {notes, "città 😀 l'\"una\""}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(row(0), ElementsAre("1", "A", "99,95", "31/12/1899", "città 😀 l'\"una\""));
    EXPECT_THAT(stored(), ElementsAre("'A|città 😀 l'\"una\"'", "'B|vecchia'", "'C|'"));
    list().Refresh();
    EXPECT_THAT(row(0), ElementsAre("1", "A", "99,95", "31/12/1899", "città 😀 l'\"una\""));
}

TEST_P(ServerWriter, an_added_row_gets_the_key_that_the_database_gives) {
    list().Add();
    confirm({{code, "D"}, {price, "1,50"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(row(3), ElementsAre("4", "D", "1,50", "", ""));
    EXPECT_THAT(stored(), ElementsAre("'A|-'", "'B|vecchia'", "'C|'", "'D|-'"));
}

TEST_P(ServerWriter, a_row_of_blanks_gets_the_defaults_of_the_database) {
    list().Add();
    confirm({{code, " "}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(row(3), ElementsAre("4", "", "", "", ""));
    EXPECT_EQ(krv::testing::texts(connect, "SELECT id FROM articoli").size(), 4U);
}

TEST_P(ServerWriter, a_deleted_row_leaves_the_database) {
    open(1);
    list().Delete();
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_THAT(stored(), ElementsAre("'A|-'", "'C|'"));
}

TEST_P(ServerWriter, what_the_engine_refuses_leaves_the_row_open_and_the_database_alone) {
    open(0);
    confirm({{code, "B"}});
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_TRUE(list().InputModified());
    confirm({{code, "A"}, {price, "-1,00"}});
    EXPECT_EQ(messages().size(), 2U);
    EXPECT_THAT(stored(), ElementsAre("'A|-'", "'B|vecchia'", "'C|'"));
    confirm({{price, "5,00"}});
    EXPECT_EQ(messages().size(), 2U);
    EXPECT_THAT(row(0), ElementsAre("1", "A", "5,00", "05/03/2024", ""));
}

TEST_P(ServerWriter, a_record_that_somebody_has_changed_is_neither_overwritten_nor_deleted) {
    run("UPDATE articoli SET note = 'altrui' WHERE id = 2");
    open(1);
    confirm({{notes, "mia"}});
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_THAT(messages()[0], HasSubstr("modificato da altri"));
    EXPECT_THAT(stored(), ElementsAre("'A|-'", "'B|altrui'", "'C|'"));
}

TEST_P(ServerWriter, a_record_that_somebody_has_deleted_is_not_made_again) {
    run("DELETE FROM articoli WHERE id = 2");
    open(1);
    confirm({{notes, "mia"}});
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_THAT(messages()[0], HasSubstr("eliminato da altri"));
    EXPECT_THAT(stored(), ElementsAre("'A|-'", "'C|'"));
}

TEST_P(ServerWriter, names_and_values_are_never_run) {
    const std::string harm = "x'; DELETE FROM articoli; --";
    open(2);
    confirm({{notes, harm}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(stored(), ElementsAre("'A|-'", "'B|vecchia'", "'C|" + harm + "'"));
}

INSTANTIATE_TEST_SUITE_P(Every,
                         ServerWriter,
                         ::testing::ValuesIn(krv::testing::test_engines()),
                         [](const auto& param_info) { return param_info.param.name; });

} // namespace
} // namespace krv::companions
