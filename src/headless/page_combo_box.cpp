#include "krv/headless/page_combo_box.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <limits>

namespace krv::headless {

using namespace platform::error_number;

void HeadlessComboBox::SetText(std::string_view text) {
    const std::int16_t position = position_of(text);
    if (typing_ == Typing::none) {
        if (text == text_) {
            return;
        }
        if (position < 0 && !text.empty()) {
            fail(property_is_read_only, "'Text' property is read-only");
        }
    }
    selected_ = position;
    if (text != text_) {
        text_ = text;
        tell(&platform::EditorEvents::Change);
    }
}

void HeadlessComboBox::SetItemData(std::int16_t index, std::int32_t data) {
    entry(index);
    entries_[static_cast<std::size_t>(index)].data = data;
}

void HeadlessComboBox::SetListIndex(std::int16_t index) {
    if (index != -1 && !is_in_list(index)) {
        fail(invalid_property_value, "Invalid property value");
    }
    selected_ = index;
    text_ = index < 0 ? std::string() : entry(index).text;
    if (index >= 0) {
        tell(&platform::EditorEvents::Click);
    }
}

void HeadlessComboBox::AddItem(std::string_view text, std::int16_t index) {
    const bool is_full = ListCount() == std::numeric_limits<std::int16_t>::max();
    if (is_full || (index != ListCount() && !is_in_list(index))) {
        fail(invalid_call, "Invalid procedure call or argument");
    }
    entries_.insert(entries_.begin() + index, Entry{std::string(text)});
    if (selected_ >= index) {
        ++selected_;
    } else if (selected_ < 0 && typing_ == Typing::allowed && text == text_) {
        selected_ = index;
    }
}

void HeadlessComboBox::Clear() {
    entries_.clear();
    selected_ = -1;
    if (typing_ == Typing::none) {
        text_.clear();
    }
}

void HeadlessComboBox::type(std::string_view text) {
    if (typing_ == Typing::none) {
        PageEditor::type(text);
    }
    SetText(text);
}

void HeadlessComboBox::click(std::int32_t index) {
    if (!is_in_list(index)) {
        fail(invalid_property_value, "Invalid property value");
    }
    SetListIndex(static_cast<std::int16_t>(index));
}

const HeadlessComboBox::Entry& HeadlessComboBox::entry(std::int16_t index) const {
    if (!is_in_list(index)) {
        fail(invalid_property_array_index, "Invalid property array index");
    }
    return entries_[static_cast<std::size_t>(index)];
}

std::int16_t HeadlessComboBox::position_of(std::string_view text) const {
    const auto found = std::find_if(
        entries_.begin(), entries_.end(), [text](const Entry& each) { return each.text == text; });
    return found == entries_.end() ? std::int16_t{-1}
                                   : static_cast<std::int16_t>(found - entries_.begin());
}

} // namespace krv::headless
