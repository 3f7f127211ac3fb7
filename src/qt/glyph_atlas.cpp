#include "qt/glyph_atlas.h"

#include <QGlyphRun>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace krv::qt {

namespace {

struct CharacterRange {
    char16_t first;
    char16_t last;
};

/// Written from left to right, one glyph a character whatever stands beside it.
constexpr std::array<CharacterRange, 9> simple_ranges = {{
    {0x0020, 0x007E}, // Latin
    {0x00A0, 0x00AC},
    {0x00AE, 0x024F}, // without the soft hyphen
    {0x0370, 0x03FF}, // Greek
    {0x0400, 0x0482}, // Cyrillic, without its marks
    {0x048A, 0x052F},
    {0x1E00, 0x1FFF}, // Latin and Greek with accents
    {0x2010, 0x2027}, // dashes, quotes, dots
    {0x2030, 0x214F}, // without U+202A to U+202E, which turn the direction
}};

/// Invisible ones and marks within the ranges.
bool is_excluded(char16_t character) {
    return (character >= 0x205F && character <= 0x206F) ||
           (character >= 0x20D0 && character <= 0x20FF);
}

bool is_simple(char16_t character) {
    return !is_excluded(character) &&
           std::any_of(
               simple_ranges.begin(), simple_ranges.end(), [&](const CharacterRange& range) {
                   return character >= range.first && character <= range.last;
               });
}

constexpr int margin_px = 2;

/// The glyph in black on white, as the platform draws text.
QImage draw_glyph(const QRawFont& font, std::uint32_t glyph, QSize size, QPointF pen) {
    QImage canvas(size, QImage::Format_RGB32);
    canvas.fill(Qt::white);
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes({glyph});
    run.setPositions({QPointF(0, 0)});
    QPainter painter(&canvas);
    painter.setPen(Qt::black);
    painter.drawGlyphRun(pen, run);
    return canvas;
}

QRect inked_area(const QImage& canvas) {
    QRect inked;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            if (canvas.pixel(x, y) != qRgb(255, 255, 255)) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    return inked;
}

/// 0 to 256 from a channel of black on white, so that blending divides by a shift.
std::uint16_t share_of(int channel) {
    const int coverage = 255 - channel;
    return static_cast<std::uint16_t>(coverage + (coverage >> 7));
}

GlyphImage glyph_image(const QImage& canvas, QPoint pen) {
    const QRect inked = inked_area(canvas);
    GlyphImage image{inked.left() - pen.x(),
                     inked.top() - pen.y(),
                     inked.width(),
                     inked.height(),
                     canvas.copy(inked).isGrayscale(),
                     {}};
    for (int y = inked.top(); y <= inked.bottom(); ++y) {
        for (int x = inked.left(); x <= inked.right(); ++x) {
            const QRgb pixel = canvas.pixel(x, y);
            image.shares.push_back(share_of(qRed(pixel)));
            if (!image.grey) {
                image.shares.push_back(share_of(qGreen(pixel)));
                image.shares.push_back(share_of(qBlue(pixel)));
            }
        }
    }
    return image;
}

} // namespace

void GlyphAtlas::set_font(const QFont& font, int scale) {
    font_ = font;
    if (scale != 1) {
        if (font.pointSizeF() > 0) {
            font_.setPointSizeF(font.pointSizeF() * scale);
        } else {
            font_.setPixelSize(font.pixelSize() * scale);
        }
    }
    scale_ = scale;
    raw_font_ = QRawFont::fromFont(font_);
    metrics_ = QFontMetricsF(font_);
    ascent_ = static_cast<float>(metrics_.ascent());
    line_height_ = static_cast<float>(metrics_.height());
    pages_ = {};
    ascii_kerning_.assign(ascii * ascii, std::numeric_limits<float>::quiet_NaN());
    other_kerning_.clear();
}

Letter* GlyphAtlas::letter(char32_t character) {
    if (character > 0xFFFF) {
        return nullptr;
    }
    std::unique_ptr<Page>& page = pages_[character / page_size];
    if (!page) {
        page = std::make_unique<Page>();
    }
    Letter& found = (*page)[character % page_size];
    if (found.kind == Letter::Kind::unknown) {
        look_up(found, static_cast<char16_t>(character));
    }
    return found.kind == Letter::Kind::simple ? &found : nullptr;
}

void GlyphAtlas::look_up(Letter& letter, char16_t character) {
    letter.character = character;
    letter.kind = Letter::Kind::complex;
    if (!is_simple(character) || !raw_font_.isValid()) {
        return;
    }
    const QList<quint32> glyphs = raw_font_.glyphIndexesForString(QString(QChar(character)));
    if (glyphs.size() != 1 || glyphs.front() == 0) {
        return;
    }
    letter.glyph = glyphs.front();
    letter.advance = static_cast<float>(metrics_.horizontalAdvance(QChar(character)));
    letter.kind = Letter::Kind::simple;
}

float GlyphAtlas::measure_kerning(const Letter& first, const Letter& second) const {
    const QString pair = QString(QChar(first.character)) + QChar(second.character);
    const auto width = static_cast<float>(metrics_.horizontalAdvance(pair));
    return width - first.advance - second.advance;
}

float GlyphAtlas::kerning(const Letter& first, const Letter& second) {
    if (first.character < ascii && second.character < ascii) {
        float& known = ascii_kerning_[first.character * ascii + second.character];
        if (std::isnan(known)) {
            known = measure_kerning(first, second);
        }
        return known;
    }
    const std::uint32_t key = static_cast<std::uint32_t>(first.character) << 16U | second.character;
    const auto [found, is_new] = other_kerning_.try_emplace(key, 0.0F);
    if (is_new) {
        found->second = measure_kerning(first, second);
    }
    return found->second;
}

const GlyphImage& GlyphAtlas::image(Letter& letter, int place) {
    std::unique_ptr<GlyphImage>& image = letter.images[static_cast<std::size_t>(place)];
    if (!image) {
        const QRect box = raw_font_.boundingRect(letter.glyph).toAlignedRect();
        const QPoint pen(margin_px - box.left(), margin_px - box.top());
        const QSize size(box.width() + 2 * margin_px + 1, box.height() + 2 * margin_px);
        const QPointF exact(pen.x() + place / static_cast<double>(Letter::places), pen.y());
        image = std::make_unique<GlyphImage>(
            glyph_image(draw_glyph(raw_font_, letter.glyph, size, exact), pen));
    }
    return *image;
}

} // namespace krv::qt
