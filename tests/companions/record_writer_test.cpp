#include "companions/writer_fixture.h"

#include "krv/platform/keys.h"

namespace krv::companions {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// --- Changes -------------------------------------------------------------------------------------

TEST_F(WriterTest, a_confirmed_row_is_in_the_database) {
    edit(1, {{name, "Bottiglia"}, {price, "1.020,50"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(
        articles(),
        ElementsAre("1|A|Aratro|1234.5|NULL", "2|B|Bottiglia|1020.5|vecchia", "3|C|Carro|300|"));
    EXPECT_THAT(row(1), ElementsAre("2", "2", "B", "Bottiglia", "1.020,50", "vecchia"));
    EXPECT_FALSE(is_open());
}

TEST_F(WriterTest, only_fields_that_were_changed_are_written) {
    run_elsewhere("CREATE TABLE diario (campo TEXT);"
                  "CREATE TRIGGER nome AFTER UPDATE OF nome ON articoli BEGIN"
                  " INSERT INTO diario VALUES ('nome'); END;"
                  "CREATE TRIGGER note AFTER UPDATE OF note ON articoli BEGIN"
                  " INSERT INTO diario VALUES ('note'); END");
    edit(0, {{name, "Ascia"}, {price, "1.234,50"}});
    EXPECT_THAT(query("SELECT * FROM diario"), ElementsAre("nome"));
}

TEST_F(WriterTest, a_row_without_a_change_touches_no_database) {
    list().SetConnect("Provider=SQLite;Data Source=manca.db");
    edit(0, {{name, "Aratro"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_FALSE(is_open());
    edit(0, {{name, "Ascia"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("Errore del database: ")));
    EXPECT_TRUE(is_open());
}

TEST_F(WriterTest, an_emptied_field_becomes_Null) {
    edit(1, {{name, ""}, {notes, "  "}});
    EXPECT_EQ(articles()[1], "2|B|NULL|20|NULL");
    EXPECT_THAT(row(1), ElementsAre("2", "2", "B", "", "20,00", ""));
}

TEST_F(WriterTest, a_changed_key_finds_its_record_by_the_old_one) {
    edit(1, {{id, "20"}, {name, "Barile"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(articles(),
                ElementsAre("1|A|Aratro|1234.5|NULL", "3|C|Carro|300|", "20|B|Barile|20|vecchia"));
    edit(1, {{name, "Botte"}});
    EXPECT_EQ(articles()[2], "20|B|Botte|20|vecchia");
}

TEST_F(WriterTest, a_key_of_several_columns_finds_its_record) {
    list().SetColIsKey(code, krvRec2);
    edit(0, {{code, "AA"}});
    EXPECT_EQ(articles()[0], "1|AA|Aratro|1234.5|NULL");
}

TEST_F(WriterTest, a_blank_text_key_finds_both_Null_and_the_empty_text) {
    list().SetColIsKey(id, krvListRecord);
    list().SetColIsKey(notes, krvRec1);
    edit(2, {{name, "Carretto"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("La chiave non è unica")));
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
    run_elsewhere("DELETE FROM articoli WHERE id = 1");
    list().OK();
    EXPECT_EQ(articles()[1], "3|C|Carretto|300|");
}

TEST_F(WriterTest, what_the_database_makes_of_a_record_is_shown) {
    run_elsewhere("CREATE TRIGGER maiuscole AFTER UPDATE OF nome ON articoli BEGIN"
                  " UPDATE articoli SET note = upper(new.nome) WHERE id = new.id; END");
    edit(1, {{name, "Barile"}});
    EXPECT_EQ(row(1)[notes], "BARILE");
    edit(1, {{name, "Botte"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[1], "2|B|Botte|20|BOTTE");
}

TEST_F(WriterTest, a_number_typed_in_another_form_is_no_conflict_later) {
    list().SetColFormat(price, "");
    list().Refresh();
    edit(0, {{price, "1.234,50"}});
    EXPECT_EQ(row(0)[price], "1234,5");
    edit(0, {{name, "Ascia"}});
    EXPECT_THAT(messages(), IsEmpty());
}

// --- New rows ------------------------------------------------------------------------------------

TEST_F(WriterTest, an_added_row_gets_the_key_that_the_database_gives) {
    add({{code, "D"}, {name, "Damigiana"}, {price, "4,00"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[3], "4|D|Damigiana|4|nuovo");
    EXPECT_THAT(row(3), ElementsAre("4", "4", "D", "Damigiana", "4,00", "nuovo"));
    edit(3, {{name, "Dado"}});
    EXPECT_EQ(articles()[3], "4|D|Dado|4|nuovo");
}

TEST_F(WriterTest, a_key_that_was_typed_is_kept) {
    add({{id, "77"}, {code, "D"}});
    EXPECT_EQ(articles()[3], "77|D|NULL|NULL|nuovo");
}

TEST_F(WriterTest, an_identity_query_gives_the_key_where_RETURNING_is_not_known) {
    writer.reset();
    write_with({.table = "articoli", .identity_query = "SELECT last_insert_rowid()"});
    add({{code, "D"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(row(3)[id], "4");
}

TEST_F(WriterTest, an_inserted_row_stands_where_it_was_inserted) {
    open(1);
    list().Insert();
    confirm({{code, "D"}});
    EXPECT_THAT(column(code), ElementsAre("A", "D", "B", "C"));
    EXPECT_THAT(column(number), ElementsAre("1", "2", "3", "4"));
    EXPECT_EQ(articles()[3], "4|D|NULL|NULL|nuovo");
}

TEST_F(WriterTest, a_copied_row_gets_a_key_of_its_own) {
    open(1);
    list().Copy();
    confirm({{code, "D"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[3], "4|D|Botte|20|vecchia");
    EXPECT_EQ(row(3)[id], "4");
}

TEST_F(WriterTest, a_copied_key_that_the_user_may_edit_is_taken_as_it_stands) {
    list().SetColEditable(id, true);
    open(1);
    list().Copy();
    confirm({{code, "D"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("UNIQUE constraint failed: articoli.id")));
    confirm({{id, "9"}});
    EXPECT_EQ(articles()[3], "9|D|Botte|20|vecchia");
}

TEST_F(WriterTest, a_key_that_nobody_gives_is_refused_and_nothing_added) {
    run_elsewhere("CREATE TABLE senza (codice TEXT PRIMARY KEY, nome TEXT)");
    writer.reset();
    list().SetCols(4);
    list().SetColDataField(id, "");
    list().SetColIsKey(code, krvRec1);
    write_to("senza");
    add({{name, "Nessuno"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("non ha dato un valore alla chiave")));
    EXPECT_THAT(query("SELECT * FROM senza"), IsEmpty());
    EXPECT_TRUE(is_open());
}

TEST_F(WriterTest, rows_added_automatically_are_written_one_by_one) {
    list().SetAutoAdd(true);
    add({{code, "D"}});
    EXPECT_TRUE(list().Adding());
    confirm({{code, "E"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(query("SELECT id, codice FROM articoli WHERE id > 3"), ElementsAre("4|D", "5|E"));
    EXPECT_THAT(column(id), ElementsAre("1", "2", "3", "4", "5"));
}

TEST_F(WriterTest, the_road_of_a_person_ends_in_the_database) {
    constexpr std::int16_t f5 = platform::key_f1 + 4;
    person().key(dynamic_cast<headless::HeadlessControl&>(container()), f5);
    person().text("D");
    person().key(platform::key_right);
    person().text("Damigiana");
    person().key(platform::key_right);
    person().text("12,5");
    person().key(platform::key_enter);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles().back(), "4|D|Damigiana|12.5|nuovo");
    EXPECT_THAT(row(3), ElementsAre("4", "4", "D", "Damigiana", "12,50", "nuovo"));
}

// --- What is refused -----------------------------------------------------------------------------

TEST_F(WriterTest, what_an_engine_refuses_leaves_the_row_open_with_what_was_typed) {
    const std::vector<std::pair<std::pair<std::int32_t, std::string>, std::string>> cases = {
        {{code, "A"}, "UNIQUE constraint failed: articoli.codice"},
        {{code, ""}, "NOT NULL constraint failed: articoli.codice"},
        {{price, "-1,00"}, "CHECK constraint failed: prezzo >= 0"}};
    open(1);
    for (const auto& [typed, message] : cases) {
        list().SetInputArray(code, "B");
        list().SetInputArray(name, "Barile");
        confirm({typed});
        EXPECT_EQ(messages().back(), "Errore del database: " + message + "|ok|Rolda");
        EXPECT_EQ(list().InputArray(typed.first), typed.second);
        EXPECT_EQ(list().InputArray(name), "Barile");
        EXPECT_TRUE(is_open());
        EXPECT_EQ(row(1)[name], "Botte");
        EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
    }
    confirm({{price, "1,00"}, {code, "B"}});
    EXPECT_EQ(articles()[1], "2|B|Barile|1|vecchia");
    EXPECT_FALSE(is_open());
}

TEST_F(WriterTest, a_refused_new_row_is_neither_in_the_database_nor_in_the_list) {
    add({{code, "A"}, {name, "Altro"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("UNIQUE constraint failed")));
    EXPECT_EQ(list().Rows(), 3);
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
    EXPECT_TRUE(is_open());
    EXPECT_TRUE(list().Adding());
    confirm({{code, "D"}});
    EXPECT_EQ(articles()[3], "4|D|Altro|NULL|nuovo");
}

TEST_F(WriterTest, without_a_key_column_nothing_is_written) {
    list().SetColIsKey(id, krvListRecord);
    edit(0, {{name, "Ascia"}});
    list().Delete();
    EXPECT_THAT(messages(), ::testing::Each(HasSubstr("Nessuna colonna chiave")));
    EXPECT_EQ(messages().size(), 2U);
    EXPECT_EQ(list().Rows(), 3);
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
}

TEST_F(WriterTest, a_blank_necessary_column_is_left_to_the_control) {
    list().SetColIsNecessary(notes, true);
    edit(0, {{name, "Ascia"}});
    EXPECT_THAT(messages(), ElementsAre("il campo è necessario|ok|Rolda"));
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
}

TEST_F(WriterTest, columns_of_other_records_are_not_written) {
    list().SetColDataField(number, "altro");
    list().SetColFromRecord(number, krvRec1);
    edit(0, {{number, "9"}, {name, "Ascia"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[0], "1|A|Ascia|1234.5|NULL");
}

TEST_F(WriterTest, two_columns_of_one_field_must_agree) {
    list().SetColDataField(number, "nome");
    list().Refresh();
    edit(0, {{number, "Ascia"}, {name, "Ancora"}});
    EXPECT_THAT(messages(), ElementsAre(HasSubstr("danno valori diversi allo stesso campo")));
    confirm({{name, "Aratro"}});
    EXPECT_EQ(articles()[0], "1|A|Ascia|1234.5|NULL");
    EXPECT_EQ(row(0)[name], "Ascia");
}

TEST_F(WriterTest, names_and_values_are_never_run) {
    run_elsewhere("ALTER TABLE articoli RENAME COLUMN nome TO \"a\"\"; DROP TABLE articoli; --\"");
    list().SetColDataField(name, "a\"; DROP TABLE articoli; --");
    list().Refresh();
    edit(0, {{name, "'; DROP TABLE articoli; --"}});
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(articles()[0], "1|A|'; DROP TABLE articoli; --|1234.5|NULL");
}

// --- Listeners -----------------------------------------------------------------------------------

class Vetoing final : public KarvoListEvents {
public:
    void
    BeforeRowUpdate(std::int32_t, std::int32_t, bool& Cancel, bool& ExternalHandling) override {
        Cancel = cancels;
        ExternalHandling = handles;
    }

    bool cancels = false;
    bool handles = false;
};

TEST_F(WriterTest, a_step_that_is_cancelled_or_handled_by_then_is_not_written) {
    writer.reset();
    Vetoing other;
    list().subscribe(other);
    write_to("articoli");
    other.cancels = true;
    edit(0, {{name, "Ascia"}});
    other.cancels = false;
    other.handles = true;
    list().OK();
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
    list().unsubscribe(other);
}

TEST_F(WriterTest, a_writer_that_is_released_or_gone_writes_nothing) {
    writer->release();
    edit(0, {{name, "Ascia"}});
    writer->release();
    writer.reset();
    edit(1, {{name, "Barile"}});
    EXPECT_THAT(articles(), ElementsAreArray(articles_at_start));
}

TEST_F(WriterTest, the_host_may_end_the_writer_in_its_message) {
    on_message = [&](const std::string&) { writer.reset(); };
    edit(0, {{code, "B"}});
    EXPECT_EQ(writer, nullptr);
    EXPECT_EQ(list().InputArray(code), "B");
    EXPECT_TRUE(is_open());
}

TEST_F(WriterTest, the_host_may_end_everything_when_it_is_told_of_a_given_key) {
    on_changed = [&](const std::string& property) {
        if (property == "InputArray" && list().InputArray(id) == "4") {
            writer.reset();
            destroy();
        }
    };
    add({{code, "D"}});
    EXPECT_FALSE(alive());
    EXPECT_EQ(articles()[3], "4|D|NULL|NULL|nuovo");
}

TEST_F(WriterTest, an_error_of_the_host_in_the_message_does_not_get_out) {
    on_message = [](const std::string&) { throw platform::RuntimeError(5, "host", "host"); };
    edit(0, {{code, "B"}});
    EXPECT_TRUE(is_open());
}

TEST_F(WriterTest, a_lost_connection_is_opened_anew) {
    edit(0, {{name, "Ascia"}});
    writer->disconnect();
    edit(0, {{name, "Ancora"}});
    edit(0, {{code, "B"}});
    confirm({{code, "A"}, {name, "Aratro"}});
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_EQ(articles()[0], "1|A|Aratro|1234.5|NULL");
}

} // namespace
} // namespace krv::companions
