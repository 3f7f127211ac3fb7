#pragma once

#include "krv/headless/headless_part.h"
#include "krv/headless/text_edit.h"
#include "krv/platform/controls.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace krv::headless {

/// A line of text without a screen.
///
/// A person's keys Left, Right, Home, End, Backspace and Delete edit as described at
/// `platform::TextBox`; with Ctrl or Alt held they and the characters do nothing here. There are no
/// glyphs, so the mouse places no caret.
class HeadlessTextBox final : public HeadlessPart<platform::TextBox> {
public:
    using HeadlessPart::HeadlessPart;

    void SetVisible(bool visible) override;

    /// Called when the hidden box is shown. Empty for none.
    void set_on_shown(std::function<void()> handler) { on_shown_ = std::move(handler); }

    std::string Text() const override { return edit_.text(); }

    void SetText(std::string_view text) override;

    std::int32_t MaxLength() const override { return max_length_; }

    void SetMaxLength(std::int32_t length) override { max_length_ = length; }

    std::int32_t SelStart() const override { return edit_.selection_start(); }

    void SetSelStart(std::int32_t start) override;

    std::int32_t SelLength() const override { return edit_.selection_length(); }

    void SetSelLength(std::int32_t length) override;

    void SetEvents(platform::TextBoxEvents* events) override { events_ = events; }

    void got_focus() override;
    void lost_focus() override;
    void key_down(std::int16_t& key_code, std::int16_t& shift) override;
    void act_on_key(std::int16_t key_code, std::int16_t shift) override;

    /// Raises the key-press event, once for each UTF-16 unit, and puts in what its handler left of
    /// the character; nothing when it left a 0 or took the focus away.
    void type(std::string_view character) override;

    /// Puts in the first line of the text, tabs included, as far as `MaxLength` allows.
    void paste(std::string_view text) override;

    void press(const Mouse& mouse) override;
    void double_click(const Mouse& mouse) override;

protected:
    void drop_events() override { events_ = nullptr; }

private:
    void raise_change();
    std::string offer_character(std::string_view character);

    TextEdit edit_;
    std::int32_t max_length_ = 0;
    platform::TextBoxEvents* events_ = nullptr;
    std::function<void()> on_shown_;
};

} // namespace krv::headless
