#include "providers/odbc/wide_text.h"

#include "standard/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

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

namespace {

/// Four units at a time: most texts of most lists are ASCII.
/// \return how many units were written, as many bytes; the first other character ends it
std::size_t narrow_ascii(std::span<const char16_t> text, char* out) {
    constexpr std::uint64_t beyond_ascii = 0xFF80FF80FF80FF80U;
    std::size_t at = 0;
    for (; at + 4 <= text.size(); at += 4) {
        std::uint64_t four = 0;
        std::memcpy(&four, text.data() + at, sizeof four);
        if ((four & beyond_ascii) != 0) {
            break;
        }
        for (std::size_t i = 0; i < 4; ++i) {
            out[at + i] = static_cast<char>(text[at + i]);
        }
    }
    for (; at < text.size() && text[at] < 0x80; ++at) {
        out[at] = static_cast<char>(text[at]);
    }
    return at;
}

} // namespace

std::string_view narrow_text(std::span<const char16_t> text, std::string& storage) {
    if (storage.size() < text.size()) {
        storage.resize(text.size());
    }
    return narrow_ascii(text, storage.data()) == text.size()
               ? std::string_view(storage).substr(0, text.size())
               : standard::utf8_from_utf16(text, storage);
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
    return std::string(narrow_text(std::span(text.data(), text.size()), storage));
}

} // namespace krv::providers::odbc
