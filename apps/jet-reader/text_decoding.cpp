#include "text_decoding.h"

#include "standard/utf8.h"

#include <algorithm>

namespace krv::jet_reader {

namespace {

bool is_compressed(Bytes data) noexcept {
    return data.size() >= 2 && data[0] == 0xFF && data[1] == 0xFE;
}

std::u16string expanded(Bytes data) {
    std::u16string text;
    text.reserve(data.size());
    bool in_pairs = false;
    for (std::size_t at = 0; at < data.size();) {
        if (data[at] == 0) {
            in_pairs = !in_pairs;
            ++at;
        } else if (!in_pairs) {
            text += static_cast<char16_t>(data[at++]);
        } else if (at + 1 < data.size()) {
            text += static_cast<char16_t>(load<std::uint16_t>(data.data() + at));
            at += 2;
        } else {
            break;
        }
    }
    return text;
}

std::u16string pairs(Bytes data) {
    std::u16string text(data.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        text[i] = static_cast<char16_t>(load<std::uint16_t>(data.data() + 2 * i));
    }
    return text;
}

/// All characters below 0x80: their low bytes are the text.
bool take_ascii_pairs(Bytes data, std::string& storage) {
    storage.resize(data.size() / 2);
    unsigned seen = 0;
    for (std::size_t i = 0; i < storage.size(); ++i) {
        const unsigned unit = load<std::uint16_t>(data.data() + 2 * i);
        seen |= unit;
        storage[i] = static_cast<char>(unit);
    }
    return seen < 0x80;
}

} // namespace

std::string_view decode_text(Bytes data, std::string& storage) {
    if (is_compressed(data)) {
        const Bytes rest = data.subspan(2);
        const std::string_view text(reinterpret_cast<const char*>(rest.data()), rest.size());
        if (standard::is_ascii(text) && text.find('\0') == std::string_view::npos) {
            return text;
        }
        return standard::utf8_from_utf16(expanded(rest), storage);
    }
    if (take_ascii_pairs(data, storage)) {
        return storage;
    }
    return standard::utf8_from_utf16(pairs(data), storage);
}

} // namespace krv::jet_reader
