#include "krv/headless/page_check_box.h"
#include "krv/headless/page_entry_box.h"
#include "krv/headless/page_file_dialog.h"
#include "krv/headless/page_tab_strip.h"
#include "krv/platform/error.h"

#include <cstddef>

namespace krv::headless {

using platform::EditorEvents;

// --- Entry box -----------------------------------------------------------------------------------

void HeadlessEntryBox::SetText(std::string_view text) {
    if (text != text_) {
        text_ = text;
        tell(&EditorEvents::Change);
    }
}

// --- Check box -----------------------------------------------------------------------------------

void HeadlessCheckBox::SetValue(std::int16_t value) {
    if (value != 0 && value != 1) {
        fail(platform::error_number::invalid_property_value, "Invalid property value");
    }
    if (value != value_) {
        value_ = value;
        tell(&EditorEvents::Click);
    }
}

void HeadlessCheckBox::click(std::int32_t /*index*/) {
    SetValue(value_ == 0 ? 1 : 0);
}

// --- Tab strip -----------------------------------------------------------------------------------

void HeadlessTabStrip::require_tab(std::int32_t index) const {
    constexpr std::int32_t index_out_of_bounds = 35600;
    if (index < 1 || index > Count()) {
        fail(index_out_of_bounds, "Index out of bounds");
    }
}

void HeadlessTabStrip::Add(std::string_view caption) {
    captions_.emplace_back(caption);
    if (selected_ == 0) {
        selected_ = 1;
    }
}

void HeadlessTabStrip::Remove(std::int32_t index) {
    require_tab(index);
    captions_.erase(captions_.begin() + (index - 1));
    if (index == selected_) {
        selected_ = Count();
    } else if (index < selected_) {
        --selected_;
    }
}

void HeadlessTabStrip::Clear() {
    captions_.clear();
    selected_ = 0;
}

std::string HeadlessTabStrip::Caption(std::int32_t index) const {
    require_tab(index);
    return captions_[static_cast<std::size_t>(index - 1)];
}

void HeadlessTabStrip::SetSelectedIndex(std::int32_t index) {
    require_tab(index);
    selected_ = index;
    tell(&EditorEvents::Click);
}

// --- File dialog ---------------------------------------------------------------------------------

void HeadlessFileDialog::ShowOpen() {
    constexpr std::int32_t cancelled = 32755;
    const platform::LifeWatch watch(life_);
    const Ask ask = ask_; // a copy: it may replace itself
    const ShownFileDialog shown = shown_;
    const std::optional<std::string> file = ask ? ask(shown) : std::nullopt;
    if (!file) {
        throw platform::RuntimeError(cancelled, "Cancel was selected.", "CommonDialog1");
    }
    if (!watch.ended()) {
        file_name_ = *file;
    }
}

} // namespace krv::headless
