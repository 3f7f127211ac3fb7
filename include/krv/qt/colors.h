#pragma once

#include "krv/platform/units.h"

#include <QColor>
#include <QPalette>

namespace krv::qt {

/// The role of a palette that stands for a system colour, given by its number (15 is the button
/// face). A number that names no system colour is the button face.
/// Numbers: public list of system colour indices (`GetSysColor`).
QPalette::ColorRole system_color_role(int index);

/// A colour as it is drawn: system colours come from the palette, so they follow dark themes.
QColor color_from_ole(platform::OleColor color, const QPalette& palette);

/// Black or white, whichever is read more easily on this colour: their contrast is 4.5 at least.
/// Contrast and limit: Web Content Accessibility Guidelines 2.1.
QColor text_color_on(const QColor& background);

/// 0x00BBGGRR; transparency is dropped.
platform::OleColor ole_from_color(const QColor& color);

} // namespace krv::qt
