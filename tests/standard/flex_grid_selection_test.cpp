#include "standard/grid_fixture.h"

#include <functional>
#include <memory>
#include <stdexcept>

using krv::standard::FlexGrid;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace krv::standard::test;

namespace {

class flex_grid_selection : public GridTest {
protected:
    flex_grid_selection() { fill(9); }

    Numbers change_at(std::int64_t row, std::int64_t col) { return {row, col, row, col}; }
};

} // namespace

TEST_F(flex_grid_selection, an_assignment_collapses_the_selection_and_then_raises_one_change) {
    grid.SetRowSel(5);
    grid.SetColSel(2);
    grid.SetRow(3);
    EXPECT_THAT(changes, ElementsAre(change_at(3, 0)));
    grid.SetRowSel(5);
    grid.SetCol(1);
    EXPECT_THAT(changes, ElementsAre(change_at(3, 0), change_at(3, 1)));
}

TEST_F(flex_grid_selection, assigning_the_old_value_collapses_too_and_raises_nothing) {
    grid.SetRow(3);
    changes.clear();
    grid.SetRowSel(5);
    grid.SetColSel(2);
    grid.SetRow(3);
    EXPECT_THAT(selection_of(grid), ElementsAre(3, 0, 3, 0));
    grid.SetRowSel(5);
    grid.SetColSel(2);
    grid.SetCol(0);
    EXPECT_THAT(selection_of(grid), ElementsAre(3, 0, 3, 0));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_selection, the_other_corner_moves_alone_and_raises_nothing) {
    grid.SetRowSel(9);
    grid.SetColSel(2);
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 0, 9, 2));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_selection, the_captions_may_be_current) {
    grid.SetRow(2);
    grid.SetRow(0);
    EXPECT_THAT(changes, ElementsAre(change_at(2, 0), change_at(0, 0)));
}

TEST_F(flex_grid_selection, values_outside_are_refused_without_a_change) {
    grid.SetRow(2);
    grid.SetRowSel(4);
    changes.clear();
    for (const std::int32_t row : {-1, 10, 32767}) {
        EXPECT_EQ(error_of([&] { grid.SetRow(row); }), "30009 Grid");
        EXPECT_EQ(error_of([&] { grid.SetRowSel(row); }), "30009 Grid");
    }
    for (const std::int32_t col : {-1, 3, 32767}) {
        EXPECT_EQ(error_of([&] { grid.SetCol(col); }), "30010 Grid");
        EXPECT_EQ(error_of([&] { grid.SetColSel(col); }), "30010 Grid");
    }
    EXPECT_THAT(selection_of(grid), ElementsAre(2, 0, 4, 0));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_selection, setting_it_by_code_does_not_scroll) {
    grid.set_view_size(960, 720);
    grid.SetRow(9);
    grid.SetCol(2);
    grid.SetRowSel(8);
    grid.SetColSel(1);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.scroll_x(), 0);
}

TEST_F(flex_grid_selection, is_selected_covers_the_block_whichever_corner_is_current) {
    grid.SetRow(4);
    grid.SetCol(2);
    grid.SetRowSel(2);
    grid.SetColSel(1);
    Texts block;
    for (std::int32_t row = 0; row < grid.Rows(); ++row) {
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            if (grid.is_selected(row, col)) {
                block.push_back(std::to_string(row) + "/" + std::to_string(col));
            }
        }
    }
    EXPECT_THAT(block, ElementsAre("2/1", "2/2", "3/1", "3/2", "4/1", "4/2"));
}

TEST_F(flex_grid_selection, rows_that_go_away_leave_the_last_row_current) {
    grid.SetRow(7);
    grid.SetRows(5);
    EXPECT_THAT(selection_of(grid), ElementsAre(4, 0, 4, 0));
    grid.SetRows(1);
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 0, 0, 0));
}

TEST_F(flex_grid_selection, a_corner_that_goes_away_takes_the_current_row_along) {
    grid.SetRow(2);
    grid.SetRowSel(8);
    grid.SetColSel(2);
    grid.SetRows(6);
    EXPECT_THAT(selection_of(grid), ElementsAre(5, 0, 5, 2));
}

TEST_F(flex_grid_selection, columns_that_go_away_leave_the_last_column_current) {
    grid.SetCol(2);
    grid.SetCols(2);
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 1, 0, 1));
    grid.SetRowSel(3);
    grid.SetCols(1);
    EXPECT_THAT(selection_of(grid), ElementsAre(0, 0, 3, 0));
}

TEST_F(flex_grid_selection, inserted_and_removed_rows_above_leave_the_number) {
    grid.SetRow(5);
    grid.SetRowSel(6);
    changes.clear();
    grid.AddItem("new", 5);
    grid.AddItem("new", 1);
    grid.RemoveItem(2);
    grid.RemoveItem(5);
    EXPECT_THAT(selection_of(grid), ElementsAre(5, 0, 6, 0));
    queue.turn();
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(flex_grid_selection, removing_the_current_last_row_selects_the_row_above) {
    grid.SetRow(9);
    changes.clear();
    grid.RemoveItem(3);
    EXPECT_EQ(grid.Row(), 8);
    EXPECT_THAT(changes, IsEmpty());
    queue.turn();
    EXPECT_THAT(changes, ElementsAre(change_at(8, 0)));
}

TEST_F(flex_grid_selection, a_clamp_raises_its_change_in_the_next_turn_and_only_once) {
    grid.SetRow(8);
    grid.SetCol(2);
    changes.clear();
    grid.SetRows(7);
    grid.SetCols(2);
    grid.RemoveItem(6);
    grid.SetRows(1);
    EXPECT_THAT(changes, IsEmpty());
    queue.turn();
    EXPECT_THAT(changes, ElementsAre(change_at(0, 1)));
    queue.turn();
    EXPECT_THAT(changes, ElementsAre(change_at(0, 1)));
    EXPECT_TRUE(queue.empty());
}

TEST_F(flex_grid_selection, a_clamp_that_moves_nothing_posts_nothing) {
    grid.SetRow(2);
    changes.clear();
    grid.SetRows(3);
    grid.SetCols(1);
    grid.SetRows(20);
    EXPECT_TRUE(queue.empty());
}

TEST_F(flex_grid_selection, an_assignment_first_delivers_the_waiting_change) {
    grid.SetRow(8);
    changes.clear();
    grid.SetRows(4);
    grid.SetRow(1);
    EXPECT_THAT(changes, ElementsAre(change_at(3, 0), change_at(1, 0)));
    queue.turn();
    EXPECT_EQ(changes.size(), 2U);
}

TEST_F(flex_grid_selection, an_assignment_of_the_old_value_leaves_the_change_waiting) {
    grid.SetRow(8);
    changes.clear();
    grid.SetRows(1);
    grid.SetRow(0);
    grid.SetCol(0);
    EXPECT_THAT(changes, IsEmpty());
    queue.turn();
    EXPECT_THAT(changes, ElementsAre(change_at(0, 0)));
}

TEST_F(flex_grid_selection, a_refused_assignment_leaves_the_change_waiting) {
    grid.SetRow(8);
    changes.clear();
    grid.SetRows(4);
    EXPECT_EQ(error_of([&] { grid.SetRow(4); }), "30009 Grid");
    EXPECT_THAT(changes, IsEmpty());
    queue.turn();
    EXPECT_THAT(changes, ElementsAre(change_at(3, 0)));
}

TEST_F(flex_grid_selection, a_waiting_change_is_dropped_when_the_cell_is_back) {
    grid.SetRow(8);
    changes.clear();
    grid.SetRows(4);
    // The handler of the delivered change clamps once more; the assignment then goes where the last
    // change is raised, so nothing is left to tell.
    grid.set_on_row_col_change([this] {
        changes.push_back(selection_of(grid));
        if (changes.size() == 1) {
            grid.SetRows(3);
        }
    });
    grid.SetRow(1);
    EXPECT_THAT(changes, ElementsAre(change_at(3, 0), change_at(1, 0)));
    EXPECT_FALSE(queue.empty());
    queue.turn();
    EXPECT_EQ(changes.size(), 2U);
}

TEST_F(flex_grid_selection, a_handler_of_the_waiting_change_may_make_the_assignment_impossible) {
    grid.SetRow(8);
    changes.clear();
    grid.SetRows(6);
    grid.set_on_row_col_change([this] {
        changes.push_back(selection_of(grid));
        grid.SetRows(2);
    });
    EXPECT_EQ(error_of([&] { grid.SetRow(4); }), "30009 Grid");
    EXPECT_THAT(selection_of(grid), ElementsAre(1, 0, 1, 0));
}

TEST_F(flex_grid_selection, a_handler_may_assign_again_inside) {
    grid.set_on_row_col_change([this] {
        changes.push_back(selection_of(grid));
        if (grid.Row() > 1) {
            grid.SetRow(grid.Row() - 1);
        }
    });
    grid.SetRow(3);
    EXPECT_THAT(changes, ElementsAre(change_at(3, 0), change_at(2, 0), change_at(1, 0)));
}

TEST_F(flex_grid_selection, an_error_of_the_handler_reaches_the_caller_and_the_cell_has_moved) {
    grid.set_on_row_col_change([] { throw std::runtime_error("host"); });
    EXPECT_THROW(grid.SetRow(3), std::runtime_error);
    EXPECT_THAT(selection_of(grid), ElementsAre(3, 0, 3, 0));
}

TEST_F(flex_grid_selection, a_handler_may_destroy_the_grid) {
    using Act = std::function<void(FlexGrid&)>;
    const std::vector<Act> acts{
        [](FlexGrid& doomed) { doomed.SetRow(1); },
        [](FlexGrid& doomed) { doomed.SetCol(1); },
        [](FlexGrid& doomed) { doomed.mouse_press(10, 250); },
        [](FlexGrid& doomed) { doomed.SetRows(1); },
    };
    for (const Act& act : acts) {
        auto doomed = std::make_unique<FlexGrid>("Grid", queue);
        doomed->SetRows(5);
        doomed->SetRow(4);
        doomed->SetRows(3); // a change waits
        doomed->set_on_row_col_change([&doomed] { doomed.reset(); });
        act(*doomed);
        queue.turn();
        EXPECT_EQ(doomed, nullptr);
    }
}

TEST_F(flex_grid_selection, the_waiting_change_of_a_grid_that_is_gone_is_dropped) {
    auto doomed = std::make_unique<FlexGrid>("Grid", queue);
    int raised = 0;
    doomed->set_on_row_col_change([&raised] { ++raised; });
    doomed->SetRow(1);
    doomed->SetRows(1);
    doomed.reset();
    queue.turn();
    EXPECT_EQ(raised, 1);
}

TEST_F(flex_grid_selection, a_view_hears_of_the_selection_before_the_change_is_raised) {
    RecordingView view;
    grid.set_view(&view);
    grid.set_on_row_col_change([&view] { view.calls.emplace_back("change"); });
    grid.SetRow(3);
    grid.SetRow(3);
    grid.SetRowSel(4);
    grid.SetRow(3);
    EXPECT_THAT(view.take(), ElementsAre("selection", "change", "selection", "selection"));
    grid.SetRows(2);
    EXPECT_THAT(view.take(), ElementsAre("removed 2 8", "selection"));
}
