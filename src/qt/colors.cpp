#include "krv/qt/colors.h"

#include <array>
#include <cmath>

namespace krv::qt {

namespace {

constexpr platform::OleColor system_color_flag = 0x80000000;

struct SystemColor {
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Current;
};

constexpr std::array<SystemColor, 25> system_colors = {{
    {QPalette::Mid},                            // scroll bar
    {QPalette::Window},                         // desktop
    {QPalette::Highlight},                      // active caption
    {QPalette::Mid},                            // inactive caption
    {QPalette::Window},                         // menu
    {QPalette::Base},                           // window
    {QPalette::Shadow},                         // window frame
    {QPalette::WindowText},                     // menu text
    {QPalette::Text},                           // window text
    {QPalette::HighlightedText},                // caption text
    {QPalette::Button},                         // active border
    {QPalette::Button},                         // inactive border
    {QPalette::Dark},                           // application workspace
    {QPalette::Highlight},                      // selection
    {QPalette::HighlightedText},                // selected text
    {QPalette::Button},                         // button face
    {QPalette::Dark},                           // button shadow
    {QPalette::Text, QPalette::Disabled},       // grey text
    {QPalette::ButtonText},                     // button text
    {QPalette::WindowText, QPalette::Disabled}, // inactive caption text
    {QPalette::Light},                          // raised edge
    {QPalette::Shadow},                         // dark shadow
    {QPalette::Midlight},                       // light edge
    {QPalette::ToolTipText},                    // tool tip text
    {QPalette::ToolTipBase},                    // tool tip
}};

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

SystemColor system_color(int index) {
    constexpr SystemColor button_face{QPalette::Button};
    const bool known = index >= 0 && index < static_cast<int>(system_colors.size());
    return known ? system_colors[static_cast<std::size_t>(index)] : button_face;
}

} // namespace

QPalette::ColorRole system_color_role(int index) {
    return system_color(index).role;
}

QColor color_from_ole(platform::OleColor color, const QPalette& palette) {
    if ((color & system_color_flag) != 0) {
        const SystemColor system = system_color(static_cast<int>(color & 0xFFU));
        return palette.color(system.group, system.role);
    }
    return QColor(static_cast<int>(color & 0xFFU),
                  static_cast<int>((color >> 8U) & 0xFFU),
                  static_cast<int>((color >> 16U) & 0xFFU));
}

QColor text_color_on(const QColor& background) {
    // At this luminance black and white are in equal contrast to the background.
    constexpr double turning_point = 0.179;
    return luminance(background) > turning_point ? Qt::black : Qt::white;
}

platform::OleColor ole_from_color(const QColor& color) {
    return static_cast<platform::OleColor>(color.red()) |
           static_cast<platform::OleColor>(color.green()) << 8U |
           static_cast<platform::OleColor>(color.blue()) << 16U;
}

} // namespace krv::qt
