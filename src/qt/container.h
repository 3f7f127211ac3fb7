#pragma once

#include "krv/platform/host.h"
#include "krv/qt/resolution.h"
#include "krv/standard/measures.h"
#include "qt/surface.h"

#include <functional>
#include <vector>

namespace krv::qt {

/// The control's own surface over its widget. Size and font are kept in twips and points; the
/// widget follows, or is followed when the form gives it another size.
class QtContainer : public platform::Container {
public:
    explicit QtContainer(Surface& surface);

    platform::TwipsSingle Width() const override { return width_; }

    void SetWidth(platform::TwipsSingle width) override;

    platform::TwipsSingle Height() const override { return height_; }

    void SetHeight(platform::TwipsSingle height) override;

    platform::OleColor BackColor() const override { return back_color_; }

    void SetBackColor(platform::OleColor color) override;

    float FontSize() const override { return font_size_; }

    void SetFontSize(float points) override;
    platform::TwipsSingle TextHeight(std::string_view text) const override;

    std::span<platform::Part* const> Controls() override { return parts_; }

    void Repaint() override;
    void PropertyChanged(std::string_view name) override;

    void SetEvents(platform::ContainerEvents* events) override { events_ = events; }

    platform::ContainerEvents* events() const noexcept { return events_; }

    void set_parts(std::vector<platform::Part*> parts) { parts_ = std::move(parts); }

    void set_on_property_changed(std::function<void(std::string_view)> handler) {
        on_property_changed_ = std::move(handler);
    }

    /// The form gives the control both sizes, in twips: raises one `Resize` when one of them is
    /// another one.
    void resize_to(platform::TwipsSingle width, platform::TwipsSingle height);
    /// The form gave the widget its size; raises `Resize` when it is another one.
    void take_size();
    /// Raises `Resize`.
    void resized();

    static constexpr platform::TwipsSingle start_width = 6000;
    static constexpr platform::TwipsSingle start_height = 3000;

private:
    Resolution resolution() const;
    void resize_widget();

    Surface& surface_;
    platform::ContainerEvents* events_ = nullptr;
    std::vector<platform::Part*> parts_;
    std::function<void(std::string_view)> on_property_changed_;
    platform::TwipsSingle width_ = start_width;
    platform::TwipsSingle height_ = start_height;
    platform::OleColor back_color_ = platform::button_face_color;
    float font_size_ = standard::default_font_size;
};

} // namespace krv::qt
