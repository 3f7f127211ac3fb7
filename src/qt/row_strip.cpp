#include "qt/row_strip.h"

#include <algorithm>

namespace krv::qt {

namespace {

constexpr std::uint32_t opaque = 0xFF000000U;
constexpr std::uint32_t red_and_blue = 0x00FF00FFU;
constexpr std::uint32_t green = 0x0000FF00U;

std::uint32_t blend_channel(std::uint32_t below, std::uint32_t above, std::uint32_t share) {
    return (below * (256 - share) + above * share) >> 8U;
}

/// All channels covered alike: two of them in one multiplication. No branch on the coverage, which
/// is different from pixel to pixel.
void blend_grey(std::uint32_t* pixels,
                const std::uint16_t* shares,
                std::ptrdiff_t count,
                std::uint32_t color) {
    const std::uint32_t above_red_and_blue = color & red_and_blue;
    const std::uint32_t above_green = color & green;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const std::uint32_t share = shares[i];
        const std::uint32_t below = pixels[i];
        const std::uint32_t mixed =
            blend_channel(below & red_and_blue, above_red_and_blue, share) & red_and_blue;
        pixels[i] = opaque | mixed | (blend_channel(below & green, above_green, share) & green);
    }
}

void blend_sub_pixels(std::uint32_t* pixels,
                      const std::uint16_t* shares,
                      std::ptrdiff_t count,
                      std::uint32_t color) {
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const std::uint32_t below = pixels[i];
        const auto channel = [&](unsigned shift, std::uint32_t share) {
            return blend_channel(below >> shift & 0xFFU, color >> shift & 0xFFU, share) << shift;
        };
        pixels[i] = opaque | channel(16, shares[3 * i]) | channel(8, shares[3 * i + 1]) |
                    channel(0, shares[3 * i + 2]);
    }
}

} // namespace

void RowStrip::begin(QSize size, QRgb color) {
    if (image_.size() != size) {
        image_ = QImage(size, QImage::Format_RGB32);
    }
    image_.fill(color);
    pixels_ = reinterpret_cast<std::uint32_t*>(image_.bits());
    stride_ = image_.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t));
}

void RowStrip::fill(const QRect& area, QRgb color) {
    const QRect inside = area & image_.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        std::fill_n(line(y) + inside.left(), inside.width(), color | opaque);
    }
}

void RowStrip::draw(
    GlyphAtlas& atlas, const LetterLine& letters, QPoint baseline, const QRect& clip, QRgb color) {
    const QRect inside = clip & image_.rect();
    for (const LetterLine::Placed& placed : letters.letters()) {
        const int quarters = static_cast<int>(placed.x * Letter::places + 0.5F);
        const GlyphImage& image = atlas.image(*placed.letter, quarters % Letter::places);
        blend(image, baseline + QPoint(quarters / Letter::places, 0), inside, color);
    }
}

void RowStrip::blend(const GlyphImage& glyph, QPoint pen, const QRect& clip, QRgb color) {
    const int left = pen.x() + glyph.left;
    const int top = pen.y() + glyph.top;
    const int first_col = std::max(left, clip.left());
    const int last_col = std::min(left + glyph.width - 1, clip.right());
    const int last_row = std::min(top + glyph.height - 1, clip.bottom());
    const std::ptrdiff_t count = last_col + 1 - first_col;
    if (count <= 0) {
        return;
    }
    const std::ptrdiff_t channels = glyph.grey ? 1 : 3;
    for (int row = std::max(top, clip.top()); row <= last_row; ++row) {
        const std::ptrdiff_t start =
            (static_cast<std::ptrdiff_t>(row - top) * glyph.width + (first_col - left)) * channels;
        const auto& blend_pixels = glyph.grey ? blend_grey : blend_sub_pixels;
        blend_pixels(line(row) + first_col, glyph.shares.data() + start, count, color);
    }
}

} // namespace krv::qt
