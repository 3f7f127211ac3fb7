#pragma once

#include "qt/grid_geometry.h"
#include "qt/text_cache.h"

#include <QColor>
#include <QPalette>
#include <QRect>

#include <vector>

class QPainter;

namespace krv::qt {

/// Draws a grid straight from its texts.
class GridPainter {
public:
    explicit GridPainter(const standard::FlexGrid& grid)
        : grid_(grid) {}

    TextCache& texts() noexcept { return texts_; }

    void set_palette(const QPalette& palette);

    /// \param area     what has to be drawn, within the viewport
    /// \param focused  whether to mark the current cell where cells are selected freely
    void paint(QPainter& painter, const Resolution& resolution, const QRect& area, bool focused);

private:
    struct Column {
        std::int32_t col;
        int left;
        int right;
        std::int16_t alignment;
    };

    void find_columns(const GridGeometry& geometry, const QRect& area);
    void paint_captions(QPainter& painter, const GridGeometry& geometry, const QRect& area);
    void paint_rows(QPainter& painter, const GridGeometry& geometry, const QRect& area);
    void paint_row(QPainter& painter, std::int32_t row, int top, int bottom, const QRect& area);
    void paint_selected(QPainter& painter, std::int32_t row, const QRect& row_area);
    void paint_text(QPainter& painter,
                    std::string_view text,
                    const Column& column,
                    int top,
                    int bottom,
                    const QColor& color);
    void paint_column_lines(QPainter& painter, int top, int bottom, const QColor& color) const;
    void mark_current(QPainter& painter, const GridGeometry& geometry) const;
    bool row_is_selected(std::int32_t row) const;

    const standard::FlexGrid& grid_;
    TextCache texts_;
    std::vector<Column> columns_;
    QColor base_;
    QColor text_;
    QColor line_;
    QColor highlight_;
    QColor highlighted_text_;
    QColor caption_;
    QColor caption_text_;
    QColor caption_line_;
};

} // namespace krv::qt
