#include "providers/odbc/wide_text.h"

#include "standard/utf8.h"

#include <algorithm>

namespace krv::providers::odbc {

std::u16string wide_text(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto character = standard::decode_utf8(text, at);
        at += character.size;
        if (character.code < 0x10000) {
            result += static_cast<char16_t>(character.code);
        } else {
            const char32_t above = character.code - 0x10000;
            result += static_cast<char16_t>(0xD800 + (above >> 10));
            result += static_cast<char16_t>(0xDC00 + (above & 0x3FF));
        }
    }
    return result;
}

std::string_view narrow_text(std::span<const char16_t> text, std::string& storage) {
    char16_t seen = 0;
    for (const char16_t unit : text) {
        seen |= unit;
    }
    if (seen >= 0x80) {
        return standard::utf8_from_utf16(text, storage);
    }
    storage.resize(text.size());
    std::transform(text.begin(), text.end(), storage.begin(), [](char16_t unit) {
        return static_cast<char>(unit);
    });
    return storage;
}

std::string narrow_text(std::u16string_view text) {
    std::string storage;
    const bool may_be_bytes =
        std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x100; });
    if (may_be_bytes) {
        std::string bytes(text.size(), '\0');
        std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t unit) {
            return static_cast<char>(static_cast<unsigned char>(unit));
        });
        if (standard::is_valid_utf8(bytes)) {
            return bytes;
        }
    }
    narrow_text(std::span(text.data(), text.size()), storage);
    return storage;
}

} // namespace krv::providers::odbc
