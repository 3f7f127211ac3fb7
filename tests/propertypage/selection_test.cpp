#include "propertypage/page_fixture.h"

namespace krv::propertypage {

namespace {

using namespace testing;

Lines of_columns(const Lines& members, const std::string& verb, std::int32_t cols) {
    Lines lines;
    for (std::int32_t col = 0; col < cols; ++col) {
        for (const std::string& member : members) {
            lines.push_back(verb + " " + member + "(" + std::to_string(col) + ")");
        }
    }
    return lines;
}

Lines operator+(Lines left, const Lines& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

const Lines load_order = {"Caption",
                          "ColWidth",
                          "ColAlignment",
                          "ColEditable",
                          "ColDataField",
                          "ColIsNecessary",
                          "ColFieldLength",
                          "ColFormat",
                          "ColFieldType"};

class SelectionTest : public PageTest {
protected:
    /// A control whose second column has settings of every kind.
    std::shared_ptr<ScriptedControl> full_control() {
        auto control = make_control(2);
        control->set("Caption(1)", "Nome");
        control->set("ColWidth(1)", 1100);
        control->set("ColAlignment(1)", 7);
        control->set("ColEditable(1)", true);
        control->set("ColDataField(1)", "nome");
        control->set("ColIsNecessary(1)", true);
        control->set("ColFieldLength(1)", 30);
        control->set("ColFormat(1)", "0.00");
        control->set("ColFieldType(1)", 202);
        return control;
    }

    void select(std::shared_ptr<ScriptedControl> control) {
        site.selection = {std::move(control)};
        page->SelectionChanged();
    }

    /// What was put, without the values.
    Lines put_members() {
        Lines lines;
        for (const std::string& line : trace) {
            lines.push_back(line.substr(0, line.find(' ', line.find(' ') + 1)));
        }
        return lines;
    }
};

TEST_F(SelectionTest, loading_reads_every_property_in_its_order) {
    select(make_control(2));
    const Lines wide = {"get AutoAdd",
                        "get OkVisible",
                        "get CopyVisible",
                        "get DeleteVisible",
                        "get InsertVisible",
                        "get AddVisible",
                        "get Rows",
                        "get LineNumberColumn",
                        "get Enabled",
                        "get DataBaseName",
                        "get Cols",
                        "get Recordsource",
                        "get Connect"};
    EXPECT_EQ(trace, wide + of_columns(load_order, "get", 2));
    EXPECT_EQ(messages(), Lines{});
}

TEST_F(SelectionTest, loading_fills_the_editors_of_the_list) {
    auto control = make_control(3);
    for (const char* flag : {"OkVisible", "DeleteVisible", "Enabled"}) {
        control->set(flag, true);
    }
    control->set("Rows", 12);
    control->set("LineNumberColumn", -1);
    control->set("DataBaseName", "c:\\db.mdb");
    control->set("Recordsource", "clienti");
    control->set("Connect", "Provider=x;");
    select(control);
    const PageEditors shown = parts();
    EXPECT_EQ((Numbers{shown.chkAutoAdd.Value(),
                       shown.chkOkVisible.Value(),
                       shown.chkCopyVisible.Value(),
                       shown.chkDeleteVisible.Value(),
                       shown.chkInsertVisible.Value(),
                       shown.chkAddVisible.Value(),
                       shown.chkEnabled.Value()}),
              (Numbers{0, 1, 0, 1, 0, 0, 1}));
    EXPECT_EQ((Lines{shown.txtRows.Text(),
                     shown.txtLineNumberColumn.Text(),
                     shown.txtDataBaseName.Text(),
                     shown.txtCols.Text(),
                     shown.txRecordSource.Text(),
                     shown.txConnection.Text()}),
              (Lines{"12", "-1", "c:\\db.mdb", "3", "clienti", "Provider=x;"}));
    EXPECT_EQ(data.trace, Lines{});
}

TEST_F(SelectionTest, a_flag_is_its_low_bit) {
    auto control = make_control(1);
    control->set("AutoAdd", 2);
    control->set("OkVisible", 3);
    select(control);
    EXPECT_EQ(parts().chkAutoAdd.Value(), 0);
    EXPECT_EQ(parts().chkOkVisible.Value(), 1);
}

TEST_F(SelectionTest, loading_fills_the_arrays_and_shows_the_first_column) {
    select(full_control());
    const PageColumns& columns = page->columns();
    EXPECT_EQ(columns.colCaptions, (std::vector<std::string>{"caption 0", "Nome"}));
    EXPECT_EQ(columns.colWidths, (std::vector<std::int16_t>{0, 1100}));
    EXPECT_EQ(columns.colAlignments, (std::vector<std::int32_t>{0, 7}));
    EXPECT_EQ(columns.colEditable, (std::vector<bool>{false, true}));
    EXPECT_EQ(columns.colDataFields, (std::vector<std::string>{"", "nome"}));
    EXPECT_EQ(columns.colNecessary, (std::vector<bool>{false, true}));
    EXPECT_EQ(columns.colFieldLengths, (std::vector<std::int16_t>{0, 30}));
    EXPECT_EQ(columns.colFormats, (std::vector<std::string>{"", "0.00"}));
    EXPECT_EQ(columns.colFieldTypes, (std::vector<std::int16_t>{0, 202}));
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 1);
    EXPECT_EQ(parts().txtCaption.Text(), "caption 0");
}

TEST_F(SelectionTest, the_page_is_not_changed_once_loaded) {
    select(full_control());
    EXPECT_GT(site.marks, 0);
    EXPECT_FALSE(site.changed);
}

TEST_F(SelectionTest, only_the_first_control_is_read_and_written) {
    const auto first = full_control();
    const auto second = std::make_shared<ScriptedControl>(trace);
    second->gone = true; // it would fail if it were asked
    site.selection = {first, second};
    page->SelectionChanged();
    page->ApplyChanges();
    EXPECT_EQ(parts().txtCols.Text(), "2");
}

TEST_F(SelectionTest, an_empty_selection_is_error_9_and_one_that_is_gone_91) {
    load(2);
    site.changed = true;
    site.selection = {};
    EXPECT_EQ(error_number_of([&] { page->SelectionChanged(); }), 9);
    EXPECT_EQ(error_number_of([&] { page->ApplyChanges(); }), 9);
    site.selection = {make_control(1)};
    site.selection[0]->gone = true;
    EXPECT_EQ(error_number_of([&] { page->SelectionChanged(); }), 91);
    EXPECT_EQ(error_number_of([&] { page->ApplyChanges(); }), 91);
    EXPECT_EQ(site.marks, 0);
    EXPECT_EQ(trace, Lines{});
    EXPECT_TRUE(site.changed);
}

TEST_F(SelectionTest, a_value_that_does_not_fit_stops_the_loading) {
    auto control = make_control(2);
    control->set("ColWidth(1)", 32768);
    site.selection = {control};
    EXPECT_EQ(error_number_of([&] { page->SelectionChanged(); }), 6);
    EXPECT_EQ(trace.back(), "get ColWidth(1)");
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"caption 0", "caption 1"}));
    EXPECT_TRUE(site.changed);
}

TEST_F(SelectionTest, widths_and_lengths_of_16_bits_fit) {
    auto control = make_control(1);
    control->set("ColWidth(0)", 32767);
    control->set("ColFieldLength(0)", -32768);
    control->set("ColAlignment(0)", 2147483647);
    select(control);
    EXPECT_EQ(parts().txtColWidth.Text(), "32767");
    EXPECT_EQ(parts().txtFieldLength.Text(), "-32768");
    EXPECT_EQ(page->columns().colAlignments[0], 0);
}

TEST_F(SelectionTest, a_list_of_more_than_32767_columns_is_not_read) {
    load(2);
    site.selection = {std::make_shared<ScriptedControl>(trace)};
    site.selection[0]->set("Cols", 32768);
    EXPECT_EQ(error_number_of([&] { page->SelectionChanged(); }), 6);
    EXPECT_EQ(trace.back(), "get Cols");
    EXPECT_EQ(tabs().size(), 2U);
    EXPECT_EQ(page->columns().colCaptions.size(), 2U);
}

TEST_F(SelectionTest, a_list_of_32767_columns_is_read) {
    auto control = std::make_shared<ScriptedControl>(trace);
    control->set("Cols", 32767);
    control->set("Caption(32766)", "last");
    select(control);
    EXPECT_EQ(parts().TabStrip1.Count(), 32767);
    EXPECT_EQ(page->columns().colCaptions.back(), "last");
}

TEST_F(SelectionTest, tabs_beyond_the_columns_are_asked_about_and_keep_their_entries_at_no) {
    load(4);
    answer_no();
    auto control = make_control(2);
    control->set("Caption(0)", "new");
    select(control);
    EXPECT_EQ(messages(), Lines{ERASE});
    EXPECT_EQ(page->columns().colCaptions,
              (std::vector<std::string>{"new", "caption 1", "caption 2", "caption 3"}));
    EXPECT_EQ(parts().txtCols.Text(), "4");
    EXPECT_EQ(trace.back(), "get ColFieldType(1)");
    EXPECT_FALSE(site.changed);
}

TEST_F(SelectionTest, nothing_of_an_earlier_selection_is_left) {
    auto control = full_control();
    control->set("Connect", "Provider=x;");
    control->set("AutoAdd", true);
    select(control);
    select(make_control(1));
    EXPECT_EQ(messages(), Lines{ERASE});
    EXPECT_EQ(tabs(), Lines{"col0"});
    EXPECT_EQ(parts().txConnection.Text(), "");
    EXPECT_EQ(parts().chkAutoAdd.Value(), 0);
    EXPECT_EQ(page->columns().colCaptions, std::vector<std::string>{"caption 0"});
}

TEST_F(SelectionTest, applying_writes_every_property_in_its_order_and_kind) {
    select(full_control());
    type("txtRows", "4");
    type("txtLineNumberColumn", "1");
    type("txtDataBaseName", "d.mdb");
    type("txRecordSource", "clienti");
    type("txConnection", "Provider=x;");
    click("chkAutoAdd");
    trace.clear();
    page->ApplyChanges();
    const Lines wanted = {"put AutoAdd True",
                          "put OkVisible False",
                          "put CopyVisible False",
                          "put DeleteVisible False",
                          "put InsertVisible False",
                          "put AddVisible False",
                          "put Cols '2'",
                          "put Rows '4'",
                          "put LineNumberColumn '1'",
                          "put Enabled False",
                          "put DataBaseName 'd.mdb'",
                          "put Connect 'Provider=x;'",
                          "put Recordsource 'clienti'",
                          "put ColWidth(0) 0",
                          "put ColAlignment(0) 0",
                          "put Caption(0) 'caption 0'",
                          "put ColEditable(0) False",
                          "put ColDataField(0) ''",
                          "put ColIsNecessary(0) False",
                          "put ColFieldLength(0) 0",
                          "put ColFormat(0) ''",
                          "put ColFieldType(0) 0",
                          "put ColWidth(1) 1100",
                          "put ColAlignment(1) 7",
                          "put Caption(1) 'Nome'",
                          "put ColEditable(1) True",
                          "put ColDataField(1) 'nome'",
                          "put ColIsNecessary(1) True",
                          "put ColFieldLength(1) 30",
                          "put ColFormat(1) '0.00'",
                          "put ColFieldType(1) 202"};
    EXPECT_EQ(trace, wanted);
    EXPECT_FALSE(site.changed);
    EXPECT_EQ(parts().txtRows.Text(), "4");
}

TEST_F(SelectionTest, the_message_loop_turns_once_behind_the_column_count) {
    load(1);
    editors->editors().txtRows.SetFocus();
    Lines at_turn;
    parts().txtRows.SetEvents(nullptr);

    struct Watch final : platform::EditorEvents {
        void GotFocus() override { at_focus(); }

        std::function<void()> at_focus;
    } watch;

    watch.at_focus = [&] { at_turn = trace; };
    parts().txtRows.SetEvents(&watch);
    page->ApplyChanges();
    ASSERT_FALSE(at_turn.empty());
    EXPECT_EQ(at_turn.back(), "put Cols '1'");
    EXPECT_EQ(at_turn.size(), 7U);
    parts().txtRows.SetEvents(nullptr);
}

TEST_F(SelectionTest, raising_the_column_count_applies_empty_columns) {
    ScriptedControl& control = load(3);
    type("txtCols", "5");
    trace.clear();
    page->ApplyChanges();
    EXPECT_EQ(messages(), Lines{});
    const Lines last(trace.end() - 9, trace.end());
    EXPECT_EQ(last,
              (Lines{"put ColWidth(4) 0",
                     "put ColAlignment(4) 0",
                     "put Caption(4) ''",
                     "put ColEditable(4) False",
                     "put ColDataField(4) ''",
                     "put ColIsNecessary(4) False",
                     "put ColFieldLength(4) 0",
                     "put ColFormat(4) ''",
                     "put ColFieldType(4) 0"}));
    EXPECT_EQ(shown(control.values["Cols"]), "'5'");
}

TEST_F(SelectionTest, applying_fewer_columns_asks_before_anything_is_written) {
    load(3);
    type("txtCols", "2");
    on_message = [&](const std::string&) { EXPECT_EQ(trace, Lines{}); };
    page->ApplyChanges();
    EXPECT_EQ(messages(), Lines{ERASE});
    EXPECT_EQ(put_members().size(), 13U + 2 * 9);
}

TEST_F(SelectionTest, no_to_fewer_columns_applies_them_all) {
    load(3);
    type("txtCols", "2");
    answer_no();
    page->ApplyChanges();
    EXPECT_EQ(trace[6], "put Cols '3'");
    EXPECT_EQ(put_members().size(), 13U + 3 * 9);
}

TEST_F(SelectionTest, too_many_columns_are_not_applied) {
    load(2);
    type("txtCols", "32768");
    EXPECT_EQ(error_number_of([&] { page->ApplyChanges(); }), 6);
    EXPECT_EQ(trace, Lines{});
    EXPECT_TRUE(site.changed);
}

TEST_F(SelectionTest, an_error_of_the_control_stops_the_applying_where_it_is) {
    ScriptedControl& control = load(2);
    control.acts["put Caption(1) 'caption 1'"] = [] {
        throw platform::RuntimeError(30014, "no", "test");
    };
    type("txtRows", "9");
    trace.clear();
    EXPECT_EQ(error_number_of([&] { page->ApplyChanges(); }), 30014);
    EXPECT_EQ(trace.back(), "put Caption(1) 'caption 1'");
    EXPECT_EQ(shown(control.values["Rows"]), "'9'");
    EXPECT_TRUE(site.changed);
}

TEST_F(SelectionTest, a_control_that_goes_while_it_is_written_is_error_91) {
    ScriptedControl& control = load(1);
    control.acts["put Cols '1'"] = [&] { control.gone = true; };
    EXPECT_EQ(error_number_of([&] { page->ApplyChanges(); }), 91);
    EXPECT_EQ(trace.back(), "put Cols '1'");
}

TEST_F(SelectionTest, columns_typed_in_the_turn_that_have_no_entries_are_error_9) {
    ScriptedControl& control = load(1);
    control.acts["put Cols '1'"] = [&] { parts().txtCols.SetText("3"); };
    EXPECT_EQ(error_number_of([&] { page->ApplyChanges(); }), 9);
    EXPECT_EQ(trace.back(), "put ColFieldType(0) 0");
}

} // namespace

} // namespace krv::propertypage
