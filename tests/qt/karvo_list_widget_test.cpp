#include "krv/qt/karvo_list_widget.h"

#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"
#include "qt/grid_part.h"
#include "qt/picture.h"

#include "support/scripted_data.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace krv::qt::testing {

namespace {

using krv::testing::ScriptedData;
using platform::Value;
using platform::ValueView;

void turn() {
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
    }
}

class ListWidget : public ::testing::Test {
protected:
    ListWidget()
        : data(std::make_shared<ScriptedData>())
        , formatter(
              std::make_shared<standard::ValueFormatter>(standard::regional_settings("it-IT")))
        , widget(std::make_unique<KarvoListWidget>(data, formatter)) {
        widget->set_message_handler([this](std::string_view text, platform::MessageButtons) {
            messages.emplace_back(text);
            return platform::MessageAnswer::ok;
        });
        widget->set_error_handler([this](const std::exception_ptr&) { ++errors; });
    }

    template <class Widget = QWidget>
    Widget& part(const char* name) {
        auto* const found = widget->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    KarvoList& list() { return widget->list(); }

    void fill(int rows) {
        list().SetConnect("Provider=script");
        data->field_names = {"Numero", "Importo"};
        for (int row = 0; row < rows; ++row) {
            data->records.push_back({Value(ValueView::long_integer(row)),
                                     Value(ValueView::double_float(1234.5 + row))});
        }
        list().SetCols(2);
        list().SetColDataField(0, "Numero");
        list().SetColDataField(1, "Importo");
        list().SetColFormat(1, "#,##0.00");
        list().SetRecordsource("Ordini");
        list().Refresh();
        turn();
    }

    std::shared_ptr<ScriptedData> data;
    std::shared_ptr<standard::ValueFormatter> formatter;
    std::unique_ptr<KarvoListWidget> widget;
    std::vector<std::string> messages;
    int errors = 0;
};

} // namespace

TEST_F(ListWidget, starts_at_6000_by_3000_twips_laid_out) {
    EXPECT_EQ(widget->size(), QSize(400, 200));
    EXPECT_EQ(widget->sizeHint(), QSize(400, 200));
    EXPECT_EQ(widget->minimumSizeHint(), QSize(337, 120));
    EXPECT_EQ(part("Grid").geometry(), QRect(0, 0, 400, 148));
    EXPECT_EQ(part("GridIn").geometry(), QRect(0, 148, 400, 34));
    EXPECT_EQ(part("btnAdd").geometry(), QRect(0, 182, 80, 17));
    EXPECT_EQ(part("btnInsert").geometry(), QRect(80, 182, 80, 17));
    EXPECT_EQ(part("btnCopy").geometry(), QRect(160, 182, 80, 17));
    EXPECT_EQ(part("btnDelete").geometry(), QRect(240, 182, 80, 17));
    EXPECT_EQ(part("btnOK").geometry(), QRect(320, 182, 80, 17));
}

TEST_F(ListWidget, shows_the_list_and_the_add_button_at_first) {
    EXPECT_FALSE(part("Grid").isHidden());
    EXPECT_FALSE(part("btnAdd").isHidden());
    EXPECT_TRUE(part("GridIn").isHidden());
    EXPECT_TRUE(part("InpFld").isHidden());
    EXPECT_EQ(part<QPushButton>("btnAdd").text(), "aggiungi (F5)");
}

TEST_F(ListWidget, lays_out_when_the_form_resizes_it) {
    widget->show();
    turn();
    widget->resize(800, 300);
    turn();
    EXPECT_EQ(part("Grid").geometry(), QRect(0, 0, 800, 248));
    EXPECT_EQ(part("btnAdd").geometry(), QRect(0, 282, 133, 17));
    EXPECT_EQ(part("btnOK").geometry().right(), 799);
}

TEST_F(ListWidget, grows_to_its_least_size) {
    widget->show();
    turn();
    widget->resize(200, 50);
    turn();
    EXPECT_EQ(widget->size(), QSize(337, 120));
    EXPECT_EQ(part("Grid").width(), 337);
}

TEST_F(ListWidget, fills_a_layout_of_the_form) {
    QWidget form;
    auto* const layout = new QVBoxLayout(&form);
    layout->setContentsMargins(0, 0, 0, 0);
    KarvoListWidget* const child = widget.release();
    layout->addWidget(child);
    form.resize(640, 480);
    form.show();
    turn();
    EXPECT_EQ(child->size(), QSize(640, 480));
    EXPECT_EQ(child->findChild<QWidget*>("Grid")->width(), 640);
    EXPECT_GE(form.minimumSizeHint().width(), 337);
}

TEST_F(ListWidget, loads_and_draws_the_records) {
    widget->show();
    fill(3);
    EXPECT_EQ(list().Rows(), 3);
    EXPECT_EQ(list().TextMatrix(2, 1), "1.236,50");
    auto& view = part<GridView>("Grid");
    const QImage picture = drawn(*view.viewport());
    const QRect number = inside(view.cell_rect(1, 1));
    const QRect text = ink(picture, number).translated(-number.topLeft());
    EXPECT_GT(text.left(), 5);
    EXPECT_GT(text.right(), number.width() - 8);
    EXPECT_EQ(messages, std::vector<std::string>{});
    EXPECT_EQ(errors, 0);
}

TEST_F(ListWidget, a_source_that_cannot_be_opened_is_a_message) {
    data->connection_fails = true;
    list().SetRecordsource("Ordini");
    list().Refresh();
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(errors, 0);
}

TEST_F(ListWidget, tells_changed_properties) {
    QStringList changed;
    QObject::connect(widget.get(), &KarvoListWidget::propertyChanged, [&](const QString& name) {
        changed.append(name);
    });
    list().SetCols(3);
    list().SetCaption(1, "x");
    EXPECT_EQ(changed, (QStringList{"Cols", "Caption"}));
}

TEST_F(ListWidget, may_be_destroyed_while_it_tells_a_changed_property) {
    QObject::connect(widget.get(), &KarvoListWidget::propertyChanged, [this](const QString&) {
        widget.reset();
    });
    list().SetCols(3);
    EXPECT_EQ(widget, nullptr);
}

TEST_F(ListWidget, may_be_destroyed_while_it_shows_a_message) {
    data->connection_fails = true;
    widget->set_message_handler([this](std::string_view, platform::MessageButtons) {
        widget.reset();
        return platform::MessageAnswer::ok;
    });
    list().SetRecordsource("Ordini");
    list().Refresh();
    EXPECT_EQ(widget, nullptr);
}

TEST_F(ListWidget, tab_walks_the_parts_in_their_order_on_the_form) {
    const QStringList order = {
        "Grid", "GridIn", "InpFld", "btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"};
    QStringList walked;
    QWidget* at = &part("Grid");
    for (int step = 0; step < 40 && walked.size() < order.size(); ++step) {
        if (order.contains(at->objectName()) && !walked.contains(at->objectName())) {
            walked.append(at->objectName());
        }
        at = at->nextInFocusChain();
    }
    EXPECT_EQ(walked, order);
}

TEST_F(ListWidget, a_click_selects_a_row_of_the_list) {
    widget->show();
    fill(5);
    auto& view = part<GridView>("Grid");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.cell_rect(3, 0).center());
    EXPECT_EQ(list().Row(), 2);
    EXPECT_EQ(view.grid().ColSel(), 1);
}

TEST_F(ListWidget, every_part_has_an_accessible_name) {
    for (const char* name :
         {"Grid", "GridIn", "InpFld", "btnAdd", "btnInsert", "btnDelete", "btnCopy", "Line1"}) {
        EXPECT_FALSE(part(name).accessibleName().isEmpty()) << name;
    }
}

TEST_F(ListWidget, gives_the_list_the_focus_that_a_host_gives_it) {
    widget->show();
    widget->activateWindow();
    turn();
    part("btnAdd").setFocus();
    widget->setFocus();
    EXPECT_EQ(widget->focusWidget(), &part("Grid"));
}

TEST_F(ListWidget, keeps_the_columns_of_list_and_input_line_aligned) {
    widget->show();
    fill(50);
    list().SetColWidth(0, 6000);
    turn();
    auto& upper = part<GridView>("Grid");
    auto& lower = part<GridView>("GridIn");
    upper.grid().set_scroll_x(upper.grid().max_scroll_x());
    EXPECT_GT(upper.grid().scroll_x(), 0);
    EXPECT_EQ(lower.grid().scroll_x(), upper.grid().scroll_x());
    EXPECT_EQ(lower.grid().ColPos(1), upper.grid().ColPos(1));
    lower.grid().set_scroll_x(0);
    EXPECT_EQ(upper.grid().scroll_x(), 0);
}

} // namespace krv::qt::testing
