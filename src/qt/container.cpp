#include "qt/container.h"

#include "krv/platform/error.h"

#include <algorithm>

namespace krv::qt {

namespace {

/// What a widget makes of a size in twips.
int widget_px(const Resolution& resolution, platform::TwipsSingle twips) {
    return std::clamp(resolution.px(static_cast<double>(twips)), 0, QWIDGETSIZE_MAX);
}

} // namespace

QtContainer::QtContainer(Surface& surface)
    : surface_(surface) {
    resize_widget();
}

Resolution QtContainer::resolution() const {
    return Resolution(surface_.root().logicalDpiX());
}

void QtContainer::resize_widget() {
    const Resolution now = resolution();
    surface_.root().resize(widget_px(now, width_), widget_px(now, height_));
}

void QtContainer::SetWidth(platform::TwipsSingle width) {
    resize_to(width, height_);
}

void QtContainer::SetHeight(platform::TwipsSingle height) {
    resize_to(width_, height);
}

void QtContainer::resize_to(platform::TwipsSingle width, platform::TwipsSingle height) {
    if (width != width_ || height != height_) {
        width_ = width;
        height_ = height;
        resize_widget();
        resized();
    }
}

void QtContainer::take_size() {
    const QSize size = surface_.root().size();
    const Resolution now = resolution();
    bool changed = false;
    const auto take = [&](platform::TwipsSingle& twips, int px) {
        if (widget_px(now, twips) != px) {
            twips = static_cast<platform::TwipsSingle>(now.twips(px));
            changed = true;
        }
    };
    take(width_, size.width());
    take(height_, size.height());
    if (changed) {
        resized();
    }
}

void QtContainer::resized() {
    if (events_ != nullptr) {
        events_->Resize();
    }
}

void QtContainer::SetBackColor(platform::OleColor color) {
    back_color_ = color;
    Repaint();
}

void QtContainer::SetFontSize(float points) {
    standard::require_font_size(points, "krvList3");
    font_size_ = points;
    QFont font = surface_.root().font();
    font.setPointSizeF(static_cast<double>(points));
    surface_.root().setFont(font);
}

platform::TwipsSingle QtContainer::TextHeight(std::string_view /*text*/) const {
    return static_cast<platform::TwipsSingle>(standard::text_height_twips(font_size_));
}

void QtContainer::Repaint() {
    surface_.root().update();
}

void QtContainer::PropertyChanged(std::string_view name) {
    if (const auto handler = on_property_changed_) { // a copy: the handler may destroy the control
        handler(name);
    }
}

} // namespace krv::qt
