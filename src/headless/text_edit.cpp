#include "krv/headless/text_edit.h"

#include "headless/text_units.h"

#include <algorithm>

namespace krv::headless {

void TextEdit::assign(std::string_view text) {
    text_ = text;
    length_ = length_in_units(text_);
    anchor_ = caret_ = 0;
}

void TextEdit::select(std::int32_t start, std::int32_t length) {
    anchor_ = std::min(start, length_);
    caret_ = anchor_ + std::min(length, length_ - anchor_);
}

bool TextEdit::insert(std::string_view inserted, std::int32_t limit) {
    const std::int32_t new_length = length_ - selection_length() + length_in_units(inserted);
    return (limit <= 0 || new_length <= limit) && replace_selection(inserted);
}

bool TextEdit::insert_what_fits(std::string_view inserted, std::int32_t limit) {
    if (limit <= 0) {
        return replace_selection(inserted);
    }
    const std::int32_t room = limit - (length_ - selection_length());
    const TextPlace end = place_at_or_before(inserted, room);
    return end.byte > 0 && replace_selection(inserted.substr(0, end.byte));
}

bool TextEdit::erase_backwards() {
    if (selection_length() == 0) {
        move_left(true);
    }
    return selection_length() > 0 && replace_selection({});
}

bool TextEdit::erase_forwards() {
    if (selection_length() == 0) {
        move_right(true);
    }
    return selection_length() > 0 && replace_selection({});
}

bool TextEdit::replace_selection(std::string_view inserted) {
    const std::int32_t start = selection_start();
    const TextPlace from = place_at_or_before(text_, start);
    const TextPlace to =
        selection_length() == 0 ? from : place_at_or_after(text_, start + selection_length());
    const bool is_same = std::string_view(text_).substr(from.byte, to.byte - from.byte) == inserted;
    text_.replace(from.byte, to.byte - from.byte, inserted);
    length_ = length_in_units(text_);
    anchor_ = caret_ = from.unit + length_in_units(inserted);
    return !is_same;
}

void TextEdit::move_left(bool extend) {
    if (!extend && selection_length() > 0) {
        move_caret(selection_start(), false);
    } else if (caret_ > 0) {
        move_caret(place_at_or_before(text_, caret_ - 1).unit, extend);
    } else {
        move_caret(0, extend);
    }
}

void TextEdit::move_right(bool extend) {
    if (!extend && selection_length() > 0) {
        move_caret(selection_start() + selection_length(), false);
    } else {
        move_caret(place_at_or_after(text_, caret_ + 1).unit, extend);
    }
}

void TextEdit::move_home(bool extend) {
    move_caret(0, extend);
}

void TextEdit::move_end(bool extend) {
    move_caret(length_, extend);
}

void TextEdit::move_caret(std::int32_t place, bool extend) {
    caret_ = place;
    if (!extend) {
        anchor_ = place;
    }
}

} // namespace krv::headless
