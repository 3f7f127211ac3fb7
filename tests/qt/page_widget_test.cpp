#include "qt/page_dialog_fixture.h"

#include "qt/contrast.h"
#include "qt/page/page_layout.h"
#include "qt/picture.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

#include <map>

namespace krv::qt::testing {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class PageWidget : public PageTest {
protected:
    PageWidget()
        : page(std::make_unique<PropertyPageWidget>(supplies())) {
        page->set_message_handler([this](std::string_view text, platform::MessageButtons buttons) {
            asked.emplace_back(text);
            if (on_message) {
                on_message();
            }
            return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok : answer;
        });
        page->show();
        page->activateWindow();
        page->load();
        turn();
    }

    QLineEdit& line(const char* name) { return dynamic_cast<QLineEdit&>(editor(*page, name)); }

    static QString without_shortcut(QString text) { return text.remove('&'); }

    /// Types one character after the other as long as there is a page.
    void fill_until_gone(const char* name, const char* text) {
        QLineEdit& edit = line(name);
        edit.setFocus();
        turn();
        edit.selectAll();
        for (; *text != '\0' && page != nullptr; ++text) {
            QTest::keyClick(&edit, *text);
        }
        turn();
    }

    /// The texts that stand beside the editors, by editor.
    std::map<std::string, std::string> labels() {
        std::map<std::string, std::string> all;
        for (const QLabel* label : page->findChildren<QLabel*>()) {
            if (label->buddy() != nullptr) {
                all[label->buddy()->objectName().toStdString()] =
                    without_shortcut(label->text()).toStdString();
            }
        }
        for (const QCheckBox* box : page->findChildren<QCheckBox*>()) {
            all[box->objectName().toStdString()] = without_shortcut(box->text()).toStdString();
        }
        return all;
    }

    std::unique_ptr<PropertyPageWidget> page;
    std::vector<std::string> asked;
    std::function<void()> on_message;
    platform::MessageAnswer answer = platform::MessageAnswer::yes;
};

} // namespace

TEST_F(PageWidget, every_editor_stands_beside_its_label) {
    std::map<std::string, std::string> wanted;
    for (const PageLabel& label : page_labels()) {
        if (label.kind != EditorKind::tabs) {
            wanted[std::string(label.editor)] = label.label;
        }
    }
    EXPECT_EQ(wanted.size(), 22U);
    EXPECT_EQ(labels(), wanted);
}

TEST_F(PageWidget, the_shortcuts_are_all_different_and_change_no_label) {
    QString taken;
    EXPECT_EQ(with_shortcut("Cols:", taken), "&Cols:");
    EXPECT_EQ(with_shortcut("ColWidth:", taken), "C&olWidth:");
    EXPECT_EQ(with_shortcut("co", taken), "co");
    QString letters;
    for (const QLabel* label : page->findChildren<QLabel*>()) {
        const QString text = label->text();
        if (const auto mark = text.indexOf('&'); mark >= 0) {
            letters += text[mark + 1].toLower();
        }
    }
    for (const QChar letter : letters) {
        EXPECT_EQ(letters.count(letter), 1) << letter.toLatin1();
    }
    EXPECT_GE(letters.size(), 10);
}

TEST_F(PageWidget, every_editor_has_a_name_and_a_tool_tip) {
    for (const PageEditor* editor : page->rooms().handles()) {
        EXPECT_FALSE(editor->widget()->accessibleName().isEmpty()) << editor->name();
        EXPECT_FALSE(editor->widget()->accessibleName().contains('&')) << editor->name();
        EXPECT_FALSE(editor->widget()->toolTip().isEmpty()) << editor->name();
    }
}

TEST_F(PageWidget, tab_walks_in_reading_order) {
    QWidget* at = &line("txtDataBaseName");
    std::vector<std::string> names;
    for (std::size_t i = 0; i < PropertyPageWidget::Rooms::editor_count; ++i) {
        names.push_back(at->objectName().toStdString());
        do {
            at = at->nextInFocusChain();
        } while ((at->focusPolicy() & Qt::TabFocus) == 0 || at->focusProxy() != nullptr ||
                 at->objectName().isEmpty());
    }
    std::vector<std::string> wanted;
    for (const PageLabel& label : page_labels()) {
        wanted.emplace_back(label.editor);
    }
    EXPECT_EQ(names, wanted);
}

TEST_F(PageWidget, shows_the_control_that_is_selected) {
    EXPECT_EQ(line("txtCaption").text(), "Codice");
    EXPECT_EQ(line("txtColWidth").text(), "1000");
    EXPECT_EQ(line("txtCols").text(), "3");
    EXPECT_EQ(dynamic_cast<QTabBar&>(editor(*page, "TabStrip1")).count(), 3);
    EXPECT_FALSE(site.Changed());
}

TEST_F(PageWidget, what_a_person_types_is_applied_to_the_control) {
    auto& tabs = dynamic_cast<QTabBar&>(editor(*page, "TabStrip1"));
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    turn();
    EXPECT_EQ(line("txtCaption").text(), "Nome");
    fill(*page, "txtCaption", "Cognome");
    editor(*page, "chkIsNecessary").setFocus();
    QTest::keyClick(&editor(*page, "chkIsNecessary"), Qt::Key_Space);
    EXPECT_TRUE(site.Changed());
    EXPECT_EQ(list().Caption(1), "Nome");
    EXPECT_TRUE(page->apply());
    EXPECT_EQ(list().Caption(1), "Cognome");
    EXPECT_TRUE(list().ColIsNecessary(1));
    EXPECT_FALSE(site.Changed());
}

TEST_F(PageWidget, applying_leaves_the_editor_first) {
    fill(*page, "txtCols", "5");
    EXPECT_EQ(page->page().columns().colCaptions.size(), 3U);
    EXPECT_TRUE(page->apply());
    EXPECT_EQ(list().Cols(), 5);
    EXPECT_TRUE(line("txtCols").hasFocus());
}

TEST_F(PageWidget, an_editor_that_holds_the_developer_stops_the_applying) {
    fill(*page, "txtLineNumberColumn", "9");
    EXPECT_FALSE(page->apply());
    EXPECT_THAT(asked, ElementsAre("the value is out of range"));
    EXPECT_EQ(list().LineNumberColumn(), -1);
    EXPECT_TRUE(line("txtLineNumberColumn").hasFocus());
    EXPECT_EQ(line("txtLineNumberColumn").text(), "9");
}

TEST_F(PageWidget, a_number_that_is_too_large_is_shown_with_its_number_and_stays) {
    fill(*page, "txtColWidth", "40000");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0], HasSubstr("Overflow"));
    EXPECT_THAT(asked[0], HasSubstr("Error 6 "));
    EXPECT_EQ(line("txtColWidth").text(), "40000");
    EXPECT_EQ(page->page().columns().colWidths[0], 4000);
}

TEST_F(PageWidget, an_error_while_applying_is_shown) {
    fill(*page, "txtColWidth", "-20");
    EXPECT_FALSE(page->apply());
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0], HasSubstr("30014"));
}

TEST_F(PageWidget, a_question_can_be_answered_by_closing_the_page) {
    fill(*page, "txtCols", "1");
    on_message = [this] { page.reset(); };
    EXPECT_FALSE(page->commit());
    EXPECT_EQ(page, nullptr);
    EXPECT_THAT(asked, ElementsAre("this will erase some of the existing columns. confirm?"));
    EXPECT_EQ(list().Cols(), 3);
}

TEST_F(PageWidget, the_choice_of_a_file_can_close_the_page) {
    page->set_file_chooser([this](const FileRequest&) -> std::optional<std::string> {
        page.reset();
        return "zu spaet.mdb";
    });
    QTest::mouseDClick(&line("txtDataBaseName"), Qt::LeftButton);
    turn();
    EXPECT_EQ(page, nullptr);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PageWidget, the_message_of_an_error_can_close_the_page) {
    on_message = [this] { page.reset(); };
    fill_until_gone("txtColWidth", "99999");
    EXPECT_EQ(page, nullptr);
    EXPECT_EQ(asked.size(), 1U);
}

TEST_F(PageWidget, a_double_click_on_the_database_name_chooses_a_file) {
    std::vector<std::string> requests;
    page->set_file_chooser([&](const FileRequest& request) -> std::optional<std::string> {
        requests.push_back(request.title + '|' + request.filter + '|' + request.folder);
        return "scelto.mdb";
    });
    QTest::mouseDClick(&line("txtDataBaseName"), Qt::LeftButton);
    EXPECT_THAT(requests, ElementsAre("Selezione DataBase|*.mdb|c:\\"));
    EXPECT_EQ(line("txtDataBaseName").text(), "scelto.mdb");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PageWidget, a_key_chooses_a_file_too) {
    page->set_file_chooser([](const FileRequest&) { return std::optional<std::string>("f4.mdb"); });
    line("txtDataBaseName").setFocus();
    turn();
    QTest::keyClick(&line("txtDataBaseName"), Qt::Key_F4);
    turn();
    EXPECT_EQ(line("txtDataBaseName").text(), "f4.mdb");
}

TEST_F(PageWidget, what_happens_at_once_is_told_once) {
    turn();
    int told = 0;
    QObject::connect(page.get(), &PropertyPageWidget::draftChanged, page.get(), [&] { ++told; });
    page->rooms().TabStrip1.SetSelectedIndex(2);
    EXPECT_EQ(told, 0);
    turn();
    EXPECT_EQ(told, 1);
}

TEST_F(PageWidget, the_draft_is_what_stands_on_the_page) {
    const PageDraft before = page->draft();
    EXPECT_TRUE(same_settings(before, page->draft()));
    EXPECT_EQ(before.Cols, "3");
    EXPECT_EQ(before.columns.colCaptions, (std::vector<std::string>{"Codice", "Nome", "Nato il"}));
    EXPECT_TRUE(before.AutoAdd);
    fill(*page, "txtFormat", "0.00");
    EXPECT_EQ(page->draft().columns.colFormats[0], "0.00");
    EXPECT_FALSE(same_settings(before, page->draft()));
}

TEST_F(PageWidget, fits_into_a_dialog_of_900_by_600) {
    EXPECT_LE(page->minimumSizeHint().width(), 540);
    EXPECT_LE(page->minimumSizeHint().height(), 520);
}

TEST_F(PageWidget, labels_are_read_easily_in_a_dark_theme) {
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(0x2b, 0x2b, 0x2b));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(role, QColor(0xe6, 0xe6, 0xe6));
    }
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    QApplication::setPalette(dark);
    turn();
    page->resize(540, 520);
    turn();
    const QImage picture = drawn(*page);
    for (const QLabel* label : page->findChildren<QLabel*>()) {
        const QRect place(label->mapTo(page.get(), QPoint(0, 0)), label->size());
        EXPECT_GE(contrast_in(picture, place), 4.5) << label->text().toStdString();
    }
    QApplication::setPalette(light);
}

} // namespace krv::qt::testing
