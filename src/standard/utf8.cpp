#include "standard/utf8.h"

#include "standard/letter_case.h"

namespace krv::standard {

namespace {

/// Bytes that a sequence with this first byte should have; 1 for a byte that begins none.
std::size_t promised_size(unsigned char first) noexcept {
    if (first >= 0xF0 && first < 0xF8) {
        return 4;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 3;
    }
    return first >= 0xC0 && first < 0xE0 ? 2 : 1;
}

bool is_scalar(char32_t code, std::size_t size) noexcept {
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= least[size] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

} // namespace

DecodedCharacter decode_utf8(std::string_view text, std::size_t at) noexcept {
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) {
        return {first, 1, true};
    }
    const std::size_t promised = promised_size(first);
    char32_t code = promised == 1 ? 0 : first & (0x7FU >> promised);
    std::size_t size = 1;
    while (size < promised && at + size < text.size()) {
        const auto next = static_cast<unsigned char>(text[at + size]);
        if ((next & 0xC0) != 0x80) {
            break;
        }
        code = (code << 6) | (next & 0x3FU);
        ++size;
    }
    if (promised > 1 && size == promised && is_scalar(code, size)) {
        return {code, size, true};
    }
    return {replacement_character, size, false};
}

bool is_valid_utf8(std::string_view text) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        if (at + 8 <= text.size() && is_ascii(text.substr(at, 8))) {
            at += 8;
            continue;
        }
        const DecodedCharacter character = decode_utf8(text, at);
        if (!character.valid) {
            return false;
        }
        at += character.size;
    }
    return true;
}

std::string_view repaired_utf8(std::string_view text, std::string& storage) {
    if (is_valid_utf8(text)) {
        return text;
    }
    storage.clear();
    for (std::size_t at = 0; at < text.size();) {
        const DecodedCharacter character = decode_utf8(text, at);
        if (character.valid) {
            storage += text.substr(at, character.size);
        } else {
            append_utf8(replacement_character, storage);
        }
        at += character.size;
    }
    return storage;
}

std::string_view utf8_from_utf16(std::span<const char16_t> text, std::string& storage) {
    storage.clear();
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t code = text[at];
        const bool leads = code >= 0xD800 && code < 0xDC00;
        if (leads && at + 1 < text.size() && text[at + 1] >= 0xDC00 && text[at + 1] <= 0xDFFF) {
            code = 0x10000 + ((code - 0xD800) << 10) + (text[at + 1] - 0xDC00U);
            ++at;
        } else if (code >= 0xD800 && code <= 0xDFFF) {
            code = replacement_character;
        }
        append_utf8(code, storage);
    }
    return storage;
}

} // namespace krv::standard
