#pragma once

#include "qt/two_generations.h"

#include <QFont>
#include <QGlyphRun>
#include <QList>

#include <string_view>

namespace krv::qt {

/// A text made ready for drawing: its glyphs, found once.
struct ShapedText {
    QList<QGlyphRun> runs;
    double width = 0;
};

/// Texts of any script, shaped by Qt. Rows that scroll into view again or are drawn again then cost
/// a look-up.
class TextCache {
public:
    /// Forgets what was made with another font.
    void set_font(const QFont& font);

    double line_height() const noexcept { return line_height_; }

    /// The text as it fits into so many pixels: whole, shortened, or nothing at all. Valid until
    /// the next call.
    const ShapedText& fit(std::string_view text, int width);

private:
    struct Entry {
        ShapedText whole;
        /// The text runs on behind what was shaped: no cell is wide enough for it.
        bool cut = false;
        /// The text shortened for `elided_width`; -1 for none yet.
        ShapedText elided;
        int elided_width = -1;
    };

    Entry make(std::string_view text) const;
    ShapedText shape(const QString& text) const;

    QFont font_;
    double line_height_ = 0;
    TwoGenerations<Entry> entries_;
};

} // namespace krv::qt
