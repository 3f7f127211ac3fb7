#include "text_width.h"

#include <QChar>
#include <QList>
#include <QString>

#include <array>

namespace krv::demo {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Unicode's East Asian wide and full-width blocks, and pictures.
constexpr std::array<Range, 14> wide = {{{0x1100, 0x115F},
                                         {0x2E80, 0x303E},
                                         {0x3041, 0x33FF},
                                         {0x3400, 0x4DBF},
                                         {0x4E00, 0x9FFF},
                                         {0xA000, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE4F},
                                         {0xFF00, 0xFF60},
                                         {0xFFE0, 0xFFE6},
                                         {0x1F300, 0x1F64F},
                                         {0x1F900, 0x1F9FF},
                                         {0x20000, 0x3FFFD}}};

int width_of(char32_t character) {
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        break;
    }
    const bool is_wide = std::any_of(wide.begin(), wide.end(), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
    return is_wide ? 2 : 1;
}

} // namespace

int text_width(std::string_view utf8) {
    const auto text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    int width = 0;
    for (const uint character : text.toUcs4()) {
        width += width_of(character);
    }
    return width;
}

std::string one_line(std::string_view utf8) {
    // Control characters, those above 7F too: a terminal acts on them.
    auto text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control) {
            character = QLatin1Char(' ');
        }
    }
    return text.toStdString();
}

} // namespace krv::demo
