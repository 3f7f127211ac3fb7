#pragma once

#include "krv/platform/controls.h"
#include "krv/qt/resolution.h"
#include "krv/standard/measures.h"
#include "qt/part_handle.h"
#include "qt/surface.h"

#include <QFont>
#include <QPointer>
#include <QWidget>

#include <string>
#include <string_view>
#include <utility>

namespace krv::qt {

/// A part of the control over a widget. The part keeps its place in twips; the widget follows in
/// the pixels of its screen. The derived class hands the widget over in its constructor.
template <class Interface>
class QtPart : public Interface, public PartHandle {
public:
    QtPart(Surface& surface, std::string name)
        : PartHandle(surface)
        , name_(std::move(name)) {}

    /// The widget calls the part, so it goes first.
    ~QtPart() override { delete widget_.data(); }

    std::string_view Name() const override { return name_; }

    bool Visible() const override { return visible_; }

    void SetVisible(bool visible) override {
        const bool leaves = !visible && surface().has_focus(*this);
        visible_ = visible;
        if (leaves) {
            surface().move_focus_on(*this);
        }
        widget_->setVisible(visible);
        surface().sync_focus();
    }

    bool Enabled() const override { return enabled_; }

    void SetEnabled(bool enabled) override {
        const bool leaves = !enabled && surface().has_focus(*this);
        enabled_ = enabled;
        if (leaves) {
            surface().move_focus_on(*this);
        }
        widget_->setEnabled(enabled);
        surface().sync_focus();
    }

    bool TabStop() const override { return tab_stop_; }

    void SetTabStop(bool tab_stop) override {
        tab_stop_ = tab_stop;
        widget_->setFocusPolicy(tab_stop ? Qt::StrongFocus : Qt::ClickFocus);
    }

    platform::TwipsSingle Left() const override { return left_; }

    void SetLeft(platform::TwipsSingle left) override { set_place(left, top_, width_, height_); }

    platform::TwipsSingle Top() const override { return top_; }

    void SetTop(platform::TwipsSingle top) override { set_place(left_, top, width_, height_); }

    platform::TwipsSingle Width() const override { return width_; }

    void SetWidth(platform::TwipsSingle width) override { set_place(left_, top_, width, height_); }

    platform::TwipsSingle Height() const override { return height_; }

    void SetHeight(platform::TwipsSingle height) override {
        set_place(left_, top_, width_, height);
    }

    void Move(platform::TwipsSingle left,
              platform::TwipsSingle top,
              platform::TwipsSingle width,
              platform::TwipsSingle height) override {
        set_place(left, top, width, height);
    }

    float FontSize() const override { return font_size_; }

    void SetFontSize(float points) override {
        standard::require_font_size(points, name_);
        font_size_ = points;
        QFont font = widget_->font();
        font.setPointSizeF(static_cast<double>(points));
        widget_->setFont(font);
    }

    void SetFocus() override { surface().give_focus(*this, name_); }

    QWidget* widget() const override { return widget_; }

    bool can_take_focus() const override { return visible_ && enabled_; }

    bool is_tab_stop() const override { return tab_stop_; }

    void place() override {
        const Resolution resolution(widget_->logicalDpiX());
        const int left = resolution.px(left_);
        const int top = resolution.px(top_);
        const int right = resolution.px(static_cast<double>(left_) + width_);
        const int bottom = resolution.px(static_cast<double>(top_) + height_);
        widget_->setGeometry(left, top, right - left, bottom - top);
    }

protected:
    /// The widget is a child of the control's and goes with it, at the latest. A part that can have
    /// the focus then joins the surface's tab order.
    void adopt(QWidget* widget) {
        widget_ = widget;
        widget->setObjectName(QString::fromStdString(name_));
        widget->setFocusPolicy(Qt::StrongFocus);
        QFont font = widget->font();
        font.setPointSizeF(static_cast<double>(font_size_));
        widget->setFont(font);
        widget->setVisible(true);
    }

    virtual void set_place(platform::TwipsSingle left,
                           platform::TwipsSingle top,
                           platform::TwipsSingle width,
                           platform::TwipsSingle height) {
        left_ = left;
        top_ = top;
        width_ = width;
        height_ = height;
        place();
    }

private:
    std::string name_;
    QPointer<QWidget> widget_;
    bool visible_ = true;
    bool enabled_ = true;
    bool tab_stop_ = true;
    platform::TwipsSingle left_ = 0;
    platform::TwipsSingle top_ = 0;
    platform::TwipsSingle width_ = 0;
    platform::TwipsSingle height_ = 0;
    float font_size_ = standard::default_font_size;
};

} // namespace krv::qt
