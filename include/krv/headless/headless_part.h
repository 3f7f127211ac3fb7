#pragma once

#include "krv/headless/form_part.h"
#include "krv/platform/controls.h"

#include <string_view>

namespace krv::headless {

/// The members of `platform::Part` over a `FormPart`.
/// \tparam Interface  `platform::Part` or what derives from it
template <class Interface>
class HeadlessPart : public Interface, public FormPart {
public:
    using FormPart::FormPart;

    std::string_view Name() const override { return name(); }

    bool Visible() const override { return state().visible; }

    void SetVisible(bool visible) override { set_visible(visible); }

    bool Enabled() const override { return state().enabled; }

    void SetEnabled(bool enabled) override { set_enabled(enabled); }

    bool TabStop() const override { return state().tab_stop; }

    void SetTabStop(bool tab_stop) override { set_tab_stop(tab_stop); }

    platform::TwipsSingle Left() const override { return state().left; }

    void SetLeft(platform::TwipsSingle left) override { changeable_state().left = left; }

    platform::TwipsSingle Top() const override { return state().top; }

    void SetTop(platform::TwipsSingle top) override { changeable_state().top = top; }

    platform::TwipsSingle Width() const override { return state().width; }

    void SetWidth(platform::TwipsSingle width) override { changeable_state().width = width; }

    platform::TwipsSingle Height() const override { return state().height; }

    void SetHeight(platform::TwipsSingle height) override { changeable_state().height = height; }

    void Move(platform::TwipsSingle left,
              platform::TwipsSingle top,
              platform::TwipsSingle width,
              platform::TwipsSingle height) override {
        changeable_state().left = left;
        changeable_state().top = top;
        changeable_state().width = width;
        changeable_state().height = height;
    }

    float FontSize() const override { return state().font_size; }

    void SetFontSize(float points) override {
        standard::require_font_size(points, name());
        changeable_state().font_size = points;
    }

    void SetFocus() override { take_focus(); }
};

} // namespace krv::headless
