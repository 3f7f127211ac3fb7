#include "qt/text_cache.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <utility>

namespace krv::qt {

namespace {

/// Bytes of a text that are shaped at the most; more than any cell can show.
constexpr std::size_t longest_shaped = 1024;
constexpr double no_line_break = 1e6;

bool continues_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The beginning of a long text, cut between characters.
std::string_view beginning_of(std::string_view text) {
    if (text.size() <= longest_shaped) {
        return text;
    }
    std::size_t length = longest_shaped;
    while (length > 0 && continues_character(text[length])) {
        --length;
    }
    return text.substr(0, length);
}

/// One line of text: a cell shows line ends and tabs as blanks.
QString one_line(std::string_view text) {
    QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& character : line) {
        if (character < QLatin1Char(' ') || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator) {
            character = QLatin1Char(' ');
        }
    }
    return line;
}

} // namespace

void TextCache::set_font(const QFont& font) {
    font_ = font;
    line_height_ = QFontMetricsF(font).height();
    entries_.clear();
}

TextCache::Entry TextCache::make(std::string_view text) const {
    const std::string_view beginning = beginning_of(text);
    Entry entry;
    entry.whole = shape(one_line(beginning));
    entry.cut = beginning.size() < text.size();
    return entry;
}

const ShapedText& TextCache::fit(std::string_view text, int width) {
    Entry& entry = entries_.find_or_make(text, [&] { return make(text); });
    if (!entry.cut && entry.whole.width <= width) {
        return entry.whole;
    }
    if (entry.elided_width != width) {
        QString line = one_line(beginning_of(text));
        if (entry.cut) {
            line.append(QChar(0x2026));
        }
        entry.elided = shape(QFontMetricsF(font_).elidedText(line, Qt::ElideRight, width));
        if (entry.elided.width > width + 1) {
            entry.elided = {};
        }
        entry.elided_width = width;
    }
    return entry.elided;
}

ShapedText TextCache::shape(const QString& text) const {
    if (text.isEmpty()) {
        return {};
    }
    QTextLayout layout(text, font_);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(no_line_break);
    layout.endLayout();
    return {layout.glyphRuns(), line.naturalTextWidth()};
}

} // namespace krv::qt
