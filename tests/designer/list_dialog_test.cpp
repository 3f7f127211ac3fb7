// The page's dialog on the sample database.

#include "document.h"

#include "krv/control/karvo_list.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/qt/list_dialog.h"
#include "krv/qt/list_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPixmap>
#include <QTabBar>
#include <QTest>

#include <string>
#include <vector>

namespace krv::designer {
namespace {

using ::testing::ElementsAre;

void settle() {
    for (int turn = 0; turn < 5; ++turn) {
        QApplication::processEvents();
    }
}

/// For the documentation, when asked for.
void take_picture(QWidget& widget, const QString& name) {
    const QString pictures = qEnvironmentVariable("KRV_PICTURES");
    if (!pictures.isEmpty()) {
        settle();
        EXPECT_TRUE(widget.grab().save(pictures + '/' + name));
    }
}

TEST(SampleDialog, builds_the_list_from_the_sample_database) {
    const Surroundings surroundings = make_surroundings();
    Document document(surroundings);
    const QFileInfo sample(KRV_SAMPLE_DATABASE);
    QDir::setCurrent(sample.path());
    document.list().SetConnect("Provider=SQLite;Data Source=" + sample.fileName().toStdString());
    document.list().SetRecordsource("Ordini");
    qt::ListDialog dialog({document, surroundings.data_access, surroundings.formatter});
    std::vector<std::string> asked;
    dialog.page().set_message_handler([&](std::string_view text, platform::MessageButtons) {
        asked.emplace_back(text);
        return platform::MessageAnswer::yes;
    });
    dialog.show();
    dialog.activateWindow();
    settle();
    dialog.page().findChild<QLineEdit*>("txRecordSource")->setFocus();
    EXPECT_TRUE(dialog.page().commit());
    settle();
    EXPECT_THAT(asked, ElementsAre("build list structure?"));
    auto& tabs = *dialog.page().findChild<QTabBar*>("TabStrip1");
    EXPECT_EQ(tabs.count(), 15);
    EXPECT_EQ(dialog.preview().widget().list().Caption(3), "Cliente");
    QTest::keyClick(&tabs, Qt::Key_Home); // ignored: the focus is elsewhere
    tabs.setFocus();
    QTest::keyClick(&tabs, Qt::Key_Home);
    EXPECT_EQ(tabs.currentIndex(), 0);
    for (const int column : {3, 5}) {
        QTest::keyClick(&tabs, Qt::Key_Home);
        for (int step = 0; step < column; ++step) {
            QTest::keyClick(&tabs, Qt::Key_Right);
        }
        auto& width = *dialog.page().findChild<QLineEdit*>("txtColWidth");
        width.setFocus();
        settle();
        width.selectAll();
        QTest::keyClicks(&width, "2100");
        tabs.setFocus();
        settle();
    }
    EXPECT_EQ(dialog.preview().widget().list().ColWidth(5), 2100);
    dialog.resize(1000, 560);
    take_picture(dialog, "property-page.png");
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(document.list().Cols(), 15);
    EXPECT_EQ(document.list().ColDataField(3), "Cliente");
}

} // namespace
} // namespace krv::designer
