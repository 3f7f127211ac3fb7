#include "standard/grid_fixture.h"

#include "support/scarce_memory.h"

#include <algorithm>
#include <random>

using krv::platform::RuntimeError;
using krv::testing::ScarceMemory;
using namespace krv::standard::test;

namespace {

constexpr std::int32_t default_height = -1;

// The plainest grid there can be: a vector of rows, everything counted anew for every question.
struct NaiveGrid {
    struct Row {
        Texts texts;
        std::int32_t height = default_height;
    };

    std::int32_t height(std::size_t row) const {
        return rows[row].height == default_height ? 240 : rows[row].height;
    }

    std::int64_t edge(std::size_t row) const {
        std::int64_t edge = 0;
        for (std::size_t above = 0; above < row; ++above) {
            edge += height(above);
        }
        return edge;
    }

    std::int32_t row_over(std::int64_t place) const {
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (place < height(row)) {
                return static_cast<std::int32_t>(row);
            }
            place -= height(row);
        }
        return -1;
    }

    void clamp() {
        const auto last = static_cast<std::int32_t>(rows.size()) - 1;
        if (current_row > last || row_sel > last) {
            current_row = row_sel = last;
        }
        if (current_col >= cols || col_sel >= cols) {
            current_col = col_sel = cols - 1;
        }
    }

    std::vector<Row> rows{2};
    std::int32_t cols = 2;
    std::int32_t current_row = 0;
    std::int32_t current_col = 0;
    std::int32_t row_sel = 0;
    std::int32_t col_sel = 0;
};

class flex_grid_against_a_naive_one : public GridTest,
                                      public testing::WithParamInterface<unsigned> {
protected:
    flex_grid_against_a_naive_one() {
        grid.set_view_size(3000, 2000);
        for (NaiveGrid::Row& row : model.rows) {
            row.texts.resize(2);
        }
    }

    std::int32_t any(std::size_t count) { return static_cast<std::int32_t>(random() % count); }

    std::int32_t any_row() { return any(model.rows.size()); }

    std::int32_t any_col() { return any(static_cast<std::size_t>(model.cols)); }

    std::string any_text() {
        return std::string(static_cast<std::size_t>(any(any(30) == 0 ? 2000 : 20)),
                           static_cast<char>('a' + any(26)));
    }

    // The grid either does the whole of it or, for want of memory, nothing.
    template <class Act, class ModelAct>
    void apply(Act act, ModelAct model_act) {
        try {
            const ScarceMemory memory(any(6) == 0 ? static_cast<std::size_t>(any(4)) : 1'000'000);
            act();
        } catch (const RuntimeError& error) {
            ASSERT_EQ(error.number(), 30006);
            return;
        }
        model_act();
    }

    void set_text() {
        const std::int32_t row = any_row();
        const std::int32_t col = any_col();
        const std::string text = any_text();
        apply([&] { grid.SetTextMatrix(row, col, text); },
              [&] {
                  model.rows[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(col)] =
                      text;
              });
    }

    void add() {
        const std::string first = any_text();
        const std::string last = any_text();
        const std::string item = first + "\t" + last;
        const std::int32_t index = 1 + any(model.rows.size());
        apply([&] { grid.AddItem(item, index); },
              [&] {
                  NaiveGrid::Row row{{first, last}, default_height};
                  row.texts.resize(static_cast<std::size_t>(model.cols));
                  model.rows.insert(model.rows.begin() + index, row);
              });
    }

    void remove() {
        if (model.rows.size() > 2) {
            const std::int32_t index = 1 + any(model.rows.size() - 1);
            apply([&] { grid.RemoveItem(index); },
                  [&] {
                      model.rows.erase(model.rows.begin() + index);
                      model.clamp();
                  });
        }
    }

    void set_height() {
        const std::int32_t row = any_row();
        const std::int32_t height = any(5) * 150 - 150;
        const std::int32_t set = height < 0 ? default_height : height;
        apply([&] { grid.SetRowHeight(row, set); },
              [&] { model.rows[static_cast<std::size_t>(row)].height = set; });
    }

    void set_rows() {
        const std::int32_t rows = 1 + any(any(5) == 0 ? 1500 : model.rows.size() + 30);
        apply([&] { grid.SetRows(rows); },
              [&] {
                  model.rows.resize(static_cast<std::size_t>(rows),
                                    {Texts(static_cast<std::size_t>(model.cols)), default_height});
                  model.clamp();
              });
    }

    void set_cols() {
        const std::int32_t cols = 1 + any(12);
        apply([&] { grid.SetCols(cols); },
              [&] {
                  for (NaiveGrid::Row& row : model.rows) {
                      row.texts.resize(static_cast<std::size_t>(cols));
                  }
                  model.cols = cols;
                  model.clamp();
              });
    }

    void select() {
        const std::int32_t row = any_row();
        const std::int32_t col = any_col();
        switch (any(4)) {
        case 0:
            grid.SetRow(row);
            model.current_row = row;
            break;
        case 1:
            grid.SetCol(col);
            model.current_col = col;
            break;
        case 2:
            grid.SetRowSel(row);
            model.row_sel = row;
            return;
        default:
            grid.SetColSel(col);
            model.col_sel = col;
            return;
        }
        model.row_sel = model.current_row;
        model.col_sel = model.current_col;
    }

    void change() {
        const std::int32_t kind = any(100);
        if (kind < 35) {
            set_text();
        } else if (kind < 55) {
            add();
        } else if (kind < 70) {
            remove();
        } else if (kind < 85) {
            set_height();
        } else if (kind < 87) {
            set_rows();
        } else if (kind < 88) {
            set_cols();
        } else if (kind < 96) {
            select();
        } else {
            grid.set_scroll_y(any(4'000'00));
        }
    }

    void check_a_place() {
        const auto rows = static_cast<std::int32_t>(model.rows.size());
        ASSERT_EQ(grid.Rows(), rows);
        ASSERT_EQ(grid.Cols(), model.cols);
        ASSERT_EQ(selection_of(grid),
                  (Numbers{model.current_row, model.current_col, model.row_sel, model.col_sel}));
        const std::int32_t row = any_row();
        const auto index = static_cast<std::size_t>(row);
        const std::int32_t col = any_col();
        ASSERT_EQ(grid.TextMatrix(row, col),
                  model.rows[index].texts[static_cast<std::size_t>(col)]);
        ASSERT_EQ(grid.RowHeight(row), model.height(index));
    }

    void check_scrolling() {
        const std::int64_t scrolled = grid.scroll_y();
        ASSERT_GE(scrolled, 0);
        ASSERT_LE(scrolled, grid.max_scroll_y());
        const std::int32_t top = model.row_over(model.edge(1) + scrolled);
        ASSERT_EQ(grid.TopRow(), top > 0 ? top : 1);
        const std::int32_t row = any_row();
        const std::int64_t place =
            row == 0 ? 0 : model.edge(static_cast<std::size_t>(row)) - scrolled;
        ASSERT_EQ(grid.RowPos(row), place);
        const std::int32_t y = any(2500);
        ASSERT_EQ(grid.row_at(y), y < model.height(0) ? 0 : model.row_over(y + scrolled));
        ASSERT_EQ(grid.content_height(), model.edge(model.rows.size()));
    }

    std::mt19937 random{GetParam()};
    NaiveGrid model;
};

} // namespace

TEST_P(flex_grid_against_a_naive_one, they_agree) {
    for (int step = 0; step < 15'000; ++step) {
        ASSERT_NO_FATAL_FAILURE(change()) << "step " << step;
        ASSERT_NO_FATAL_FAILURE(check_a_place()) << "step " << step;
        if (step % 10 == 0) {
            ASSERT_NO_FATAL_FAILURE(check_scrolling()) << "step " << step;
        }
    }
    for (std::size_t row = 0; row < model.rows.size(); ++row) {
        ASSERT_EQ(row_texts(grid, static_cast<std::int32_t>(row)), model.rows[row].texts);
    }
}

INSTANTIATE_TEST_SUITE_P(seeds, flex_grid_against_a_naive_one, testing::Values(1U, 2U, 3U));
