#pragma once

#include <QColor>
#include <QImage>
#include <QMap>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace krv::qt::testing {

/// Relative luminance, 0 to 1. Source: Web Content Accessibility Guidelines 2.1.
inline double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// 1 for equal colours to 21 for black on white.
inline double contrast(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

/// The strongest contrast of a pixel in the area to the colour that is there most.
inline double contrast_in(const QImage& picture, const QRect& area) {
    QMap<QRgb, int> counts;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    QRgb background = 0;
    int most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > most) {
            most = it.value();
            background = it.key();
        }
    }
    double strongest = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        strongest = std::max(strongest, contrast(QColor(it.key()), QColor(background)));
    }
    return strongest;
}

} // namespace krv::qt::testing
