#include "propertypage/page_fixture.h"

namespace krv::propertypage {

namespace {

using namespace testing;

const Lines range_message = {"the value is out of range|ok"};

class ColumnCountTest : public PageTest {};

TEST_F(ColumnCountTest, a_greater_count_adds_tabs_and_empty_entries) {
    load(2);
    fill("txtCols", "4");
    EXPECT_EQ(tabs(), (Lines{"col0", "col1", "col2", "col3"}));
    EXPECT_EQ(page->columns().colCaptions,
              (std::vector<std::string>{"caption 0", "caption 1", "", ""}));
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 1);
    EXPECT_EQ(messages(), Lines{});
}

TEST_F(ColumnCountTest, yes_to_a_smaller_count_removes_the_last_tabs) {
    load(5);
    fill("txtCols", "3");
    EXPECT_EQ(messages(), Lines{ERASE});
    EXPECT_EQ(tabs(), (Lines{"col0", "col1", "col2"}));
    EXPECT_EQ(page->columns().colCaptions.size(), 3U);
    EXPECT_EQ(parts().txtCols.Text(), "3");
}

TEST_F(ColumnCountTest, no_to_a_smaller_count_gives_the_count_back) {
    load(5);
    answer_no();
    fill("txtCols", "3");
    EXPECT_EQ(messages(), Lines{ERASE});
    EXPECT_EQ(parts().txtCols.Text(), "5");
    EXPECT_EQ(tabs().size(), 5U);
    EXPECT_EQ(page->columns().colCaptions.size(), 5U);
}

TEST_F(ColumnCountTest, the_same_count_changes_nothing) {
    load(2);
    leave("txtCols");
    EXPECT_EQ(messages(), Lines{});
    EXPECT_EQ(site.marks, 0);
    EXPECT_EQ(tabs().size(), 2U);
}

TEST_F(ColumnCountTest, the_count_is_rounded_and_shown_as_the_number_of_tabs) {
    const std::vector<std::pair<std::string, std::size_t>> counts = {{"2.5", 2},
                                                                     {"3.5", 4},
                                                                     {"1.6", 2},
                                                                     {"4 colonne", 4},
                                                                     {"0.5", 1},
                                                                     {"0", 1},
                                                                     {"-3", 1},
                                                                     {"", 1},
                                                                     {"abc", 1}};
    for (const auto& [text, count] : counts) {
        load(3);
        fill("txtCols", text);
        EXPECT_EQ(tabs().size(), count) << text;
        EXPECT_EQ(page->columns().colWidths.size(), count) << text;
        EXPECT_EQ(parts().txtCols.Text(), std::to_string(count)) << text;
    }
}

TEST_F(ColumnCountTest, more_than_32767_columns_are_error_6_and_32767_are_not) {
    load(2);
    for (const char* text : {"32768", "32767.5", "1e300"}) {
        EXPECT_EQ(error_number_of([&] { fill("txtCols", text); }), 6) << text;
        EXPECT_EQ(tabs().size(), 2U);
        EXPECT_EQ(page->columns().colWidths.size(), 2U);
    }
    fill("txtCols", "32767");
    EXPECT_EQ(parts().TabStrip1.Count(), 32767);
    EXPECT_EQ(parts().TabStrip1.Caption(32767), "col32766");
    fill("txtCols", "2");
    EXPECT_EQ(parts().TabStrip1.Count(), 2);
}

TEST_F(ColumnCountTest, typing_alone_leaves_the_tabs) {
    load(2);
    type("txtCols", "5");
    EXPECT_EQ(tabs().size(), 2U);
}

TEST_F(ColumnCountTest, a_tab_that_is_selected_first_brings_the_tabs_to_the_count) {
    load(2);
    type("txtCols", "5");
    click("TabStrip1", 2);
    EXPECT_EQ(tabs().size(), 5U);
    EXPECT_EQ(parts().txtCaption.Text(), "caption 1");
}

TEST_F(ColumnCountTest, when_the_selected_tab_goes_the_one_selected_now_is_shown) {
    load(4);
    click("TabStrip1", 4);
    fill("txtCols", "2");
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 2);
    EXPECT_EQ(parts().txtCaption.Text(), "caption 1");
    type("txtCaption", "x");
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"caption 0", "x"}));
}

TEST_F(ColumnCountTest, a_selected_tab_that_remains_is_not_shown_again) {
    load(4);
    click("TabStrip1", 2);
    type("txtCols", "3");
    forget();
    leave("txtCols");
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 2);
    EXPECT_EQ(site.marks, 0);
}

TEST_F(ColumnCountTest, a_click_on_a_tab_that_goes_shows_the_new_last_one) {
    load(3);
    type("txtCols", "2");
    click("TabStrip1", 3);
    EXPECT_EQ(messages(), Lines{ERASE});
    EXPECT_EQ(parts().TabStrip1.SelectedIndex(), 2);
    EXPECT_EQ(parts().txtCaption.Text(), "caption 1");
}

TEST_F(ColumnCountTest, tabs_come_without_any_selected_control) {
    fill("txtCols", "2");
    EXPECT_EQ(tabs(), (Lines{"col0", "col1"}));
    type("txtCaption", "a");
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"a", ""}));
}

TEST_F(ColumnCountTest, a_line_number_column_must_be_a_column) {
    load(4);
    for (const char* text : {"3", "0", "-1", "-40", "", "abc", "2.9"}) {
        fill("txtLineNumberColumn", text);
        EXPECT_EQ(messages(), Lines{}) << text;
        EXPECT_EQ(focused(), "");
    }
    for (const char* text : {"4", "40", "3.5", "100000"}) {
        forget();
        fill("txtLineNumberColumn", text);
        EXPECT_EQ(messages(), range_message) << text;
        EXPECT_EQ(focused(), "txtLineNumberColumn") << text;
        EXPECT_EQ(parts().txtLineNumberColumn.Text(), text);
        type("txtLineNumberColumn", "0");
        editors->leave(editor("txtLineNumberColumn"));
    }
}

TEST_F(ColumnCountTest, the_line_number_column_is_compared_with_the_text_of_the_count) {
    load(4);
    type("txtCols", "6");
    fill("txtLineNumberColumn", "5");
    EXPECT_EQ(messages(), Lines{});
    EXPECT_EQ(tabs().size(), 4U);
    type("txtCols", "");
    fill("txtLineNumberColumn", "-1");
    EXPECT_EQ(messages(), Lines{});
    fill("txtLineNumberColumn", "0");
    EXPECT_EQ(messages(), range_message);
}

TEST_F(ColumnCountTest, a_refused_line_number_column_takes_the_focus_back) {
    load(4);
    enter("txtLineNumberColumn");
    type("txtLineNumberColumn", "4");
    enter("txtCaption");
    EXPECT_EQ(focused(), "txtLineNumberColumn");
    enter("txtCaption");
    EXPECT_EQ(messages(), (Lines{range_message[0], range_message[0]}));
    type("txtLineNumberColumn", "3");
    enter("txtCaption");
    EXPECT_EQ(focused(), "txtCaption");
}

TEST_F(ColumnCountTest, two_refused_editors_do_not_send_the_focus_to_and_fro_for_ever) {
    load(4);
    data.source_fails = true;
    type("txConnection", "x");
    type("txRecordSource", "none");
    type("txtLineNumberColumn", "9");
    enter("txtLineNumberColumn");
    enter("txRecordSource");
    EXPECT_EQ(messages(), range_message);
    EXPECT_EQ(focused(), "txtLineNumberColumn");
    type("txtLineNumberColumn", "0");
    enter("txRecordSource");
    EXPECT_EQ(focused(), "txRecordSource");
    type("txtLineNumberColumn", "9");
    enter("txtLineNumberColumn");
    EXPECT_EQ(messages().size(), 2U);
    EXPECT_EQ(focused(), "txRecordSource");
}

} // namespace

} // namespace krv::propertypage
