#include "propertypage/page_fixture.h"

#include "propertypage/page_columns.h"

namespace krv::propertypage {

namespace {

using namespace testing;

class PageSetupTest : public PageTest {};

Lines entries(const platform::ComboBox& list) {
    Lines texts;
    for (std::int16_t i = 0; i < list.ListCount(); ++i) {
        texts.push_back(list.List(i) + " " + std::to_string(list.ItemData(i)));
    }
    return texts;
}

TEST_F(PageSetupTest, the_type_list_has_37_types_with_their_codes) {
    const Lines types = {"Big Integer 20",
                         "Binary 128",
                         "Boolean 11",
                         "Byte String 8",
                         "Chapter 136",
                         "Char (string) 129",
                         "Currency 6",
                         "Date/Time 7",
                         "Date 133",
                         "Time 134",
                         "TimeStamp 135",
                         "Decimal 14",
                         "Double 5",
                         "Empty 0",
                         "ErrorCode 10",
                         "FileTime 64",
                         "Guid 72",
                         "Long 3",
                         "LongVarBinary 205",
                         "LongVarChar 201",
                         "LongWChar 203",
                         "Numeric 131",
                         "PropVariant 138",
                         "Single 4",
                         "Integer 2",
                         "TinyInteger 16",
                         "UnsignedBigInteger 21",
                         "UnsignedLong 19",
                         "UnsignedInteger 18",
                         "UnsignedTinyInteger 17",
                         "UserDefined 132",
                         "VarBinary 204",
                         "VarChar(String) 200",
                         "Variant 12",
                         "VarNumeric 139",
                         "VarWChar(string) 202",
                         "WChar(string) 130"};
    EXPECT_EQ(entries(parts().cmbDataType), types);
}

TEST_F(PageSetupTest, right_stands_before_center_among_the_alignments) {
    const Lines alignments = {"Auto align 0", "Left align 0", "Right align 0", "Center align 0"};
    EXPECT_EQ(entries(parts().cmbAlignment), alignments);
}

TEST_F(PageSetupTest, a_fresh_page_has_no_tabs_selects_nothing_and_is_not_changed) {
    EXPECT_EQ(tabs(), Lines{});
    EXPECT_EQ(parts().cmbDataType.ListIndex(), -1);
    EXPECT_EQ(parts().cmbAlignment.ListIndex(), -1);
    EXPECT_EQ(entries(parts().cmbDataField), Lines{});
    EXPECT_FALSE(page->pageDataOpen());
    EXPECT_EQ(site.marks, 0);
    EXPECT_TRUE(page->columns().colWidths.empty());
}

TEST_F(PageSetupTest, tabs_and_lists_of_an_earlier_page_are_replaced) {
    parts().TabStrip1.Add("left over");
    parts().cmbAlignment.AddItem("left over", 0);
    page.reset();
    page = std::make_unique<pKrvList>(editors->editors(),
                                      PageSurroundings{site, form.application(), data, formatter});
    EXPECT_EQ(tabs(), Lines{});
    EXPECT_EQ(parts().cmbAlignment.ListCount(), 4);
    EXPECT_EQ(parts().cmbDataType.ListCount(), 37);
}

TEST_F(PageSetupTest, a_page_that_is_gone_is_told_nothing) {
    page.reset();
    parts().txtCaption.SetText("x");
    parts().TabStrip1.Add("col0");
    parts().TabStrip1.SetSelectedIndex(1);
    leave("txtCols");
    EXPECT_EQ(site.marks, 0);
    EXPECT_EQ(messages(), Lines{});
}

TEST_F(PageSetupTest, editors_of_columns_fail_with_9_without_a_tab) {
    for (const char* name : {"txtCaption", "txtColWidth", "txtFieldLength", "txtFormat"}) {
        EXPECT_EQ(error_number_of([&] { type(name, "1"); }), 9) << name;
    }
    EXPECT_EQ(error_number_of([&] { type("cmbDataField", "1"); }), 9);
    for (const char* name : {"chkEditable", "chkIsNecessary", "cmbDataType", "cmbAlignment"}) {
        EXPECT_EQ(error_number_of([&] { click(name); }), 9) << name;
    }
    EXPECT_TRUE(site.changed);
}

TEST_F(PageSetupTest, every_editor_has_its_label) {
    Lines labels;
    for (const PageLabel& label : page_labels()) {
        labels.push_back(std::string(label.editor) + " " + std::string(label.label) +
                         (label.scope == EditorScope::column ? " of the column" : ""));
    }
    const Lines wanted = {"txtDataBaseName DataBaseName:",
                          "txRecordSource RecordSource:",
                          "txConnection Connection string",
                          "txtCols Cols:",
                          "txtRows Rows:",
                          "txtLineNumberColumn Line Number Column",
                          "chkOkVisible OkVisible",
                          "chkCopyVisible CopyVisible",
                          "chkDeleteVisible DeleteVisible",
                          "chkInsertVisible InsertVisible",
                          "chkAddVisible AddVisible",
                          "chkEnabled Enabled",
                          "chkAutoAdd AutoAdd",
                          "TabStrip1  of the column",
                          "txtCaption Caption: of the column",
                          "txtColWidth ColWidth: of the column",
                          "cmbAlignment Alignment of the column",
                          "cmbDataField DataField of the column",
                          "cmbDataType DataType of the column",
                          "txtFieldLength FieldLength of the column",
                          "txtFormat Format of the column",
                          "chkEditable Editable of the column",
                          "chkIsNecessary IsNecessary of the column"};
    EXPECT_EQ(labels, wanted);
}

TEST_F(PageSetupTest, the_kind_of_an_editor_is_that_of_its_label) {
    for (const PageLabel& label : page_labels()) {
        headless::PageEditor* const editor = editors->editor(label.editor);
        const bool is_combo = label.kind == EditorKind::list || label.kind == EditorKind::combo;
        EXPECT_EQ(dynamic_cast<platform::EntryBox*>(editor) != nullptr,
                  label.kind == EditorKind::entry);
        EXPECT_EQ(dynamic_cast<platform::CheckBox*>(editor) != nullptr,
                  label.kind == EditorKind::check);
        EXPECT_EQ(dynamic_cast<platform::ComboBox*>(editor) != nullptr, is_combo);
        EXPECT_EQ(dynamic_cast<platform::TabStrip*>(editor) != nullptr,
                  label.kind == EditorKind::tabs);
    }
}

TEST(PageColumnsTest, all_arrays_are_resized_together_and_keep_what_remains) {
    PageColumns columns;
    resize(columns, 2);
    columns.colCaptions[1] = "b";
    columns.colEditable[1] = true;
    resize(columns, 3);
    EXPECT_EQ(columns.colCaptions, (std::vector<std::string>{"", "b", ""}));
    EXPECT_EQ(columns.colEditable, (std::vector<bool>{false, true, false}));
    resize(columns, 1);
    resize(columns, 2);
    EXPECT_EQ(columns.colCaptions, (std::vector<std::string>{"", ""}));
    EXPECT_EQ(columns.colWidths.size(), 2U);
    EXPECT_EQ(columns.colAlignments.size(), 2U);
    EXPECT_EQ(columns.colEditable.size(), 2U);
    EXPECT_EQ(columns.colDataFields.size(), 2U);
    EXPECT_EQ(columns.colFieldTypes.size(), 2U);
    EXPECT_EQ(columns.colNecessary.size(), 2U);
    EXPECT_EQ(columns.colFormats.size(), 2U);
    EXPECT_EQ(columns.colFieldLengths.size(), 2U);
}

TEST(PageColumnsTest, entries_outside_an_array_are_error_9) {
    PageColumns columns;
    EXPECT_EQ(error_number_of([&] { entry(columns.colWidths, 0); }), 9);
    resize(columns, 2);
    entry(columns.colEditable, 1) = true;
    EXPECT_TRUE(entry(columns.colEditable, 1));
    EXPECT_EQ(error_number_of([&] { entry(columns.colWidths, -1); }), 9);
    EXPECT_EQ(error_number_of([&] { entry(columns.colEditable, 2); }), 9);
}

} // namespace

} // namespace krv::propertypage
