#include "standard/grid_fixture.h"

#include "support/scarce_memory.h"

#include <limits>

using krv::testing::ScarceMemory;
using testing::ElementsAre;
using namespace krv::standard::test;

namespace {

class flex_grid_sizes : public GridTest {
protected:
    Numbers row_places() const {
        Numbers places;
        for (std::int32_t row = 0; row < grid.Rows(); ++row) {
            places.push_back(grid.RowPos(row));
        }
        return places;
    }

    Numbers col_places() const {
        Numbers places;
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            places.push_back(grid.ColPos(col));
        }
        return places;
    }
};

} // namespace

TEST_F(flex_grid_sizes, rows_are_240_high_and_columns_960_wide_at_first) {
    fill(2);
    EXPECT_THAT(row_places(), ElementsAre(0, 240, 480));
    EXPECT_THAT(col_places(), ElementsAre(0, 960, 1920));
    EXPECT_EQ(grid.RowHeight(2), 240);
    EXPECT_EQ(grid.ColWidth(2), 960);
    EXPECT_EQ(grid.content_height(), 720);
    EXPECT_EQ(grid.content_width(), 2880);
}

TEST_F(flex_grid_sizes, 0_hides_and_minus_1_gives_the_default_back) {
    fill(2);
    grid.SetRowHeight(0, 300);
    grid.SetRowHeight(1, 0);
    grid.SetColWidth(0, 100);
    grid.SetColWidth(1, 0);
    EXPECT_THAT(row_places(), ElementsAre(0, 300, 300));
    EXPECT_THAT(col_places(), ElementsAre(0, 100, 100));
    grid.SetRowHeight(0, -1);
    grid.SetRowHeight(1, -1);
    grid.SetColWidth(0, -1);
    grid.SetColWidth(1, -1);
    EXPECT_EQ(grid.RowHeight(1), 240);
    EXPECT_EQ(grid.ColWidth(1), 960);
    EXPECT_THAT(row_places(), ElementsAre(0, 240, 480));
    EXPECT_THAT(col_places(), ElementsAre(0, 960, 1920));
}

TEST_F(flex_grid_sizes, bad_sizes_and_places_are_refused) {
    fill(2);
    EXPECT_EQ(error_of([&] { grid.SetColWidth(0, -2); }), "30014 Grid");
    EXPECT_EQ(error_of([&] { grid.SetRowHeight(0, -2); }), "30013 Grid");
    for (const std::int32_t bad : {-1, 3}) {
        EXPECT_EQ(error_of([&] { grid.SetColWidth(bad, 100); }), "30010 Grid");
        EXPECT_EQ(error_of([&] { grid.SetColWidth(bad, -2); }), "30010 Grid");
        EXPECT_EQ(error_of([&] { grid.ColWidth(bad); }), "30010 Grid");
        EXPECT_EQ(error_of([&] { grid.ColPos(bad); }), "30010 Grid");
        EXPECT_EQ(error_of([&] { grid.SetRowHeight(bad, 100); }), "30009 Grid");
        EXPECT_EQ(error_of([&] { grid.SetRowHeight(bad, -2); }), "30009 Grid");
        EXPECT_EQ(error_of([&] { grid.RowHeight(bad); }), "30009 Grid");
        EXPECT_EQ(error_of([&] { grid.RowPos(bad); }), "30009 Grid");
    }
    EXPECT_THAT(row_places(), ElementsAre(0, 240, 480));
    EXPECT_THAT(col_places(), ElementsAre(0, 960, 1920));
}

TEST_F(flex_grid_sizes, alignments_are_0_to_9_and_9_at_first) {
    EXPECT_EQ(grid.ColAlignment(1), 9);
    for (std::int16_t alignment = 0; alignment <= 9; ++alignment) {
        grid.SetColAlignment(1, alignment);
        EXPECT_EQ(grid.ColAlignment(1), alignment);
        EXPECT_EQ(grid.ColAlignment(0), 9);
    }
    grid.SetColAlignment(1, 4);
    EXPECT_EQ(error_of([&] { grid.SetColAlignment(1, 10); }), "30005 Grid");
    EXPECT_EQ(error_of([&] { grid.SetColAlignment(1, -1); }), "30005 Grid");
    for (const std::int32_t bad : {-1, 2}) {
        EXPECT_EQ(error_of([&] { grid.SetColAlignment(bad, 1); }), "30004 Grid");
        EXPECT_EQ(error_of([&] { grid.ColAlignment(bad); }), "30004 Grid");
    }
    EXPECT_EQ(grid.ColAlignment(1), 4);
}

TEST_F(flex_grid_sizes, the_font_changes_the_default_height_and_explicit_heights_stay) {
    fill(3);
    grid.SetRowHeight(2, 240);
    grid.SetFontSize(16.5F);
    EXPECT_EQ(grid.FontSize(), 16.5F);
    EXPECT_THAT(row_places(), ElementsAre(0, 435, 870, 1110));
    grid.SetRowHeight(2, -1);
    EXPECT_EQ(grid.RowHeight(2), 435);
}

TEST_F(flex_grid_sizes, a_size_that_is_no_font_size_is_refused) {
    for (const float points : {0.0F, -8.0F, 2161.0F, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(error_of([&] { grid.SetFontSize(points); }), "380 Grid");
    }
    EXPECT_EQ(grid.FontSize(), 8.25F);
    EXPECT_EQ(grid.RowHeight(1), 240);
}

TEST_F(flex_grid_sizes, rows_and_columns_made_later_take_the_defaults) {
    fill(2);
    for (std::int32_t row = 0; row < 3; ++row) {
        grid.SetRowHeight(row, 300);
        grid.SetColWidth(row, 500);
        grid.SetColAlignment(row, 1);
    }
    grid.AddItem("in between", 2);
    grid.AddItem("last");
    EXPECT_THAT(row_places(), ElementsAre(0, 300, 600, 840, 1140));
    grid.SetRows(1);
    grid.SetRows(3);
    EXPECT_THAT(row_places(), ElementsAre(0, 300, 540));
    grid.SetCols(1);
    grid.SetCols(3);
    EXPECT_THAT(col_places(), ElementsAre(0, 500, 1460));
    EXPECT_EQ(grid.ColAlignment(0), 1);
    EXPECT_EQ(grid.ColAlignment(1), 9);
}

TEST_F(flex_grid_sizes, a_removed_row_takes_its_height_along) {
    fill(4);
    grid.SetRowHeight(2, 500);
    grid.SetRowHeight(3, 100);
    grid.RemoveItem(2);
    EXPECT_THAT(row_places(), ElementsAre(0, 240, 480, 580));
}

TEST_F(flex_grid_sizes, places_follow_the_scrolling_but_the_captions_stay) {
    fill(9);
    grid.set_view_size(1000, 960);
    grid.SetTopRow(3);
    grid.set_scroll_x(1000);
    EXPECT_THAT(row_places(), ElementsAre(0, -240, 0, 240, 480, 720, 960, 1200, 1440, 1680));
    EXPECT_THAT(col_places(), ElementsAre(-1000, -40, 920));
}

TEST_F(flex_grid_sizes, row_at_and_col_at_find_the_cell_under_a_place) {
    fill(9);
    grid.SetRowHeight(0, 300);
    grid.SetRowHeight(4, 0);
    grid.SetColWidth(1, 0);
    grid.set_view_size(1000, 900);
    grid.SetTopRow(3);
    EXPECT_THAT((Numbers{grid.row_at(-1), grid.row_at(0), grid.row_at(299), grid.row_at(300)}),
                ElementsAre(-1, 0, 0, 3));
    EXPECT_THAT((Numbers{grid.row_at(539), grid.row_at(540), grid.row_at(1739), grid.row_at(1740)}),
                ElementsAre(3, 5, 9, -1));
    EXPECT_THAT((Numbers{grid.col_at(-1), grid.col_at(959), grid.col_at(960), grid.col_at(1920)}),
                ElementsAre(-1, 0, 2, -1));
    grid.set_scroll_x(100);
    EXPECT_THAT((Numbers{grid.col_at(0), grid.col_at(859), grid.col_at(860)}),
                ElementsAre(0, 0, 2));
}

TEST_F(flex_grid_sizes, sizes_without_memory_fail_with_30006_and_change_nothing) {
    fill(9);
    const auto scarce = [&](auto act) {
        return error_of([&] {
            const ScarceMemory memory(0);
            act();
        });
    };
    EXPECT_EQ(scarce([&] { grid.SetRowHeight(5, 100); }), "30006 Grid");
    EXPECT_EQ(scarce([&] { grid.SetColWidth(1, 100); }), "30006 Grid");
    EXPECT_EQ(scarce([&] { grid.SetColAlignment(1, 1); }), "30006 Grid");
    EXPECT_EQ(grid.RowHeight(5), 240);
    EXPECT_EQ(grid.ColWidth(1), 960);
    EXPECT_EQ(grid.ColAlignment(1), 9);
}

TEST_F(flex_grid_sizes, places_beyond_32_bits_read_as_the_nearest_number) {
    grid.SetRows(20'000'000);
    EXPECT_EQ(grid.RowPos(19'999'999), std::numeric_limits<std::int32_t>::max());
    grid.set_view_size(960, 960);
    grid.set_scroll_y(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(grid.TopRow(), 19'999'997);
    EXPECT_EQ(grid.RowPos(1), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(grid.RowPos(19'999'999), 720);
}
