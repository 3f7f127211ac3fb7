#pragma once

#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace krv::qt::testing {

/// The widget drawn from scratch.
inline QImage drawn(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// What stands on the screen in the widget's place: everything that was drawn and shifted so far.
inline QImage on_screen(QWidget& widget) {
    const QWidget& window = *widget.window();
    const QPoint place = widget.mapTo(&window, QPoint(0, 0));
    return window.screen()
        ->grabWindow(window.winId(), place.x(), place.y(), widget.width(), widget.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

/// Pixels in the area that are neither of the colour in its top left corner.
inline QRect ink(const QImage& picture, const QRect& area) {
    QRect box;
    const QRgb background = picture.pixel(area.topLeft());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (picture.pixel(x, y) != background) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

/// A cell without the lines at its right and bottom.
inline QRect inside(const QRect& cell) {
    return cell.adjusted(0, 0, -1, -1);
}

} // namespace krv::qt::testing
