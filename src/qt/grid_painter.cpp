#include "qt/grid_painter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace krv::qt {

namespace {

constexpr int padding_px = 4;
constexpr int line_px = 1;

QColor mix(const QColor& one, const QColor& other, double share_of_other) {
    const auto channel = [share_of_other](int a, int b) {
        return static_cast<int>(std::lrint(a + (b - a) * share_of_other));
    };
    return {channel(one.red(), other.red()),
            channel(one.green(), other.green()),
            channel(one.blue(), other.blue())};
}

enum class Side { left, centre, right };

Side side_of(std::int16_t alignment, bool number) {
    switch (alignment) {
    case 1:
    case 2:
        return Side::left;
    case 3:
    case 4:
    case 5:
        return Side::centre;
    case 6:
    case 7:
    case 8:
        return Side::right;
    default:
        return number ? Side::right : Side::left;
    }
}

/// Free space above the text: none, half of what is there, all of it.
double share_above(std::int16_t alignment) {
    switch (alignment) {
    case 3:
    case 6:
        return 0;
    case 2:
    case 5:
    case 8:
        return 1;
    default:
        return 0.5;
    }
}

} // namespace

void GridPainter::set_palette(const QPalette& palette) {
    base_ = palette.color(QPalette::Base);
    text_ = palette.color(QPalette::Text);
    line_ = mix(base_, text_, 0.15);
    highlight_ = palette.color(QPalette::Highlight);
    highlighted_text_ = palette.color(QPalette::HighlightedText);
    caption_ = palette.color(QPalette::Button);
    caption_text_ = palette.color(QPalette::ButtonText);
    caption_line_ = mix(caption_, caption_text_, 0.3);
}

void GridPainter::paint(QPainter& painter,
                        const Resolution& resolution,
                        const QRect& area,
                        bool focused) {
    const GridGeometry geometry(grid_, resolution);
    find_columns(geometry, area);
    if (area.bottom() >= geometry.captions_bottom()) {
        paint_rows(painter, geometry, area);
    }
    // The captions come last: they lie over the upper part of a row that is half scrolled out.
    if (area.top() < geometry.captions_bottom()) {
        paint_captions(painter, geometry, area);
    }
    if (focused && grid_.selection() == standard::GridSelection::free) {
        mark_current(painter, geometry);
    }
}

void GridPainter::find_columns(const GridGeometry& geometry, const QRect& area) {
    columns_.clear();
    const std::int32_t first = std::max(geometry.col_at(area.left()), 0);
    for (std::int32_t col = first; col < grid_.Cols(); ++col) {
        const int left = geometry.col_left(col);
        if (left > area.right()) {
            return;
        }
        const int right = geometry.col_right(col);
        if (right > left && right > area.left()) {
            columns_.push_back({col, left, right, grid_.ColAlignment(col)});
        }
    }
}

void GridPainter::paint_captions(QPainter& painter,
                                 const GridGeometry& geometry,
                                 const QRect& area) {
    const int bottom = geometry.captions_bottom();
    painter.fillRect(area.left(), 0, area.width(), bottom, caption_);
    painter.fillRect(area.left(), bottom - line_px, area.width(), line_px, caption_line_);
    paint_column_lines(painter, 0, bottom, caption_line_);
    for (const Column& column : columns_) {
        paint_text(painter, grid_.TextMatrix(0, column.col), column, 0, bottom, caption_text_);
    }
}

void GridPainter::paint_rows(QPainter& painter, const GridGeometry& geometry, const QRect& area) {
    const int top_of_data = std::max(area.top(), geometry.captions_bottom());
    painter.fillRect(
        area.left(), top_of_data, area.width(), area.bottom() + 1 - top_of_data, base_);
    const std::int32_t first = geometry.row_at(top_of_data);
    if (first < 0) {
        return;
    }
    int bottom = top_of_data;
    for (std::int32_t row = std::max(first, 1); row < grid_.Rows(); ++row) {
        const int top = geometry.row_top(row);
        if (top > area.bottom()) {
            break;
        }
        bottom = geometry.row_bottom(row);
        if (bottom > top) {
            paint_row(painter, row, top, bottom, area);
        }
    }
    paint_column_lines(painter, top_of_data, std::min(bottom, area.bottom() + 1), line_);
}

bool GridPainter::row_is_selected(std::int32_t row) const {
    // One cell that is current in a grid of free selection has the editor over it, or a mark.
    const auto [first, last] = std::minmax(grid_.Row(), grid_.RowSel());
    return grid_.selection() == standard::GridSelection::by_row && row >= first && row <= last;
}

void GridPainter::paint_row(
    QPainter& painter, std::int32_t row, int top, int bottom, const QRect& area) {
    const bool selected = row_is_selected(row);
    if (selected) {
        paint_selected(painter, row, {area.left(), top, area.width(), bottom - top});
    }
    int right = area.left();
    for (const Column& column : columns_) {
        const bool highlighted = selected && grid_.is_selected(row, column.col);
        paint_text(painter,
                   grid_.TextMatrix(row, column.col),
                   column,
                   top,
                   bottom,
                   highlighted ? highlighted_text_ : text_);
        right = column.right;
    }
    painter.fillRect(area.left(), bottom - line_px, right - area.left(), line_px, line_);
}

void GridPainter::paint_selected(QPainter& painter, std::int32_t row, const QRect& row_area) {
    int left = 0;
    int right = 0;
    for (const Column& column : columns_) {
        if (grid_.is_selected(row, column.col)) {
            left = left == right ? column.left : left;
            right = column.right;
        }
    }
    painter.fillRect(left, row_area.top(), right - left, row_area.height(), highlight_);
}

void GridPainter::paint_text(QPainter& painter,
                             std::string_view text,
                             const Column& column,
                             int top,
                             int bottom,
                             const QColor& color) {
    const int width = column.right - column.left - line_px - 2 * padding_px;
    if (text.empty() || width <= 0) {
        return;
    }
    TextCache::Entry& entry = texts_.find(text);
    const ShapedText& shaped = texts_.fit(entry, text, width);
    const Side side = side_of(column.alignment, entry.number);
    double x = column.left + padding_px;
    if (side != Side::left) {
        x += (width - shaped.width) * (side == Side::right ? 1.0 : 0.5);
    }
    const double free_height = bottom - top - line_px - texts_.line_height();
    const double y = top + free_height * share_above(column.alignment);
    const QPointF place(std::floor(x), std::floor(y));
    const bool too_high = free_height < 0;
    if (too_high) {
        painter.save();
        painter.setClipRect(QRect(column.left, top, column.right - column.left, bottom - top),
                            Qt::IntersectClip);
    }
    painter.setPen(color);
    for (const QGlyphRun& run : shaped.runs) {
        painter.drawGlyphRun(place, run);
    }
    if (too_high) {
        painter.restore();
    }
}

void GridPainter::paint_column_lines(QPainter& painter,
                                     int top,
                                     int bottom,
                                     const QColor& color) const {
    for (const Column& column : columns_) {
        painter.fillRect(column.right - line_px, top, line_px, bottom - top, color);
    }
}

void GridPainter::mark_current(QPainter& painter, const GridGeometry& geometry) const {
    if (grid_.Row() == 0) {
        return;
    }
    const QRect cell = geometry.cell(grid_.Row(), grid_.Col());
    painter.setPen(highlight_);
    painter.drawRect(cell.adjusted(0, 0, -line_px - 1, -line_px - 1));
}

} // namespace krv::qt
