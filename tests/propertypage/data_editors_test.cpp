#include "propertypage/page_fixture.h"

namespace krv::propertypage {

namespace {

using namespace testing;

const std::string PROVIDER = "Using this property will set a Jet.OLEDB Provider. Ok?|yesno";
const std::string BUILD = "build list structure?|yesno";

class DataEditorsTest : public PageTest {
protected:
    void SetUp() override {
        load(2);
        data.field_names = {"codice", "nome", "saldo"};
        data.field_types = {3, 202, 6};
        data.field_sizes = {4, 50, 8};
    }

    void ask_file(std::function<std::optional<std::string>()> file) {
        editors->file_dialog().set_ask(
            [this, file = std::move(file)](const headless::ShownFileDialog& dialog) {
                dialogs.push_back(dialog);
                return file();
            });
    }

    /// Types connection and record source and leaves the latter.
    void open_source(const std::string& source = "clienti") {
        type("txConnection", "Provider=x;");
        fill("txRecordSource", source);
    }

    Lines fields() {
        Lines names;
        for (std::int16_t i = 0; i < parts().cmbDataField.ListCount(); ++i) {
            names.push_back(parts().cmbDataField.List(i));
        }
        return names;
    }

    std::vector<headless::ShownFileDialog> dialogs;
};

TEST_F(DataEditorsTest, a_double_click_on_the_database_name_chooses_a_file) {
    ask_file([] { return "c:\\db.mdb"; });
    editors->double_click(editor("txtDataBaseName"));
    EXPECT_EQ(dialogs,
              (std::vector<headless::ShownFileDialog>{{"Selezione DataBase", "*.mdb", "c:\\"}}));
    EXPECT_EQ(parts().txtDataBaseName.Text(), "c:\\db.mdb");
    EXPECT_TRUE(site.changed);
    EXPECT_EQ(parts().txConnection.Text(), "");
}

TEST_F(DataEditorsTest, an_empty_file_name_is_taken_as_it_is) {
    type("txtDataBaseName", "old.mdb");
    ask_file([] { return ""; });
    editors->double_click(editor("txtDataBaseName"));
    EXPECT_EQ(parts().txtDataBaseName.Text(), "");
}

TEST_F(DataEditorsTest, a_dialog_that_is_cancelled_or_fails_leaves_the_name) {
    type("txtDataBaseName", "old.mdb");
    ask_file([] { return std::optional<std::string>(); });
    editors->double_click(editor("txtDataBaseName"));
    for (const std::int32_t number : {-2147467259, 0, 1, 20476}) {
        ask_file([number]() -> std::optional<std::string> {
            throw platform::RuntimeError(number, "no", "test");
        });
        editors->double_click(editor("txtDataBaseName"));
    }
    EXPECT_EQ(dialogs.size(), 5U);
    EXPECT_EQ(parts().txtDataBaseName.Text(), "old.mdb");
    EXPECT_EQ(messages(), Lines{});
}

TEST_F(DataEditorsTest, leaving_an_empty_database_name_does_nothing) {
    type("txConnection", "Provider=x;");
    leave("txtDataBaseName");
    EXPECT_EQ(messages(), Lines{});
    EXPECT_EQ(parts().txConnection.Text(), "Provider=x;");
}

TEST_F(DataEditorsTest, leaving_a_database_name_derives_an_empty_connection_without_asking) {
    fill("txtDataBaseName", "c:\\db.mdb");
    EXPECT_EQ(messages(), Lines{});
    EXPECT_EQ(parts().txConnection.Text(),
              "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=c:\\db.mdb;");
}

TEST_F(DataEditorsTest, another_connection_is_replaced_at_yes) {
    type("txConnection", "Provider=x;");
    fill("txtDataBaseName", "a");
    EXPECT_EQ(messages(), Lines{PROVIDER});
    EXPECT_EQ(parts().txConnection.Text(), "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=a;");
}

TEST_F(DataEditorsTest, at_no_the_database_name_is_emptied_and_the_connection_stays) {
    type("txConnection", "Provider=x;");
    answer_no();
    fill("txtDataBaseName", "a");
    EXPECT_EQ(parts().txtDataBaseName.Text(), "");
    EXPECT_EQ(parts().txConnection.Text(), "Provider=x;");
    leave("txtDataBaseName");
    EXPECT_EQ(messages(), Lines{PROVIDER});
}

TEST_F(DataEditorsTest, a_record_source_needs_a_connection_and_a_text) {
    fill("txRecordSource", "clienti");
    type("txConnection", "Provider=x;");
    fill("txRecordSource", "");
    EXPECT_EQ(data.trace, Lines{});
    EXPECT_EQ(messages(), Lines{});
    EXPECT_FALSE(page->pageDataOpen());
}

TEST_F(DataEditorsTest, a_record_source_is_opened_with_nothing_specified) {
    answer_no();
    open_source();
    EXPECT_EQ(data.trace,
              (Lines{"CreateConnection",
                     "CreateRecordset",
                     "Connection.Open(Provider=x;|||-1)",
                     "Recordset.Open(clienti|open|-1|-1|-1)"}));
    EXPECT_EQ(messages(), Lines{BUILD});
    EXPECT_TRUE(page->pageDataOpen());
    EXPECT_EQ(tabs().size(), 2U);
    EXPECT_EQ(trace, Lines{});
}

TEST_F(DataEditorsTest, a_database_that_does_not_open_is_shown) {
    data.connection_fails = true;
    open_source();
    EXPECT_EQ(messages(), Lines{"Error opening database|ok"});
    EXPECT_FALSE(page->pageDataOpen());
    EXPECT_EQ(focused(), "");
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"caption 0", "caption 1"}));
}

TEST_F(DataEditorsTest, a_record_source_that_does_not_open_is_shown_and_gets_the_focus_back) {
    data.source_fails = true;
    open_source();
    EXPECT_EQ(messages(), Lines{"Error in RecordSource: no such table|ok"});
    EXPECT_FALSE(page->pageDataOpen());
    EXPECT_EQ(focused(), "txRecordSource");
}

TEST_F(DataEditorsTest, data_once_open_count_as_open_for_ever) {
    answer_no();
    open_source();
    enter("cmbDataField");
    EXPECT_EQ(fields(), (Lines{"codice", "nome", "saldo"}));
    data.connection_fails = true;
    open_source();
    EXPECT_TRUE(page->pageDataOpen());
    enter("txtCaption");
    enter("cmbDataField");
    EXPECT_EQ(fields(), Lines{});
}

TEST_F(DataEditorsTest, yes_builds_a_column_for_each_field) {
    open_source();
    EXPECT_EQ(messages(), Lines{BUILD});
    EXPECT_EQ(parts().txtCols.Text(), "3");
    EXPECT_EQ(tabs(), (Lines{"col0", "col1", "col2"}));
    const PageColumns& columns = page->columns();
    EXPECT_EQ(columns.colCaptions, data.field_names);
    EXPECT_EQ(columns.colDataFields, data.field_names);
    EXPECT_EQ(columns.colFieldTypes, data.field_types);
    EXPECT_EQ(columns.colFieldLengths, (std::vector<std::int16_t>{9, 50, 9}));
    EXPECT_EQ(columns.colFormats, (std::vector<std::string>{"########0", "", "###,###,##0"}));
    EXPECT_EQ(columns.colWidths, (std::vector<std::int16_t>{800, 6500, 900}));
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 3);
    EXPECT_EQ(fields(), data.field_names);
    EXPECT_FALSE(parts().cmbDataType.Enabled());
}

TEST_F(DataEditorsTest, building_fewer_columns_asks) {
    load(5);
    open_source();
    EXPECT_EQ(messages(), (Lines{BUILD, ERASE}));
    EXPECT_EQ(tabs().size(), 3U);
    EXPECT_EQ(page->columns().colCaptions, data.field_names);
}

TEST_F(DataEditorsTest, columns_that_are_kept_stay_as_they_are_behind_the_last_field) {
    load(5);
    on_message = [this](const std::string& text) {
        if (text.starts_with("build")) {
            answer_no(); // to the question that follows
        }
    };
    open_source();
    EXPECT_EQ(messages(), (Lines{BUILD, ERASE}));
    EXPECT_EQ(parts().txtCols.Text(), "5");
    EXPECT_EQ(page->columns().colCaptions,
              (std::vector<std::string>{"codice", "nome", "saldo", "caption 3", "caption 4"}));
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 3);
}

TEST_F(DataEditorsTest, a_source_without_fields_builds_one_empty_column) {
    data.field_names = {};
    open_source();
    EXPECT_EQ(tabs(), Lines{"col0"});
    EXPECT_EQ(page->columns().colCaptions, std::vector<std::string>{"caption 0"});
    EXPECT_EQ(parts().txtCols.Text(), "1");
}

TEST_F(DataEditorsTest, more_fields_than_columns_can_be_are_error_6_and_change_nothing) {
    data.field_names.assign(32768, "f");
    EXPECT_EQ(error_number_of([&] { open_source(); }), 6);
    EXPECT_EQ(tabs().size(), 2U);
    EXPECT_EQ(parts().txtCols.Text(), "2");
    EXPECT_TRUE(page->pageDataOpen());
}

TEST_F(DataEditorsTest, a_field_of_an_unknown_type_stops_the_building) {
    data.field_types = {3, 9, 6};
    EXPECT_EQ(error_number_of([&] { open_source(); }), 381);
    EXPECT_EQ(tabs().size(), 3U);
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"codice", "nome", ""}));
    EXPECT_EQ(page->columns().colDataFields, (std::vector<std::string>{"codice", "nome", ""}));
    EXPECT_EQ(page->columns().colFieldTypes, (std::vector<std::int16_t>{3, 0, 0}));
}

TEST_F(DataEditorsTest, the_field_list_is_empty_until_data_are_open) {
    enter("cmbDataField");
    EXPECT_EQ(fields(), Lines{});
}

TEST_F(DataEditorsTest, filling_the_list_selects_the_entry_that_equals_the_text_without_a_click) {
    type("cmbDataField", "nome");
    answer_no();
    open_source();
    forget();
    enter("cmbDataField");
    EXPECT_EQ(parts().cmbDataField.Text(), "nome");
    EXPECT_EQ(parts().cmbDataField.ListIndex(), 1);
    EXPECT_EQ(site.marks, 0);
    EXPECT_EQ(page->columns().colFieldTypes[0], 0);
    type("cmbDataField", "Nome");
    enter("txtCaption");
    enter("cmbDataField");
    EXPECT_EQ(parts().cmbDataField.ListIndex(), -1);
}

} // namespace

} // namespace krv::propertypage
