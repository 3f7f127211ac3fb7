// The road of somebody who sets up a list, in the designer's window, key by key.

#include "designer_window.h"

#include "krv/control/karvo_list.h"
#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/qt/list_preview.h"
#include "krv/qt/property_page.h"

#include "support/errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace krv::designer {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Road : public ::testing::Test {
protected:
    Road()
        : window(std::make_unique<DesignerWindow>(make_surroundings())) {
        DesignerWindow::Questions questions;
        questions.unsaved = [this](const QString& name) {
            messages.push_back("save " + name.toStdString() + '?');
            return unsaved;
        };
        questions.file_to_open = [this] { return file_to_open; };
        questions.file_to_save = [this] { return file_to_save; };
        questions.message = [this](std::string_view text, platform::MessageButtons buttons) {
            messages.emplace_back(text);
            return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok
                                                           : platform::MessageAnswer::yes;
        };
        window->set_questions(std::move(questions));
        window->show();
        window->activateWindow();
        settle();
    }

    static void settle() {
        for (int turn = 0; turn < 5; ++turn) {
            QApplication::processEvents();
        }
    }

    /// As the keyboard gives it: to the window, which hands it to whatever has the focus.
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window->windowHandle(), code, modifiers);
        settle();
    }

    void type(const std::string& text) {
        for (const char letter : text) {
            QTest::keyClick(window->windowHandle(), letter);
        }
        settle();
    }

    /// Types into an editor, which has the focus then.
    void fill(const char* name, const std::string& text) {
        auto* const editor = window->page().findChild<QWidget*>(name);
        ASSERT_NE(editor, nullptr) << name;
        editor->setFocus();
        settle();
        key(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }

    KarvoList& list() { return window->document().list(); }

    KarvoList& preview() { return window->preview().widget().list(); }

    static std::string connect() {
        return std::string("Provider=SQLite;Data Source=") + KRV_SAMPLE_DATABASE;
    }

    static std::string content(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }

    std::string write(const char* name, const std::string& text) {
        const std::string path = folder.file(name);
        std::ofstream(path) << text;
        return path;
    }

    testing::TemporaryFolder folder;
    std::vector<std::string> messages;
    DesignerWindow::Unsaved unsaved = DesignerWindow::Unsaved::cancel;
    std::optional<QString> file_to_open;
    std::optional<QString> file_to_save;
    std::unique_ptr<DesignerWindow> window;
};

TEST_F(Road, a_list_that_was_built_applied_and_saved_shows_the_records_elsewhere) {
    const std::string path = folder.file("clienti.krv");
    file_to_save = QString::fromStdString(path);
    fill("txConnection", connect());
    fill("txRecordSource", "Clienti");
    key(Qt::Key_Tab);
    EXPECT_THAT(messages, ElementsAre("build list structure?"));
    EXPECT_EQ(window->page().page().columns().colCaptions.at(1), "RagioneSociale");
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window->is_modified());
    EXPECT_EQ(window->windowTitle(), "clienti.krv[*]");

    standard::BagFile file = standard::BagFile::load(path);
    const Surroundings surroundings = make_surroundings();
    qt::KarvoListWidget elsewhere(surroundings.data_access, surroundings.formatter, file.bag());
    elsewhere.list().Refresh();
    EXPECT_EQ(elsewhere.list().Rows(), 44);
    EXPECT_EQ(elsewhere.list().Caption(1), "RagioneSociale");
    EXPECT_NE(elsewhere.list().TextMatrix(0, 1), "");
}

TEST_F(Road, the_preview_shows_the_records_when_it_is_told_to) {
    fill("txConnection", connect());
    fill("txRecordSource", "Clienti");
    key(Qt::Key_Tab);
    EXPECT_EQ(preview().Rows(), 5);
    key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(preview().Rows(), 44);
    EXPECT_EQ(list().Rows(), 0);
    key(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(preview().Rows(), 5);
}

TEST_F(Road, what_the_database_refuses_is_shown) {
    fill("txConnection", "Provider=SQLite;Data Source=/nirgends/x.db");
    fill("txRecordSource", "Clienti");
    key(Qt::Key_Tab);
    EXPECT_THAT(messages, ElementsAre("Error opening database"));
    messages.clear();
    key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_FALSE(messages.empty());
}

TEST_F(Road, typed_settings_reach_the_control_with_apply) {
    fill("txtCols", "3");
    key(Qt::Key_Tab);
    fill("txtCaption", "Codice");
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(preview().Caption(0), "Codice");
    EXPECT_EQ(list().Cols(), 1);
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(list().Cols(), 3);
    EXPECT_EQ(list().Caption(0), "Codice");
    EXPECT_TRUE(window->isWindowModified()); // the file does not have it yet
}

TEST_F(Road, a_saved_file_opens_with_its_settings_and_keeps_its_comments) {
    const std::string path = write("lista.krv", "# mia lista\nCols = 1\nCaption0 = \"Uno\"\n");
    ASSERT_TRUE(window->open_file(QString::fromStdString(path)));
    EXPECT_EQ(list().Caption(0), "Uno");
    EXPECT_FALSE(window->is_modified());
    fill("txtCaption", "Due");
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(content(path), HasSubstr("# mia lista"));
    EXPECT_THAT(content(path), Not(HasSubstr("MsgTitle"))); // the list's own, not this program's
    EXPECT_THAT(content(path), HasSubstr("Caption0 = \"Due\""));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Road, a_damaged_file_is_refused_with_its_line_and_nothing_is_lost) {
    fill("txtCaption", "mio");
    const std::string path = write("rotto.krv", "Cols = 1\nCaption0 = \"senza fine\n");
    EXPECT_FALSE(window->open_file(QString::fromStdString(path)));
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_THAT(messages[0], HasSubstr("line 2: "));
    EXPECT_EQ(window->page().draft().columns.colCaptions, std::vector<std::string>{"mio"});
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), "KarvoList Designer");
}

TEST_F(Road, a_setting_that_does_not_convert_is_refused_and_nothing_is_lost) {
    fill("txtCaption", "mio");
    const std::string path = write("rotto.krv", "Cols = \"molte\"\n");
    EXPECT_FALSE(window->open_file(QString::fromStdString(path)));
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_THAT(messages[0], HasSubstr("Error 13"));
    EXPECT_EQ(window->page().draft().columns.colCaptions, std::vector<std::string>{"mio"});
}

TEST_F(Road, a_file_that_cannot_be_written_leaves_the_document_as_it_is) {
    file_to_save = QString::fromStdString(folder.file("nessuna/cartella.krv"));
    fill("txtCaption", "mio");
    EXPECT_FALSE(window->save());
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_THAT(messages[0], HasSubstr("Error 75"));
    EXPECT_TRUE(window->is_modified());
    EXPECT_TRUE(window->document().file().empty());
}

TEST_F(Road, changes_are_asked_about_before_they_are_left) {
    fill("txtCaption", "mio");
    EXPECT_FALSE(window->new_file());
    EXPECT_FALSE(window->close());
    EXPECT_THAT(messages, ElementsAre("save untitled.krv?", "save untitled.krv?"));
    EXPECT_TRUE(window->isVisible());
    unsaved = DesignerWindow::Unsaved::save;
    file_to_save = QString::fromStdString(folder.file("mio.krv"));
    EXPECT_TRUE(window->close());
    EXPECT_THAT(content(folder.file("mio.krv")), HasSubstr("Caption0 = \"mio\""));
}

TEST_F(Road, discarded_changes_are_gone_and_looking_around_asks_nothing) {
    unsaved = DesignerWindow::Unsaved::discard;
    fill("txtCaption", "mio");
    EXPECT_TRUE(window->new_file());
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(window->page().draft().columns.colCaptions, std::vector<std::string>{""});
    EXPECT_TRUE(window->new_file());
    EXPECT_EQ(messages.size(), 1U);
}

TEST_F(Road, an_editor_that_holds_the_developer_stops_saving) {
    file_to_save = QString::fromStdString(folder.file("mio.krv"));
    fill("txtLineNumberColumn", "9");
    EXPECT_FALSE(window->save());
    EXPECT_THAT(messages, ElementsAre("the value is out of range"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("mio.krv")));
}

} // namespace
} // namespace krv::designer
