#include "qt/page_fixture.h"

#include "qt/page/file_dialog.h"

#include <QTabBar>
#include <QTemporaryDir>

namespace krv::qt::testing {

using krv::testing::error_number_of;

namespace {

class PageTabs : public PageEditorTest {
protected:
    QtTabStrip& tabs() { return parts->tabs; }

    void add(int count) {
        for (int i = 0; i < count; ++i) {
            tabs().Add("col" + std::to_string(tabs().Count()));
        }
        turn();
    }

    std::vector<std::string> captions() {
        std::vector<std::string> all;
        for (std::int32_t i = 1; i <= tabs().Count(); ++i) {
            all.push_back(tabs().Caption(i));
        }
        return all;
    }

    void press(int position) {
        QTest::mouseClick(
            tabs().widget(), Qt::LeftButton, {}, tabs().tabs().tabRect(position).center());
    }
};

} // namespace

TEST_F(PageTabs, the_first_tab_becomes_the_selected_one_without_a_click) {
    EXPECT_EQ(tabs().SelectedIndex(), 0);
    add(3);
    EXPECT_EQ(captions(), (std::vector<std::string>{"col0", "col1", "col2"}));
    EXPECT_EQ(tabs().SelectedIndex(), 1);
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageTabs, selecting_clicks_the_selected_tab_too) {
    add(3);
    tabs().SetSelectedIndex(2);
    tabs().SetSelectedIndex(2);
    EXPECT_EQ(take(), (Told{"tabs click", "tabs click"}));
    EXPECT_EQ(tabs().SelectedIndex(), 2);
}

TEST_F(PageTabs, a_person_clicks_a_tab_the_selected_one_too) {
    add(3);
    press(2);
    EXPECT_EQ(take(), (Told{"tabs got", "tabs click"}));
    press(2);
    EXPECT_EQ(take(), Told{"tabs click"});
    EXPECT_EQ(tabs().SelectedIndex(), 3);
}

TEST_F(PageTabs, keys_walk_along_the_tabs) {
    add(30);
    tabs().SetFocus();
    turn();
    take();
    std::vector<std::int32_t> seen;
    for (const Qt::Key key : {Qt::Key_Right,
                              Qt::Key_PageDown,
                              Qt::Key_End,
                              Qt::Key_Left,
                              Qt::Key_PageUp,
                              Qt::Key_Home}) {
        QTest::keyClick(tabs().widget(), key);
        seen.push_back(tabs().SelectedIndex());
    }
    EXPECT_EQ(seen, (std::vector<std::int32_t>{2, 12, 30, 29, 19, 1}));
    EXPECT_EQ(take(), Told(6, "tabs click"));
    QTest::keyClick(tabs().widget(), Qt::Key_Home);
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageTabs, removing_the_selected_tab_selects_the_new_last_one_without_a_click) {
    add(4);
    tabs().SetSelectedIndex(2);
    take();
    tabs().Remove(2);
    EXPECT_EQ(tabs().SelectedIndex(), 3);
    EXPECT_EQ(captions(), (std::vector<std::string>{"col0", "col2", "col3"}));
    tabs().Remove(1);
    EXPECT_EQ(tabs().SelectedIndex(), 2);
    EXPECT_EQ(tabs().Caption(2), "col3");
    tabs().Clear();
    EXPECT_EQ(tabs().Count(), 0);
    EXPECT_EQ(tabs().SelectedIndex(), 0);
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageTabs, indexes_outside_fail) {
    add(2);
    for (const std::int32_t index : {0, 3, -1}) {
        EXPECT_EQ(error_number_of([&] { tabs().Remove(index); }), 35600) << index;
        EXPECT_EQ(error_number_of([&] { tabs().SetSelectedIndex(index); }), 35600) << index;
        EXPECT_EQ(error_number_of([&] { static_cast<void>(tabs().Caption(index)); }), 35600);
        EXPECT_EQ(error_number_of([&] { tabs().click(index); }), 35600) << index;
    }
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageTabs, an_ampersand_is_no_shortcut) {
    tabs().Add("a & b");
    EXPECT_EQ(tabs().Caption(1), "a & b");
}

TEST_F(PageTabs, the_selected_tab_is_in_sight_among_thousands) {
    add(32767);
    QTabBar& bar = tabs().tabs();
    EXPECT_LE(form->width(), 1000); // they scroll
    for (const std::int32_t index : {32767, 1, 16000, 16001, 2}) {
        tabs().SetSelectedIndex(index);
        turn();
        const int shown = bar.currentIndex();
        EXPECT_EQ(bar.tabText(shown).toStdString(), tabs().Caption(index));
        EXPECT_TRUE(bar.rect().contains(bar.tabRect(shown).center())) << index;
    }
    while (tabs().Count() > 1) {
        tabs().Remove(tabs().Count());
    }
    turn();
    EXPECT_EQ(tabs().SelectedIndex(), 1);
    EXPECT_EQ(bar.count(), 1);
}

TEST_F(PageTabs, a_person_walks_from_the_first_to_the_last_of_a_thousand) {
    add(1000);
    tabs().SetFocus();
    turn();
    for (int step = 1; step < 1000; ++step) {
        QTest::keyClick(tabs().widget(), Qt::Key_Right);
        ASSERT_EQ(tabs().SelectedIndex(), step + 1);
    }
    QTest::keyClick(tabs().widget(), Qt::Key_Right);
    EXPECT_EQ(tabs().SelectedIndex(), 1000);
    turn();
    press(tabs().tabs().currentIndex() - 1);
    EXPECT_EQ(tabs().SelectedIndex(), 999);
}

TEST_F(PageTabs, a_press_means_the_tab_that_was_in_its_place) {
    add(3);
    const QPoint place = tabs().tabs().tabRect(1).center();
    tabs().Add("col3"); // not shown yet
    QTest::mouseClick(tabs().widget(), Qt::LeftButton, {}, place);
    EXPECT_EQ(tabs().SelectedIndex(), 2);
}

TEST_F(PageTabs, a_handler_may_remove_the_tab_that_was_pressed) {
    add(3);
    on_told = [this](const std::string& what) {
        if (what == "tabs click") {
            tabs().Remove(3);
        }
    };
    press(2);
    turn();
    EXPECT_EQ(tabs().Count(), 2);
    EXPECT_EQ(tabs().SelectedIndex(), 2);
}

TEST_F(PageTabs, a_handler_may_destroy_the_page) {
    add(3);
    on_told = [this](const std::string& what) {
        if (what == "tabs click") {
            destroy();
        }
    };
    press(1);
    turn();
    EXPECT_EQ(form, nullptr);
}

TEST(PageFileDialog, reads_the_filters_of_old_forms) {
    EXPECT_EQ(name_filters("*.mdb"), (QStringList{"*.mdb", "All Files (*)"}));
    EXPECT_EQ(name_filters("Access|*.mdb;*.accdb|Testi|*.txt"),
              (QStringList{"Access (*.mdb *.accdb)", "Testi (*.txt)", "All Files (*)"}));
    EXPECT_EQ(name_filters(""), QStringList{"All Files (*)"});
}

TEST(PageFileDialog, opens_in_the_users_folder_when_there_is_no_other) {
    const QTemporaryDir folder;
    EXPECT_EQ(folder_to_open(folder.path()), folder.path());
    EXPECT_EQ(folder_to_open("c:\\"), QDir::homePath());
    EXPECT_EQ(folder_to_open(""), QDir::homePath());
}

TEST(PageFileDialog, gives_the_chosen_file_and_fails_when_cancelled) {
    QWidget page;
    QtFileDialog dialog(page);
    dialog.SetDialogTitle("titolo");
    dialog.SetFilter("*.mdb");
    dialog.SetInitDir("c:\\");
    std::optional<std::string> answer = "x.mdb";
    std::vector<std::string> asked;
    dialog.set_chooser([&](const FileRequest& request) {
        asked = {request.title, request.filter, request.folder};
        return answer;
    });
    EXPECT_EQ(dialog.FileName(), "");
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName(), "x.mdb");
    EXPECT_EQ(asked, (std::vector<std::string>{"titolo", "*.mdb", "c:\\"}));
    answer.reset();
    EXPECT_EQ(error_number_of([&] { dialog.ShowOpen(); }), 32755);
    EXPECT_EQ(dialog.FileName(), "x.mdb");
}

} // namespace krv::qt::testing
