#include "qt/grid_fixture.h"

#include <random>

namespace krv::qt::testing {

namespace {

/// What is shifted and what is drawn together must be what drawing everything gives.
class GridScreen : public GridTest {
protected:
    void expect_right_screen(const std::string& after) {
        turn();
        ASSERT_EQ(on_screen(*view.viewport()), drawn(*view.viewport())) << after;
    }
};

class GridScreenAfterAny : public GridScreen, public ::testing::WithParamInterface<unsigned> {};

INSTANTIATE_TEST_SUITE_P(Changes, GridScreenAfterAny, ::testing::Range(0U, 12U));

} // namespace

TEST_P(GridScreenAfterAny, change_shows_what_drawing_from_scratch_shows) {
    add_rows(40);
    show();
    std::mt19937 random(GetParam());
    const auto below = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    for (int step = 0; step < 300; ++step) {
        const int kind = below(9);
        const int row = 1 + below(grid.Rows() - 1);
        switch (kind) {
        case 0:
            grid.set_scroll_y(below(9000));
            break;
        case 1:
            grid.AddItem("new\titem\t" + std::to_string(step), row);
            break;
        case 2:
            if (grid.Rows() > 5) {
                grid.RemoveItem(row);
            }
            break;
        case 3:
            grid.SetTextMatrix(row, below(3), "text " + std::to_string(step));
            break;
        case 4:
            grid.SetRow(row);
            grid.SetColSel(2);
            break;
        case 5:
            grid.set_scroll_x(below(600));
            break;
        case 6:
            grid.AddItem("two\tat\tonce", row);
            grid.AddItem("two\tat\tonce", row + 1);
            break;
        case 7:
            grid.SetRowHeight(row, 200 + below(300));
            break;
        default:
            grid.SetColWidth(below(3), below(2000));
            break;
        }
        if (below(3) > 0) {
            expect_right_screen("step " + std::to_string(step) + " of kind " +
                                std::to_string(kind));
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST_F(GridScreen, is_right_when_rows_come_above_the_view_and_scrolling_follows_in_the_same_turn) {
    add_rows(40);
    grid.SetRowHeight(5, 1200);
    show();
    grid.SetTopRow(6);
    turn();
    // The top row keeps its number, so the tall row moves into the view: the offset is another one.
    grid.AddItem("new\titem\there", 3);
    grid.set_scroll_y(300);
    expect_right_screen("an insertion and a scroll");
    grid.set_scroll_y(1500);
    turn();
    grid.RemoveItem(2);
    grid.set_scroll_y(100);
    expect_right_screen("a removal and a scroll");
}

TEST_F(GridScreen, follows_a_load_and_an_emptying) {
    show();
    add_rows(500);
    expect_right_screen("a load");
    grid.SetRows(1);
    expect_right_screen("an emptying");
    EXPECT_EQ(view.scroll_bar_width(), 0);
}

TEST_F(GridScreen, a_change_out_of_sight_draws_nothing) {
    add_rows(100);
    show();
    const QImage before = on_screen(*view.viewport());
    grid.SetTextMatrix(90, 0, "unseen");
    turn();
    EXPECT_EQ(on_screen(*view.viewport()), before);
}

} // namespace krv::qt::testing
