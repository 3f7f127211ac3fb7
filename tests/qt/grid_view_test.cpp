#include "qt/grid_fixture.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace krv::qt::testing {

namespace {

class GridViewing : public GridTest {
protected:
    void SetUp() override {
        view.set_owner(this);
        add_rows(100);
        show();
    }

    void wheel(QPoint degrees, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPointF middle(100, 80);
        QWheelEvent event(middle,
                          view.viewport()->mapToGlobal(middle),
                          {},
                          degrees,
                          Qt::NoButton,
                          modifiers,
                          Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(view.viewport(), &event);
        turn();
    }
};

using Told = std::vector<std::string>;

} // namespace

TEST_F(GridViewing, a_press_moves_the_current_cell_before_it_is_told) {
    press(3, 1);
    release(3, 1);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.ColSel(), 2);
    EXPECT_EQ(
        told,
        (Told{"down 1 0 1785 825 row 3", "up 1 0 1785 825 row 3", "click 1 0 1785 825 row 3"}));
}

TEST_F(GridViewing, a_press_beside_the_cells_is_told_and_moves_nothing) {
    press(3, 1);
    release(3, 1);
    told.clear();
    QTest::mousePress(view.viewport(), Qt::RightButton, Qt::ShiftModifier, QPoint(260, 100));
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(told, (Told{"down 2 1 3900 1500 row 3"}));
    QTest::mouseRelease(view.viewport(), Qt::RightButton, Qt::ShiftModifier, QPoint(260, 100));
}

TEST_F(GridViewing, a_press_on_a_caption_makes_the_caption_row_current) {
    press(3, 1);
    release(3, 1);
    press(0, 1);
    release(0, 1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridViewing, a_dropped_press_drops_its_release_and_click) {
    arrives = false;
    press(3, 1);
    arrives = true;
    release(3, 1);
    EXPECT_EQ(told, Told{});
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridViewing, a_double_click_is_a_press_without_a_click_of_its_own) {
    const QPoint place = view.cell_rect(2, 0).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    Told kinds;
    for (const std::string& what : told) {
        kinds.push_back(what.substr(0, what.find(' ')));
    }
    EXPECT_EQ(kinds, (Told{"down", "up", "click", "down", "double", "up"}));
}

TEST_F(GridViewing, the_release_of_another_button_is_not_the_end_of_the_press) {
    press(3, 1);
    told.clear();
    QTest::mouseRelease(view.viewport(), Qt::RightButton, {}, view.cell_rect(3, 1).center());
    EXPECT_EQ(told, Told{});
    release(3, 1);
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(GridViewing, a_drag_moves_the_selection_and_not_the_row) {
    press(2, 0);
    QMouseEvent move(QEvent::MouseMove,
                     QPointF(view.cell_rect(4, 0).center()),
                     view.viewport()->mapToGlobal(QPointF(view.cell_rect(4, 0).center())),
                     Qt::NoButton,
                     Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.RowSel(), 4);
    release(4, 0);
}

TEST_F(GridViewing, the_wheel_scrolls_rows) {
    wheel({0, -120});
    EXPECT_EQ(grid.TopRow(), 1 + QApplication::wheelScrollLines());
    wheel({0, 120});
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridViewing, a_fine_wheel_adds_up) {
    for (int i = 0; i < 120; ++i) {
        wheel({0, -1});
    }
    EXPECT_EQ(grid.TopRow(), 1 + QApplication::wheelScrollLines());
}

TEST_F(GridViewing, the_arrow_keys_do_nothing_and_page_keys_scroll) {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
        QTest::keyClick(&view, key);
    }
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.Row(), 0);
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_GT(grid.TopRow(), 5);
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(grid.scroll_y(), grid.max_scroll_y());
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridViewing, a_swallowed_key_does_not_scroll) {
    keys_go_on = false;
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridViewing, the_scroll_bar_and_the_grid_keep_in_step) {
    QScrollBar& bar = *view.verticalScrollBar();
    EXPECT_TRUE(bar.isVisible());
    bar.setValue(bar.maximum());
    EXPECT_EQ(grid.scroll_y(), grid.max_scroll_y());
    EXPECT_TRUE(grid.RowIsVisible(100));
    grid.SetTopRow(11);
    EXPECT_EQ(bar.value(), 160);
    bar.setValue(0);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridViewing, scrolling_one_way_leaves_the_other_where_it_is) {
    add_rows(60);
    for (std::int32_t row = 1; row < grid.Rows(); ++row) {
        grid.SetRowHeight(row, 245); // no whole number of pixels
    }
    grid.SetColWidth(0, 9005);
    show();
    grid.SetTopRow(2);
    grid.set_scroll_x(101);
    turn();
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + 10);
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.scroll_y(), 245);
    const auto across = grid.scroll_x();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + 40);
    EXPECT_EQ(grid.scroll_x(), across);
}

TEST_F(GridViewing, scroll_bars_come_and_go_with_the_content) {
    EXPECT_GT(view.scroll_bar_width(), 0);
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
    grid.SetColWidth(0, 4000);
    turn();
    EXPECT_TRUE(view.horizontalScrollBar()->isVisible());
    grid.SetRows(3);
    grid.SetColWidth(0, 1200);
    turn();
    EXPECT_EQ(view.scroll_bar_width(), 0);
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
}

TEST_F(GridViewing, the_grid_knows_how_much_of_it_is_seen) {
    EXPECT_EQ(grid.view_height(), 160 * 15);
    EXPECT_EQ(grid.view_width(), (300 - view.scroll_bar_width()) * 15);
    view.resize(400, 200);
    turn();
    EXPECT_EQ(grid.view_height(), 200 * 15);
}

TEST_F(GridViewing, a_million_rows_scroll_to_their_end) {
    grid.SetRows(1'000'001);
    grid.SetTextMatrix(1'000'000, 0, "last");
    turn();
    QScrollBar& bar = *view.verticalScrollBar();
    EXPECT_EQ(bar.maximum(), 1'000'000 * 16 - (160 - 16));
    bar.setValue(bar.maximum());
    EXPECT_TRUE(grid.RowIsVisible(1'000'000));
    EXPECT_FALSE(ink(picture(), cell(1'000'000, 0)).isNull());
}

TEST_F(GridViewing, more_rows_than_a_scroll_bar_counts_are_clipped_to_it) {
    grid.SetRows(1000);
    for (int row = 1; row < 1000; ++row) {
        grid.SetRowHeight(row, 2'000'000'000);
    }
    turn();
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 2'000'000'000);
    view.verticalScrollBar()->setValue(2'000'000'000);
    EXPECT_EQ(grid.scroll_y(), grid.max_scroll_y());
}

TEST_F(GridViewing, cells_are_found_where_they_are_drawn) {
    grid.set_scroll_y(100);
    for (const int row : {2, 5, 8}) {
        EXPECT_EQ(view.row_at(view.cell_rect(row, 1).center()), row);
        EXPECT_EQ(view.col_at(view.cell_rect(row, 1).center()), 1);
    }
    EXPECT_EQ(view.row_at({10, 3}), 0);
    EXPECT_EQ(view.col_at({290, 3}), -1);
}

TEST_F(GridViewing, columns_that_scroll_are_told) {
    std::vector<qint64> moved;
    QObject::connect(
        &view, &GridView::columnsScrolled, [&](qint64 twips) { moved.push_back(twips); });
    grid.SetColWidth(0, 9000);
    grid.set_scroll_x(300);
    grid.set_scroll_x(100);
    EXPECT_EQ(moved, (std::vector<qint64>{-300, 200}));
}

} // namespace krv::qt::testing
