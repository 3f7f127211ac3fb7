#include "support/errors.h"
#include "support/list_test.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ListTest;

const std::string no_database = "Nome Database (Jet 4.0) non specificato|ok|Rolda";
const std::string no_connection = "Errore nella stringa di connessione al database|ok|Rolda";
const std::string no_source = "Errore in RecordSource|ok|Rolda";

class RecordSourceOfAList : public ListTest {
protected:
    void SetUp() override {
        ListTest::SetUp();
        list().SetAutoAdd(false);
        list().SetCols(2);
        list().SetColDataField(0, "id");
        list().SetColDataField(1, "nome");
        data.field_names = {"id", "nome"};
        data.records.push_back({testing::whole(7), testing::text("Anna")});
        list().SetConnect("Provider=script;Data Source=x");
        list().SetRecordsource("persone");
        changed.clear();
    }

    void fill_by_hand() {
        list().SetRows(2);
        list().SetTextMatrix(0, 1, "prima");
        list().SetTextMatrix(1, 1, "seconda");
    }
};

TEST_F(RecordSourceOfAList, the_data_properties_are_stored_and_notified_and_load_nothing) {
    list().SetConnect("Access;");
    list().SetDataBaseName("C:\\db.mdb");
    list().SetRecordsource("ordini");
    list().SetReadOnlyRecordset(true);
    list().SetRecordset(data.CreateRecordset());
    EXPECT_THAT(
        changed,
        ElementsAre("Connect", "DataBaseName", "Recordsource", "ReadOnlyRecordset", "Recordset"));
    EXPECT_EQ(list().Connect(), "Access;");
    EXPECT_EQ(list().DataBaseName(), "C:\\db.mdb");
    EXPECT_EQ(list().Recordsource(), "ordini");
    EXPECT_TRUE(list().ReadOnlyRecordset());
    EXPECT_THAT(data.trace, ElementsAre("CreateRecordset"));
}

TEST_F(RecordSourceOfAList, Refresh_opens_connection_and_source_in_this_order) {
    list().Refresh();
    EXPECT_THAT(data.trace,
                ElementsAre("CreateConnection",
                            "CreateRecordset",
                            "Connection.Open(Provider=script;Data Source=x|||-1)",
                            "Recordset.Open(persone|open|2|2|-1)"));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(changed, IsEmpty());
    EXPECT_EQ(list().TextMatrix(0, 1), "Anna");
}

TEST_F(RecordSourceOfAList, a_read_only_source_is_opened_with_lock_type_1) {
    list().SetReadOnlyRecordset(true);
    list().Refresh();
    EXPECT_EQ(data.trace.back(), "Recordset.Open(persone|open|2|1|-1)");
    EXPECT_EQ(list().Rows(), 1);
}

TEST_F(RecordSourceOfAList, access_in_small_letters_becomes_the_provider_text_of_the_file) {
    list().SetConnect("access");
    list().SetDataBaseName("C:\\db.mdb");
    changed.clear();
    list().Refresh();
    const std::string built = "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=C:\\db.mdb;";
    EXPECT_EQ(list().Connect(), built);
    EXPECT_EQ(data.trace[2], "Connection.Open(" + built + "|||-1)");
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(RecordSourceOfAList, every_text_that_begins_with_access_stands_for_the_file) {
    for (const char* connect : {"", "Access;", "ACCESS", "aCcEsS 97; whatever=1"}) {
        data.trace.clear();
        list().SetConnect(connect);
        list().SetDataBaseName("a.mdb");
        list().Refresh();
        EXPECT_EQ(list().Connect(), "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=a.mdb;")
            << connect;
    }
}

TEST_F(RecordSourceOfAList, a_later_DataBaseName_is_ignored_once_the_string_is_built) {
    list().SetConnect("");
    list().SetDataBaseName("a.mdb");
    list().Refresh();
    list().SetDataBaseName("b.mdb");
    list().Refresh();
    EXPECT_EQ(list().Connect(), "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=a.mdb;");
}

TEST_F(RecordSourceOfAList, another_provider_is_used_as_it_stands) {
    list().SetDataBaseName("C:\\db.mdb");
    list().Refresh();
    EXPECT_EQ(list().Connect(), "Provider=script;Data Source=x");
    EXPECT_EQ(list().Rows(), 1);
}

TEST_F(RecordSourceOfAList, fewer_than_six_characters_are_used_as_they_stand) {
    data.connection_fails = true;
    list().SetConnect("ACC");
    list().SetDataBaseName("C:\\db.mdb");
    list().Refresh();
    EXPECT_EQ(list().Connect(), "ACC");
    EXPECT_THAT(messages(), ElementsAre(no_connection));
}

TEST_F(RecordSourceOfAList, a_string_that_only_contains_access_is_used_as_it_stands) {
    list().SetConnect(" Access;");
    list().SetDataBaseName("a.mdb");
    list().Refresh();
    EXPECT_EQ(list().Connect(), " Access;");
}

TEST_F(RecordSourceOfAList, without_database_and_string_a_message_says_so_and_all_is_closed) {
    list().Refresh();
    fill_by_hand();
    list().SetConnect("");
    data.trace.clear();
    changed.clear();
    list().Refresh();
    EXPECT_THAT(messages(), ElementsAre(no_database));
    EXPECT_THAT(data.trace, ElementsAre("Recordset.Close", "Connection.Close"));
    EXPECT_EQ(list().Recordset(), nullptr);
    EXPECT_EQ(list().Connect(), "");
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_EQ(list().TextMatrix(0, 1), "prima");
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(RecordSourceOfAList, a_failed_connection_is_shown_and_leaves_list_and_state) {
    fill_by_hand();
    list().SetRow(1);
    list().SetInputArray(0, "x");
    data.connection_fails = true;
    list().Refresh();
    EXPECT_THAT(messages(), ElementsAre(no_connection));
    EXPECT_EQ(data.trace.back(), "Connection.Open(Provider=script;Data Source=x|||-1)");
    EXPECT_NE(list().Recordset(), nullptr);
    EXPECT_EQ(list().Recordset()->State(), 0);
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_EQ(list().Row(), 1);
    EXPECT_TRUE(list().InputModified());
}

TEST_F(RecordSourceOfAList, a_built_string_stays_after_a_failed_connection) {
    list().SetConnect("");
    list().SetDataBaseName("manca.mdb");
    data.connection_fails = true;
    list().Refresh();
    EXPECT_EQ(list().Connect(), "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=manca.mdb;");
}

TEST_F(RecordSourceOfAList, a_failed_source_is_shown_and_leaves_the_connection_open) {
    fill_by_hand();
    data.source_fails = true;
    list().Refresh();
    EXPECT_THAT(messages(), ElementsAre(no_source));
    EXPECT_EQ(data.trace.back(), "Recordset.Open(persone|open|2|2|-1)");
    EXPECT_EQ(list().Recordset()->State(), 0);
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_TRUE(parts().btnOK.Visible());
    data.trace.clear();
    list().CloseAll();
    EXPECT_THAT(data.trace, ElementsAre("Recordset.Close", "Connection.Close"));
    EXPECT_EQ(list().Recordset(), nullptr);
}

TEST_F(RecordSourceOfAList, the_messages_show_the_applications_title) {
    application().SetTitle("Magazzino");
    data.source_fails = true;
    list().Refresh();
    EXPECT_THAT(messages(), ElementsAre("Errore in RecordSource|ok|Magazzino"));
}

TEST_F(RecordSourceOfAList, an_empty_source_opens_nothing_keeps_the_rows_and_resets) {
    fill_by_hand();
    list().SetRow(1);
    list().SetRecordsource("");
    list().Refresh();
    EXPECT_THAT(data.trace, IsEmpty());
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_EQ(list().TextMatrix(1, 1), "seconda");
    EXPECT_EQ(list().Row(), -1);
    EXPECT_FALSE(parts().GridIn.Visible());
    EXPECT_FALSE(parts().btnOK.Visible());
}

TEST_F(RecordSourceOfAList, an_empty_source_closes_what_was_open_without_asking_for_a_string) {
    list().Refresh();
    data.trace.clear();
    list().SetConnect("");
    list().SetRecordsource("");
    list().Refresh();
    EXPECT_THAT(data.trace, ElementsAre("Recordset.Close", "Connection.Close"));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(list().Recordset(), nullptr);
}

TEST_F(RecordSourceOfAList, a_blank_source_is_not_empty) {
    list().SetRecordsource(" ");
    list().Refresh();
    EXPECT_EQ(data.trace.back(), "Recordset.Open( |open|2|2|-1)");
}

TEST_F(RecordSourceOfAList, closing_twice_raises_nothing) {
    list().Refresh();
    data.trace.clear();
    list().CloseAll();
    list().CloseAll();
    list().CloseRecordset();
    EXPECT_THAT(data.trace, ElementsAre("Recordset.Close", "Connection.Close"));
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(RecordSourceOfAList, failures_while_closing_are_swallowed_and_the_rest_is_closed) {
    list().Refresh();
    data.trace.clear();
    data.closing_fails = true;
    list().CloseRecordset();
    EXPECT_THAT(data.trace, ElementsAre("Recordset.Close", "Connection.Close"));
    EXPECT_EQ(list().Recordset(), nullptr);
}

TEST_F(RecordSourceOfAList, closing_leaves_settings_and_rows) {
    list().Refresh();
    list().CloseAll();
    EXPECT_EQ(list().Connect(), "Provider=script;Data Source=x");
    EXPECT_EQ(list().Recordsource(), "persone");
    EXPECT_EQ(list().Rows(), 1);
}

TEST_F(RecordSourceOfAList, Refresh_closes_the_hosts_recordset_and_takes_its_own) {
    auto connection = data.CreateConnection();
    connection->Open("host", "", "", -1);
    auto hosts = data.CreateRecordset();
    hosts->Open("altro", connection, 0, 1, -1);
    list().SetRecordset(hosts);
    EXPECT_EQ(list().Recordset(), hosts);
    data.trace.clear();
    list().Refresh();
    EXPECT_EQ(data.trace.front(), "Recordset.Close");
    EXPECT_EQ(hosts->State(), 0);
    EXPECT_EQ(hosts.use_count(), 1);
    EXPECT_NE(list().Recordset(), hosts);
    EXPECT_EQ(connection->State(), 1);
}

TEST_F(RecordSourceOfAList, the_host_may_use_the_control_while_a_box_is_open) {
    data.source_fails = true;
    on_message = [this](const std::string&) {
        data.source_fails = false;
        list().Refresh();
    };
    list().Refresh();
    EXPECT_EQ(list().Rows(), 1);
    EXPECT_EQ(list().Recordset()->State(), 1);
}

TEST_F(RecordSourceOfAList, the_host_may_destroy_the_control_while_a_box_is_open) {
    data.connection_fails = true;
    on_message = [this](const std::string&) { destroy(); };
    list().Refresh();
    EXPECT_FALSE(alive());
}

} // namespace
} // namespace krv
