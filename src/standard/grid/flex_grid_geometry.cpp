#include "krv/standard/flex_grid.h"

#include "standard/grid/column_measures.h"
#include "standard/grid/grid_errors.h"
#include "standard/grid/row_heights.h"

#include <algorithm>
#include <limits>

namespace krv::standard {

using grid_error::gate_memory;
using platform::Twips;

namespace {

Twips nearest_twips(std::int64_t place) {
    using Limits = std::numeric_limits<Twips>;
    return static_cast<Twips>(std::clamp<std::int64_t>(place, Limits::min(), Limits::max()));
}

} // namespace

bool FlexGrid::RowIsVisible(std::int32_t row) const {
    check_row(row);
    if (row == 0) {
        return true;
    }
    const std::int64_t top = row_edge(row) - scroll_y();
    const std::int64_t height = heights_->height(row);
    return height > 0 && top < view_height_ && top + height > heights_->height(0);
}

Twips FlexGrid::ColPos(std::int32_t col) const {
    check_col(col);
    return nearest_twips(columns_->left(col) - scroll_x_);
}

Twips FlexGrid::RowPos(std::int32_t row) const {
    check_row(row);
    return row == 0 ? 0 : nearest_twips(row_edge(row) - scroll_y());
}

Twips FlexGrid::ColWidth(std::int32_t col) const {
    check_col(col);
    return columns_->width(col);
}

void FlexGrid::SetColWidth(std::int32_t col, Twips width) {
    check_col(col);
    if (width < -1) {
        fail(grid_error::bad_col_width, "Invalid column width value");
    }
    const Twips new_width = width == -1 ? ColumnMeasures::default_width : width;
    const Stand before = stand();
    gate_memory(name_, [&] { columns_->set_width(col, new_width); });
    settle_scroll();
    tell_layout(before);
}

Twips FlexGrid::RowHeight(std::int32_t row) const {
    check_row(row);
    return heights_->height(row);
}

void FlexGrid::SetRowHeight(std::int32_t row, Twips height) {
    check_row(row);
    if (height < RowHeights::as_default) {
        fail(grid_error::bad_row_height, "Invalid row height value");
    }
    const Stand before = stand();
    gate_memory(name_, [&] { heights_->set_height(row, height); });
    settle_scroll();
    tell_layout(before);
}

std::int16_t FlexGrid::ColAlignment(std::int32_t col) const {
    check_alignment_col(col);
    return columns_->alignment(col);
}

void FlexGrid::SetColAlignment(std::int32_t col, std::int16_t alignment) {
    check_alignment_col(col);
    if (alignment < 0 || alignment > ColumnMeasures::general_alignment) {
        fail(grid_error::bad_alignment, "Invalid alignment value");
    }
    gate_memory(name_, [&] { columns_->set_alignment(col, alignment); });
    tell_layout(stand());
}

void FlexGrid::SetFontSize(float points) {
    require_font_size(points, name_);
    const Stand before = stand();
    font_size_ = points;
    heights_->set_default(default_row_height_twips(points));
    settle_scroll();
    tell_layout(before);
}

std::int64_t FlexGrid::content_height() const {
    return heights_->total();
}

std::int64_t FlexGrid::content_width() const {
    return columns_->left(cols_);
}

std::int32_t FlexGrid::row_at(Twips y) const {
    if (y < 0) {
        return -1;
    }
    if (y < heights_->height(0)) {
        return 0;
    }
    const std::int32_t row = heights_->row_at(y + scroll_y());
    return row < rows_ ? row : -1;
}

std::int32_t FlexGrid::col_at(Twips x) const {
    if (x < 0) {
        return -1;
    }
    const std::int64_t col = columns_->col_at(x + scroll_x_);
    return col < cols_ ? static_cast<std::int32_t>(col) : -1;
}

// Top edge, nothing scrolled.
std::int64_t FlexGrid::row_edge(std::int32_t row) const {
    return heights_->top(row);
}

} // namespace krv::standard
