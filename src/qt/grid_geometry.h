#pragma once

#include "krv/qt/resolution.h"
#include "krv/standard/flex_grid.h"

#include <QRect>

#include <algorithm>

namespace krv::qt {

/// Where the cells of a grid lie in a viewport's pixels, as the grid is scrolled now.
///
/// Edges are converted before the scrolling is taken off, so that all of the content moves by the
/// same number of pixels: what is on the screen already can be shifted.
class GridGeometry {
public:
    GridGeometry(const standard::FlexGrid& grid, const Resolution& resolution)
        : grid_(grid)
        , resolution_(resolution)
        , captions_twips_(grid.RowHeight(0))
        , scroll_x_(grid.scroll_x())
        , scroll_y_(grid.scroll_y())
        , captions_bottom_(resolution.px(captions_twips_)) {}

    int captions_bottom() const noexcept { return captions_bottom_; }

    int scroll_x_px() const { return resolution_.px(static_cast<double>(scroll_x_)); }

    int scroll_y_px() const { return resolution_.px(static_cast<double>(scroll_y_)); }

    int row_top(std::int32_t row) const {
        return row == 0 ? 0 : data_edge(static_cast<double>(grid_.RowPos(row)));
    }

    int row_bottom(std::int32_t row) const {
        const double height = grid_.RowHeight(row);
        return row == 0 ? captions_bottom_
                        : data_edge(static_cast<double>(grid_.RowPos(row)) + height);
    }

    int col_left(std::int32_t col) const { return col_edge(grid_.ColPos(col)); }

    int col_right(std::int32_t col) const {
        return col_edge(static_cast<double>(grid_.ColPos(col)) + grid_.ColWidth(col));
    }

    QRect cell(std::int32_t row, std::int32_t col) const {
        const int left = col_left(col);
        const int top = row_top(row);
        return {left, top, col_right(col) - left, row_bottom(row) - top};
    }

    /// Row drawn at a height; -1 below the last one.
    std::int32_t row_at(int y) const { return grid_.row_at(middle_of(y)); }

    /// Column drawn at a place; -1 beside the columns.
    std::int32_t col_at(int x) const { return grid_.col_at(middle_of(x)); }

private:
    int data_edge(double row_pos) const {
        const double within_data = row_pos - captions_twips_ + static_cast<double>(scroll_y_);
        return captions_bottom_ + resolution_.px(within_data) - scroll_y_px();
    }

    int col_edge(double col_pos) const {
        return resolution_.px(col_pos + static_cast<double>(scroll_x_)) - scroll_x_px();
    }

    platform::Twips middle_of(int px) const {
        return static_cast<platform::Twips>(std::lrint(resolution_.twips(px + 0.5)));
    }

    const standard::FlexGrid& grid_;
    const Resolution& resolution_;
    platform::Twips captions_twips_;
    std::int64_t scroll_x_;
    std::int64_t scroll_y_;
    int captions_bottom_;
};

} // namespace krv::qt
