#include "standard/grid_fixture.h"

#include "support/scarce_memory.h"

#include <limits>
#include <string_view>

using krv::testing::ScarceMemory;
using testing::ElementsAre;
using namespace krv::standard::test;

namespace {

class flex_grid_texts : public GridTest {};

} // namespace

TEST_F(flex_grid_texts, a_new_grid_has_two_rows_and_two_columns_of_nothing) {
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_THAT(row_texts(grid, 0), ElementsAre("", ""));
    EXPECT_THAT(row_texts(grid, 1), ElementsAre("", ""));
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(flex_grid_texts, texts_are_kept_exactly) {
    const Texts texts{"", "a\r\nb", "a\tb", std::string("a\0b", 3), "\xC3\xA8\xE2\x82\xAC"};
    grid.SetCols(5);
    for (std::int32_t col = 0; col < 5; ++col) {
        grid.SetTextMatrix(1, col, texts[static_cast<std::size_t>(col)]);
    }
    EXPECT_EQ(row_texts(grid, 1), texts);
    EXPECT_THAT(row_texts(grid, 0), ElementsAre("", "", "", "", ""));
}

TEST_F(flex_grid_texts, TextArray_counts_the_cells_row_by_row) {
    grid.SetCols(3);
    grid.SetTextArray(2, "caption 2");
    grid.SetTextArray(4, "row 1, column 1");
    EXPECT_EQ(grid.TextMatrix(0, 2), "caption 2");
    EXPECT_EQ(grid.TextMatrix(1, 1), "row 1, column 1");
    EXPECT_EQ(grid.TextArray(2), "caption 2");
    EXPECT_EQ(grid.TextArray(4), "row 1, column 1");
}

TEST_F(flex_grid_texts, a_bad_cell_fails_with_381) {
    fill(2);
    for (const auto& [row, col] :
         {std::pair{-1, 0}, {3, 0}, {0, -1}, {0, 3}, {-1, -1}, {32767, 0}}) {
        EXPECT_EQ(error_of([&, r = row, c = col] { grid.TextMatrix(r, c); }), "381 Grid");
        EXPECT_EQ(error_of([&, r = row, c = col] { grid.SetTextMatrix(r, c, "x"); }), "381 Grid");
    }
    for (const std::int32_t index : {-1, -7, 9, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(error_of([&] { grid.TextArray(index); }), "381 Grid");
        EXPECT_EQ(error_of([&] { grid.SetTextArray(index, "x"); }), "381 Grid");
    }
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "2"));
}

TEST_F(flex_grid_texts, AddItem_splits_the_row_at_tabs) {
    grid.SetCols(3);
    grid.AddItem("a\tb");
    grid.AddItem("1\t2\t3\t4");
    grid.AddItem("");
    EXPECT_EQ(grid.Rows(), 5);
    EXPECT_THAT(row_texts(grid, 2), ElementsAre("a", "b", ""));
    EXPECT_THAT(row_texts(grid, 3), ElementsAre("1", "2", "3"));
    EXPECT_THAT(row_texts(grid, 4), ElementsAre("", "", ""));
}

TEST_F(flex_grid_texts, AddItem_inserts_before_a_row_and_appends_behind_the_last) {
    fill(2);
    grid.AddItem("first", 1);
    grid.AddItem("last", 4);
    grid.AddItem("middle", 3);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "first", "1", "middle", "2", "last"));
}

TEST_F(flex_grid_texts, AddItem_to_a_grid_of_captions_leaves_row_0_current) {
    grid.SetRows(1);
    grid.AddItem("a");
    grid.AddItem("b", 1);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("", "b", "a"));
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 0, 0, 0));
    queue.turn();
    EXPECT_TRUE(changes.empty());
}

TEST_F(flex_grid_texts, AddItem_fails_on_the_captions_and_beyond_the_end) {
    fill(2);
    EXPECT_EQ(error_of([&] { grid.AddItem("x", 0); }), "30001 Grid");
    EXPECT_EQ(error_of([&] { grid.AddItem("x", -1); }), "30009 Grid");
    EXPECT_EQ(error_of([&] { grid.AddItem("x", 4); }), "30009 Grid");
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "2"));
}

TEST_F(flex_grid_texts, RemoveItem_moves_the_rows_below_up) {
    fill(4);
    grid.RemoveItem(2);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "3", "4"));
    grid.RemoveItem(3);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "3"));
}

TEST_F(flex_grid_texts, RemoveItem_fails_on_captions_on_no_row_and_on_the_last_row) {
    fill(2);
    EXPECT_EQ(error_of([&] { grid.RemoveItem(0); }), "30000 Grid");
    EXPECT_EQ(error_of([&] { grid.RemoveItem(3); }), "30002 Grid");
    EXPECT_EQ(error_of([&] { grid.RemoveItem(-1); }), "30002 Grid");
    EXPECT_EQ(grid.Rows(), 3);
    grid.RemoveItem(1);
    EXPECT_EQ(error_of([&] { grid.RemoveItem(1); }), "30015 Grid");
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "2"));
    grid.SetRows(1);
    EXPECT_EQ(error_of([&] { grid.RemoveItem(0); }), "30000 Grid");
    EXPECT_EQ(error_of([&] { grid.RemoveItem(1); }), "30002 Grid");
}

TEST_F(flex_grid_texts, Rows_and_Cols_keep_what_remains_and_make_the_rest_empty) {
    fill(3);
    grid.SetTextMatrix(1, 2, "right");
    grid.SetRows(2);
    grid.SetRows(4);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "", ""));
    grid.SetCols(2);
    grid.SetCols(4);
    EXPECT_THAT(row_texts(grid, 1), ElementsAre("1", "", "", ""));
}

TEST_F(flex_grid_texts, Rows_1_keeps_the_captions_alone) {
    fill(3);
    grid.SetRows(1);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0"));
    grid.SetRows(2);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", ""));
}

TEST_F(flex_grid_texts, less_than_one_row_or_column_is_refused) {
    fill(2);
    EXPECT_EQ(error_of([&] { grid.SetRows(0); }), "30009 Grid");
    EXPECT_EQ(error_of([&] { grid.SetRows(-1); }), "30009 Grid");
    EXPECT_EQ(error_of([&] { grid.SetCols(0); }), "30010 Grid");
    EXPECT_EQ(error_of([&] { grid.SetCols(-1); }), "30010 Grid");
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "2"));
}

TEST_F(flex_grid_texts, Clear_empties_the_texts_and_leaves_everything_else) {
    fill(9);
    grid.set_view_size(3000, 960);
    grid.SetColWidth(1, 500);
    grid.SetRowHeight(2, 500);
    grid.SetColAlignment(1, 7);
    grid.SetRow(4);
    grid.SetCol(1);
    grid.SetRowSel(5);
    grid.SetTopRow(3);
    changes.clear();
    grid.Clear();
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("", "", "", "", "", "", "", "", "", ""));
    EXPECT_THAT((Numbers{grid.Rows(), grid.Cols(), grid.ColWidth(1), grid.RowHeight(2)}),
                ElementsAre(10, 3, 500, 500));
    EXPECT_EQ(grid.ColAlignment(1), 7);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_THAT(selection_of(grid), ElementsAre(4, 1, 5, 1));
    queue.turn();
    EXPECT_TRUE(changes.empty());
}

TEST_F(flex_grid_texts, writing_a_text_moves_nothing_and_raises_nothing) {
    fill(3);
    grid.SetRow(2);
    changes.clear();
    grid.SetTextMatrix(1, 1, "x");
    grid.SetTextArray(0, "y");
    grid.AddItem("z", 1);
    queue.turn();
    EXPECT_TRUE(changes.empty());
    EXPECT_THAT(selection_of(grid), ElementsAre(2, 0, 2, 0));
}

TEST_F(flex_grid_texts, memory_that_cannot_be_had_is_30006_and_changes_nothing) {
    fill(2);
    const std::string_view endless("x", std::size_t{5} << 30); // never read
    EXPECT_EQ(error_of([&] { grid.SetTextMatrix(1, 0, endless); }), "30006 Grid");
    const std::string text(100'000, 'x');
    for (std::size_t allocations = 0; allocations < 2; ++allocations) {
        const auto scarce = [&](auto act) {
            return error_of([&] {
                const ScarceMemory memory(allocations);
                act();
            });
        };
        EXPECT_EQ(scarce([&] { grid.SetTextMatrix(1, 1, text); }),
                  allocations == 0 ? "30006 Grid" : "none");
    }
    EXPECT_THAT(column_texts(grid, 0), ElementsAre("0", "1", "2"));
    EXPECT_EQ(grid.TextMatrix(1, 1), text);
}

TEST_F(flex_grid_texts, more_rows_than_can_be_counted_are_30006) {
    grid.SetRows(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(error_of([&] { grid.AddItem(""); }), "30006 Grid");
    EXPECT_EQ(error_of([&] { grid.AddItem("", 1); }), "30006 Grid");
    EXPECT_EQ(grid.Rows(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(grid.RowPos(grid.Rows() - 1), std::numeric_limits<std::int32_t>::max());
    EXPECT_LE(grid.memory_bytes(), 20'000U);
}

TEST_F(flex_grid_texts, errors_carry_the_name_of_the_grid) {
    krv::standard::FlexGrid line("GridIn", queue);
    EXPECT_EQ(error_of([&] { line.SetRow(9); }), "30009 GridIn");
}

TEST_F(flex_grid_texts, a_view_is_told_what_changed) {
    RecordingView view;
    fill(3);
    grid.set_view(&view);
    grid.SetTextMatrix(2, 1, "x");
    grid.SetTextArray(4, "y");
    grid.AddItem("z");
    grid.AddItem("z", 2);
    grid.RemoveItem(1);
    grid.SetRows(9);
    grid.SetRows(9);
    grid.SetRows(3);
    grid.Clear();
    EXPECT_THAT(view.take(),
                ElementsAre("cells 2 2",
                            "cells 1 1",
                            "inserted 4 1",
                            "inserted 2 1",
                            "removed 1 1",
                            "inserted 5 4",
                            "removed 3 6",
                            "cells 0 2"));
    grid.SetCols(5);
    grid.SetColWidth(1, 100);
    grid.SetRowHeight(1, 100);
    grid.SetColAlignment(1, 1);
    grid.SetFontSize(10);
    EXPECT_THAT(view.take(), ElementsAre("layout", "layout", "layout", "layout", "layout"));
    error_of([&] { grid.SetTextMatrix(9, 9, ""); });
    error_of([&] { grid.SetColWidth(1, -2); });
    EXPECT_TRUE(view.take().empty());
}
