#include "qt/letter_line.h"

namespace krv::qt {

namespace {

constexpr char32_t ellipsis = 0x2026;
constexpr char32_t no_character = 0x110000;

/// The character at `place`, which moves behind it; `no_character` for bytes that are no UTF-8.
char32_t next_character(std::string_view text, std::size_t& place) {
    const auto lead = static_cast<unsigned char>(text[place++]);
    if (lead < 0x80) {
        return lead < 0x20 ? U' ' : lead;
    }
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || place + static_cast<std::size_t>(more) > text.size()) {
        return no_character;
    }
    char32_t character = lead & (0x3FU >> static_cast<unsigned>(more));
    for (int i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[place++]);
        if ((byte & 0xC0U) != 0x80U) {
            return no_character;
        }
        character = character << 6U | (byte & 0x3FU);
    }
    return character;
}

} // namespace

bool LetterLine::set(GlyphAtlas& atlas, std::string_view utf8, float width) {
    letters_.clear();
    width_ = 0;
    for (std::size_t place = 0; place < utf8.size();) {
        Letter* const letter = atlas.letter(next_character(utf8, place));
        if (letter == nullptr) {
            return false;
        }
        if (!letters_.empty()) {
            width_ += atlas.kerning(*letters_.back().letter, *letter);
        }
        letters_.push_back({letter, width_});
        width_ += letter->advance;
        if (width_ > width) {
            return shorten(atlas, width);
        }
    }
    return true;
}

bool LetterLine::shorten(GlyphAtlas& atlas, float width) {
    Letter* const dots = atlas.letter(ellipsis);
    if (dots == nullptr) {
        return false;
    }
    while (!letters_.empty()) {
        width_ = letters_.back().x;
        letters_.pop_back();
        if (width_ + dots->advance <= width) {
            letters_.push_back({dots, width_});
            width_ += dots->advance;
            return true;
        }
    }
    width_ = 0;
    return true;
}

} // namespace krv::qt
