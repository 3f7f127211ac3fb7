#include "qt/page_dialog_fixture.h"

#include "krv/qt/list_dialog.h"
#include "krv/qt/list_preview.h"

#include <gmock/gmock.h>

#include <QDialogButtonBox>
#include <QPushButton>

namespace krv::qt::testing {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class PageDialog : public PageTest {
protected:
    PageDialog()
        : dialog(std::make_unique<ListDialog>(supplies())) {
        page().set_message_handler([this](std::string_view text, platform::MessageButtons buttons) {
            asked.emplace_back(text);
            return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok : answer;
        });
        QObject::connect(
            dialog.get(), &QDialog::finished, dialog.get(), [this](int code) { result = code; });
        dialog->show();
        dialog->activateWindow();
        turn();
    }

    PropertyPageWidget& page() { return dialog->page(); }

    KarvoList& preview() { return dialog->preview().widget().list(); }

    void press(QDialogButtonBox::StandardButton which) {
        auto* const buttons = dialog->findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(which), Qt::LeftButton);
        turn();
    }

    std::vector<std::string> column(std::int32_t col) {
        std::vector<std::string> texts;
        for (std::int32_t row = 0; row < preview().Rows(); ++row) {
            texts.push_back(preview().TextMatrix(row, col));
        }
        return texts;
    }

    std::unique_ptr<ListDialog> dialog;
    std::vector<std::string> asked;
    platform::MessageAnswer answer = platform::MessageAnswer::yes;
    int result = -1;
};

} // namespace

TEST_F(PageDialog, ok_applies_and_closes) {
    fill(page(), "txtCaption", "Altro");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(list().Caption(0), "Altro");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PageDialog, enter_in_an_editor_is_ok_and_commits_it) {
    fill(page(), "txtCols", "4");
    QTest::keyClick(&editor(page(), "txtCols"), Qt::Key_Return);
    turn();
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(list().Cols(), 4);
}

TEST_F(PageDialog, apply_leaves_the_dialog_open) {
    fill(page(), "txtCaption", "Altro");
    press(QDialogButtonBox::Apply);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(list().Caption(0), "Altro");
    EXPECT_FALSE(page().has_edits());
}

TEST_F(PageDialog, cancel_asks_once_when_something_would_be_lost) {
    fill(page(), "txtCaption", "Altro");
    answer = platform::MessageAnswer::no;
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(result, -1);
    EXPECT_THAT(asked, ElementsAre("discard changes?"));
    answer = platform::MessageAnswer::yes;
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_EQ(asked.size(), 2U);
    EXPECT_EQ(list().Caption(0), "Codice");
}

TEST_F(PageDialog, a_click_that_takes_its_time_leaves_no_editor_and_is_not_lost) {
    fill(page(), "txtLineNumberColumn", "9");
    auto* const cancel = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
    QTest::mousePress(cancel, Qt::LeftButton);
    turn();
    QTest::mouseRelease(cancel, Qt::LeftButton);
    turn();
    EXPECT_THAT(asked, ElementsAre("discard changes?"));
    EXPECT_EQ(result, QDialog::Rejected);
}

TEST_F(PageDialog, a_refused_number_is_not_passed_over) {
    fill(page(), "txtColWidth", "40000");
    asked.clear();
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(result, -1);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0], HasSubstr("Overflow"));
    EXPECT_EQ(list().ColWidth(0), 1000);
    fill(page(), "txtColWidth", "4001");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(list().ColWidth(0), 4001);
}

TEST_F(PageDialog, the_dialog_may_go_when_it_was_applied) {
    QObject::connect(
        dialog.get(), &ListDialog::applied, qApp, [this] { dialog.reset(); }, Qt::DirectConnection);
    fill(page(), "txtCaption", "Altro");
    dialog->accept();
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(list().Caption(0), "Altro");
}

TEST_F(PageDialog, cancel_asks_nothing_after_looking_around) {
    page().rooms().TabStrip1.SetSelectedIndex(3);
    EXPECT_TRUE(site.Changed());
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PageDialog, an_error_while_applying_is_shown_and_the_dialog_stays) {
    fill(page(), "txtColWidth", "-20");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(result, -1);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0], HasSubstr("30014"));
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(PageDialog, a_control_that_is_gone_cannot_be_edited) {
    widget.reset();
    EXPECT_EQ(krv::testing::error_number_of([&] { ListDialog other(supplies()); }), 91);
}

TEST_F(PageDialog, the_preview_shows_what_applying_would_give) {
    EXPECT_EQ(preview().Cols(), 3);
    EXPECT_EQ(preview().Caption(1), "Nome");
    EXPECT_EQ(preview().ColWidth(2), 1200);
    EXPECT_THAT(column(0), ElementsAre("Codice 1", "Codice 2", "Codice 3", "Codice 4", "Codice 5"));
    fill(page(), "txtCaption", "Numero");
    fill(page(), "txtColWidth", "2500");
    EXPECT_EQ(preview().Caption(0), "Numero");
    EXPECT_EQ(preview().ColWidth(0), 2500);
    EXPECT_EQ(list().Caption(0), "Codice");
}

TEST_F(PageDialog, the_preview_formats_by_type_and_pattern) {
    page().rooms().cmbDataType.SetListIndex(12); // Double
    page().rooms().txtFormat.SetText("#,##0.00");
    turn();
    EXPECT_THAT(column(0), ElementsAre("1.234,50", "2.469,00", "3.703,50", "4.938,00", "6.172,50"));
    page().rooms().cmbDataType.SetListIndex(8); // Date
    page().rooms().txtFormat.SetText("dd/mm/yyyy");
    turn();
    EXPECT_EQ(column(0)[0], "01/01/2026");
    page().rooms().cmbDataType.SetListIndex(35); // text
    page().rooms().txtFormat.SetText("");
    page().rooms().txtFieldLength.SetText("3");
    turn();
    EXPECT_EQ(column(0)[0], "Cod");
}

TEST_F(PageDialog, the_preview_shows_the_buttons_that_are_wanted) {
    page().rooms().chkCopyVisible.SetValue(0);
    turn();
    EXPECT_FALSE(preview().CopyVisible());
    EXPECT_TRUE(preview().DeleteVisible());
}

TEST_F(PageDialog, the_preview_has_the_captions_that_the_page_does_not_show) {
    list().SetAddCaption("nuovo");
    ListDialog other(supplies());
    EXPECT_EQ(other.preview().widget().list().AddCaption(), widget->list().AddCaption());
}

TEST_F(PageDialog, the_preview_numbers_rows_and_follows_the_column_count) {
    fill(page(), "txtLineNumberColumn", "1");
    fill(page(), "txtCols", "2");
    editor(page(), "txtRows").setFocus();
    turn();
    EXPECT_EQ(preview().Cols(), 2);
    EXPECT_THAT(column(1), ElementsAre("0", "1", "2", "3", "4"));
}

TEST_F(PageDialog, neither_page_nor_preview_opens_a_database_or_renames_the_program) {
    QGuiApplication::setApplicationDisplayName("programma");
    data->trace.clear();
    ListDialog other(supplies());
    other.show();
    turn();
    EXPECT_THAT(data->trace, IsEmpty());
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), "programma");
}

TEST_F(PageDialog, can_be_made_small) {
    EXPECT_LE(dialog->minimumSizeHint().width(), 900);
    EXPECT_LE(dialog->minimumSizeHint().height(), 600);
}

} // namespace krv::qt::testing
