#include "krv/standard/flex_grid.h"

#include "standard/grid/cell_store.h"
#include "standard/grid/column_measures.h"
#include "standard/grid/grid_errors.h"
#include "standard/grid/row_heights.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace krv::standard {

using grid_error::gate_memory;

FlexGrid::FlexGrid(std::string name, MessageQueue& queue, GridSelection selection)
    : name_(std::move(name))
    , queue_(queue)
    , selection_(selection)
    , cells_(std::make_unique<CellStore>(rows_, cols_))
    , heights_(std::make_unique<RowHeights>(rows_, default_row_height_twips(default_font_size)))
    , columns_(std::make_unique<ColumnMeasures>()) {}

FlexGrid::~FlexGrid() = default;

void FlexGrid::SetRows(std::int32_t rows) {
    if (rows < 1) {
        fail(grid_error::bad_row, "Invalid row value");
    }
    const std::int32_t old_rows = rows_;
    if (rows == old_rows) {
        return;
    }
    const Stand before = stand();
    plan_clamp(rows, cols_);
    gate_memory(name_, [&] {
        heights_->set_rows(rows);
        try {
            cells_->set_rows(rows);
        } catch (...) {
            heights_->set_rows(old_rows);
            throw;
        }
    });
    rows_ = rows;
    clamp_to_shape();
    settle_scroll();
    if (view_ != nullptr && rows > old_rows) {
        view_->rows_inserted(old_rows, rows - old_rows);
    } else if (view_ != nullptr) {
        view_->rows_removed(rows, old_rows - rows);
    }
    tell_moves(before);
}

void FlexGrid::SetCols(std::int32_t cols) {
    if (cols < 1) {
        fail(grid_error::bad_col, "Invalid col value");
    }
    if (cols == cols_) {
        return;
    }
    const Stand before = stand();
    plan_clamp(rows_, cols);
    cells_->set_cols(cols);
    columns_->forget_from(cols);
    cols_ = cols;
    clamp_to_shape();
    settle_scroll();
    tell_layout(before);
}

void FlexGrid::Clear() {
    cells_->clear();
    if (view_ != nullptr) {
        view_->cells_changed(0, rows_ - 1);
    }
}

std::string_view FlexGrid::TextMatrix(std::int32_t row, std::int32_t col) const {
    check_cell(row, col);
    return cells_->text(row, col);
}

void FlexGrid::SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text) {
    check_cell(row, col);
    gate_memory(name_, [&] { cells_->set_text(row, col, text); });
    if (view_ != nullptr) {
        view_->cells_changed(row, row);
    }
}

std::string_view FlexGrid::TextArray(std::int32_t index) const {
    return index < 0 ? TextMatrix(-1, -1) : TextMatrix(index / cols_, index % cols_);
}

void FlexGrid::SetTextArray(std::int32_t index, std::string_view text) {
    index < 0 ? SetTextMatrix(-1, -1, text) : SetTextMatrix(index / cols_, index % cols_, text);
}

void FlexGrid::AddItem(std::string_view item) {
    insert_row(item, rows_);
}

void FlexGrid::AddItem(std::string_view item, std::int32_t index) {
    if (index == 0) {
        fail(grid_error::add_fixed_row, "Cannot use AddItem on a fixed row");
    }
    if (index < 0 || index > rows_) {
        fail(grid_error::bad_row, "Invalid row value");
    }
    insert_row(item, index);
}

// Deliberate: current cell, selection and top row keep their numbers, so they stand on other rows
// when one comes in or goes out above them. Owners of the grid count on it.
void FlexGrid::insert_row(std::string_view item, std::int32_t index) {
    const Stand before = stand();
    gate_memory(name_, [&] {
        if (rows_ == std::numeric_limits<std::int32_t>::max()) {
            throw std::length_error("too many rows");
        }
        heights_->insert(index);
        try {
            cells_->insert(index, item);
        } catch (...) {
            heights_->remove(index);
            throw;
        }
    });
    ++rows_;
    settle_scroll();
    if (view_ != nullptr) {
        view_->rows_inserted(index, 1);
    }
    tell_moves(before);
}

void FlexGrid::RemoveItem(std::int32_t index) {
    if (index == 0) {
        fail(grid_error::remove_fixed_row, "Cannot use RemoveItem on a fixed row");
    }
    if (index < 0 || index >= rows_) {
        fail(grid_error::no_such_row, "The grid has no such row");
    }
    if (rows_ == 2) {
        fail(grid_error::last_data_row, "Cannot remove last non-fixed row");
    }
    const Stand before = stand();
    plan_clamp(rows_ - 1, cols_);
    cells_->remove(index);
    heights_->remove(index);
    --rows_;
    clamp_to_shape();
    settle_scroll();
    if (view_ != nullptr) {
        view_->rows_removed(index, 1);
    }
    tell_moves(before);
}

void FlexGrid::set_on_row_col_change(std::function<void()> handler) {
    on_row_col_change_ = std::move(handler);
}

std::size_t FlexGrid::memory_bytes() const noexcept {
    return sizeof *this + name_.capacity() + cells_->memory_bytes() + heights_->memory_bytes() +
           columns_->memory_bytes();
}

void FlexGrid::check_cell(std::int32_t row, std::int32_t col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) {
        fail(platform::error_number::invalid_property_array_index, "Subscript out of range");
    }
}

void FlexGrid::check_row(std::int32_t row) const {
    if (row < 0 || row >= rows_) {
        fail(grid_error::bad_row, "Invalid row value");
    }
}

void FlexGrid::check_col(std::int32_t col) const {
    if (col < 0 || col >= cols_) {
        fail(grid_error::bad_col, "Invalid col value");
    }
}

void FlexGrid::check_alignment_col(std::int32_t col) const {
    if (col < 0 || col >= cols_) {
        fail(grid_error::bad_alignment_col, "Invalid column number for alignment");
    }
}

FlexGrid::Stand FlexGrid::stand() const noexcept {
    return {row_, col_, row_sel_, col_sel_, top_row_, top_offset_, scroll_x_};
}

void FlexGrid::tell_moves(const Stand& before) const {
    if (view_ == nullptr) {
        return;
    }
    if (before.row != row_ || before.col != col_ || before.row_sel != row_sel_ ||
        before.col_sel != col_sel_) {
        view_->selection_changed();
    }
    if (before.top_row != top_row_ || before.top_offset != top_offset_ ||
        before.scroll_x != scroll_x_) {
        view_->scrolled();
    }
}

void FlexGrid::tell_layout(const Stand& before) const {
    if (view_ != nullptr) {
        view_->layout_changed();
        tell_moves(before);
    }
}

void FlexGrid::fail(std::int32_t number, const char* description) const {
    throw platform::RuntimeError(number, description, name_);
}

} // namespace krv::standard
