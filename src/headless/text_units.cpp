#include "headless/text_units.h"

#include "standard/utf8.h"

namespace krv::headless {

using standard::decode_utf8;

std::int32_t length_in_units(std::string_view text) noexcept {
    std::int32_t units = 0;
    for (std::size_t byte = 0; byte < text.size();) {
        const standard::DecodedCharacter character = decode_utf8(text, byte);
        units += units_of(character.code);
        byte += character.size;
    }
    return units;
}

TextPlace place_at_or_before(std::string_view text, std::int32_t unit) noexcept {
    TextPlace place;
    while (place.byte < text.size()) {
        const standard::DecodedCharacter character = decode_utf8(text, place.byte);
        if (place.unit + units_of(character.code) > unit) {
            break;
        }
        place.byte += character.size;
        place.unit += units_of(character.code);
    }
    return place;
}

TextPlace place_at_or_after(std::string_view text, std::int32_t unit) noexcept {
    TextPlace place;
    while (place.byte < text.size() && place.unit < unit) {
        const standard::DecodedCharacter character = decode_utf8(text, place.byte);
        place.byte += character.size;
        place.unit += units_of(character.code);
    }
    return place;
}

std::u16string to_utf16(std::string_view text) {
    std::u16string utf16;
    for (std::size_t byte = 0; byte < text.size();) {
        const standard::DecodedCharacter character = decode_utf8(text, byte);
        if (units_of(character.code) == 2) {
            const char32_t rest = character.code - 0x10000;
            utf16.push_back(static_cast<char16_t>(0xD800 + (rest >> 10)));
            utf16.push_back(static_cast<char16_t>(0xDC00 + (rest & 0x3FF)));
        } else {
            utf16.push_back(static_cast<char16_t>(character.code));
        }
        byte += character.size;
    }
    return utf16;
}

} // namespace krv::headless
