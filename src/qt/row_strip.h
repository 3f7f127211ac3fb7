#pragma once

#include "qt/letter_line.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <cstddef>
#include <cstdint>

namespace krv::qt {

/// The pixels of one row, put together before they go to the screen at once. Everything in device
/// pixels from the strip's top left.
class RowStrip {
public:
    /// Starts a row anew in one colour.
    void begin(QSize size, QRgb color);

    /// Clipped to the strip.
    void fill(const QRect& area, QRgb color);
    /// \param baseline  of the line's beginning
    /// \param clip      nothing is drawn outside
    void draw(GlyphAtlas& atlas,
              const LetterLine& letters,
              QPoint baseline,
              const QRect& clip,
              QRgb color);

    const QImage& image() const noexcept { return image_; }

private:
    void blend(const GlyphImage& glyph, QPoint pen, const QRect& clip, QRgb color);

    std::uint32_t* line(int y) const { return pixels_ + y * stride_; }

    QImage image_;
    std::uint32_t* pixels_ = nullptr;
    std::ptrdiff_t stride_ = 0;
};

} // namespace krv::qt
