#include "propertypage/page_fixture.h"

namespace krv::propertypage {

namespace {

using namespace testing;

class ColumnEditorsTest : public PageTest {
protected:
    /// Loads two columns and shows the second one.
    void SetUp() override {
        load(2);
        click("TabStrip1", 2);
        forget();
    }

    /// Marks the page once, and stores by then or not.
    void expect_marked() {
        EXPECT_EQ(site.marks, 1);
        site.marks = 0;
    }
};

TEST_F(ColumnEditorsTest, texts_are_stored_for_the_selected_column) {
    type("txtCaption", "Nome");
    expect_marked();
    type("txtFormat", "0.00");
    expect_marked();
    type("cmbDataField", "nome");
    expect_marked();
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"caption 0", "Nome"}));
    EXPECT_EQ(page->columns().colFormats, (std::vector<std::string>{"", "0.00"}));
    EXPECT_EQ(page->columns().colDataFields, (std::vector<std::string>{"", "nome"}));
}

TEST_F(ColumnEditorsTest, numbers_are_what_the_text_begins_with) {
    const std::vector<std::pair<std::string, std::int16_t>> texts = {{"12", 12},
                                                                     {"12 twips", 12},
                                                                     {"x12", 0},
                                                                     {"-7", -7},
                                                                     {"", 0},
                                                                     {"2.5", 2},
                                                                     {"3.5", 4},
                                                                     {"2,9", 2},
                                                                     {"32767.4", 32767},
                                                                     {"-32768", -32768}};
    for (const auto& [text, number] : texts) {
        type("txtColWidth", text);
        type("txtFieldLength", text);
        EXPECT_EQ(page->columns().colWidths, (std::vector<std::int16_t>{0, number})) << text;
        EXPECT_EQ(page->columns().colFieldLengths, (std::vector<std::int16_t>{0, number})) << text;
    }
}

TEST_F(ColumnEditorsTest, a_number_that_does_not_fit_is_error_6_and_not_stored) {
    type("txtColWidth", "5");
    site.marks = 0;
    for (const char* text : {"32768", "-32769", "1e300", "32767.5"}) {
        EXPECT_EQ(error_number_of([&] { type("txtColWidth", text); }), 6) << text;
        expect_marked();
        EXPECT_EQ(parts().txtColWidth.Text(), text);
    }
    EXPECT_EQ(page->columns().colWidths, (std::vector<std::int16_t>{0, 5}));
}

TEST_F(ColumnEditorsTest, flags_are_stored_for_the_selected_column) {
    click("chkEditable");
    click("chkIsNecessary");
    EXPECT_EQ(page->columns().colEditable, (std::vector<bool>{false, true}));
    EXPECT_EQ(page->columns().colNecessary, (std::vector<bool>{false, true}));
    EXPECT_EQ(site.marks, 2);
    click("chkEditable");
    EXPECT_EQ(page->columns().colEditable, (std::vector<bool>{false, false}));
}

TEST_F(ColumnEditorsTest, alignments_are_stored_by_their_position) {
    Numbers stored;
    for (const std::int32_t position : {0, 1, 2, 3}) {
        click("cmbAlignment", position);
        stored.push_back(page->columns().colAlignments[1]);
    }
    EXPECT_EQ(stored, (Numbers{0, 1, 7, 4}));
    EXPECT_EQ(page->columns().colAlignments[0], 0);
    EXPECT_EQ(site.marks, 4);
}

TEST_F(ColumnEditorsTest, a_type_is_stored_as_its_code) {
    click("cmbDataType", 35);
    expect_marked();
    EXPECT_EQ(page->columns().colFieldTypes, (std::vector<std::int16_t>{0, 202}));
}

TEST_F(ColumnEditorsTest, editors_of_the_list_only_mark_the_page) {
    for (const char* name : {"chkAutoAdd",
                             "chkOkVisible",
                             "chkCopyVisible",
                             "chkDeleteVisible",
                             "chkInsertVisible",
                             "chkAddVisible",
                             "chkEnabled"}) {
        site.changed = false;
        click(name);
        expect_marked();
        EXPECT_TRUE(site.changed);
    }
    for (const char* name : {"txtCols",
                             "txtRows",
                             "txtLineNumberColumn",
                             "txtDataBaseName",
                             "txRecordSource",
                             "txConnection"}) {
        type(name, "7");
        expect_marked();
    }
    EXPECT_EQ(tabs().size(), 2U);
    EXPECT_EQ(trace, Lines{});
    EXPECT_EQ(data.trace, Lines{});
}

TEST_F(ColumnEditorsTest, a_handler_of_the_designer_that_fails_keeps_the_value_out) {
    site.on_mark = [] { throw platform::RuntimeError(1000, "no", "host"); };
    EXPECT_EQ(error_number_of([&] { type("txtCaption", "x"); }), 1000);
    EXPECT_EQ(page->columns().colCaptions[1], "caption 1");
}

class ShownColumnTest : public PageTest {
protected:
    void show(const std::string& property, std::int32_t value) {
        auto control = make_control(1);
        control->set(property + "(0)", value);
        site.selection = {control};
        page->SelectionChanged();
    }
};

TEST_F(ShownColumnTest, every_setting_is_shown) {
    auto control = make_control(2);
    control->set("ColWidth(1)", 1100);
    control->set("ColAlignment(1)", 4);
    control->set("ColEditable(1)", true);
    control->set("ColIsNecessary(1)", true);
    control->set("ColDataField(1)", "nome");
    control->set("ColFieldType(1)", 6);
    control->set("ColFormat(1)", "0.00");
    control->set("ColFieldLength(1)", 30);
    site.selection = {control};
    page->SelectionChanged();
    click("TabStrip1", 2);
    const PageEditors seen = parts();
    EXPECT_EQ((Lines{seen.txtColWidth.Text(),
                     seen.cmbAlignment.Text(),
                     seen.txtCaption.Text(),
                     seen.cmbDataField.Text(),
                     seen.cmbDataType.Text(),
                     seen.txtFormat.Text(),
                     seen.txtFieldLength.Text()}),
              (Lines{"1100", "Center align", "caption 1", "nome", "Currency", "0.00", "30"}));
    EXPECT_EQ(seen.chkEditable.Value(), 1);
    EXPECT_EQ(seen.chkIsNecessary.Value(), 1);
    EXPECT_EQ(seen.cmbDataField.ListIndex(), -1);
    EXPECT_TRUE(site.changed);
}

TEST_F(ShownColumnTest, an_unknown_alignment_is_shown_as_automatic_and_becomes_0) {
    for (const std::int32_t odd : {2, 3, 5, 6, 8, 9, -1}) {
        show("ColAlignment", odd);
        EXPECT_EQ(parts().cmbAlignment.ListIndex(), 0) << odd;
        EXPECT_EQ(page->columns().colAlignments[0], 0) << odd;
    }
    const std::vector<std::pair<std::int32_t, std::int16_t>> known = {
        {0, 0}, {1, 1}, {7, 2}, {4, 3}};
    for (const auto& [value, position] : known) {
        show("ColAlignment", value);
        EXPECT_EQ(parts().cmbAlignment.ListIndex(), position);
        EXPECT_EQ(page->columns().colAlignments[0], value);
    }
}

TEST_F(ShownColumnTest, a_type_that_is_not_in_the_list_shows_none_and_stays) {
    show("ColFieldType", 9);
    EXPECT_EQ(parts().cmbDataType.ListIndex(), -1);
    EXPECT_EQ(page->columns().colFieldTypes[0], 9);
    show("ColFieldType", 0);
    EXPECT_EQ(parts().cmbDataType.ListIndex(), 13);
}

TEST_F(ShownColumnTest, the_fourth_tab_shows_entry_3) {
    load(4);
    click("TabStrip1", 4);
    EXPECT_EQ(tabs()[3], "col3");
    EXPECT_EQ(parts().txtCaption.Text(), "caption 3");
}

TEST_F(ShownColumnTest, a_column_that_was_not_shown_keeps_its_odd_alignment) {
    auto control = make_control(2);
    control->set("ColAlignment(0)", 2);
    control->set("ColAlignment(1)", 2);
    site.selection = {control};
    page->SelectionChanged();
    EXPECT_EQ(page->columns().colAlignments, (std::vector<std::int32_t>{0, 2}));
}

TEST_F(ShownColumnTest, an_error_while_a_column_is_shown_comes_out_and_the_rest_is_not_shown) {
    load(2);
    auto marks = 0;
    site.on_mark = [&] {
        if (++marks == 2) { // the alignment, told whenever it is shown, then the caption
            throw platform::RuntimeError(1000, "no", "host");
        }
    };
    EXPECT_EQ(error_number_of([&] { click("TabStrip1", 2); }), 1000);
    EXPECT_EQ(parts().txtCaption.Text(), "caption 1");
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"caption 0", "caption 1"}));
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 2);
}

} // namespace

} // namespace krv::propertypage
