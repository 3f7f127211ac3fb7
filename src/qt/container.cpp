#include "qt/container.h"

#include "krv/platform/error.h"

namespace krv::qt {

QtContainer::QtContainer(Surface& surface)
    : surface_(surface) {
    resize_widget();
}

Resolution QtContainer::resolution() const {
    return Resolution(surface_.root().logicalDpiX());
}

void QtContainer::resize_widget() {
    surface_.root().resize(resolution().px(width_), resolution().px(height_));
}

void QtContainer::SetWidth(platform::TwipsSingle width) {
    if (width != width_) {
        width_ = width;
        resize_widget();
        resized();
    }
}

void QtContainer::SetHeight(platform::TwipsSingle height) {
    if (height != height_) {
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
        if (now.px(twips) != px) {
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
