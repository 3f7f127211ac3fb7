#pragma once

#include "krv/platform/error.h"
#include "krv/standard/flex_grid.h"
#include "krv/standard/message_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace krv::standard::test {

using Texts = std::vector<std::string>;
using Numbers = std::vector<std::int64_t>;

/// Number and source of the error that the act fails with; "none" when it does not.
template <class Act>
std::string error_of(Act act) {
    try {
        act();
    } catch (const platform::RuntimeError& error) {
        EXPECT_FALSE(error.description().empty());
        return std::to_string(error.number()) + " " + error.source();
    }
    return "none";
}

inline Texts row_texts(const FlexGrid& grid, std::int32_t row) {
    Texts texts;
    for (std::int32_t col = 0; col < grid.Cols(); ++col) {
        texts.emplace_back(grid.TextMatrix(row, col));
    }
    return texts;
}

inline Texts column_texts(const FlexGrid& grid, std::int32_t col) {
    Texts texts;
    for (std::int32_t row = 0; row < grid.Rows(); ++row) {
        texts.emplace_back(grid.TextMatrix(row, col));
    }
    return texts;
}

/// Row, Col, RowSel, ColSel.
inline Numbers selection_of(const FlexGrid& grid) {
    return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()};
}

/// A grid that writes down where each row/column change sees the current cell and the selection.
class GridTest : public testing::Test {
protected:
    explicit GridTest(GridSelection selection = GridSelection::by_row)
        : grid("Grid", queue, selection) {
        grid.set_on_row_col_change([this] { changes.push_back(selection_of(grid)); });
    }

    /// Data rows below the captions, the row's number in column 0.
    void fill(std::int32_t rows, std::int32_t cols = 3) {
        grid.SetRows(rows + 1);
        grid.SetCols(cols);
        for (std::int32_t row = 0; row <= rows; ++row) {
            grid.SetTextMatrix(row, 0, std::to_string(row));
        }
    }

    MessageQueue queue;
    FlexGrid grid;
    std::vector<Numbers> changes;
};

/// What a view was told, as words.
class RecordingView final : public FlexGridView {
public:
    void cells_changed(std::int32_t first, std::int32_t last) override {
        calls.push_back("cells " + std::to_string(first) + " " + std::to_string(last));
    }

    void rows_inserted(std::int32_t first, std::int32_t count) override {
        calls.push_back("inserted " + std::to_string(first) + " " + std::to_string(count));
    }

    void rows_removed(std::int32_t first, std::int32_t count) override {
        calls.push_back("removed " + std::to_string(first) + " " + std::to_string(count));
    }

    void layout_changed() override { calls.emplace_back("layout"); }

    void selection_changed() override { calls.emplace_back("selection"); }

    void scrolled() override { calls.emplace_back("scrolled"); }

    Texts take() { return std::exchange(calls, {}); }

    Texts calls;
};

} // namespace krv::standard::test
