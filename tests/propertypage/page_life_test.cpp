#include "propertypage/page_fixture.h"

#include <algorithm>

namespace krv::propertypage {

namespace {

using namespace testing;

/// A page that goes, or gets another selection, while it waits for somebody.
class PageLifeTest : public PageTest {
protected:
    void SetUp() override {
        load(3);
        data.field_names = {"codice"};
        data.field_types = {3};
    }

    void close_at_message() {
        on_message = [this](const std::string&) { close(); };
    }

    void expect_gone() { EXPECT_EQ(page, nullptr); }

    /// Has the designer select a control of two columns, whose captions are "other".
    std::shared_ptr<ScriptedControl> select_other() {
        auto other = make_control(2);
        other->set("Caption(0)", "other");
        other->set("Caption(1)", "other");
        site.selection = {other};
        page->SelectionChanged();
        return other;
    }

    const std::vector<std::string> other_captions{"other", "other"};
};

TEST_F(PageLifeTest, the_page_may_go_in_the_question_of_the_column_count) {
    close_at_message();
    fill("txtCols", "1");
    expect_gone();
}

TEST_F(PageLifeTest, the_page_may_go_in_the_question_of_a_tab) {
    close_at_message();
    type("txtCols", "1");
    click("TabStrip1", 2);
    expect_gone();
}

TEST_F(PageLifeTest, the_page_may_go_in_the_question_of_loading) {
    close_at_message();
    site.selection = {make_control(1)};
    page->SelectionChanged();
    expect_gone();
    EXPECT_EQ(trace.back(), "get Cols");
}

TEST_F(PageLifeTest, the_page_may_go_in_the_question_and_in_the_turn_of_applying) {
    type("txtCols", "1");
    close_at_message();
    page->ApplyChanges();
    expect_gone();
    EXPECT_EQ(trace, Lines{});
    open();
    on_message = nullptr;
    ScriptedControl& control = load(2);
    control.acts["put Cols '2'"] = [this] { close(); };
    page->ApplyChanges();
    expect_gone();
    EXPECT_EQ(trace.back(), "put Cols '2'");
}

TEST_F(PageLifeTest, the_page_may_go_in_every_box_of_the_data) {
    const std::vector<std::function<void()>> ways = {
        [this] { fill("txtDataBaseName", "a"); },
        [this] { fill("txRecordSource", "a"); },
        [this] {
            data.source_fails = true;
            fill("txRecordSource", "a");
            data.source_fails = false;
        },
        [this] {
            data.connection_fails = true;
            fill("txRecordSource", "a");
            data.connection_fails = false;
        },
        [this] { fill("txtLineNumberColumn", "9"); },
    };
    for (const auto& way : ways) {
        on_message = nullptr;
        type("txConnection", "Provider=x;");
        close_at_message();
        forget();
        way();
        EXPECT_EQ(messages().size(), 1U);
        expect_gone();
        open();
        load(3);
    }
}

TEST_F(PageLifeTest, the_page_may_go_in_the_question_inside_the_building) {
    on_message = [this](const std::string& text) {
        if (text.starts_with("this will erase")) {
            close();
        }
    };
    type("txConnection", "Provider=x;");
    fill("txRecordSource", "a");
    expect_gone();
    EXPECT_EQ(messages().size(), 2U);
}

TEST_F(PageLifeTest, the_page_may_go_while_the_file_dialog_is_open) {
    editors->file_dialog().set_ask([this](const headless::ShownFileDialog&) {
        close();
        return std::optional<std::string>("x");
    });
    editors->double_click(editor("txtDataBaseName"));
    expect_gone();
}

TEST_F(PageLifeTest, the_page_may_go_when_it_marks_itself) {
    const std::vector<std::function<void()>> ways = {
        [this] { type("txtCaption", "x"); },
        [this] { type("txtColWidth", "7"); },
        [this] { type("cmbDataField", "x"); },
        [this] { click("chkEditable"); },
        [this] { click("cmbDataType", 1); },
        [this] { click("TabStrip1", 2); },
        [this] { type("txtRows", "7"); },
    };
    for (const auto& way : ways) {
        site.on_mark = [this] { close(); };
        way();
        expect_gone();
        site.on_mark = nullptr;
        open();
        load(3);
    }
}

TEST_F(PageLifeTest, the_page_may_go_at_every_mark_of_choosing_a_field_and_of_loading) {
    type("txConnection", "Provider=x;");
    answer_no();
    fill("txRecordSource", "a");
    enter("cmbDataField");
    forget();
    click("cmbDataField", 0);
    const int choice_marks = site.marks;
    ASSERT_GT(choice_marks, 3);
    for (int last = 1; last <= choice_marks; ++last) {
        close();
        site.on_mark = nullptr;
        open();
        load(3);
        type("txConnection", "Provider=x;");
        answer_no();
        fill("txRecordSource", "a");
        enter("cmbDataField");
        forget();
        site.on_mark = [&] {
            if (site.marks == last) {
                close();
            }
        };
        click("cmbDataField", 0);
        expect_gone();
        EXPECT_EQ(site.marks, last);
        site.on_mark = nullptr;
    }
}

TEST_F(PageLifeTest, the_page_may_go_at_every_mark_of_loading) {
    close();
    open();
    forget();
    site.selection = {make_control(2)};
    page->SelectionChanged();
    const int load_marks = site.marks;
    for (int last = 1; last <= load_marks; ++last) {
        site.on_mark = nullptr;
        close();
        open();
        forget();
        site.on_mark = [&] {
            if (site.marks == last) {
                close();
            }
        };
        page->SelectionChanged();
        expect_gone();
        EXPECT_EQ(site.marks, last);
    }
}

TEST_F(PageLifeTest, a_selection_in_the_question_of_loading_counts_in_its_place) {
    on_message = [this](const std::string&) {
        on_message = nullptr;
        select_other();
    };
    auto first = make_control(1);
    first->set("Connect", "never read");
    site.selection = {first};
    page->SelectionChanged();
    EXPECT_EQ(page->columns().colCaptions, other_captions);
    EXPECT_EQ(parts().txConnection.Text(), "");
    EXPECT_EQ(parts().txtCols.Text(), "2");
    EXPECT_EQ(tabs().size(), 2U);
    EXPECT_FALSE(site.changed);
}

TEST_F(PageLifeTest, a_selection_in_the_question_of_the_column_count_ends_it) {
    on_message = [this](const std::string&) {
        on_message = nullptr;
        select_other();
    };
    fill("txtCols", "1");
    EXPECT_EQ(page->columns().colCaptions, other_captions);
    EXPECT_EQ(tabs().size(), 2U);
    EXPECT_EQ(parts().txtCols.Text(), "2");
}

TEST_F(PageLifeTest, a_selection_in_the_turn_of_applying_ends_it) {
    ScriptedControl& control = *site.selection[0];
    const auto kept = site.selection[0];
    control.acts["put Cols '3'"] = [this] { select_other(); };
    page->ApplyChanges();
    EXPECT_EQ(shown(control.values["Caption(0)"]), "'caption 0'");
    EXPECT_EQ(page->columns().colCaptions, other_captions);
    const auto put_rows = std::find(trace.begin(), trace.end(), "put Rows '0'");
    EXPECT_EQ(put_rows, trace.end());
}

TEST_F(PageLifeTest, a_selection_in_the_question_of_building_ends_it) {
    on_message = [this](const std::string&) {
        on_message = nullptr;
        select_other();
    };
    type("txConnection", "Provider=x;");
    fill("txRecordSource", "a");
    EXPECT_EQ(page->columns().colCaptions, other_captions);
    EXPECT_TRUE(page->pageDataOpen());
}

TEST_F(PageLifeTest, a_record_source_opened_in_the_question_of_building_counts_in_its_place) {
    on_message = [this](const std::string& text) {
        if (text.starts_with("build")) {
            on_message = nullptr;
            data.field_names = {"later", "than that"};
            data.field_types = {3, 3};
            fill("txRecordSource", "b");
        }
    };
    type("txConnection", "Provider=x;");
    fill("txRecordSource", "a");
    EXPECT_EQ(page->columns().colCaptions, (std::vector<std::string>{"later", "than that"}));
}

} // namespace

} // namespace krv::propertypage
