#include "standard/grid_fixture.h"

using krv::standard::GridSelection;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace krv::standard::test;

namespace {

// 9 data rows of 240, 3 columns of 960; the captions and 4 rows show, and two and a half columns.
class flex_grid_mouse_by_row : public GridTest {
protected:
    explicit flex_grid_mouse_by_row(GridSelection selection = GridSelection::by_row)
        : GridTest(selection) {
        fill(9);
        grid.set_view_size(2400, 1200);
    }
};

class flex_grid_mouse_free : public flex_grid_mouse_by_row {
protected:
    flex_grid_mouse_free()
        : flex_grid_mouse_by_row(GridSelection::free) {}
};

} // namespace

TEST_F(flex_grid_mouse_by_row, a_press_selects_the_whole_row_and_raises_one_change) {
    EXPECT_TRUE(grid.mouse_press(1000, 500));
    EXPECT_THAT(selection_of(grid), ElementsAre(2, 0, 2, 2));
    EXPECT_THAT(changes, ElementsAre(Numbers{2, 0, 2, 2}));
}

TEST_F(flex_grid_mouse_by_row, a_press_on_the_current_row_selects_it_without_a_change) {
    grid.SetRow(2);
    changes.clear();
    EXPECT_TRUE(grid.mouse_press(1000, 719));
    EXPECT_THAT(selection_of(grid), ElementsAre(2, 0, 2, 2));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_mouse_by_row, a_press_that_moves_row_and_column_raises_one_change) {
    grid.SetCol(1);
    changes.clear();
    grid.mouse_press(1000, 500);
    EXPECT_THAT(changes, ElementsAre(Numbers{2, 0, 2, 2}));
}

TEST_F(flex_grid_mouse_by_row, a_press_on_the_captions_makes_row_0_current) {
    grid.SetRow(3);
    grid.SetTopRow(2);
    changes.clear();
    EXPECT_TRUE(grid.mouse_press(0, 239));
    EXPECT_THAT(changes, ElementsAre(Numbers{0, 0, 0, 2}));
    EXPECT_EQ(grid.TopRow(), 2);
}

TEST_F(flex_grid_mouse_by_row, a_press_beside_the_cells_moves_nothing) {
    grid.SetRows(3);
    grid.SetRow(1);
    changes.clear();
    grid.set_view_size(5000, 5000);
    EXPECT_FALSE(grid.mouse_press(100, 720));
    EXPECT_FALSE(grid.mouse_press(2880, 100));
    EXPECT_FALSE(grid.mouse_press(-1, 300));
    EXPECT_FALSE(grid.mouse_press(100, -1));
    grid.mouse_drag(100, 300);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 1, 0));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_mouse_by_row, a_drag_moves_the_other_row_alone) {
    grid.mouse_press(100, 300);
    changes.clear();
    grid.mouse_drag(1500, 800);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 3, 2));
    grid.mouse_drag(100, 5000);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 3, 2));
    grid.mouse_drag(100, 100);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 0, 2));
    grid.mouse_release();
    grid.mouse_drag(100, 800);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 0, 2));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_mouse_by_row, a_press_counts_from_the_scrolled_rows_and_columns) {
    grid.SetTopRow(4);
    grid.set_scroll_x(480);
    grid.mouse_press(2399, 240);
    EXPECT_THAT(selection_of(grid), ElementsAre(4, 0, 4, 2));
    EXPECT_EQ(grid.scroll_x(), 480);
    EXPECT_EQ(grid.TopRow(), 4);
}

TEST_F(flex_grid_mouse_by_row, a_press_on_a_row_that_is_cut_scrolls_it_into_view) {
    grid.set_view_size(2400, 1100);
    grid.mouse_press(100, 1000);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.RowPos(4) + grid.RowHeight(4), 960);
    grid.set_scroll_y(300);
    grid.mouse_press(100, 250);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.RowPos(2), 240);
}

TEST_F(flex_grid_mouse_by_row, a_press_first_delivers_a_waiting_change) {
    grid.SetRow(8);
    changes.clear();
    grid.SetRows(5);
    grid.mouse_press(100, 300);
    EXPECT_THAT(changes, ElementsAre(Numbers{4, 0, 4, 0}, Numbers{1, 0, 1, 2}));
}

TEST_F(flex_grid_mouse_by_row, a_handler_of_the_waiting_change_may_take_the_pressed_row_away) {
    grid.SetRow(8);
    grid.SetRows(6);
    grid.set_on_row_col_change([this] { grid.SetRows(2); });
    EXPECT_FALSE(grid.mouse_press(100, 800));
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 1, 0));
}

TEST_F(flex_grid_mouse_free, a_press_moves_to_the_pressed_cell_with_one_change) {
    EXPECT_TRUE(grid.mouse_press(1000, 500));
    EXPECT_THAT(selection_of(grid), ElementsAre(2, 1, 2, 1));
    EXPECT_THAT(changes, ElementsAre(Numbers{2, 1, 2, 1}));
    EXPECT_TRUE(grid.mouse_press(1000, 500));
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(flex_grid_mouse_free, a_press_on_the_captions_counts_for_the_column_too) {
    grid.SetRow(1);
    changes.clear();
    grid.mouse_press(1000, 100);
    EXPECT_THAT(changes, ElementsAre(Numbers{0, 1, 0, 1}));
}

TEST_F(flex_grid_mouse_free, a_drag_moves_the_other_corner) {
    grid.mouse_press(100, 300);
    changes.clear();
    grid.mouse_drag(1500, 800);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 3, 1));
    grid.mouse_drag(-5, 5000);
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 3, 1));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_mouse_free, a_press_on_a_column_that_is_cut_scrolls_it_into_view) {
    grid.mouse_press(2300, 300);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.ColPos(2), 2400 - 960);
    grid.mouse_press(10, 300);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.ColPos(0), 0);
}
