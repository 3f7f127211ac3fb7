#include "standard/grid_fixture.h"

using testing::ElementsAre;
using namespace krv::standard::test;

namespace {

// 20 data rows of 240 under captions of 240; 4 rows fit, the 17th is the last useful top row.
class flex_grid_scrolling : public GridTest {
protected:
    flex_grid_scrolling() {
        fill(20);
        grid.set_view_size(2000, 1200);
    }

    Numbers shown_rows() const {
        Numbers rows;
        for (std::int32_t row = 0; row < grid.Rows(); ++row) {
            if (grid.RowIsVisible(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }
};

} // namespace

TEST_F(flex_grid_scrolling, TopRow_is_1_at_rest_and_with_captions_only) {
    EXPECT_EQ(grid.TopRow(), 1);
    grid.SetRows(1);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.SetTopRow(0);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, TopRow_0_becomes_1) {
    grid.SetTopRow(5);
    grid.SetTopRow(0);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, TopRow_stops_where_the_last_rows_fill_the_grid) {
    grid.SetTopRow(17);
    EXPECT_EQ(grid.TopRow(), 17);
    grid.SetTopRow(20);
    EXPECT_EQ(grid.TopRow(), 17);
    EXPECT_EQ(grid.RowPos(20), 960);
    grid.set_view_size(2000, 1199);
    grid.SetTopRow(20);
    EXPECT_EQ(grid.TopRow(), 18);
    grid.set_view_size(2000, 240);
    grid.SetTopRow(20);
    EXPECT_EQ(grid.TopRow(), 20);
}

TEST_F(flex_grid_scrolling, TopRow_outside_is_refused) {
    grid.SetTopRow(5);
    EXPECT_EQ(error_of([&] { grid.SetTopRow(-1); }), "30009 Grid");
    EXPECT_EQ(error_of([&] { grid.SetTopRow(21); }), "30009 Grid");
    EXPECT_EQ(grid.TopRow(), 5);
    grid.SetRows(1);
    EXPECT_EQ(error_of([&] { grid.SetTopRow(1); }), "30009 Grid");
}

TEST_F(flex_grid_scrolling, TopRow_of_a_list_that_fits_stays_1) {
    grid.SetRows(5);
    grid.SetTopRow(4);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, removed_rows_pull_TopRow_back) {
    grid.SetTopRow(17);
    grid.RemoveItem(20);
    EXPECT_EQ(grid.TopRow(), 16);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.TopRow(), 15);
    grid.SetRows(8);
    EXPECT_EQ(grid.TopRow(), 4);
    grid.SetRows(1);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.SetRows(21);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, rows_inserted_or_removed_above_leave_the_number_of_TopRow) {
    grid.SetTopRow(5);
    grid.SetRowHeight(2, 1000);
    EXPECT_EQ(grid.TopRow(), 5);
    grid.AddItem("new", 1);
    EXPECT_EQ(grid.TopRow(), 5);
    EXPECT_EQ(grid.RowPos(5), 240);
    grid.RemoveItem(3);
    EXPECT_EQ(grid.TopRow(), 5);
    EXPECT_EQ(grid.RowPos(5), 240);
}

TEST_F(flex_grid_scrolling, a_larger_view_pulls_TopRow_back) {
    grid.SetTopRow(17);
    grid.set_view_size(2000, 2400);
    EXPECT_EQ(grid.TopRow(), 12);
    grid.set_view_size(2000, 10'000);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, TopRow_of_a_hidden_row_is_the_next_that_shows) {
    grid.SetRowHeight(5, 0);
    grid.SetTopRow(5);
    EXPECT_EQ(grid.TopRow(), 6);
    grid.SetTopRow(4);
    grid.SetRowHeight(4, 0);
    EXPECT_EQ(grid.TopRow(), 6);
    grid.SetRowHeight(20, 0);
    grid.SetTopRow(20);
    EXPECT_EQ(grid.TopRow(), 16);
}

TEST_F(flex_grid_scrolling, with_all_rows_hidden_nothing_scrolls) {
    for (std::int32_t row = 1; row < grid.Rows(); ++row) {
        grid.SetRowHeight(row, 0);
    }
    grid.SetTopRow(9);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.max_scroll_y(), 0);
    EXPECT_THAT(shown_rows(), ElementsAre(0));
}

TEST_F(flex_grid_scrolling, RowIsVisible_when_any_part_of_the_row_shows) {
    EXPECT_THAT(shown_rows(), ElementsAre(0, 1, 2, 3, 4));
    grid.set_view_size(2000, 1201);
    EXPECT_THAT(shown_rows(), ElementsAre(0, 1, 2, 3, 4, 5));
    grid.set_scroll_y(239);
    EXPECT_THAT(shown_rows(), ElementsAre(0, 1, 2, 3, 4, 5));
    grid.set_scroll_y(240);
    EXPECT_THAT(shown_rows(), ElementsAre(0, 2, 3, 4, 5, 6));
    grid.SetRowHeight(3, 0);
    EXPECT_THAT(shown_rows(), ElementsAre(0, 2, 4, 5, 6, 7));
}

TEST_F(flex_grid_scrolling, RowIsVisible_before_the_grid_has_a_size_is_the_captions) {
    grid.set_view_size(0, 0);
    EXPECT_THAT(shown_rows(), ElementsAre(0));
    EXPECT_EQ(error_of([&] { grid.RowIsVisible(-1); }), "30009 Grid");
    EXPECT_EQ(error_of([&] { grid.RowIsVisible(21); }), "30009 Grid");
}

TEST_F(flex_grid_scrolling, the_offset_may_stand_within_a_row) {
    grid.set_scroll_y(300);
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.scroll_y(), 300);
    EXPECT_EQ(grid.RowPos(2), 180);
    grid.SetTopRow(2);
    EXPECT_EQ(grid.scroll_y(), 240);
}

TEST_F(flex_grid_scrolling, the_offset_is_clipped) {
    EXPECT_EQ(grid.max_scroll_y(), 16 * 240);
    grid.set_scroll_y(1'000'000);
    EXPECT_EQ(grid.scroll_y(), 16 * 240);
    grid.set_scroll_y(-1);
    EXPECT_EQ(grid.scroll_y(), 0);
    EXPECT_EQ(grid.max_scroll_x(), 880);
    grid.set_scroll_x(1'000'000);
    EXPECT_EQ(grid.scroll_x(), 880);
    grid.set_scroll_x(-1);
    EXPECT_EQ(grid.scroll_x(), 0);
}

TEST_F(flex_grid_scrolling, a_last_row_higher_than_the_view_can_be_seen_down_to_its_end) {
    grid.SetRowHeight(20, 5000);
    EXPECT_EQ(grid.max_scroll_y(), 19 * 240 + 5000 - 960);
    grid.set_scroll_y(grid.max_scroll_y());
    EXPECT_EQ(grid.TopRow(), 20);
    EXPECT_EQ(grid.RowPos(20) + grid.RowHeight(20), 1200);
    grid.SetTopRow(20);
    EXPECT_EQ(grid.RowPos(20), 240);
}

TEST_F(flex_grid_scrolling, a_top_row_that_shrinks_under_the_offset_stays_on_top) {
    grid.SetRowHeight(3, 1000);
    grid.set_scroll_y(480 + 900);
    grid.SetRowHeight(3, 100);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_EQ(grid.scroll_y(), 480);
}

TEST_F(flex_grid_scrolling, a_font_that_changes_all_heights_keeps_TopRow) {
    grid.SetTopRow(5);
    grid.SetFontSize(16.5F);
    EXPECT_EQ(grid.TopRow(), 5);
    EXPECT_EQ(grid.RowPos(5), 435);
    EXPECT_EQ(grid.scroll_y(), 4 * 435);
}

TEST_F(flex_grid_scrolling, narrower_columns_and_a_wider_view_pull_the_columns_back) {
    grid.set_scroll_x(880);
    grid.SetColWidth(0, 500);
    EXPECT_EQ(grid.scroll_x(), 420);
    grid.set_view_size(2200, 1200);
    EXPECT_EQ(grid.scroll_x(), 220);
    grid.SetCols(1);
    EXPECT_EQ(grid.scroll_x(), 0);
}

TEST_F(flex_grid_scrolling, ensure_visible_scrolls_as_little_as_needed) {
    grid.ensure_visible(4, -1);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.ensure_visible(5, -1);
    EXPECT_EQ(grid.TopRow(), 2);
    grid.ensure_visible(20, -1);
    EXPECT_EQ(grid.TopRow(), 17);
    grid.ensure_visible(18, -1);
    EXPECT_EQ(grid.TopRow(), 17);
    grid.ensure_visible(3, -1);
    EXPECT_EQ(grid.TopRow(), 3);
    grid.ensure_visible(0, -1);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_EQ(grid.scroll_x(), 0);
}

TEST_F(flex_grid_scrolling, ensure_visible_shows_columns_and_the_left_of_wide_ones) {
    grid.ensure_visible(-1, 2);
    EXPECT_EQ(grid.scroll_x(), 880);
    grid.ensure_visible(-1, 1);
    EXPECT_EQ(grid.scroll_x(), 880);
    grid.ensure_visible(-1, 0);
    EXPECT_EQ(grid.scroll_x(), 0);
    grid.SetColWidth(1, 3000);
    grid.ensure_visible(-1, 1);
    EXPECT_EQ(grid.ColPos(1), 0);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, ensure_visible_leaves_hidden_rows_and_columns_alone) {
    grid.SetRowHeight(20, 0);
    grid.SetColWidth(2, 0);
    grid.ensure_visible(20, 2);
    EXPECT_EQ(grid.scroll_y(), 0);
    EXPECT_EQ(grid.scroll_x(), 0);
    EXPECT_EQ(error_of([&] { grid.ensure_visible(21, 0); }), "30009 Grid");
    EXPECT_EQ(error_of([&] { grid.ensure_visible(20, 3); }), "30010 Grid");
    EXPECT_EQ(error_of([&] { grid.ensure_visible(-2, -2); }), "30009 Grid");
}

TEST_F(flex_grid_scrolling, the_wheel_moves_by_rows_that_show) {
    grid.SetRowHeight(3, 0);
    grid.scroll_rows(2);
    EXPECT_EQ(grid.TopRow(), 4);
    grid.scroll_rows(1);
    EXPECT_EQ(grid.TopRow(), 5);
    grid.scroll_rows(-2);
    EXPECT_EQ(grid.TopRow(), 2);
    grid.scroll_rows(1000);
    EXPECT_EQ(grid.TopRow(), 17);
    grid.scroll_rows(-1000);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.set_scroll_y(300);
    grid.scroll_rows(-1);
    EXPECT_EQ(grid.scroll_y(), 240);
}

TEST_F(flex_grid_scrolling, page_keys_scroll_and_move_no_cell) {
    const auto tops = [this](std::int16_t key, int times) {
        Numbers rows;
        while (times-- > 0) {
            EXPECT_TRUE(grid.scroll_by_key(key));
            rows.push_back(grid.TopRow());
        }
        return rows;
    };
    EXPECT_THAT(tops(34, 5), ElementsAre(5, 9, 13, 17, 17));
    EXPECT_THAT(tops(33, 5), ElementsAre(13, 9, 5, 1, 1));
    EXPECT_THAT(tops(35, 1), ElementsAre(17));
    EXPECT_THAT(tops(36, 1), ElementsAre(1));
    for (const std::int16_t arrow : {37, 38, 39, 40, 13, 9}) {
        EXPECT_FALSE(grid.scroll_by_key(arrow));
    }
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 0, 0, 0));
    EXPECT_TRUE(changes.empty());
}

TEST_F(flex_grid_scrolling, pages_bring_the_row_that_was_cut_to_the_top) {
    grid.set_view_size(2000, 1100);
    grid.scroll_by_key(34);
    EXPECT_EQ(grid.TopRow(), 4);
    EXPECT_EQ(grid.RowPos(4), 240);
    grid.scroll_by_key(33);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_scrolling, pages_pass_through_a_row_higher_than_the_view) {
    grid.SetRowHeight(2, 2500);
    grid.SetTopRow(2);
    grid.scroll_by_key(34);
    EXPECT_EQ(grid.scroll_y(), 240 + 960);
    grid.scroll_by_key(34);
    grid.scroll_by_key(34);
    EXPECT_GT(grid.TopRow(), 2);
    grid.SetTopRow(3);
    grid.scroll_by_key(33);
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.scroll_y(), 240 + 2500 - 960);
}

TEST_F(flex_grid_scrolling, a_view_is_told_when_something_scrolled) {
    RecordingView view;
    grid.set_view(&view);
    grid.SetTopRow(5);
    grid.SetTopRow(5);
    grid.set_scroll_x(100);
    grid.set_scroll_x(100);
    grid.scroll_by_key(36);
    grid.ensure_visible(20, 2);
    EXPECT_THAT(view.take(),
                ElementsAre("scrolled", "scrolled", "scrolled", "scrolled", "scrolled"));
    grid.SetRows(2);
    EXPECT_THAT(view.take(), ElementsAre("removed 2 19", "scrolled"));
}

TEST_F(flex_grid_scrolling, hidden_captions_leave_their_place_to_the_rows) {
    grid.SetRowHeight(0, 0);
    EXPECT_EQ(grid.row_at(0), 1);
    EXPECT_THAT(shown_rows(), ElementsAre(0, 1, 2, 3, 4, 5));
    grid.SetTopRow(20);
    EXPECT_EQ(grid.TopRow(), 16);
    EXPECT_EQ(grid.RowPos(16), 0);
}
