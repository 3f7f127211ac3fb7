#include "headless/page_fixture.h"

#include "krv/platform/error.h"

namespace krv::headless {

namespace {

using krv::testing::error_number_of;

class PageDeveloperTest : public PageTest {};

TEST_F(PageDeveloperTest, nothing_has_the_focus_at_first) {
    EXPECT_EQ(focused(), "");
}

TEST_F(PageDeveloperTest, entering_leaves_the_editor_before_first) {
    page->enter(editor("txtCols"));
    EXPECT_EQ(told(), Lines{"txtCols.GotFocus"});
    page->enter(editor("txtRows"));
    page->enter(editor("txtRows"));
    EXPECT_EQ(told(), (Lines{"txtCols.LostFocus", "txtRows.GotFocus"}));
    EXPECT_EQ(focused(), "txtRows");
}

TEST_F(PageDeveloperTest, leaving_gives_the_focus_to_none) {
    page->enter(editor("txtCols"));
    told();
    page->leave(editor("txtRows"));
    EXPECT_EQ(focused(), "txtCols");
    page->leave(editor("txtCols"));
    page->leave(editor("txtCols"));
    EXPECT_EQ(told(), Lines{"txtCols.LostFocus"});
    EXPECT_EQ(focused(), "");
}

TEST_F(PageDeveloperTest, the_focus_moves_at_once_and_is_told_in_the_next_turn) {
    page->editors().txtCols.SetFocus();
    page->editors().txtRows.SetFocus();
    EXPECT_EQ(focused(), "txtRows");
    EXPECT_EQ(told(), Lines{});
    form.turn();
    EXPECT_EQ(told(), (Lines{"txtCols.GotFocus", "txtCols.LostFocus", "txtRows.GotFocus"}));
}

TEST_F(PageDeveloperTest, the_page_and_the_form_have_a_focus_each) {
    form.person().focus(form.outside());
    page->enter(editor("txtCols"));
    EXPECT_TRUE(form.outside().has_focus());
    EXPECT_EQ(focused(), "txtCols");
}

TEST_F(PageDeveloperTest, what_a_developer_does_waits_behind_what_is_queued) {
    page->editors().txtCols.SetFocus();
    page->text(editor("txtCols"), "3");
    EXPECT_EQ(told(), (Lines{"txtCols.GotFocus", "txtCols.Change"}));
}

TEST_F(PageDeveloperTest, a_disabled_editor_takes_no_focus) {
    editor("cmbDataType").set_enabled(false);
    EXPECT_EQ(error_number_of([&] { page->enter(editor("cmbDataType")); }), 5);
    EXPECT_EQ(error_number_of([&] { page->editors().cmbDataType.SetFocus(); }), 5);
    EXPECT_EQ(focused(), "");
}

TEST_F(PageDeveloperTest, disabling_the_editor_with_the_focus_passes_it_on) {
    page->enter(editor("cmbDataType"));
    told();
    editor("txtFieldLength").set_enabled(false);
    page->editors().cmbDataType.SetEnabled(false);
    form.turn();
    EXPECT_EQ(told(), (Lines{"cmbDataType.LostFocus", "txtFormat.GotFocus"}));
}

TEST_F(PageDeveloperTest, the_focus_passes_on_around_the_end_or_to_none) {
    page->enter(editor("chkIsNecessary"));
    editor("chkIsNecessary").set_enabled(false);
    EXPECT_EQ(focused(), "txtDataBaseName");
    for (const PageLabel& label : page_labels()) {
        if (label.editor != "txtDataBaseName") {
            editor(std::string(label.editor)).set_enabled(false);
        }
    }
    editor("txtDataBaseName").set_enabled(false);
    EXPECT_EQ(focused(), "");
}

TEST_F(PageDeveloperTest, typing_is_one_change) {
    page->text(editor("txtCaption"), "Nome");
    page->text(editor("cmbDataField"), "nome");
    page->text(editor("txtCaption"), "Nome");
    EXPECT_EQ(told(), (Lines{"txtCaption.Change", "cmbDataField.Change"}));
}

TEST_F(PageDeveloperTest, nothing_is_typed_into_flags_tabs_and_lists_without_a_field) {
    for (const char* name : {"chkEnabled", "TabStrip1", "cmbDataType"}) {
        EXPECT_EQ(error_number_of([&] { page->text(editor(name), ""); }), 438) << name;
    }
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageDeveloperTest, a_click_turns_a_flag_and_chooses_an_entry_or_a_tab) {
    page->editors().cmbAlignment.AddItem("a", 0);
    page->editors().TabStrip1.Add("col0");
    page->click(editor("chkEnabled"));
    page->click(editor("cmbAlignment"), 0);
    page->click(editor("TabStrip1"), 1);
    page->click(editor("chkEnabled"));
    EXPECT_EQ(
        told(),
        (Lines{"chkEnabled.Click", "cmbAlignment.Click", "TabStrip1.Click", "chkEnabled.Click"}));
    EXPECT_EQ(page->editors().chkEnabled.Value(), 0);
    EXPECT_EQ(focused(), "");
}

TEST_F(PageDeveloperTest, a_click_on_what_is_not_there_fails) {
    EXPECT_EQ(error_number_of([&] { page->click(editor("cmbAlignment"), 0); }), 380);
    EXPECT_EQ(error_number_of([&] { page->click(editor("cmbAlignment"), -1); }), 380);
    EXPECT_EQ(error_number_of([&] { page->click(editor("cmbAlignment"), 65536); }), 380);
    EXPECT_EQ(error_number_of([&] { page->click(editor("TabStrip1"), 1); }), 35600);
    EXPECT_EQ(error_number_of([&] { page->click(editor("txtCaption")); }), 438);
}

TEST_F(PageDeveloperTest, a_disabled_editor_ignores_the_developer) {
    page->editors().cmbDataType.AddItem("a", 0);
    for (const char* name : {"cmbDataType", "txtCaption"}) {
        editor(name).set_enabled(false);
        page->click(editor(name), 0);
        page->text(editor(name), "a");
        page->double_click(editor(name));
    }
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageDeveloperTest, a_double_click_is_told) {
    page->double_click(editor("txtDataBaseName"));
    EXPECT_EQ(told(), Lines{"txtDataBaseName.DblClick"});
}

TEST_F(PageDeveloperTest, an_error_of_a_handler_comes_out_and_the_rest_stays_queued) {
    acts["txtCols.LostFocus"] = [] { throw platform::RuntimeError(6, "Overflow", "host"); };
    page->enter(editor("txtCols"));
    EXPECT_EQ(error_number_of([&] { page->enter(editor("txtRows")); }), 6);
    EXPECT_EQ(told(), (Lines{"txtCols.GotFocus", "txtCols.LostFocus"}));
    form.turn();
    EXPECT_EQ(told(), Lines{"txtRows.GotFocus"});
}

TEST_F(PageDeveloperTest, the_page_may_go_inside_anything_that_it_tells) {
    const std::vector<std::pair<std::string, std::function<void()>>> ways = {
        {"txtCaption.Change", [&] { page->text(editor("txtCaption"), "x"); }},
        {"chkEnabled.Click", [&] { page->click(editor("chkEnabled")); }},
        {"cmbDataField.Click", [&] { page->click(editor("cmbDataField"), 0); }},
        {"TabStrip1.Click", [&] { page->click(editor("TabStrip1"), 1); }},
        {"txtCols.GotFocus", [&] { page->enter(editor("txtCols")); }},
        {"txtCols.DblClick", [&] { page->double_click(editor("txtCols")); }},
    };
    for (const auto& [line, act] : ways) {
        PageTest::acts[line] = [&] { page.reset(); };
        page->editors().cmbDataField.AddItem("a", 0);
        page->editors().TabStrip1.Add("col0");
        act();
        EXPECT_EQ(told().back(), line);
        EXPECT_EQ(page, nullptr) << line;
        renew();
    }
}

} // namespace

} // namespace krv::headless
