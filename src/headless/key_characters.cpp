#include "headless/key_characters.h"
#include "krv/platform/keys.h"

#include "standard/utf8.h"

namespace krv::headless {

using platform::key_enter;
using platform::key_packet;
using platform::key_space;
using platform::key_tab;
using platform::shift_key;

namespace {

constexpr std::int16_t first_key_of_pad = 96;
constexpr std::string_view number_pad = "0123456789*+ -./"; // a blank for the key without character

bool is_between(char32_t code, char first, char last) {
    return code >= static_cast<char32_t>(first) && code <= static_cast<char32_t>(last);
}

/// The key for a character other than a line end.
TypedCharacter typed(char32_t code, std::string_view character) {
    const auto key = static_cast<std::int16_t>(code);
    if (is_between(code, 'a', 'z')) {
        return {static_cast<std::int16_t>(key - 'a' + 'A'), 0, std::string(character)};
    }
    if (is_between(code, 'A', 'Z')) {
        return {key, shift_key, std::string(character)};
    }
    if (is_between(code, '0', '9') || code == ' ') {
        return {key, 0, std::string(character)};
    }
    if (code == '\t') {
        return {key_tab, 0, {}};
    }
    return {key_packet, 0, std::string(character)};
}

} // namespace

std::string character_of_key(std::int16_t code, std::int16_t shift) {
    if ((shift & ~shift_key) != 0) {
        return {};
    }
    const bool is_shifted = shift == shift_key;
    if (code >= 'A' && code <= 'Z') {
        return {static_cast<char>(is_shifted ? code : code - 'A' + 'a')};
    }
    if ((code >= '0' && code <= '9' && !is_shifted) || code == key_space) {
        return {static_cast<char>(code)};
    }
    const auto of_pad = static_cast<std::size_t>(code - first_key_of_pad);
    if (code >= first_key_of_pad && of_pad < number_pad.size() && number_pad[of_pad] != ' ') {
        return {number_pad[of_pad]};
    }
    return {};
}

std::vector<TypedCharacter> typed_characters(std::string_view text) {
    std::vector<TypedCharacter> all;
    for (std::size_t byte = 0; byte < text.size();) {
        const standard::DecodedCharacter character = standard::decode_utf8(text, byte);
        const bool is_line_feed_of_pair =
            character.code == '\n' && byte > 0 && text[byte - 1] == '\r';
        if (character.code == '\r' || (character.code == '\n' && !is_line_feed_of_pair)) {
            all.push_back({key_enter, 0, {}});
        } else if (!is_line_feed_of_pair) {
            all.push_back(typed(character.code, text.substr(byte, character.size)));
        }
        byte += character.size;
    }
    return all;
}

} // namespace krv::headless
