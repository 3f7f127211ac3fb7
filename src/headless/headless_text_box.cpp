#include "krv/headless/headless_text_box.h"

#include "headless/text_units.h"
#include "standard/utf8.h"

#include "krv/headless/activity.h"
#include "krv/platform/error.h"
#include "krv/platform/keys.h"

namespace krv::headless {

using platform::key_backspace;
using platform::key_delete;
using platform::key_end;
using platform::key_home;
using platform::key_left;
using platform::key_right;
using platform::shift_key;

namespace {

void require_not_negative(std::int32_t value, std::string_view source) {
    if (value < 0) {
        throw platform::RuntimeError(platform::error_number::invalid_property_value,
                                     "Invalid property value",
                                     std::string(source));
    }
}

} // namespace

void HeadlessTextBox::SetVisible(bool visible) {
    const bool is_shown = visible && !Visible();
    set_visible(visible);
    if (is_shown && on_shown_) {
        on_shown_();
    }
}

void HeadlessTextBox::SetText(std::string_view text) {
    if (text != edit_.text()) {
        edit_.assign(text);
        raise_change();
    }
}

void HeadlessTextBox::SetSelStart(std::int32_t start) {
    require_not_negative(start, name());
    edit_.select(start, 0);
}

void HeadlessTextBox::SetSelLength(std::int32_t length) {
    require_not_negative(length, name());
    edit_.select(edit_.selection_start(), length);
}

void HeadlessTextBox::raise_change() {
    if (events_ != nullptr) {
        const Activity activity(form());
        events_->Change();
    }
}

void HeadlessTextBox::got_focus() {
    if (events_ != nullptr) {
        const Activity activity(form());
        events_->GotFocus();
    }
}

void HeadlessTextBox::lost_focus() {
    if (events_ != nullptr) {
        const Activity activity(form());
        events_->LostFocus();
    }
}

void HeadlessTextBox::key_down(std::int16_t& key_code, std::int16_t& shift) {
    if (events_ != nullptr) {
        const Activity activity(form());
        events_->KeyDown(key_code, shift);
    }
}

void HeadlessTextBox::act_on_key(std::int16_t key_code, std::int16_t shift) {
    if ((shift & ~shift_key) != 0) {
        return;
    }
    const bool extend = shift == shift_key;
    bool is_different = false;
    switch (key_code) {
    case key_backspace:
        is_different = edit_.erase_backwards();
        break;
    case key_delete:
        is_different = edit_.erase_forwards();
        break;
    case key_left:
        edit_.move_left(extend);
        break;
    case key_right:
        edit_.move_right(extend);
        break;
    case key_home:
        edit_.move_home(extend);
        break;
    case key_end:
        edit_.move_end(extend);
        break;
    default:
        break;
    }
    if (is_different) {
        raise_change();
    }
}

void HeadlessTextBox::type(std::string_view character) {
    const std::string left = offer_character(character);
    if (!left.empty() && has_focus() && edit_.insert(left, max_length_)) {
        raise_change();
    }
}

std::string HeadlessTextBox::offer_character(std::string_view character) {
    std::u16string units = to_utf16(character);
    for (char16_t& unit : units) {
        auto key_ascii = static_cast<std::int16_t>(unit);
        if (events_ != nullptr) {
            const Activity activity(form());
            events_->KeyPress(key_ascii);
        }
        if (key_ascii == 0) {
            return {};
        }
        unit = static_cast<char16_t>(key_ascii);
    }
    std::string storage;
    return std::string(standard::utf8_from_utf16(units, storage));
}

void HeadlessTextBox::paste(std::string_view text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    if (!line.empty() && edit_.insert_what_fits(line, max_length_)) {
        raise_change();
    }
}

void HeadlessTextBox::press(const Mouse& mouse) {
    if (events_ != nullptr) {
        const Activity activity(form());
        events_->MouseDown(mouse.button, mouse.shift, mouse.x, mouse.y);
    }
}

void HeadlessTextBox::double_click(const Mouse& /*mouse*/) {
    if (events_ != nullptr) {
        const Activity activity(form());
        events_->DblClick();
    }
}

} // namespace krv::headless
