#include "headless/page_fixture.h"

#include <limits>

namespace krv::headless {

namespace {

using krv::testing::error_number_of;
using krv::testing::error_source_of;

class PageEditorsTest : public PageTest {
protected:
    PageEditors editors = page->editors();
    platform::ComboBox& combo = editors.cmbDataField;
    platform::ComboBox& list = editors.cmbDataType;
    platform::TabStrip& tabs = editors.TabStrip1;

    static void fill(platform::ComboBox& box, const Lines& texts) {
        for (const std::string& text : texts) {
            box.AddItem(text, box.ListCount());
        }
    }

    static Lines texts(const platform::ComboBox& box) {
        Lines result;
        for (std::int16_t i = 0; i < box.ListCount(); ++i) {
            result.push_back(box.List(i));
        }
        return result;
    }

    Lines captions() const {
        Lines result;
        for (std::int32_t i = 1; i <= tabs.Count(); ++i) {
            result.push_back(tabs.Caption(i));
        }
        return result;
    }
};

TEST_F(PageEditorsTest, every_label_has_an_editor_of_its_name) {
    for (const PageLabel& label : page_labels()) {
        ASSERT_NE(page->editor(label.editor), nullptr) << label.editor;
        EXPECT_EQ(page->editor(label.editor)->name(), label.editor);
    }
    EXPECT_EQ(page->editor("txtcaption"), nullptr);
    EXPECT_EQ(page->editor("CommonDialog1"), nullptr);
    EXPECT_EQ(editors.txtCaption.Name(), "txtCaption");
}

TEST_F(PageEditorsTest, an_entry_box_tells_only_of_another_text) {
    editors.txtCaption.SetText("a");
    editors.txtCaption.SetText("a");
    editors.txtCaption.SetText("");
    EXPECT_EQ(told(), (Lines{"txtCaption.Change", "txtCaption.Change"}));
}

TEST_F(PageEditorsTest, a_check_box_tells_only_of_another_value) {
    EXPECT_EQ(editors.chkAutoAdd.Value(), 0);
    editors.chkAutoAdd.SetValue(0);
    editors.chkAutoAdd.SetValue(1);
    editors.chkAutoAdd.SetValue(1);
    EXPECT_EQ(told(), (Lines{"chkAutoAdd.Click"}));
    for (const std::int16_t value : {std::int16_t{-1}, std::int16_t{2}}) {
        EXPECT_EQ(error_number_of([&] { editors.chkAutoAdd.SetValue(value); }), 380);
    }
    EXPECT_EQ(editors.chkAutoAdd.Value(), 1);
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, entries_are_inserted_where_they_are_wanted) {
    fill(combo, {"a", "c"});
    combo.AddItem("b", 1);
    EXPECT_EQ(texts(combo), (Lines{"a", "b", "c"}));
    EXPECT_EQ(error_number_of([&] { combo.AddItem("x", -1); }), 5);
    EXPECT_EQ(error_number_of([&] { combo.AddItem("x", 4); }), 5);
    EXPECT_EQ(texts(combo), (Lines{"a", "b", "c"}));
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, a_list_holds_32767_entries) {
    constexpr std::int16_t most = std::numeric_limits<std::int16_t>::max();
    for (std::int32_t i = 0; i < most; ++i) {
        list.AddItem("x", list.ListCount());
    }
    EXPECT_EQ(list.ListCount(), most);
    EXPECT_EQ(error_number_of([&] { list.AddItem("x", most); }), 5);
    EXPECT_EQ(error_number_of([&] { list.AddItem("x", 0); }), 5);
}

TEST_F(PageEditorsTest, entries_outside_the_list_are_error_381) {
    fill(combo, {"a", "b"});
    combo.SetItemData(1, 7);
    EXPECT_EQ(combo.ItemData(0), 0);
    EXPECT_EQ(combo.ItemData(1), 7);
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}}) {
        EXPECT_EQ(error_number_of([&] { combo.List(index); }), 381);
        EXPECT_EQ(error_number_of([&] { combo.ItemData(index); }), 381);
        EXPECT_EQ(error_number_of([&] { combo.SetItemData(index, 1); }), 381);
    }
    EXPECT_EQ(error_source_of([&] { combo.List(2); }), "cmbDataField");
}

TEST_F(PageEditorsTest, selecting_a_position_clicks_each_time_and_changes_no_text) {
    fill(combo, {"a", "b"});
    combo.SetListIndex(1);
    combo.SetListIndex(1);
    EXPECT_EQ(combo.Text(), "b");
    EXPECT_EQ(told(), (Lines{"cmbDataField.Click", "cmbDataField.Click"}));
    combo.SetListIndex(-1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListIndex(), -1);
    for (const std::int16_t index : {std::int16_t{-2}, std::int16_t{2}}) {
        EXPECT_EQ(error_number_of([&] { combo.SetListIndex(index); }), 380);
    }
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, text_that_equals_an_entry_selects_it_without_a_click) {
    fill(combo, {"nome", "Nome"});
    combo.SetText("Nome");
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.SetText("NOME");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "NOME");
    combo.SetText("NOME");
    EXPECT_EQ(told(), (Lines{"cmbDataField.Change", "cmbDataField.Change"}));
}

TEST_F(PageEditorsTest, a_box_to_type_in_keeps_its_text_while_its_list_is_filled_anew) {
    fill(combo, {"a", "b"});
    combo.SetText("b");
    told();
    combo.Clear();
    EXPECT_EQ(combo.Text(), "b");
    EXPECT_EQ(combo.ListIndex(), -1);
    fill(combo, {"c", "b", "b"});
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.AddItem("first", 0);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, a_list_without_a_field_selects_nothing_by_itself) {
    fill(list, {"", "a"});
    EXPECT_EQ(list.ListIndex(), -1);
    list.SetListIndex(1);
    list.AddItem("first", 0);
    EXPECT_EQ(list.ListIndex(), 2);
    list.Clear();
    EXPECT_EQ(list.Text(), "");
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(PageEditorsTest, a_list_without_a_field_takes_only_texts_of_its_entries) {
    fill(list, {"a", "b"});
    list.SetText("b");
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(error_number_of([&] { list.SetText("c"); }), 383);
    EXPECT_EQ(list.Text(), "b");
    list.SetText("");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(told(), (Lines{"cmbDataType.Change", "cmbDataType.Change"}));
}

TEST_F(PageEditorsTest, the_first_tab_is_selected_without_a_click) {
    EXPECT_EQ(tabs.SelectedIndex(), 0);
    tabs.Add("col0");
    tabs.Add("col1");
    EXPECT_EQ(tabs.SelectedIndex(), 1);
    EXPECT_EQ(captions(), (Lines{"col0", "col1"}));
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, selecting_a_tab_clicks_each_time) {
    tabs.Add("a");
    tabs.Add("b");
    tabs.SetSelectedIndex(2);
    tabs.SetSelectedIndex(2);
    EXPECT_EQ(tabs.SelectedIndex(), 2);
    EXPECT_EQ(told(), (Lines{"TabStrip1.Click", "TabStrip1.Click"}));
}

TEST_F(PageEditorsTest, removing_the_selected_tab_selects_the_new_last_one_without_a_click) {
    for (const char* caption : {"a", "b", "c", "d"}) {
        tabs.Add(caption);
    }
    tabs.SetSelectedIndex(3);
    told();
    tabs.Remove(1);
    EXPECT_EQ(tabs.SelectedIndex(), 2);
    tabs.Remove(3);
    EXPECT_EQ(tabs.SelectedIndex(), 2);
    tabs.Add("e");
    tabs.Remove(2);
    EXPECT_EQ(tabs.SelectedIndex(), 2);
    EXPECT_EQ(captions(), (Lines{"b", "e"}));
    tabs.Remove(2);
    tabs.Remove(1);
    EXPECT_EQ(tabs.SelectedIndex(), 0);
    tabs.Add("f");
    EXPECT_EQ(tabs.SelectedIndex(), 1);
    tabs.Clear();
    EXPECT_EQ(tabs.SelectedIndex(), 0);
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, tabs_that_are_not_there_are_error_35600) {
    tabs.Add("a");
    for (const std::int32_t index : {-1, 0, 2}) {
        EXPECT_EQ(error_number_of([&] { tabs.Remove(index); }), 35600);
        EXPECT_EQ(error_number_of([&] { tabs.Caption(index); }), 35600);
        EXPECT_EQ(error_number_of([&] { tabs.SetSelectedIndex(index); }), 35600);
    }
    EXPECT_EQ(captions(), Lines{"a"});
    EXPECT_EQ(told(), Lines{});
}

TEST_F(PageEditorsTest, the_file_dialog_asks_for_the_file) {
    HeadlessFileDialog& dialog = page->file_dialog();
    EXPECT_EQ(error_number_of([&] { dialog.ShowOpen(); }), 32755);
    std::vector<ShownFileDialog> shown;
    dialog.set_ask([&](const ShownFileDialog& question) {
        shown.push_back(question);
        return std::optional<std::string>("c:\\a.mdb");
    });
    dialog.SetDialogTitle("title");
    dialog.SetFilter("*.mdb");
    dialog.SetInitDir("c:\\");
    dialog.ShowOpen();
    EXPECT_EQ(shown, (std::vector<ShownFileDialog>{{"title", "*.mdb", "c:\\"}}));
    EXPECT_EQ(dialog.FileName(), "c:\\a.mdb");
    dialog.set_ask([](const ShownFileDialog&) { return std::nullopt; });
    EXPECT_EQ(error_number_of([&] { dialog.ShowOpen(); }), 32755);
    EXPECT_EQ(dialog.FileName(), "c:\\a.mdb");
}

TEST_F(PageEditorsTest, the_page_may_go_while_the_file_dialog_is_open) {
    page->file_dialog().set_ask([&](const ShownFileDialog&) {
        page.reset();
        return std::optional<std::string>("x");
    });
    page->file_dialog().ShowOpen();
    EXPECT_EQ(page, nullptr);
}

} // namespace

} // namespace krv::headless
