#include "krv/standard/memory_bag.h"
#include "qt/widget_fixture.h"

#include "support/bag_texts.h"
#include "support/errors.h"

#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QSignalSpy>

namespace krv::qt::testing {

namespace {

using ::testing::ElementsAre;
using Numbers = std::vector<std::int32_t>;
using Texts = std::vector<std::string>;

/// A control as a form makes it, on its own; what it reports is kept.
class UiSettings : public WidgetTest {
protected:
    static std::unique_ptr<KarvoListWidget> of_a_form() {
        return std::make_unique<KarvoListWidget>();
    }

    Texts saved() {
        standard::MemoryBag bag;
        list().WriteProperties(bag);
        return krv::testing::texts_of(bag);
    }

    /// Puts a text of columns and gives the warnings that followed.
    Texts warnings_of(const QByteArray& columns) {
        Texts texts;
        widget->set_error_handler([&](const std::exception_ptr& error) {
            try {
                std::rethrow_exception(error);
            } catch (const platform::RuntimeError& failure) {
                texts.push_back(std::to_string(failure.number()) + " " + failure.description());
            }
        });
        widget->SetColumns(columns);
        return texts;
    }

    /// Of each column: width and field.
    Texts columns() {
        Texts texts;
        for (std::int32_t col = 0; col < list().Cols(); ++col) {
            texts.push_back(std::to_string(list().ColWidth(col)) + list().ColDataField(col));
        }
        return texts;
    }
};

class InDesigner : public UiSettings {
protected:
    InDesigner() {
        QGuiApplication::setApplicationDisplayName("The designer");
        widget = std::make_unique<KarvoListWidget>(KarvoListWidget::InDesigner());
    }
};

} // namespace

TEST_F(UiSettings, columns_are_a_line_each_without_their_captions) {
    list().SetCols(2);
    list().SetCaption(0, "Totale");
    list().SetColAlignment(0, krvright);
    list().SetColWidth(1, 0);
    list().SetColDataField(1, "a \"b\"\n");
    list().SetColFieldType(1, 12);
    list().SetColEditable(1, true);
    EXPECT_EQ(widget->Columns(),
              QByteArray("ColWidth=960 ColAlignment=7 ColFieldType=0\n"
                         "ColWidth=0 ColAlignment=9 ColDataField=\"a \\\"b\\\"\\n\""));
    EXPECT_EQ(widget->Captions(), (QStringList{"Totale", ""}));
}

TEST_F(UiSettings, columns_come_back_into_both_grids) {
    widget->SetColumns("ColWidth=120 ColAlignment=7 ColIsNecessary=true\n\n"
                       " ColFormat = \"0.00\"\tColWidth = 300 ColEditable=false\r\n");
    EXPECT_EQ(list().Cols(), 2);
    EXPECT_EQ(list().ColWidth(0), 120);
    EXPECT_EQ(widget->constituents().GridIn.ColWidth(1), 300);
    EXPECT_TRUE(list().ColIsNecessary(0));
    EXPECT_TRUE(list().ColEditable(0));
    EXPECT_FALSE(list().ColEditable(1));
    EXPECT_EQ(list().ColFormat(1), "0.00");
    EXPECT_EQ(errors, Numbers{});
}

TEST_F(UiSettings, an_empty_text_is_one_new_column) {
    const QByteArray start = widget->Columns();
    widget->SetColumns("ColWidth=1\nColWidth=2");
    widget->SetColumns("");
    EXPECT_EQ(widget->Columns(), QByteArray("ColWidth=960 ColAlignment=9 ColFieldType=0"));
    EXPECT_EQ(widget->Columns(), start);
}

TEST_F(UiSettings, a_text_with_a_fault_gives_the_columns_before_it_and_says_the_line) {
    const std::pair<const char*, const char*> faults[] = {
        {"ColWidth", "'=' is missing"},
        {"ColWidth=", "a value is missing"},
        {"ColWidth=1 ColWidth=2", "\"ColWidth\" stands here for the second time"},
        {"Caption=\"x\"", "\"Caption\" is no setting of a column"},
        {"Rows=3", "\"Rows\" is no setting of a column"},
        {"ColDataField=\"x", "the closing quote of a text is missing"},
        {"ColWidth=wide", "'wide' is neither true, false, a number nor a text in quotes"},
    };
    for (const auto& [line, fault] : faults) {
        const QByteArray text =
            QByteArray("\nColWidth=100 ColDataField=\"a\"\n") + line + "\nColWidth=300";
        EXPECT_EQ(warnings_of(text), Texts{std::string("321 Invalid Columns, line 3: ") + fault});
        EXPECT_EQ(columns(), (Texts{"100a", "960", "960"})) << line;
    }
}

TEST_F(UiSettings, what_the_control_refuses_in_a_column_is_a_fault_of_its_line) {
    for (const char* line : {"ColWidth=-5",
                             "ColAlignment=99",
                             "ColFieldLength=32768",
                             "ColEditable=\"perhaps\"",
                             "ColFieldType=1e300"}) {
        const Texts warnings =
            warnings_of(QByteArray("ColWidth=100\n") + line + "\nColWidth=300\nColWidth=5");
        ASSERT_EQ(warnings.size(), 1U) << line;
        EXPECT_EQ(warnings.front().rfind("321 Invalid Columns, line 2: ", 0), 0U) << warnings[0];
        EXPECT_EQ(columns(), (Texts{"100", "960", "960", "960"})) << line;
    }
}

TEST_F(UiSettings, a_list_has_at_most_32767_columns) {
    const Texts warnings = warnings_of(QByteArray("ColWidth=1\n").repeated(32768));
    EXPECT_EQ(warnings,
              Texts{"321 Invalid Columns, line 32768: a list has at most 32,767 columns"});
    EXPECT_EQ(list().Cols(), 32767);
}

TEST_F(UiSettings, bytes_that_are_no_utf_8_become_replacement_characters) {
    EXPECT_EQ(warnings_of("ColWidth=1 ColDataField=\"a\xFF\""), Texts{});
    EXPECT_EQ(list().ColDataField(0), "a\xEF\xBF\xBD");
}

TEST_F(UiSettings, captions_may_come_before_their_columns) {
    widget->SetCaptions({"uno", "due", "tre"});
    EXPECT_EQ(widget->Captions(), QStringList{"uno"});
    widget->SetColumns("ColWidth=1\nColWidth=2");
    EXPECT_EQ(widget->Captions(), (QStringList{"uno", "due"}));
    EXPECT_EQ(widget->constituents().GridIn.TextMatrix(0, 1), "due");
    widget->SetCaptions({"one"});
    EXPECT_EQ(widget->Captions(), (QStringList{"one", ""}));
}

TEST_F(UiSettings, columns_that_come_back_have_their_captions) {
    widget->SetColumns("ColWidth=1\nColWidth=2\nColWidth=3");
    widget->SetCaptions({"uno", "due", "tre"});
    widget->SetColumns("ColWidth=1");
    widget->SetColumns("ColWidth=1\nColWidth=2\nColWidth=3");
    EXPECT_EQ(widget->Captions(), (QStringList{"uno", "due", "tre"}));
}

TEST_F(UiSettings, captions_leave_an_open_row_as_it_is) {
    fill(3);
    list().SetRow(1);
    widget->SetCaptions({"Description", "Amount"});
    EXPECT_EQ(list().Caption(1), "Amount");
    EXPECT_EQ(list().InputArray(0), "riga 1");
    EXPECT_TRUE(widget->constituents().GridIn.Visible());
}

TEST_F(UiSettings, a_start_row_opens_nothing) {
    widget->SetRows(5);
    QSignalSpy selected(widget.get(), &KarvoListWidget::RowSelect);
    widget->SetStartRow(3);
    turn();
    EXPECT_EQ(list().Row(), 3);
    EXPECT_EQ(selected.count(), 0);
    EXPECT_FALSE(widget->constituents().GridIn.Visible());
}

TEST_F(UiSettings, a_start_row_waits_for_its_rows) {
    widget->SetStartRow(3);
    EXPECT_EQ(list().Row(), -1);
    widget->SetRows(3);
    EXPECT_EQ(list().Row(), -1);
    widget->SetRows(4);
    EXPECT_EQ(list().Row(), 3);
    EXPECT_FALSE(widget->constituents().GridIn.Visible());
    EXPECT_EQ(errors, Numbers{});
}

TEST_F(UiSettings, start_keys_are_taken_as_they_are) {
    widget->SetStartKeyAdd(5);
    widget->SetStartKeyInsert(-20);
    widget->SetStartKeyDelete(124);
    widget->SetStartKeyCopy(123);
    EXPECT_EQ(list().KeyAdd(), 5);
    EXPECT_EQ(list().KeyInsert(), -20);
    EXPECT_EQ(list().KeyDelete(), 124);
    EXPECT_EQ(list().KeyCopy(), 123);
    widget->SetStartKeyAdd(40000);
    EXPECT_EQ(list().KeyAdd(), 5);
    EXPECT_EQ(messages, Texts{});
    EXPECT_EQ(errors, Numbers{6});
}

TEST_F(UiSettings, a_start_source_is_set) {
    widget->SetStartConnect("Provider=\xC3\xA8");
    widget->SetStartDataBaseName("/tmp/a\xFF.db");
    widget->SetStartRecordsource("Ordini");
    EXPECT_EQ(list().Connect(), "Provider=\xC3\xA8");
    EXPECT_EQ(list().DataBaseName(), "/tmp/a\xEF\xBF\xBD.db");
    EXPECT_EQ(list().Recordsource(), "Ordini");
    EXPECT_EQ(widget->StartConnect(), "Provider=\xC3\xA8");
    EXPECT_EQ(widget->StartRecordsource(), "Ordini");
}

TEST_F(UiSettings, a_start_title_is_set) {
    widget->SetMsgTitle("Ordini");
    EXPECT_EQ(widget->StartTitle(), "Rolda");
    widget->SetStartTitle("Ordini");
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), "Ordini");
    widget->SetStartTitle("Rolda");
}

TEST_F(UiSettings, a_start_height_of_0_comes_back_as_255) {
    widget->SetStartButtonsHeight(300.5);
    EXPECT_EQ(list().ButtonsHeight(), 300.5F);
    EXPECT_EQ(widget->constituents().btnOK.Height(), 300.5F);
    widget->SetStartButtonsHeight(0);
    EXPECT_EQ(list().ButtonsHeight(), 255.0F);
}

TEST_F(UiSettings, notify_nothing_where_they_are_of_form_files_alone) {
    QSignalSpy changed(widget.get(), &KarvoListWidget::propertyChanged);
    widget->SetColumns("ColWidth=1\nColWidth=2");
    widget->SetCaptions({"uno", "due"});
    widget->SetStartTitle("Rolda");
    widget->SetStartConnect("x");
    widget->SetStartDataBaseName("x");
    widget->SetStartRecordsource("x");
    widget->SetStartRow(-1);
    widget->SetStartButtonsHeight(300);
    widget->SetStartKeyAdd(5);
    widget->SetStartKeyInsert(5);
    widget->SetStartKeyDelete(5);
    widget->SetStartKeyCopy(5);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(UiSettings, the_layout_follows) {
    widget->SetStartButtonsHeight(600);
    const platform::TwipsSingle top = widget->constituents().btnAdd.Top();
    widget->SetStartButtonsHeight(300);
    EXPECT_NE(widget->constituents().btnAdd.Top(), top);
}

TEST_F(UiSettings, a_control_of_a_form_starts_as_any_new_one) {
    const Texts expected = saved();
    widget = of_a_form();
    EXPECT_EQ(saved(), expected);
}

TEST_F(UiSettings, without_a_data_layer_a_refresh_says_so) {
    widget = of_a_form();
    widget->SetConnect("Provider=SQLite");
    widget->SetRecordsource("Ordini");
    try {
        list().Refresh();
        FAIL() << "nothing was raised";
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.number(), 3706);
        EXPECT_EQ(error.description(),
                  "There is no data provider in this program: give the control one with "
                  "set_data_access or set_default_data_access");
    }
}

TEST_F(UiSettings, a_data_layer_may_be_given_later_or_for_the_program) {
    data->field_names = {"Numero"};
    data->records = {{platform::Value(platform::ValueView::double_float(7.5))}};
    const auto fill_one = [&] {
        widget = of_a_form();
        widget->SetConnect("Provider=script");
        widget->SetRecordsource("Ordini");
        list().SetColDataField(0, "Numero");
    };
    const auto italian =
        std::make_shared<standard::ValueFormatter>(standard::regional_settings("it-IT"));

    fill_one();
    widget->set_data_access(data);
    widget->set_formatter(italian);
    list().Refresh();
    EXPECT_EQ(list().TextMatrix(0, 0), "7,5");

    fill_one();
    KarvoListWidget::set_default_data_access(data);
    KarvoListWidget::set_default_formatter(
        std::make_shared<standard::ValueFormatter>(standard::regional_settings("en-US")));
    list().Refresh();
    EXPECT_EQ(list().TextMatrix(0, 0), "7.5");
    widget->set_formatter(italian);
    list().Refresh();
    EXPECT_EQ(list().TextMatrix(0, 0), "7,5");

    KarvoListWidget::set_default_data_access(nullptr);
    KarvoListWidget::set_default_formatter(nullptr);
    EXPECT_EQ(krv::testing::error_number_of([&] { list().Refresh(); }), 3706);
}

TEST_F(InDesigner, the_designers_title_stays) {
    EXPECT_EQ(widget->StartTitle(), "Rolda");
    widget->SetStartTitle("Ordini");
    EXPECT_EQ(widget->StartTitle(), "Ordini");
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), "The designer");
}

TEST_F(InDesigner, fewer_rows_open_no_row) {
    widget->SetRows(5);
    widget->SetStartRow(4);
    QSignalSpy changed(widget.get(), &KarvoListWidget::propertyChanged);
    widget->SetRows(2);
    turn();
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_EQ(list().Row(), 1);
    EXPECT_FALSE(widget->constituents().GridIn.Visible());
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(InDesigner, a_fault_is_a_warning_that_the_designer_shows) {
    static Texts warnings;
    warnings.clear();
    const QtMessageHandler old =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            warnings.push_back(text.toStdString());
        });
    widget->SetColumns("ColWidth=100\nColWidth");
    qInstallMessageHandler(old);
    EXPECT_THAT(warnings,
                ElementsAre("Designer: KarvoList: Invalid Columns, line 2: '=' is missing"));
    EXPECT_EQ(columns(), (Texts{"100", "960"}));
}

} // namespace krv::qt::testing
