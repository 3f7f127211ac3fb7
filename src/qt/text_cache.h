#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QList>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

class QPainter;

namespace krv::qt {

/// A text made ready for drawing: its glyphs, found once.
struct ShapedText {
    QList<QGlyphRun> runs;
    double width = 0;
};

/// The texts that were drawn lately, with what drawing them takes. Rows that scroll into view and
/// rows drawn again then cost a look-up and no shaping.
class TextCache {
public:
    struct Entry {
        ShapedText whole;
        bool number = false;
        /// The text runs on behind what was shaped: no cell is wide enough for it.
        bool cut = false;
        /// The text shortened for `elided_width`; -1 for none yet.
        ShapedText elided;
        int elided_width = -1;
    };

    using NumberTest = std::function<bool(std::string_view)>;

    /// Forgets what was made with another font.
    void set_font(const QFont& font);
    void set_number_test(NumberTest is_number);
    void clear();

    double line_height() const noexcept { return line_height_; }

    /// Valid until the next look-up.
    Entry& find(std::string_view text);
    /// The text as it fits into so many pixels: whole, shortened, or nothing at all.
    const ShapedText& fit(Entry& entry, std::string_view text, int width);

private:
    struct Hash {
        using is_transparent = void;

        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>{}(text);
        }
    };

    using Entries = std::unordered_map<std::string, Entry, Hash, std::equal_to<>>;

    ShapedText shape(const QString& text) const;

    // Two generations: when the young one is full it becomes the old one, and what is still used
    // moves over again.
    static constexpr std::size_t generation_size = 8192;

    QFont font_;
    double line_height_ = 0;
    NumberTest is_number_;
    Entries young_;
    Entries old_;
};

} // namespace krv::qt
