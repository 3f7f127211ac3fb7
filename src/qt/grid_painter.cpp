#include "qt/grid_painter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace krv::qt {

namespace {

constexpr int padding_px = 4;
constexpr int line_px = 1;

QRgb mix(QRgb one, QRgb other, double share_of_other) {
    const auto channel = [share_of_other](int a, int b) {
        return static_cast<int>(std::lrint(a + (b - a) * share_of_other));
    };
    return qRgb(channel(qRed(one), qRed(other)),
                channel(qGreen(one), qGreen(other)),
                channel(qBlue(one), qBlue(other)));
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

void GridPainter::set_font(const QFont& font) {
    font_ = font;
    texts_.set_font(font);
    atlas_.set_font(font, std::max(atlas_.scale(), 1));
}

void GridPainter::set_palette(const QPalette& palette) {
    base_ = palette.color(QPalette::Base).rgb();
    text_ = palette.color(QPalette::Text).rgb();
    line_ = mix(base_, text_, 0.15);
    highlight_ = palette.color(QPalette::Highlight).rgb();
    highlighted_text_ = palette.color(QPalette::HighlightedText).rgb();
    caption_ = palette.color(QPalette::Button).rgb();
    caption_text_ = palette.color(QPalette::ButtonText).rgb();
    caption_line_ = mix(caption_, caption_text_, 0.3);
}

int GridPainter::strip_scale(const QPainter& painter) const {
    const QTransform to_device = painter.deviceTransform();
    const double scale = to_device.m11();
    const auto whole = [](double number) { return number == std::floor(number); };
    const bool fits = to_device.type() <= QTransform::TxScale && scale == to_device.m22() &&
                      whole(scale) && scale >= 1 && scale <= 8 && whole(to_device.dx()) &&
                      whole(to_device.dy());
    return fits ? static_cast<int>(scale) : 0;
}

void GridPainter::paint(QPainter& painter,
                        const Resolution& resolution,
                        const QRect& area,
                        bool focused) {
    const GridGeometry geometry(grid_, resolution);
    scale_ = strip_scale(painter);
    if (scale_ > 0 && atlas_.scale() != scale_) {
        atlas_.set_font(font_, scale_);
    }
    find_columns(geometry, area);
    if (area.bottom() >= geometry.captions_bottom()) {
        paint_rows(painter, geometry, area);
    }
    if (area.top() < geometry.captions_bottom()) {
        paint_captions(painter, geometry, area);
    }
    if (focused && grid_.selection() == standard::GridSelection::free) {
        mark_current(painter, geometry);
    }
}

void GridPainter::find_columns(const GridGeometry& geometry, const QRect& area) {
    columns_.clear();
    std::int32_t first = std::max(geometry.col_at(area.left()), 0);
    while (first > 0 && geometry.col_right(first - 1) > area.left()) {
        --first;
    }
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
    const QRect captions(area.left(), 0, area.width(), bottom);
    paint_row(painter,
              {0, 0, bottom, captions & area, caption_, caption_text_, caption_line_, false});
    paint_shaped_texts(painter, captions & area);
    // The line under the captions goes on behind the last column.
    painter.fillRect(area.left(), bottom - line_px, area.width(), line_px, QColor(caption_line_));
}

void GridPainter::paint_rows(QPainter& painter, const GridGeometry& geometry, const QRect& area) {
    const QRect body = area.adjusted(0, std::max(0, geometry.captions_bottom() - area.top()), 0, 0);
    int bottom = body.top();
    for (std::int32_t row = first_row_in(geometry, body); row < grid_.Rows(); ++row) {
        const int top = geometry.row_top(row);
        if (top > body.bottom()) {
            break;
        }
        const int end = geometry.row_bottom(row);
        if (end > top) {
            const QRect whole(body.left(), top, body.width(), end - top);
            paint_row(painter,
                      {row, top, end, whole & body, base_, text_, line_, row_is_selected(row)});
            bottom = end;
        }
    }
    if (bottom <= body.bottom()) {
        painter.fillRect(
            body.left(), bottom, body.width(), body.bottom() + 1 - bottom, QColor(base_));
    }
    paint_shaped_texts(painter, body);
}

/// Edges are rounded where the grid finds rows exactly: a pixel may belong to the row before.
std::int32_t GridPainter::first_row_in(const GridGeometry& geometry, const QRect& body) const {
    const std::int32_t found = geometry.row_at(body.top());
    std::int32_t row = found > 0 ? found : found == 0 ? 1 : grid_.Rows();
    while (row > 1 && geometry.row_bottom(row - 1) > body.top()) {
        --row;
    }
    return row;
}

bool GridPainter::row_is_selected(std::int32_t row) const {
    // One cell that is current in a grid of free selection has the editor over it, or a mark.
    const auto [first, last] = std::minmax({grid_.Row(), grid_.RowSel()});
    return grid_.selection() == standard::GridSelection::by_row && row >= first && row <= last;
}

QRect GridPainter::selected_area(const Row& row) const {
    int left = 0;
    int right = 0;
    for (const Column& column : columns_) {
        if (row.selected && grid_.is_selected(row.row, column.col)) {
            left = left == right ? column.left : left;
            right = column.right;
        }
    }
    return {left, row.top, right - left, row.bottom - row.top};
}

QRgb GridPainter::text_color(const Row& row, std::int32_t col) const {
    return row.selected && grid_.is_selected(row.row, col) ? highlighted_text_ : row.text;
}

void GridPainter::paint_row(QPainter& painter, const Row& row) {
    if (row.seen.isEmpty()) {
        return;
    }
    if (scale_ == 0) {
        paint_row_plainly(painter, row);
        return;
    }
    const auto to_strip = [&](const QRect& area) {
        const QPoint place = (area.topLeft() - row.seen.topLeft()) * scale_;
        return QRect(place, area.size() * scale_);
    };
    strip_.begin(row.seen.size() * scale_, row.background);
    strip_.fill(to_strip(selected_area(row)), highlight_);
    for (const Column& column : columns_) {
        put_in_strip(row, column);
        strip_.fill(to_strip({column.right - line_px, row.top, line_px, row.bottom - row.top}),
                    row.line);
    }
    const int right = columns_.empty() ? row.seen.left() : columns_.back().right;
    strip_.fill(to_strip({row.seen.left(), row.bottom - line_px, right - row.seen.left(), line_px}),
                row.line);
    // Pixel for pixel: through the painter's scale the image would be scaled, and slowly.
    painter.save();
    painter.scale(1.0 / scale_, 1.0 / scale_);
    painter.drawImage(row.seen.topLeft() * scale_, strip_.image());
    painter.restore();
}

void GridPainter::put_in_strip(const Row& row, const Column& column) {
    const std::string_view text = grid_.TextMatrix(row.row, column.col);
    const int width = column.right - column.left - line_px - 2 * padding_px;
    if (text.empty() || width <= 0) {
        return;
    }
    const QRgb color = text_color(row, column.col);
    if (!letters_.set(atlas_, text, static_cast<float>(width * scale_))) {
        shaped_.push_back({text, column, row.top, row.bottom, color});
        return;
    }
    const double free_width = width * scale_ - static_cast<double>(letters_.width());
    const double free_height =
        (row.bottom - row.top - line_px) * scale_ - static_cast<double>(atlas_.line_height());
    const QPoint cell = (QPoint(column.left, row.top) - row.seen.topLeft()) * scale_;
    const QPoint offset(padding_px * scale_ + static_cast<int>(text_left(column, text, free_width)),
                        static_cast<int>(std::floor(free_height * share_above(column.alignment)) +
                                         std::lrint(atlas_.ascent())));
    const QRect clip(cell, QSize(column.right - column.left, row.bottom - row.top) * scale_);
    strip_.draw(atlas_, letters_, cell + offset, clip, color);
}

double GridPainter::text_left(const Column& column, std::string_view text, double free_width) {
    const bool general = column.alignment == 0 || column.alignment == 9;
    switch (side_of(column.alignment, general && numbers_.is_number(text))) {
    case Side::left:
        return 0;
    case Side::centre:
        return free_width / 2;
    default:
        return free_width;
    }
}

void GridPainter::paint_row_plainly(QPainter& painter, const Row& row) {
    painter.fillRect(row.seen, QColor(row.background));
    painter.fillRect(selected_area(row) & row.seen, QColor(highlight_));
    int right = row.seen.left();
    for (const Column& column : columns_) {
        const std::string_view text = grid_.TextMatrix(row.row, column.col);
        shaped_.push_back({text, column, row.top, row.bottom, text_color(row, column.col)});
        const QRect edge(column.right - line_px, row.top, line_px, row.bottom - row.top);
        painter.fillRect(edge & row.seen, QColor(row.line));
        right = column.right;
    }
    const QRect foot(row.seen.left(), row.bottom - line_px, right - row.seen.left(), line_px);
    painter.fillRect(foot & row.seen, QColor(row.line));
}

void GridPainter::paint_shaped_texts(QPainter& painter, const QRect& clip) {
    if (shaped_.empty()) {
        return;
    }
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    for (const Shaped& shaped : shaped_) {
        paint_shaped(painter, shaped);
    }
    painter.restore();
    shaped_.clear();
}

void GridPainter::paint_shaped(QPainter& painter, const Shaped& shaped) {
    const Column& column = shaped.column;
    const int width = column.right - column.left - line_px - 2 * padding_px;
    if (shaped.text.empty() || width <= 0) {
        return;
    }
    const ShapedText& text = texts_.fit(shaped.text, width);
    const double x = column.left + padding_px + text_left(column, shaped.text, width - text.width);
    const double free_height = shaped.bottom - shaped.top - line_px - texts_.line_height();
    const double y = shaped.top + free_height * share_above(column.alignment);
    const bool too_high = free_height < 0;
    if (too_high) {
        painter.save();
        painter.setClipRect(
            QRect(column.left, shaped.top, column.right - column.left, shaped.bottom - shaped.top),
            Qt::IntersectClip);
    }
    painter.setPen(QColor(shaped.color));
    for (const QGlyphRun& run : text.runs) {
        painter.drawGlyphRun(QPointF(std::floor(x), std::floor(y)), run);
    }
    if (too_high) {
        painter.restore();
    }
}

void GridPainter::mark_current(QPainter& painter, const GridGeometry& geometry) const {
    if (grid_.Row() == 0) {
        return;
    }
    const QRect cell = geometry.cell(grid_.Row(), grid_.Col());
    painter.setPen(QColor(highlight_));
    painter.drawRect(cell.adjusted(0, 0, -line_px - 1, -line_px - 1));
}

} // namespace krv::qt
