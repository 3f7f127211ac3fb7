#include "krv/standard/flex_grid.h"

#include "standard/grid/grid_errors.h"

#include <algorithm>

namespace krv::standard {

namespace {

// Where a row or column number ends up when only so many are left.
std::int32_t clamped(std::int32_t current, std::int32_t selected, std::int32_t count) {
    return std::max(current, selected) >= count ? count - 1 : current;
}

} // namespace

void FlexGrid::SetRow(std::int32_t row) {
    check_row(row);
    if (row != row_) {
        if (!deliver_waiting()) {
            return;
        }
        check_row(row);
    }
    move_current(row, col_, row, col_);
}

void FlexGrid::SetCol(std::int32_t col) {
    check_col(col);
    if (col != col_) {
        if (!deliver_waiting()) {
            return;
        }
        check_col(col);
    }
    move_current(row_, col, row_, col);
}

void FlexGrid::SetRowSel(std::int32_t row) {
    check_row(row);
    move_current(row_, col_, row, col_sel_);
}

void FlexGrid::SetColSel(std::int32_t col) {
    check_col(col);
    move_current(row_, col_, row_sel_, col);
}

bool FlexGrid::is_selected(std::int32_t row, std::int32_t col) const noexcept {
    const auto [first_row, last_row] = std::minmax(row_, row_sel_);
    const auto [first_col, last_col] = std::minmax(col_, col_sel_);
    return first_row <= row && row <= last_row && first_col <= col && col <= last_col;
}

bool FlexGrid::mouse_press(platform::Twips x, platform::Twips y) {
    const std::int32_t row = row_at(y);
    const bool by_row = selection_ == GridSelection::by_row;
    const std::int32_t pressed_col = col_at(x);
    const std::int32_t col = by_row ? 0 : pressed_col;
    dragging_ = row >= 0 && pressed_col >= 0;
    if (!dragging_) {
        return false;
    }
    if ((row != row_ || col != col_) && !deliver_waiting()) {
        return true;
    }
    if (row >= rows_ || col >= cols_) { // the waiting change took it away
        dragging_ = false;
        return false;
    }
    ensure_visible(row, by_row ? -1 : col);
    move_current(row, col, row, by_row ? cols_ - 1 : col);
    return true;
}

void FlexGrid::mouse_drag(platform::Twips x, platform::Twips y) {
    if (!dragging_) {
        return;
    }
    const std::int32_t row = row_at(y);
    const std::int32_t col = selection_ == GridSelection::by_row ? -1 : col_at(x);
    move_current(row_, col_, row < 0 ? row_sel_ : row, col < 0 ? col_sel_ : col);
}

// Rows or columns that go away take the current cell and the selection with them. The change
// waits for the next turn: whoever is taking the grid apart is not to be asked questions halfway.
// Called before anything goes, since it may want memory.
void FlexGrid::plan_clamp(std::int32_t rows, std::int32_t cols) {
    const bool moves =
        clamped(row_, row_sel_, rows) != row_ || clamped(col_, col_sel_, cols) != col_;
    if (moves && !change_waits_) {
        grid_error::gate_memory(name_,
                                [this] { queue_.post(life_, [this] { deliver_waiting(); }); });
        change_waits_ = true;
    }
}

void FlexGrid::clamp_to_shape() noexcept {
    if (std::max(row_, row_sel_) >= rows_) {
        row_ = row_sel_ = rows_ - 1;
    }
    if (std::max(col_, col_sel_) >= cols_) {
        col_ = col_sel_ = cols_ - 1;
    }
}

// Raises the change that a clamp left behind, unless the current cell is back where the last one
// saw it. Returns false when the handler destroyed the grid.
bool FlexGrid::deliver_waiting() {
    const bool waits = change_waits_;
    change_waits_ = false;
    if (!waits || (row_ == seen_row_ && col_ == seen_col_)) {
        return true;
    }
    const auto alive = life_.watch();
    raise_row_col_change();
    return !alive.expired();
}

void FlexGrid::move_current(std::int32_t row,
                            std::int32_t col,
                            std::int32_t row_sel,
                            std::int32_t col_sel) {
    const Stand before = stand();
    row_ = row;
    col_ = col;
    row_sel_ = row_sel;
    col_sel_ = col_sel;
    tell_moves(before);
    if (row != before.row || col != before.col) {
        raise_row_col_change();
    }
}

// The last act of every caller: the handler may destroy the grid, and with it the stored function.
void FlexGrid::raise_row_col_change() {
    seen_row_ = row_;
    seen_col_ = col_;
    if (const auto handler = on_row_col_change_) {
        handler();
    }
}

} // namespace krv::standard
