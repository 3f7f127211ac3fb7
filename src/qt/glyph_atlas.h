#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QRawFont>

#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace krv::qt {

/// A drawn glyph: how much of each pixel it covers, as the platform's own text drawing decides.
struct GlyphImage {
    int left = 0; ///< of the first column from the pen
    int top = 0;  ///< of the first row from the baseline, negative above it
    int width = 0;
    int height = 0;
    bool grey = true; ///< else by sub-pixels: red, green and blue are covered on their own
    std::vector<std::uint16_t> shares; ///< 0 to 256; one a pixel when grey, else three
};

/// A character that needs no shaping: one glyph of the font, one advance.
struct Letter {
    enum class Kind : std::uint8_t { unknown, simple, complex };

    static constexpr int places = 4; ///< of the pen within a pixel

    Kind kind = Kind::unknown;
    char16_t character = 0;
    std::uint32_t glyph = 0;
    float advance = 0; ///< device pixels
    std::array<std::unique_ptr<GlyphImage>, places> images;
};

/// The letters of one font at one scale, each drawn once by the platform.
class GlyphAtlas {
public:
    /// \param scale  device pixels to a logical pixel
    void set_font(const QFont& font, int scale);

    /// Device pixels to a logical pixel; 0 before the first font.
    int scale() const noexcept { return scale_; }

    float ascent() const noexcept { return ascent_; }

    float line_height() const noexcept { return line_height_; }

    /// Null for a character that takes part in shaping (marks, right-to-left and joined scripts),
    /// lies beyond the basic plane or is not in the font.
    Letter* letter(char32_t character);

    /// What the pair's distance differs by from the first one's advance.
    float kerning(const Letter& first, const Letter& second);

    /// \param place  quarters of a pixel behind the whole pixel that the pen stands at
    const GlyphImage& image(Letter& letter, int place);

private:
    static constexpr std::size_t page_size = 256;
    static constexpr std::size_t ascii = 128;

    using Page = std::array<Letter, page_size>;

    void look_up(Letter& letter, char16_t character);
    float measure_kerning(const Letter& first, const Letter& second) const;

    QFont font_;
    QRawFont raw_font_;
    QFontMetricsF metrics_{QFont()};
    int scale_ = 0;
    float ascent_ = 0;
    float line_height_ = 0;
    std::array<std::unique_ptr<Page>, page_size> pages_;
    std::vector<float> ascii_kerning_;
    std::unordered_map<std::uint32_t, float> other_kerning_;
};

} // namespace krv::qt
