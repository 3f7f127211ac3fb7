#include "krv/standard/flex_grid.h"

#include "krv/platform/keys.h"
#include "standard/grid/column_measures.h"
#include "standard/grid/grid_errors.h"
#include "standard/grid/row_heights.h"

#include <algorithm>

namespace krv::standard {

std::int32_t FlexGrid::TopRow() const {
    const std::int32_t row = heights_->row_at(row_edge(top_row_) + top_offset_);
    return row < rows_ ? row : 1;
}

void FlexGrid::SetTopRow(std::int32_t row) {
    check_row(row);
    set_scroll_y(row_edge(std::clamp(row, 1, last_top_row())) - row_edge(1));
}

std::int64_t FlexGrid::scroll_y() const {
    return row_edge(top_row_) + top_offset_ - row_edge(1);
}

void FlexGrid::set_scroll_y(std::int64_t offset) {
    const Stand before = stand();
    place_top(offset);
    tell_moves(before);
}

std::int64_t FlexGrid::max_scroll_y() const {
    const std::int64_t last_top = row_edge(last_top_row());
    const std::int64_t body = body_height();
    // A last row that is higher than the view must be seen down to its end.
    const std::int64_t last_place = body > 0 ? heights_->total() - body : 0;
    return std::max(last_top, last_place) - row_edge(1);
}

void FlexGrid::set_scroll_x(std::int64_t offset) {
    const Stand before = stand();
    scroll_x_ = std::clamp<std::int64_t>(offset, 0, max_scroll_x());
    tell_moves(before);
}

std::int64_t FlexGrid::max_scroll_x() const {
    return std::max<std::int64_t>(0, content_width() - view_width_);
}

void FlexGrid::set_view_size(platform::Twips width, platform::Twips height) {
    view_width_ = std::max(width, 0);
    view_height_ = std::max(height, 0);
    const Stand before = stand();
    settle_scroll();
    tell_moves(before);
}

void FlexGrid::ensure_visible(std::int32_t row, std::int32_t col) {
    if (row != -1) {
        check_row(row);
    }
    if (col != -1) {
        check_col(col);
    }
    if (row > 0) {
        show_row(row);
    }
    if (col >= 0) {
        show_col(col);
    }
}

void FlexGrid::show_row(std::int32_t row) {
    const std::int64_t height = heights_->height(row);
    const std::int64_t top = row_edge(row) - row_edge(1);
    const std::int64_t body = body_height();
    if (height == 0) {
        return;
    }
    if (top < scroll_y() || height >= body) {
        set_scroll_y(top);
    } else if (top + height > scroll_y() + body) {
        const std::int64_t wanted = row_edge(1) + top + height - body;
        const std::int32_t cut = heights_->row_at(wanted - 1); // scrolled out, whole or in part
        set_scroll_y(row_edge(cut + 1) - row_edge(1));
    }
}

void FlexGrid::show_col(std::int32_t col) {
    const std::int64_t left = columns_->left(col);
    const std::int64_t width = columns_->width(col);
    if (width == 0) {
        return;
    }
    if (left < scroll_x_ || width >= view_width_) {
        set_scroll_x(left);
    } else if (left + width > scroll_x_ + view_width_) {
        set_scroll_x(left + width - view_width_);
    }
}

void FlexGrid::scroll_rows(std::int32_t rows) {
    std::int64_t place = row_edge(1) + scroll_y();
    for (; rows < 0 && place > row_edge(1); ++rows) {
        place = row_edge(heights_->row_at(place - 1));
    }
    for (; rows > 0 && place < heights_->total(); --rows) {
        place = row_edge(heights_->row_at(place) + 1);
    }
    set_scroll_y(place - row_edge(1));
}

bool FlexGrid::scroll_by_key(std::int16_t key_code) {
    switch (key_code) {
    case platform::key_page_up:
        page_up();
        return true;
    case platform::key_page_down:
        page_down();
        return true;
    case platform::key_end:
        set_scroll_y(max_scroll_y());
        return true;
    case platform::key_home:
        set_scroll_y(0);
        return true;
    default:
        return false;
    }
}

// The row that was cut at the lower edge comes to the top; a row higher than the view goes by
// pages.
void FlexGrid::page_down() {
    const std::int64_t place = row_edge(1) + scroll_y();
    const std::int64_t next = place + std::max<std::int64_t>(body_height(), 1);
    const std::int32_t row = heights_->row_at(next);
    const std::int64_t edge = row_edge(std::min(row, rows_));
    set_scroll_y((edge > place ? edge : next) - row_edge(1));
}

void FlexGrid::page_up() {
    const std::int64_t place = row_edge(1) + scroll_y();
    const std::int64_t next =
        std::max(row_edge(1), place - std::max<std::int64_t>(body_height(), 1));
    const std::int32_t cut = next > row_edge(1) ? heights_->row_at(next - 1) : 0;
    const std::int64_t edge = row_edge(cut + 1);
    set_scroll_y((edge < place ? edge : next) - row_edge(1));
}

std::int64_t FlexGrid::body_height() const {
    return std::max<std::int64_t>(0, std::int64_t{view_height_} - heights_->height(0));
}

// The first row from which on all fit; the last one that shows when it alone is too high.
std::int32_t FlexGrid::last_top_row() const {
    const std::int64_t all = heights_->total();
    const std::int64_t body_top = row_edge(1);
    const std::int64_t fits_from = all - body_height();
    if (fits_from <= body_top) {
        return 1;
    }
    const std::int32_t row = heights_->row_at(fits_from - 1) + 1;
    return row < rows_ && row_edge(row) < all ? row : heights_->row_at(all - 1);
}

void FlexGrid::place_top(std::int64_t offset) {
    const std::int64_t place = row_edge(1) + std::clamp<std::int64_t>(offset, 0, max_scroll_y());
    const std::int32_t row = heights_->row_at(place);
    top_row_ = row < rows_ ? row : 1;
    top_offset_ = row < rows_ ? place - row_edge(row) : 0;
}

// Shape, sizes or the view are different: the top row keeps its number if it can.
void FlexGrid::settle_scroll() {
    if (scroll_x_ > 0) {
        scroll_x_ = std::min(scroll_x_, max_scroll_x());
    }
    if (top_row_ == 1 && top_offset_ == 0) {
        return;
    }
    if (top_row_ >= rows_) {
        top_row_ = std::max(1, rows_ - 1);
        top_offset_ = 0;
    }
    if (rows_ == 1 || top_offset_ >= heights_->height(top_row_)) {
        top_offset_ = 0;
    }
    place_top(scroll_y());
}

} // namespace krv::standard
