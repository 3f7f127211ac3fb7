#pragma once

#include "krv/headless/headless_part.h"
#include "krv/platform/controls.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::headless {

/// A push button without a screen. Keys on a button of a control go to the control's surface, not
/// to the button's own listener; Enter and Space click it instead.
class HeadlessButton final : public HeadlessPart<platform::Button> {
public:
    using HeadlessPart::HeadlessPart;

    std::string Caption() const override { return caption_; }

    void SetCaption(std::string_view caption) override { caption_ = caption; }

    platform::OleColor BackColor() const override { return back_color_; }

    void SetBackColor(platform::OleColor color) override { back_color_ = color; }

    void SetEvents(platform::ButtonEvents* events) override { events_ = events; }

    bool is_clicked_by(std::int16_t key_code) const override;
    void key_down(std::int16_t& key_code, std::int16_t& shift) override;

    /// Only the left mouse button clicks.
    void click(const Mouse& mouse) override;

protected:
    void drop_events() override { events_ = nullptr; }

private:
    std::string caption_;
    platform::OleColor back_color_ = platform::button_face_color;
    platform::ButtonEvents* events_ = nullptr;
};

} // namespace krv::headless
