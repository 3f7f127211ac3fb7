// The typical road of a user, in the demo's window, key by key.

#include "demo_window.h"
#include "options.h"
#include "source.h"

#include "krv/qt/grid_view.h"
#include "krv/qt/karvo_list_widget.h"

#include "support/sqlite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace krv::demo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Road : public ::testing::Test {
protected:
    void SetUp() override {
        path = folder.file("ordini.db");
        std::filesystem::copy_file(KRV_SAMPLE_DATABASE, path);
        window.emplace(find_source({}, path));
        window->resize(1190, 480);
        window->widget().set_message_handler(
            [this](std::string_view text, platform::MessageButtons buttons) {
                messages.emplace_back(text);
                return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok
                                                               : platform::MessageAnswer::yes;
            });
        window->show();
        window->activateWindow();
        window->load();
        list().SetTopRow(list().Rows());
        settle();
    }

    KarvoList& list() { return window->widget().list(); }

    static void settle() {
        for (int turn = 0; turn < 5; ++turn) {
            QApplication::processEvents();
        }
    }

    void open(std::int32_t row) {
        window->findChild<qt::GridView*>("Grid")->click_row(row + 1); // row 0 holds the captions
        settle();
    }

    /// As the keyboard gives it: to the window, which hands it to whatever has the focus.
    void key(Qt::Key code) {
        QTest::keyClick(window->windowHandle(), code);
        settle();
    }

    void type(const char* text) {
        for (; *text != '\0'; ++text) {
            QTest::keyClick(window->windowHandle(), *text);
        }
        settle();
    }

    void type_order() {
        for (const char* text : {"07/07/2026",
                                 "Ferramenta D'Angelo",
                                 "Calendario illustrato",
                                 "3",
                                 "12,5",
                                 "",
                                 "37,50",
                                 "0"}) {
            type(text);
            key(Qt::Key_Right);
        }
        type("ordine di prova");
    }

    std::int64_t number(const std::string& sql) const {
        return testing::OtherProcess(path).number(sql);
    }

    /// For the documentation, when asked for.
    void take_picture(const QString& name) {
        const QString pictures = qEnvironmentVariable("KRV_PICTURES");
        if (!pictures.isEmpty()) {
            settle();
            EXPECT_TRUE(window->grab().save(pictures + '/' + name));
        }
    }

    testing::TemporaryFolder folder;
    std::string path;
    std::vector<std::string> messages;
    std::optional<DemoWindow> window;
};

TEST_F(Road, a_row_that_was_typed_and_confirmed_is_in_the_database) {
    take_picture("road-before.png");
    open(list().Rows() - 1);
    key(Qt::Key_F5);
    type_order();
    key(Qt::Key_Enter);
    list().SetTopRow(list().Rows());
    take_picture("road-after.png");
    EXPECT_THAT(messages, IsEmpty());
    ASSERT_EQ(list().Rows(), 2401);
    std::vector<std::string> row;
    for (std::int32_t col = 0; col < list().Cols(); ++col) {
        row.push_back(list().TextMatrix(2400, col));
    }
    EXPECT_THAT(row,
                ElementsAre("3401",
                            "07/07/2026",
                            "Ferramenta D'Angelo",
                            "Calendario illustrato",
                            "3",
                            "12,50",
                            "",
                            "37,50",
                            "no",
                            "ordine di prova"));
    EXPECT_EQ(number("SELECT count(*) FROM Ordini"), 2401);
    EXPECT_EQ(number("SELECT count(*) FROM Ordini AS o JOIN Clienti USING (IdCliente)"
                     " JOIN Articoli USING (Codice) WHERE Numero = 3401 AND Data = '2026-07-07'"
                     " AND o.Prezzo = 12.5 AND Totale = 37.5 AND Spedito = 0"
                     " AND Sconto IS NULL AND Note = 'ordine di prova'"),
              1);
}

TEST_F(Road, a_row_that_others_have_changed_stays_open_with_what_was_typed) {
    open(0);
    key(Qt::Key_Right); // from the selected text to its end
    key(Qt::Key_Right); // to the next field
    testing::OtherProcess(path).run("UPDATE Ordini SET Note = 'altrove' WHERE Numero = 1001");
    type("Qualcuno");
    key(Qt::Key_Enter);
    EXPECT_THAT(messages, ElementsAre(HasSubstr("modificato da altri (colonna \"Note\"")));
    EXPECT_TRUE(list().InputModified());
    EXPECT_EQ(list().InputArray(2), "Qualcuno");
    EXPECT_EQ(number("SELECT count(*) FROM Ordini WHERE Cliente = 'Qualcuno'"), 0);
}

TEST_F(Road, a_deleted_row_leaves_the_database) {
    open(1);
    key(Qt::Key_F7);
    EXPECT_THAT(messages, ElementsAre("confermi eliminazione riga selezionata?"));
    EXPECT_EQ(list().Rows(), 2399);
    EXPECT_EQ(number("SELECT count(*) FROM Ordini WHERE Numero = 1002"), 0);
}

TEST_F(Road, a_window_that_only_reads_opens_rows_and_lets_nothing_change) {
    window->make_read_only();
    open(1);
    for (const Qt::Key code : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F8, Qt::Key_F7}) {
        key(code);
    }
    type("x");
    key(Qt::Key_Enter);
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(list().Rows(), 2400);
    EXPECT_FALSE(list().InputModified());
    EXPECT_EQ(number("SELECT count(*) FROM Ordini"), 2400);
}

} // namespace
} // namespace krv::demo
