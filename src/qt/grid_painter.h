#pragma once

#include "qt/glyph_atlas.h"
#include "qt/grid_geometry.h"
#include "qt/letter_line.h"
#include "qt/number_tests.h"
#include "qt/row_strip.h"
#include "qt/text_cache.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRect>

#include <string_view>
#include <vector>

class QPainter;

namespace krv::qt {

/// Draws a grid straight from its texts.
///
/// Texts of simple scripts are put together letter by letter, a row at a time; texts that need
/// shaping, and all texts on a screen whose pixels are no whole part of the logical ones, are drawn
/// by Qt.
class GridPainter {
public:
    explicit GridPainter(const standard::FlexGrid& grid)
        : grid_(grid) {}

    void set_font(const QFont& font);
    void set_palette(const QPalette& palette);

    void set_number_test(NumberTests::Test test) { numbers_.set_test(std::move(test)); }

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

    /// A row as it is drawn, in the viewport's pixels.
    struct Row {
        std::int32_t row;
        int top;
        int bottom;
        QRect seen; ///< what of it has to be drawn
        QRgb background;
        QRgb text;
        QRgb line;
        bool selected;
    };

    /// A text that Qt has to draw, once the pixels under it are there.
    struct Shaped {
        std::string_view text;
        Column column;
        int top;
        int bottom;
        QRgb color;
    };

    int strip_scale(const QPainter& painter) const;
    void find_columns(const GridGeometry& geometry, const QRect& area);
    void paint_captions(QPainter& painter, const GridGeometry& geometry, const QRect& area);
    void paint_rows(QPainter& painter, const GridGeometry& geometry, const QRect& area);
    void paint_row(QPainter& painter, const Row& row);
    void paint_row_plainly(QPainter& painter, const Row& row);
    void put_in_strip(const Row& row, const Column& column);
    QRect selected_area(const Row& row) const;
    QRgb text_color(const Row& row, std::int32_t col) const;
    double text_left(const Column& column, std::string_view text, double free_width);
    void paint_shaped_texts(QPainter& painter, const QRect& clip);
    void paint_shaped(QPainter& painter, const Shaped& shaped);
    void mark_current(QPainter& painter, const GridGeometry& geometry) const;
    std::int32_t first_row_in(const GridGeometry& geometry, const QRect& body) const;
    bool row_is_selected(std::int32_t row) const;

    const standard::FlexGrid& grid_;
    QFont font_;
    NumberTests numbers_;
    TextCache texts_;
    GlyphAtlas atlas_;
    LetterLine letters_;
    RowStrip strip_;
    int scale_ = 0; ///< of the strips, 0 when Qt draws everything
    std::vector<Column> columns_;
    std::vector<Shaped> shaped_;

    QRgb base_ = 0;
    QRgb text_ = 0;
    QRgb line_ = 0;
    QRgb highlight_ = 0;
    QRgb highlighted_text_ = 0;
    QRgb caption_ = 0;
    QRgb caption_text_ = 0;
    QRgb caption_line_ = 0;
};

} // namespace krv::qt
